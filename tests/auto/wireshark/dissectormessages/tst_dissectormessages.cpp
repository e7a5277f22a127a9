// The dissector shows the messages that concern connections and devices: outcomes, control,
// discovery.

#include <support/wireshark/handmadecapture.h>
#include <support/wireshark/tshark.h>
#include <support/wireshark/udpcapture.h>

#include <tavorowire/discovery.h>
#include <tavorowire/frame.h>
#include <tavorowire/outcomes.h>

#include <QTest>

using namespace Tavoro;
using namespace Tavoro::SSProxy;
using Wire::CaptureEvent;
using Wire::FrameKind;
using Wire::WireHead;

namespace {

const QString frameNumber = QStringLiteral("frame.number");

/// The frame in which a client identifies its connection.
std::string identityRequest(const Wire::ConnectionId &id)
{
    WireHead head;
    head.kind = static_cast<quint8>(FrameKind::IdentityRequest);
    return frameOf(head, Wire::encodeConnectionId(id));
}

QStringList fieldsOf(HandMadeCapture &capture, const QStringList &fields)
{
    return Tshark::fields(capture.save(), QStringLiteral("tavoro || tavoro_discovery"), fields);
}

std::string discoveryRequest()
{
    return Wire::encodeDiscoveryRequest().toStdString();
}

std::string discoveryAnswer()
{
    ProtoModel::DeviceBaseInfo info;
    info.name = "wall";
    info.tcpPort = 6630;
    return Wire::encodeDiscoveryAnswer(info).toStdString();
}

const UdpEnd client{"192.0.2.7", 50000};
const UdpEnd allDevices{"192.0.2.255", 6631};
const UdpEnd device{"192.0.2.8", 6631};

} // namespace

class tst_DissectorMessages : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void questionForAnOutcomeFindsItsRequest();
    void bodiesOfAnotherLengthAreReported();
    void controlIsShownInWords();
    void leaseIsShownInWords();
    void leaseBodiesThatAreTooShortAreReported();
    void answersToADiscoveryRequestFindIt();
    void bytesAfterADiscoveryRequestAreShown();
    void discoveryAnswerWithoutAnIdentityIsReported();
    void discoveryIsRecognisedOnAnyPort();
    void otherDatagramOnThePortIsLeftAlone();
};

void tst_DissectorMessages::initTestCase()
{
    if (!Tshark::isInstalled())
        QSKIP(Tshark::skipMessage);
}

void tst_DissectorMessages::questionForAnOutcomeFindsItsRequest()
{
    const Wire::ConnectionId former{"CLIENT-1", 3};
    const Wire::ConnectionId current{"CLIENT-1", 4};
    WireHead question = requestHead(1, 0x0102, 6);
    HandMadeCapture capture;
    capture.sent(identityRequest(former)).sent(frameOf(requestHead(2, 0x1107, 5), R"({"swap":1})"));
    capture.add(1, CaptureEvent::Lost, "silent").add(2, CaptureEvent::Open, "127.0.0.1");
    capture.add(2, CaptureEvent::Sent, identityRequest(current));
    capture.add(2, CaptureEvent::Sent, frameOf(question, Wire::encodeRequestId({former, 5})));
    capture.add(2, CaptureEvent::Received, responseTo(question, std::string("\3\4")));
    QCOMPARE(
        fieldsOf(capture,
                 {frameNumber, QStringLiteral("tavoro.client"), QStringLiteral("tavoro.connection"),
                  QStringLiteral("tavoro.outcome.number"),
                  QStringLiteral("tavoro.outcome.request_in"),
                  QStringLiteral("tavoro.outcome.state"), QStringLiteral("tavoro.outcome.status")}),
        QStringList({
            QStringLiteral("4|434c49454e542d31|3||||"),
            QStringLiteral("5||||||"),
            QStringLiteral("10|434c49454e542d31|4||||"),
            QStringLiteral("11|434c49454e542d31|3|5|5||"),
            QStringLiteral("12|||||3|4"),
        }));
}

void tst_DissectorMessages::controlIsShownInWords()
{
    WireHead take = requestHead(2, 0x0101, 1);
    take.arg2[0] = 3;
    const WireHead question = requestHead(1, 0x0101, 2);
    WireHead report = requestHead(1, 0x0101, 0);
    report.kind = static_cast<quint8>(FrameKind::Report);
    report.arg2[0] = 1;
    HandMadeCapture capture;
    capture.sent(frameOf(take)).sent(frameOf(question));
    capture.received(responseTo(question, "[::1]:41873"));
    capture.received(frameOf(report, "192.0.2.9:50000"));
    QCOMPARE(fieldsOf(capture,
                      {QStringLiteral("_ws.col.Info"), QStringLiteral("tavoro.control.action"),
                       QStringLiteral("tavoro.control.others"),
                       QStringLiteral("tavoro.control.holder")}),
             QStringList({
                 QStringLiteral("Request 1: Control write|3||"),
                 QStringLiteral("Request 2: Control read|||"),
                 QStringLiteral("Response 2: Control read, success|||[::1]:41873"),
                 QStringLiteral("Report Control||1|192.0.2.9:50000"),
             }));
}

