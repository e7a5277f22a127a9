// The dissector links frames: requests and answers, the packets of split exchanges, outcomes,
// discovery.

#include <support/wireshark/handmadecapture.h>
#include <support/wireshark/tshark.h>

#include <tavorowire/capture.h>
#include <tavorowire/frame.h>

#include <QFile>
#include <QTest>

using namespace Tavoro::SSProxy;
using Wire::CaptureEvent;
using Wire::FrameKind;
using Wire::WireHead;

namespace {

const QString frameNumber = QStringLiteral("frame.number");
const QString answerIn = QStringLiteral("tavoro.response_in");
const QString answerTo = QStringLiteral("tavoro.response_to");
const QString previousPacket = QStringLiteral("tavoro.previous_packet");
const QString nextPacket = QStringLiteral("tavoro.next_packet");
const QString packetIn = QStringLiteral("tavoro.packet_in");
const QString json = QStringLiteral("json.path_with_value");
const QString message = QStringLiteral("_ws.expert.message");

/// Packet \a index of a split exchange of \a count, on stream 9.
WireHead packetHead(quint8 type, quint16 code, quint32 number, quint32 index, quint32 count)
{
    WireHead head = requestHead(type, code, number);
    head.stream = 9;
    head.sendCount = index;
    head.totalCount = count;
    return head;
}

std::string linkFrame(FrameKind kind, quint8 tag = 0)
{
    return Wire::encodeLinkFrame(kind, tag).toStdString();
}

QStringList linksOf(HandMadeCapture &capture, const QStringList &fields)
{
    return Tshark::fields(capture.save(), QStringLiteral("tavoro"), fields);
}

/// A capture of text, as packets.
QString convert(const QString &path, HandMadeCapture &target)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("%s", qUtf8Printable(file.errorString()));
    Wire::PcapngEncoder encoder(0);
    std::string bytes = encoder.heading();
    std::string error;
    const auto add = [&](const Wire::CaptureLine &line) {
        bytes += encoder.encode(line.channel, line.microseconds, line.event, line.bytes);
    };
    if (!Wire::readCapture(file.readAll().toStdString(), add, error))
        qFatal("%s", error.c_str());
    return target.save(bytes);
}

} // namespace

class tst_DissectorLinks : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void answersOfOtherOrderFindTheirRequests();
    void pingsOfBothSidesFindTheirPongs();
    void pingsWithTheSameTagAreAnsweredInTheirOrder();
    void connectionsHaveExchangesOfTheirOwn();
    void missingRequestsAndAnswersAreReported();
    void repeatedAnswerIsReported();
    void answerThatDiffersFromItsRequestIsReported();
    void packetsOfASplitReadAreJoined();
    void packetsOfASplitWriteAreJoined();
    void streamThatIsUsedAgainBeginsAgain();
    void packetsOfAContentBelongTogetherByTheirFile();
    void recordedSplitAnswersAreJoined();
};

void tst_DissectorLinks::initTestCase()
{
    if (!Tshark::isInstalled())
        QSKIP(Tshark::skipMessage);
}

void tst_DissectorLinks::answersOfOtherOrderFindTheirRequests()
{
    const WireHead first = requestHead(1, 0x1100, 1);
    const WireHead second = requestHead(1, 0x1200, 2);
    HandMadeCapture capture;
    capture.sent(frameOf(first)).sent(frameOf(second));
    capture.received(responseTo(second)).received(responseTo(first));
    QCOMPARE(linksOf(capture, {frameNumber, answerIn, answerTo, QStringLiteral("tavoro.time")}),
             QStringList({QStringLiteral("4|7||"), QStringLiteral("5|6||"),
                          QStringLiteral("6||5|0.001000000"), QStringLiteral("7||4|0.003000000")}));
}

