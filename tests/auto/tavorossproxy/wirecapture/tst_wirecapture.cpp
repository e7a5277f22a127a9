// Captures: the lines, the frames in them, and the file.

#include <support/common/capturedcalls.h>
#include <support/common/messagecatcher.h>

#include <tavorosim/simulateddevice.h>
#include <tavorossproxy/wirecapture.h>
#include <tavorowire/frame.h>

#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Tavoro;
using namespace Tavoro::SSProxy;
using Wire::CapturedItem;
using Wire::CaptureEvent;

namespace {

std::string captureOf(std::initializer_list<std::string> lines)
{
    std::string text = Wire::captureHeading();
    for (const std::string &line : lines)
        text += line;
    return text;
}

std::string bytesOf(const QByteArray &bytes)
{
    return bytes.toStdString();
}

} // namespace

class tst_WireCapture : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void startedCaptureWinsOverTheEnvironment(); // before any channel was opened
    void linesAreAsDocumented();
    void framesAreCutFromTheBytes();
    void incompleteFramesAreShownAtTheEndOfTheConnection();
    void invalidLineIsReportedByItsNumber_data();
    void invalidLineIsReportedByItsNumber();
    void everyFrameOfAChannelIsCaptured();
    void channelsOpenedBeforeAreNotCaptured();
    void fileThatCannotBeWrittenIsReportedAsASentence_data();
    void fileThatCannotBeWrittenIsReportedAsASentence();
    void captureThatCannotContinueLogsWhyItEnds();
};

void tst_WireCapture::linesAreAsDocumented()
{
    QCOMPARE(Wire::captureHeading(), std::string("# tavoro wire capture 1\n"));
    QCOMPARE(Wire::encodeCaptureLine(1, 0, CaptureEvent::Open, "127.0.0.1"),
             std::string("1 0.000000 open 127.0.0.1\n"));
    QCOMPARE(Wire::encodeCaptureLine(2, 1000001, CaptureEvent::Sent, "TV"),
             std::string("2 1.000001 > 5456\n"));
    QCOMPARE(Wire::encodeCaptureLine(12, 999999, CaptureEvent::Received, "\xFF"),
             std::string("12 0.999999 < FF\n"));
    QCOMPARE(Wire::encodeCaptureLine(2, 1, CaptureEvent::Close), std::string("2 0.000001 close\n"));
    QCOMPARE(Wire::encodeCaptureLine(2, 1, CaptureEvent::Lost, "no answer\nin time"),
             std::string("2 0.000001 lost no answer in time\n"));
}

namespace {

/// Returns channel, time, kind, direction, kind and status of the frame, number of bytes, and text.
QString describe(const CapturedItem &item)
{
    constexpr const char *kinds[] = {"opened", "frame", "part", "closed", "lost"};
    return QStringLiteral("%1 %2 %3 %4 %5 %6 %7 %8")
        .arg(item.channel)
        .arg(item.microseconds)
        .arg(QLatin1String(kinds[static_cast<int>(item.kind)]))
        .arg(QLatin1Char(item.isFromClient ? '>' : '<'))
        .arg(item.frame.head.kind)
        .arg(item.frame.status)
        .arg(item.bytes.size())
        .arg(QString::fromStdString(item.text));
}

QStringList itemsOf(const std::string &text)
{
    std::vector<CapturedItem> items;
    std::string error;
    if (!Wire::decodeCapture(text, items, error))
        qFatal("%s", error.c_str());
    QStringList seen;
    for (const CapturedItem &item : items)
        seen.append(describe(item).trimmed());
    return seen;
}

std::string line(int channel, qint64 time, CaptureEvent event, const std::string &bytes = {})
{
    return Wire::encodeCaptureLine(channel, time, event, bytes);
}

} // namespace

