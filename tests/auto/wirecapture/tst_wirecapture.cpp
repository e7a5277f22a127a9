// What travels goes to a capture, and a capture is played back as a device.

#include <recordeddevice.h>

#include <tavorosim/simulateddevice.h>
#include <tavorossproxy/devicecommand.h>
#include <tavorossproxy/devicemanager.h>
#include <tavorossproxy/tcpdevicechannel.h>
#include <tavorossproxy/wire/frame.h>
#include <tavorossproxy/wirecapture.h>

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <atomic>

using namespace Tavoro;
using namespace Tavoro::SSProxy;
using Wire::CapturedFrame;
using Wire::CaptureEvent;

namespace {

std::shared_ptr<NetworkChannel> connectTo(quint16 port)
{
    auto channel = openTcpDeviceChannel(QStringLiteral("127.0.0.1"), port);
    QString error;
    if (!channel->waitUntilReady(30000, error))
        qFatal("%s", qUtf8Printable(error));
    return channel;
}

std::shared_ptr<DeviceResponseCommand> send(NetworkChannel &channel, quint8 type, quint8 code,
                                            const std::string &body = {})
{
    auto command = std::make_shared<DeviceRequestCommand>();
    command->head().type = type;
    command->head().BC = 0x11;
    command->head().FC = code;
    command->body() = body;
    return channel.sendSyncRequest(command);
}

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
    void linesAreAsDocumented();
    void framesAreCutFromWhatTravelled();
    void whatIsNoCaptureIsToldByItsLine_data();
    void whatIsNoCaptureIsToldByItsLine();
    void everyFrameOfAChannelIsCaptured();
    void channelsThatWereOpenBeforeAreNotCaptured();
    void fileThatCannotBeWrittenIsToldInASentence();
    void captureIsPlayedBackAsADevice();
    void keptWritesArePlayedBack();
    void keptSplitAnswerAndReportArePlayedBack();
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
}

void tst_WireCapture::framesAreCutFromWhatTravelled()
{
    const std::string ping = bytesOf(Wire::encodeLinkFrame(Wire::FrameKind::Ping, 7));
    const std::string pong = bytesOf(Wire::encodeLinkFrame(Wire::FrameKind::Pong, 7));
    const auto line = [](int channel, qint64 time, CaptureEvent event, const std::string &bytes) {
        return Wire::encodeCaptureLine(channel, time, event, bytes);
    };
    const std::string text = captureOf(
        {line(1, 1, CaptureEvent::Open, "127.0.0.1"), "# a comment\n",
         line(1, 2, CaptureEvent::Received, ping.substr(0, 20)),
         line(2, 3, CaptureEvent::Received, ping + pong.substr(0, 5)),
         line(1, 4, CaptureEvent::Received, ping.substr(20)), line(1, 5, CaptureEvent::Sent, pong),
         line(2, 6, CaptureEvent::Close, {}), line(2, 7, CaptureEvent::Received, pong)});
    std::vector<CapturedFrame> frames;
    std::string error;
    QVERIFY2(Wire::decodeCapture(text, frames, error), error.c_str());
    QStringList seen;
    for (const CapturedFrame &frame : frames)
        seen.append(QStringLiteral("%1 %2 %3 kind %4 status %5")
                        .arg(frame.channel)
                        .arg(frame.microseconds)
                        .arg(frame.isFromClient)
                        .arg(frame.frame.head.kind)
                        .arg(frame.frame.status));
    QCOMPARE(seen,
             (QStringList{QStringLiteral("2 3 0 kind 6 status 0"),
                          QStringLiteral("1 4 0 kind 6 status 0"),
                          QStringLiteral("1 5 1 kind 7 status 0"),
                          QStringLiteral("2 7 0 kind 7 status 0")}));
}

void tst_WireCapture::whatIsNoCaptureIsToldByItsLine_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("error");
    const QByteArray heading = QByteArray::fromStdString(Wire::captureHeading());
    QTest::newRow("empty") << QByteArray() << QByteArray("line 1: this is no capture");
    QTest::newRow("other") << QByteArray("hello\n") << QByteArray("line 1: this is no capture");
    const QByteArray second("line 2: this is no line of a capture");
    QTest::newRow("word") << heading + "1 0.0 fly 00\n" << second;
    QTest::newRow("digits") << heading + "1 0.0 > 0G\n" << second;
    QTest::newRow("half a byte") << heading + "1 0.0 > 000\n" << second;
    QTest::newRow("no time") << heading + "1 open\n" << second;
}

void tst_WireCapture::whatIsNoCaptureIsToldByItsLine()
{
    QFETCH(QByteArray, text);
    QFETCH(QByteArray, error);
    std::vector<CapturedFrame> frames;
    std::string told;
    QVERIFY(!Wire::decodeCapture(text.toStdString(), frames, told));
    QCOMPARE(QByteArray::fromStdString(told), error);
}

