// The dissector finds frames in segments, and its connections on any port.

#include <support/wireshark/tshark.h>
#include <support/wireshark/wirepage.h>

#include <QTest>

using namespace Tavoro::SSProxy;
using Wire::CaptureEvent;

class tst_DissectorSegments : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void framesAreJoinedFromSegments();
    void framesInOneSegmentAreAllShown();
    void framesBeforeAnIncompleteOneAreShownInTheirSegment();
    void framesAreRecognisedOnAnyPort();
    void portCanBeDecodedAsTheProtocol();
    void otherProtocolOnThePortIsLeftAlone();
};

void tst_DissectorSegments::initTestCase()
{
    if (!Tshark::isInstalled())
        QSKIP(Tshark::skipMessage);
}

/// Three frames of 50, 40 and 89 bytes, on each channel in segments of another length.
void tst_DissectorSegments::framesAreJoinedFromSegments()
{
    const std::string bytes = dump("write-request") + dump("ping") + dump("report");
    HandMadeCapture capture;
    QStringList expected;
    int channel = 1;
    for (const std::size_t length : {1u, 2u, 39u, 40u, 41u, 90u, 120u}) {
        capture.add(++channel, CaptureEvent::Open, "10.1.2.3");
        for (std::size_t at = 0; at < bytes.size(); at += length)
            capture.add(channel, CaptureEvent::Sent, std::string_view(bytes).substr(at, length));
        for (const char *info : {"Request 1: DeviceSwap write", "Ping", "Report DevicePower"})
            expected << QStringLiteral("%1 %2").arg(channel - 1).arg(QLatin1String(info));
    }
    const QString path = capture.save();
    QStringList shown;
    for (const QString &line :
         Tshark::fields(path, QStringLiteral("tavoro"),
                        {QStringLiteral("tcp.stream"), QStringLiteral("_ws.col.Info")}))
        for (const QString &info : line.section(QLatin1Char('|'), 1).split(QStringLiteral("; ")))
            if (!info.startsWith(QLatin1String("[TCP segment")))
                shown << line.section(QLatin1Char('|'), 0, 0) + QLatin1Char(' ') + info;
    QCOMPARE(shown, expected);
    QCOMPARE(Tshark::lines(path, QStringLiteral("_ws.expert.severity == \"Error\"")),
             QStringList());
}

void tst_DissectorSegments::framesInOneSegmentAreAllShown()
{
    HandMadeCapture capture;
    capture.sent(dump("write-request") + dump("ping"));
    capture.received(dump("pong") + dump("write-response") + dump("report"));
    QCOMPARE(
        Tshark::fields(capture.save(), QStringLiteral("tavoro"),
                       {QStringLiteral("tavoro.response_in"), QStringLiteral("tavoro.response_to"),
                        QStringLiteral("tavoro.time"), QStringLiteral("_ws.col.Info")}),
        QStringList({
            QStringLiteral("5,5|||Request 1: DeviceSwap write; Ping"),
            QStringLiteral("|4,4|0.001000000,0.001000000|Pong; Response 1: DeviceSwap write, "
                           "success; Report DevicePower"),
        }));
}

void tst_DissectorSegments::framesBeforeAnIncompleteOneAreShownInTheirSegment()
{
    HandMadeCapture capture;
    capture.received(dump("report") + dump("ping").substr(0, 30));
    capture.received(dump("ping").substr(30) + dump("report"));
    QCOMPARE(Tshark::fields(capture.save(), QStringLiteral("tavoro"),
                            {QStringLiteral("frame.number"), QStringLiteral("_ws.col.Info")}),
             QStringList({
                 QStringLiteral("4|Report DevicePower"),
                 QStringLiteral("5|Ping; Report DevicePower"),
             }));
}

namespace {

/// The bytes of a capture in which the device has another port.
std::string withPort(const HandMadeCapture &capture, const QByteArray &port)
{
    return QByteArray::fromStdString(capture.bytes())
        .replace(QByteArray::fromHex("19e6"), port)
        .toStdString();
}

} // namespace

void tst_DissectorSegments::framesAreRecognisedOnAnyPort()
{
    HandMadeCapture capture;
    capture << "write-request"
            << "write-response";
    capture.received(dump("ping").substr(0, 10)); // too short to be recognised by itself
    capture.received(dump("ping").substr(10));
    QCOMPARE(Tshark::infos(capture.save(withPort(capture, "\x12\x34"))),
             QStringList({
                 QStringLiteral("Request 1: DeviceSwap write"),
                 QStringLiteral("Response 1: DeviceSwap write, success"),
                 QStringLiteral("Ping"),
             }));
}

void tst_DissectorSegments::portCanBeDecodedAsTheProtocol()
{
    HandMadeCapture capture;
    capture.received(dump("ping").substr(0, 10));
    capture.received(dump("ping").substr(10));
    const QString path = capture.save(withPort(capture, "\x12\x34"));
    QCOMPARE(Tshark::infos(path), QStringList());
    QCOMPARE(Tshark::infos(path, {QStringLiteral("-d"), QStringLiteral("tcp.port==4660,tavoro")}),
             QStringList(QStringLiteral("Ping")));
}

void tst_DissectorSegments::otherProtocolOnThePortIsLeftAlone()
{
    HandMadeCapture capture;
    capture.sent("GET / HTTP/1.1\r\n\r\n");
    QCOMPARE(Tshark::infos(capture.save()), QStringList());
}

QTEST_GUILESS_MAIN(tst_DissectorSegments)
#include "tst_dissectorsegments.moc"