void tst_WireCapture::framesAreCutFromTheBytes()
{
    const std::string ping = bytesOf(Wire::encodeLinkFrame(Wire::FrameKind::Ping, 7));
    const std::string pong = bytesOf(Wire::encodeLinkFrame(Wire::FrameKind::Pong, 7));
    const std::string text = captureOf(
        {line(1, 1, CaptureEvent::Open, "127.0.0.1"), "# a comment\n",
         line(1, 2, CaptureEvent::Received, ping.substr(0, 20)),
         line(2, 3, CaptureEvent::Received, ping + pong),
         line(1, 4, CaptureEvent::Received, ping.substr(20)), line(1, 5, CaptureEvent::Sent, pong),
         line(2, 6, CaptureEvent::Close), line(2, 7, CaptureEvent::Received, pong)});
    QCOMPARE(
        itemsOf(text),
        (QStringList{QStringLiteral("1 1 opened < 0 0 0 127.0.0.1"),
                     QStringLiteral("2 3 frame < 6 0 40"), QStringLiteral("2 3 frame < 7 0 40"),
                     QStringLiteral("1 4 frame < 6 0 40"), QStringLiteral("1 5 frame > 7 0 40"),
                     QStringLiteral("2 6 closed < 0 0 0"), QStringLiteral("2 7 frame < 7 0 40")}));
}

void tst_WireCapture::incompleteFramesAreShownAtTheEndOfTheConnection()
{
    Wire::WireHead head;
    head.kind = static_cast<quint8>(Wire::FrameKind::Report);
    const std::string report = bytesOf(Wire::encodeFrame(head, "[1,2,3]"));
    const std::string text = captureOf(
        {line(1, 1, CaptureEvent::Received, report + report.substr(0, 39)),
         line(1, 2, CaptureEvent::Lost, "The remote host closed the connection"),
         line(1, 3, CaptureEvent::Received, report.substr(0, 40)),
         line(1, 4, CaptureEvent::Sent, report.substr(0, 1)), line(1, 5, CaptureEvent::Close),
         line(2, 6, CaptureEvent::Received, report.substr(0, 46)),
         line(1, 7, CaptureEvent::Open, "127.0.0.1")});
    QCOMPARE(itemsOf(text),
             (QStringList{QStringLiteral("1 1 frame < 3 0 47"), QStringLiteral("1 1 part < 0 0 39"),
                          QStringLiteral("1 2 lost < 0 0 0 The remote host closed the connection"),
                          QStringLiteral("1 4 part > 0 0 1"), QStringLiteral("1 3 part < 3 0 40"),
                          QStringLiteral("1 5 closed < 0 0 0"),
                          QStringLiteral("1 7 opened < 0 0 0 127.0.0.1"),
                          QStringLiteral("2 6 part < 3 0 46")}));
}

void tst_WireCapture::invalidLineIsReportedByItsNumber_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("error");
    const QByteArray heading = QByteArray::fromStdString(Wire::captureHeading());
    QTest::newRow("empty") << QByteArray() << QByteArray("line 1: not a capture");
    QTest::newRow("other") << QByteArray("hello\n") << QByteArray("line 1: not a capture");
    const QByteArray second("line 2: not a line of a capture");
    QTest::newRow("word") << heading + "1 0.0 fly 00\n" << second;
    QTest::newRow("digits") << heading + "1 0.0 > 0G\n" << second;
    QTest::newRow("half a byte") << heading + "1 0.0 > 000\n" << second;
    QTest::newRow("no time") << heading + "1 open\n" << second;
}

void tst_WireCapture::invalidLineIsReportedByItsNumber()
{
    QFETCH(QByteArray, text);
    QFETCH(QByteArray, error);
    std::vector<CapturedItem> items;
    std::string message;
    QVERIFY(!Wire::decodeCapture(text.toStdString(), items, message));
    QCOMPARE(QByteArray::fromStdString(message), error);
}