void tst_DissectorMessages::leaseIsShownInWords()
{
    WireHead take = requestHead(2, 0x0103, 1);
    take.arg2[0] = 1;
    WireHead release = requestHead(2, 0x0103, 2);
    release.arg2[0] = 2;
    using namespace std::string_literals;
    HandMadeCapture capture;
    capture.sent(frameOf(take, "\x05\0gate a"s));
    capture.received(responseTo(take, "\x01\x88\x13\0\0gate a"s));
    capture.sent(frameOf(release)).received(responseTo(release, "\0\0\0\0\0"s));
    QCOMPARE(fieldsOf(capture,
                      {QStringLiteral("_ws.col.Info"), QStringLiteral("tavoro.lease.action"),
                       QStringLiteral("tavoro.lease.seconds"), QStringLiteral("tavoro.lease.state"),
                       QStringLiteral("tavoro.lease.milliseconds"),
                       QStringLiteral("tavoro.lease.holder")}),
             QStringList({
                 QStringLiteral("Request 1: Lease write|1|5|||gate a"),
                 QStringLiteral("Response 1: Lease write, success|1||1|5000|gate a"),
                 QStringLiteral("Request 2: Lease write|2||||"),
                 QStringLiteral("Response 2: Lease write, success|2||0|0|"),
             }));
}

void tst_DissectorMessages::leaseBodiesThatAreTooShortAreReported()
{
    using namespace std::string_literals;
    const WireHead take = requestHead(2, 0x0103, 1);
    HandMadeCapture capture;
    capture.sent(frameOf(take, "\x05\0"s)).received(responseTo(take, "\1\2\3\4"s));
    const QString wrong = QStringLiteral("The body does not have the length that this message has");
    QCOMPARE(
        fieldsOf(capture, {QStringLiteral("tavoro.body"), QStringLiteral("_ws.expert.message")}),
        QStringList({QStringLiteral("0500|") + wrong, QStringLiteral("01020304|") + wrong}));
}

void tst_DissectorMessages::bodiesOfAnotherLengthAreReported()
{
    WireHead identity;
    identity.kind = static_cast<quint8>(FrameKind::IdentityRequest);
    const WireHead question = requestHead(1, 0x0102, 1);
    HandMadeCapture capture;
    capture.sent(frameOf(identity)).sent(frameOf(identity, "short"));
    capture.sent(frameOf(question, "12345678901234567"));
    capture.received(responseTo(question, "\1"));
    const QString wrong = QStringLiteral("The body does not have the length that this message has");
    const QString noAnswer = QStringLiteral("The capture does not contain an answer");
    QCOMPARE(
        fieldsOf(capture, {QStringLiteral("tavoro.body"), QStringLiteral("_ws.expert.message")}),
        QStringList({QLatin1Char('|') + noAnswer,
                     QStringLiteral("73686f7274|%1,%2").arg(noAnswer, wrong),
                     QStringLiteral("3132333435363738393031323334353637|") + wrong,
                     QStringLiteral("01|") + wrong}));
}

void tst_DissectorMessages::answersToADiscoveryRequestFindIt()
{
    const UdpEnd other{"192.0.2.9", 6631};
    UdpCapture capture;
    capture.add(client, allDevices, discoveryRequest());
    capture.add(device, client, discoveryAnswer()).add(other, client, discoveryAnswer());
    capture.add(device, {"192.0.2.7", 50001}, discoveryAnswer()); // another client
    QCOMPARE(Tshark::fields(capture.save(), QStringLiteral("tavoro_discovery"),
                            {frameNumber, QStringLiteral("tavoro_discovery.answer_in"),
                             QStringLiteral("tavoro_discovery.answer_to"),
                             QStringLiteral("tavoro_discovery.time"),
                             QStringLiteral("_ws.col.Protocol"), QStringLiteral("_ws.col.Info")}),
             QStringList({
                 QStringLiteral("1|2,3|||Tavoro|Discovery request"),
                 QStringLiteral("2||1|0.001000000|Tavoro|Discovery answer"),
                 QStringLiteral("3||1|0.002000000|Tavoro|Discovery answer"),
                 QStringLiteral("4||||Tavoro|Discovery answer"),
             }));
    QCOMPARE(Tshark::lines(capture.save(), QStringLiteral("json.path_with_value == \"/name:wall\""))
                 .size(),
             3);
}

void tst_DissectorMessages::bytesAfterADiscoveryRequestAreShown()
{
    UdpCapture capture;
    capture.add(client, allDevices, discoveryRequest() + "later");
    QCOMPARE(Tshark::fields(capture.save(), QStringLiteral("tavoro_discovery"),
                            {QStringLiteral("tavoro_discovery.rest")}),
             QStringList(QStringLiteral("6c61746572")));
}

void tst_DissectorMessages::discoveryAnswerWithoutAnIdentityIsReported()
{
    UdpCapture capture;
    capture.add(device, client, "rspKELVORIN:").add(device, client, "rspKELVORIN:[]");
    const QString message = QStringLiteral("The answer does not contain an identity");
    QCOMPARE(Tshark::fields(capture.save(), QStringLiteral("tavoro_discovery"),
                            {QStringLiteral("_ws.expert.message")}),
             QStringList({message, message}));
}

void tst_DissectorMessages::discoveryIsRecognisedOnAnyPort()
{
    UdpCapture capture;
    capture.add(client, {"192.0.2.8", 40000}, discoveryRequest());
    capture.add({"192.0.2.8", 40000}, client, discoveryAnswer());
    QCOMPARE(
        Tshark::infos(capture.save()),
        QStringList({QStringLiteral("Discovery request"), QStringLiteral("Discovery answer")}));
}

void tst_DissectorMessages::otherDatagramOnThePortIsLeftAlone()
{
    UdpCapture capture;
    capture.add(client, device, "reqKELVORIN").add(client, device, "hello, hello, hello");
    QCOMPARE(Tshark::infos(capture.save()), QStringList());
}

QTEST_GUILESS_MAIN(tst_DissectorMessages)
#include "tst_dissectormessages.moc"