namespace {

/// A device whose swap is read, written and read again, into a capture at \a path.
void captureASwap(const QString &path)
{
    Sim::SimOptions options;
    options.packetSize = 400;
    Sim::SimulatedDevice device(options);
    QString error;
    QVERIFY2(device.start(error), qPrintable(error));
    QVERIFY2(startWireCapture(path, error), qPrintable(error));
    const auto channel = connectTo(device.port());
    QCOMPARE(int(send(*channel, 1, 0x0A)->status), 0);
    QCOMPARE(int(send(*channel, 2, 0x07, R"({"swap":0})")->status), 0);
    QCOMPARE(int(send(*channel, 2, 0x07, R"({"swap":7})")->status), 4);
    channel->stopChannel();
    stopWireCapture();
}

std::vector<CapturedFrame> framesOf(const QString &path)
{
    QFile file(path);
    std::vector<CapturedFrame> frames;
    std::string error;
    if (!file.open(QIODevice::ReadOnly)
        || !Wire::decodeCapture(file.readAll().toStdString(), frames, error))
        qFatal("%s: %s", qUtf8Printable(path), error.c_str());
    return frames;
}

} // namespace

void tst_WireCapture::everyFrameOfAChannelIsCaptured()
{
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("capture"));
    captureASwap(path);
    QStringList seen;
    for (const CapturedFrame &frame : framesOf(path))
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

void tst_WireCapture::channelsThatWereOpenBeforeAreNotCaptured()
{
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("capture"));
    Sim::SimulatedDevice device;
    QString error;
    QVERIFY(device.start(error));
    const auto channel = connectTo(device.port());
    QVERIFY2(startWireCapture(path, error), qPrintable(error));
    QCOMPARE(int(send(*channel, 1, 0)->status), 0);
    stopWireCapture();
    QVERIFY(framesOf(path).empty());
}

void tst_WireCapture::fileThatCannotBeWrittenIsToldInASentence()
{
    QString error;
    QVERIFY(!startWireCapture(QStringLiteral("/no/such/folder/capture"), error));
    QCOMPARE(error, QStringLiteral("/no/such/folder/capture: No such file or directory"));
}

void tst_WireCapture::captureIsPlayedBackAsADevice()
{
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("capture"));
    captureASwap(path);
    RecordedDevice device(path);
    const auto channel = connectTo(device.port());
    QCOMPARE(device.unplayed(), 3);
    QCOMPARE(int(send(*channel, 2, 0x07, R"({"swap":7})")->status), 4);
    QCOMPARE(int(send(*channel, 2, 0x07, R"({"swap":0})")->status), 0);
    QCOMPARE(send(*channel, 1, 0x0A)->body(), framesOf(path).at(3).frame.body);
    QCOMPARE(device.unplayed(), 0);
    QCOMPARE(device.surprises(), 0);
}

void tst_WireCapture::keptWritesArePlayedBack()
{
    RecordedDevice device(QStringLiteral(TEST_DATA_DIR "/captures/swap.txt"));
    const auto channel = connectTo(device.port());
    QCOMPARE(channel->deviceBaseInfo().name, std::string("Simulated device"));
    QCOMPARE(int(send(*channel, 2, 0x07, R"({"swap":0})")->status), 0);
    QCOMPARE(int(send(*channel, 2, 0x07, R"({"swap":7})")->status), 4);
    QCOMPARE(send(*channel, 1, 0x0A)->body(), std::string(R"({"groupInfos":[]})"));
    QCOMPARE(device.unplayed(), 0);
}

void tst_WireCapture::keptSplitAnswerAndReportArePlayedBack()
{
    RecordedDevice device(QStringLiteral(TEST_DATA_DIR "/captures/splitanswer.txt"));
    const auto channel = connectTo(device.port());
    std::atomic<int> reports{0};
    const auto connection = connect(
        DeviceManager::instance(), &DeviceManager::parseDeviceAutoReportFinished,
        DeviceManager::instance(),
        [&](const auto &, const auto &report) { reports += report->head().BC == 0x12; },
        Qt::DirectConnection);
    const auto first = send(*channel, 1, 0);
    QCOMPARE(int(first->status), 0);
    QCOMPARE(first->head().totalCount, quint32(2));
    QCOMPARE(first->body().size(), std::size_t(500));
    QTRY_COMPARE(reports.load(), 1);
    disconnect(connection);

    auto further = std::make_shared<DeviceRequestCommand>();
    further->head() = first->head();
    further->head().sendCount = 1;
    const auto second = channel->sendSyncRequest(further);
    QCOMPARE(int(second->status), 0);
    QCOMPARE(second->body().size(), std::size_t(430));
    QCOMPARE(device.surprises(), 0);
    QCOMPARE(device.unplayed(), 1); // the write
}

QTEST_GUILESS_MAIN(tst_WireCapture)
#include "tst_wirecapture.moc"