void tst_DissectorLinks::pingsOfBothSidesFindTheirPongs()
{
    HandMadeCapture capture;
    capture.sent(linkFrame(FrameKind::Ping, 7)).received(linkFrame(FrameKind::Ping, 7));
    capture.sent(linkFrame(FrameKind::Pong, 7)).received(linkFrame(FrameKind::Pong, 7));
    QCOMPARE(linksOf(capture, {frameNumber, answerIn, answerTo}),
             QStringList({QStringLiteral("4|7|"), QStringLiteral("5|6|"), QStringLiteral("6||5"),
                          QStringLiteral("7||4")}));
}

void tst_DissectorLinks::pingsWithTheSameTagAreAnsweredInTheirOrder()
{
    HandMadeCapture capture;
    capture.sent(linkFrame(FrameKind::Ping)).sent(linkFrame(FrameKind::Ping));
    capture.received(linkFrame(FrameKind::Pong)).received(linkFrame(FrameKind::Pong));
    QCOMPARE(linksOf(capture, {frameNumber, answerIn, answerTo}),
             QStringList({QStringLiteral("4|6|"), QStringLiteral("5|7|"), QStringLiteral("6||4"),
                          QStringLiteral("7||5")}));
}

void tst_DissectorLinks::connectionsHaveExchangesOfTheirOwn()
{
    const WireHead request = requestHead(1, 0x1100, 1);
    HandMadeCapture capture;
    capture.add(2, CaptureEvent::Open, "10.1.2.3");
    capture.sent(frameOf(request)).add(2, CaptureEvent::Sent, frameOf(request));
    capture.add(2, CaptureEvent::Received, responseTo(request)).received(responseTo(request));
    QCOMPARE(linksOf(capture, {frameNumber, answerIn, answerTo}),
             QStringList({QStringLiteral("7|10|"), QStringLiteral("8|9|"), QStringLiteral("9||8"),
                          QStringLiteral("10||7")}));
}

void tst_DissectorLinks::missingRequestsAndAnswersAreReported()
{
    HandMadeCapture capture;
    capture.received(responseTo(requestHead(1, 0x1100, 1)));
    capture.sent(frameOf(requestHead(1, 0x1100, 2)));
    QCOMPARE(linksOf(capture, {answerIn, answerTo, message}),
             QStringList({QStringLiteral("||The capture does not contain the request"),
                          QStringLiteral("||The capture does not contain an answer")}));
}

void tst_DissectorLinks::repeatedAnswerIsReported()
{
    const WireHead request = requestHead(1, 0x1100, 1);
    HandMadeCapture capture;
    capture.sent(frameOf(request)).received(responseTo(request) + responseTo(request));
    QCOMPARE(linksOf(capture, {answerIn, answerTo, message}),
             QStringList(
                 {QStringLiteral("5||"), QStringLiteral("|4,4|The request was answered before")}));
}

void tst_DissectorLinks::answerThatDiffersFromItsRequestIsReported()
{
    HandMadeCapture capture;
    for (quint32 i = 1; i <= 3; ++i) {
        const WireHead request = requestHead(1, 0x1100, i);
        WireHead other = request;
        if (i == 1)
            other.FC = 1;
        else if (i == 2)
            other.type = 2;
        else
            other.arg2[3] = 1;
        capture.sent(frameOf(request)).received(responseTo(other));
    }
    const QString differs =
        QStringLiteral("Code, type or filters differ from those of the request");
    QCOMPARE(linksOf(capture, {answerTo, message}),
             QStringList({QStringLiteral("|"), QStringLiteral("4|") + differs, QStringLiteral("|"),
                          QStringLiteral("6|") + differs, QStringLiteral("|"),
                          QStringLiteral("8|") + differs}));
}