void tst_WireCapture::startedCaptureWinsOverTheEnvironment()
{
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("started"));
    const QString other = folder.filePath(QStringLiteral("other"));
    qputenv("TAVORO_CAPTURE", QFile::encodeName(other));
    captureASwap(path);
    qunsetenv("TAVORO_CAPTURE");
    QCOMPARE(framesOf(path).size(), std::size_t(8));
    QVERIFY(!QFileInfo::exists(other));
}

void tst_WireCapture::everyFrameOfAChannelIsCaptured()
{
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("capture"));
    captureASwap(path);
    QStringList seen;
    for (const CapturedItem &frame : framesOf(path))
        seen.append(QStringLiteral("%1%2 %3 %4")
                        .arg(QLatin1Char(frame.isFromClient ? '>' : '<'))
                        .arg(frame.frame.head.kind)
                        .arg(frame.frame.head.code(), 0, 16)
                        .arg(frame.frame.head.status));
    QCOMPARE(seen,
             (QStringList{QStringLiteral(">4 0 0"), QStringLiteral("<5 0 0"),
                          QStringLiteral(">1 110a 0"), QStringLiteral("<2 110a 0"),
                          QStringLiteral(">1 1107 0"), QStringLiteral("<2 1107 0"),
                          QStringLiteral(">1 1107 0"), QStringLiteral("<2 1107 4")}));
}

void tst_WireCapture::channelsOpenedBeforeAreNotCaptured()
{
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("capture"));
    Sim::SimulatedDevice device;
    QString error;
    QVERIFY(device.start(error));
    const auto channel = connectTo(device.port());
    QVERIFY2(startWireCapture(path, error), qPrintable(error));
    QCOMPARE(int(send(*channel, 1, 0x1100)->status), 0);
    stopWireCapture();
    QVERIFY(framesOf(path).empty());
}

void tst_WireCapture::fileThatCannotBeWrittenIsReportedAsASentence_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("sentence");
    QTest::newRow("no folder") << QStringLiteral("/no/such/folder/capture")
                               << QStringLiteral(
                                      "/no/such/folder/capture: No such file or directory");
    QTest::newRow("no room") << QStringLiteral("/dev/full")
                             << QStringLiteral("/dev/full: No space left on device");
}

void tst_WireCapture::fileThatCannotBeWrittenIsReportedAsASentence()
{
    QFETCH(QString, path);
    if (!QFileInfo::exists(QStringLiteral("/dev/full")))
        QSKIP("this system has no full device");
    QString error;
    QVERIFY(!startWireCapture(path, error));
    QTEST(error, "sentence");
    Sim::SimulatedDevice device;
    QVERIFY(device.start(error));
    QCOMPARE(int(send(*connectTo(device.port()), 1, 0x110A)->status), 0);
}

/// The capture is written into a pipe whose reader closes it.
void tst_WireCapture::captureThatCannotContinueLogsWhyItEnds()
{
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("pipe"));
    QCOMPARE(::mkfifo(QFile::encodeName(path).constData(), 0600), 0);
    const int reader = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_NONBLOCK);
    Sim::SimulatedDevice device;
    QString error;
    QVERIFY(device.start(error));
    QVERIFY2(startWireCapture(path, error), qPrintable(error));
    const auto channel = connectTo(device.port());
    QCOMPARE(int(send(*channel, 1, 0x110A)->status), 0);

    const MessageCatcher catcher;
    ::close(reader);
    QCOMPARE(int(send(*channel, 1, 0x110A)->status), 0);
    QCOMPARE(send(*channel, 1, 0x110A)->body(), std::string(R"({"groupInfos":[]})"));
    stopWireCapture();
    QCOMPARE(catcher.texts("tavoro.channel", QtWarningMsg),
             QStringList(QStringLiteral("The capture %1 ends here: Broken pipe").arg(path)));
}

QTEST_GUILESS_MAIN(tst_WireCapture)
#include "tst_wirecapture.moc"