void tst_DissectorLinks::packetsOfASplitReadAreJoined()
{
    const WireHead first = packetHead(1, 0x1100, 1, 0, 0);
    const WireHead second = packetHead(1, 0x1100, 2, 1, 3);
    const WireHead third = packetHead(1, 0x1100, 3, 2, 3);
    HandMadeCapture capture;
    capture.sent(frameOf(first)).received(responseTo(first, R"({"sw)", 0, 3));
    capture.sent(frameOf(second)).received(responseTo(second, R"(ap":)", 1, 3));
    capture.sent(frameOf(third)).received(responseTo(third, "7}", 2, 3));
    QCOMPARE(linksOf(capture, {frameNumber, previousPacket, nextPacket, packetIn, json}),
             QStringList({
                 QStringLiteral("4||||"),
                 QStringLiteral("5||7||"),
                 QStringLiteral("6||||"),
                 QStringLiteral("7|5|9||"),
                 QStringLiteral("8||||"),
                 QStringLiteral("9|7||5,7,9|/swap:7"),
             }));
}

void tst_DissectorLinks::packetsOfASplitWriteAreJoined()
{
    const WireHead first = packetHead(2, 0x1107, 1, 0, 2);
    const WireHead second = packetHead(2, 0x1107, 2, 1, 2);
    HandMadeCapture capture;
    capture.sent(frameOf(first, R"({"swap")")).received(responseTo(first));
    capture.sent(frameOf(second, ":7}")).received(responseTo(second));
    QCOMPARE(linksOf(capture, {frameNumber, previousPacket, nextPacket, packetIn, json}),
             QStringList({
                 QStringLiteral("4||6||"),
                 QStringLiteral("5||||"),
                 QStringLiteral("6|4||4,6|/swap:7"),
                 QStringLiteral("7||||"),
             }));
}

void tst_DissectorLinks::streamThatIsUsedAgainBeginsAgain()
{
    HandMadeCapture capture;
    capture.sent(frameOf(packetHead(2, 0x1107, 1, 0, 3), "dropped"));
    capture.sent(frameOf(packetHead(2, 0x1107, 2, 0, 2), R"({"swap")"));
    capture.sent(frameOf(packetHead(2, 0x1107, 3, 1, 2), ":7}"));
    QCOMPARE(linksOf(capture, {frameNumber, previousPacket, nextPacket, packetIn, json}),
             QStringList({QStringLiteral("4||||"), QStringLiteral("5||6||"),
                          QStringLiteral("6|5||5,6|/swap:7")}));
}

/// Packets of two files, each packet on a stream of its own.
void tst_DissectorLinks::packetsOfAContentBelongTogetherByTheirFile()
{
    HandMadeCapture capture;
    quint32 count = 0;
    for (quint32 index = 0; index < 2; ++index) {
        for (quint8 file = 1; file <= 2; ++file) {
            WireHead head = requestHead(4, 0xFA03, ++count);
            head.arg2[1] = file;
            head.sendCount = index;
            head.totalCount = 2;
            capture.sent(frameOf(head, "content"));
        }
    }
    QCOMPARE(linksOf(capture, {frameNumber, previousPacket, nextPacket, packetIn}),
             QStringList({QStringLiteral("4||6|"), QStringLiteral("5||7|"), QStringLiteral("6|4||"),
                          QStringLiteral("7|5||")}));
}

void tst_DissectorLinks::recordedSplitAnswersAreJoined()
{
    HandMadeCapture capture;
    const QString path = convert(QStringLiteral(TEST_DATA_DIR "/captures/splitread.txt"), capture);
    const QStringList joined =
        Tshark::fields(path, QStringLiteral("tavoro.packet_in"),
                       {frameNumber, packetIn, QStringLiteral("_ws.col.Info")});
    QCOMPARE(joined,
             QStringList(QStringLiteral(
                 "11|7,9,11|Response 3: DeviceDetail read, packet 3 of 3, success")));
    QCOMPARE(Tshark::lines(path, QStringLiteral("json.key == \"presetApplyType\"")).size(), 1);
}

QTEST_GUILESS_MAIN(tst_DissectorLinks)
#include "tst_dissectorlinks.moc"
