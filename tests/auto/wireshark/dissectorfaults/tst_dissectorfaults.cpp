// The dissector on invalid, incomplete and damaged frames.

#include <support/wireshark/tshark.h>
#include <support/wireshark/udpcapture.h>
#include <support/wireshark/wirepage.h>

#include <tavorowire/discovery.h>
#include <tavorowire/frame.h>

#include <QProcess>
#include <QTest>

#include <random>

using namespace Tavoro;
using namespace Tavoro::SSProxy;
using Wire::CaptureEvent;
using Wire::WireHead;

namespace {

const QString stream = QStringLiteral("tcp.stream");
const QString info = QStringLiteral("_ws.col.Info");
const QString message = QStringLiteral("_ws.expert.message");

/// The head of a frame with another value and the checksum for it. The head is packed: its members
/// may be unaligned.
template <class Value>
std::string withHead(const char *frame, Value WireHead::*member, Value value)
{
    std::string bytes = dump(frame);
    WireHead head;
    std::memcpy(static_cast<void *>(&head), bytes.data(), sizeof head);
    std::memcpy(static_cast<void *>(&(head.*member)), &value, sizeof value);
    head.headChecksum = Wire::headChecksum(head);
    return bytes.replace(0, sizeof head, reinterpret_cast<const char *>(&head), sizeof head);
}

std::string withByte(const char *frame, std::size_t position, char byte)
{
    std::string bytes = dump(frame);
    bytes.at(position) = byte;
    return bytes;
}

} // namespace

class tst_DissectorFaults : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void faultsOfFramesAreReported();
    void frameAfterAnInvalidSegmentIsShown();
    void checksumsThatBodiesShouldHaveAreShown();
    void bodiesAreNotVerifiedIfTheUserDoesNotWantIt();
    void incompleteFramesAreReported();
    void damagedFramesCauseNoErrorOfTheScript();
    void damagedDatagramsCauseNoErrorOfTheScript();
};

void tst_DissectorFaults::initTestCase()
{
    if (!Tshark::isInstalled())
        QSKIP(Tshark::skipMessage);
}

/// Each fault on a connection of its own, after a report.
void tst_DissectorFaults::faultsOfFramesAreReported()
{
    struct Fault {
        std::string bytes;
        const char *line;
    };
    // clang-format off
    const Fault faults[] = {
        // bytes                                                          information and message
        {withByte("report", 0, 'X'),                                      "Invalid frame|The flag is not 54 56"},
        {"X",                                                             "Invalid frame|The flag is not 54 56"},
        {withHead("report", &WireHead::version, quint8(2)),               "Invalid frame|The version is not 1"},
        {withByte("report", 30, '\0'),                                    "Invalid frame|Wrong head checksum"},
        {withHead("report", &WireHead::bodyLength, (64u << 20) + 1),      "Invalid frame|The body is longer than 64 MiB"},
        {withHead("report", &WireHead::checksumIndex, quint8(2)),         "Report DevicePower|Unknown checksum index"},
        {withByte("report", 60, 'X'),                                     "Report DevicePower|Wrong body checksum"},
        {withHead("report", &WireHead::checksumIndex, quint8(0)),         "Report DevicePower|Wrong body checksum"},
        {withHead("ping", &WireHead::bodyChecksum, 1u),                   "Ping|Wrong body checksum,The capture does not contain an answer"},
        {withHead("report", &WireHead::kind, quint8(8)),                  "Frame of kind 8|Unknown kind of frame"},
        {withHead("report", &WireHead::sendCount, 1u),
         "Report DevicePower|The index of the packet is not less than the number of packets"},
        {dump("write-refused"),
         "Response 1: DeviceSwap write, refused with status 4: a value is out of range"
         "|The device refused the request,The capture does not contain the request"},
        {withHead("write-refused", &WireHead::status, quint8(99)),
         "Response 1: DeviceSwap write, refused with status 99: a status of this device"
         "|The device refused the request,The capture does not contain the request"},
    };
    // clang-format on
    HandMadeCapture capture;
    QStringList expected;
    int channel = 1;
    for (const Fault &fault : faults) {
        capture.add(++channel, CaptureEvent::Open, "10.1.2.3");
        capture.add(channel, CaptureEvent::Received, dump("report"));
        capture.add(channel, CaptureEvent::Received, fault.bytes);
        expected << QStringLiteral("%1|Report DevicePower|").arg(channel - 1)
                 << QStringLiteral("%1|").arg(channel - 1) + QLatin1String(fault.line);
    }
    QCOMPARE(Tshark::fields(capture.save(), QStringLiteral("tavoro"), {stream, info, message}),
             expected);
}

void tst_DissectorFaults::frameAfterAnInvalidSegmentIsShown()
{
    HandMadeCapture capture;
    capture.received(dump("report")).received(withByte("report", 0, 'X') + dump("report"));
    capture.received(dump("report"));
    QCOMPARE(Tshark::fields(capture.save(), QStringLiteral("tavoro"), {info, message}),
             QStringList({QStringLiteral("Report DevicePower|"),
                          QStringLiteral("Invalid frame|The flag is not 54 56"),
                          QStringLiteral("Report DevicePower|")}));
}

void tst_DissectorFaults::checksumsThatBodiesShouldHaveAreShown()
{
    HandMadeCapture capture;
    capture.received(withByte("report", 88, ']')).received(withByte("report", 30, '\0'));
    const QString shown = Tshark::lines(capture.save(), QStringLiteral("tavoro"),
                                        {QStringLiteral("-O"), QStringLiteral("tavoro")})
                              .join(QLatin1Char('\n'));
    QVERIFY(shown.contains(QStringLiteral("Body checksum: 0x8b085690 [should be 0xb0667658]")));
    QVERIFY(shown.contains(QStringLiteral("Head checksum: 0xfc26 [should be 0x0253]")));
    QVERIFY(shown.contains(QStringLiteral("[Body checksum status: bad (0)]")));
    QVERIFY(shown.contains(QStringLiteral("[Head checksum status: bad (0)]")));
}

void tst_DissectorFaults::bodiesAreNotVerifiedIfTheUserDoesNotWantIt()
{
    HandMadeCapture capture;
    capture.received(withByte("report", 88, ']'));
    QCOMPARE(Tshark::fields(capture.save(), QStringLiteral("tavoro"),
                            {message, QStringLiteral("tavoro.body_checksum.status")},
                            {QStringLiteral("-o"), QStringLiteral("tavoro.verify_bodies:FALSE")}),
             QStringList(QStringLiteral("|2")));
}

/// A capture of the first bytes of each packet, and one whose segments the user does not join.
void tst_DissectorFaults::incompleteFramesAreReported()
{
    const QString incomplete = QStringLiteral("|The frame is not complete in this capture");
    HandMadeCapture capture;
    capture.received(dump("report"));
    const QString cut = capture.save() + QStringLiteral(".cut");
    for (const auto &[length, shown] :
         {std::pair("60", "Invalid frame"), std::pair("80", "Report DevicePower"),
          std::pair("100", "Report DevicePower")}) {
        const QStringList words{QStringLiteral("-s"), QLatin1String(length), capture.save(), cut};
        QCOMPARE(QProcess::execute(QStringLiteral("editcap"), words), 0);
        QCOMPARE(Tshark::fields(cut, QStringLiteral("tavoro"), {info, message}),
                 QStringList(QLatin1String(shown) + incomplete));
    }

    HandMadeCapture split;
    split.received(dump("report").substr(0, 50)).received(dump("report").substr(50));
    QCOMPARE(
        Tshark::fields(split.save(), QStringLiteral("tavoro"), {info, message},
                       {QStringLiteral("-o"), QStringLiteral("tcp.desegment_tcp_streams:FALSE")}),
        QStringList({QStringLiteral("Report DevicePower") + incomplete,
                     QStringLiteral("Invalid frame|The flag is not 54 56")}));
}

namespace {

const QString scriptError = QStringLiteral("_ws.lua.error");

/// Damages frames from a fixed seed, the same on every machine.
class Damage {
public:
    std::size_t below(std::size_t limit) { return m_random() % limit; }

    /// Changes some bytes or none, or cuts the end off.
    std::string apply(std::string bytes)
    {
        for (std::size_t count = below(4); count > 0; --count)
            bytes[below(bytes.size())] = static_cast<char>(below(256));
        if (below(6) == 0)
            bytes.resize(1 + below(bytes.size()));
        return bytes;
    }

    /// A damaged frame, often with the checksum for its head, so that the dissector reads on.
    std::string applyToFrame(std::string bytes)
    {
        bytes = apply(std::move(bytes));
        if (bytes.size() < sizeof(WireHead) || below(4) == 0)
            return bytes;
        WireHead head;
        std::memcpy(static_cast<void *>(&head), bytes.data(), sizeof head);
        head.flag = Wire::frameFlag;
        head.version = Wire::frameVersion;
        if (below(2) == 0)
            head.bodyLength = static_cast<quint32>(bytes.size() - sizeof head);
        head.headChecksum = Wire::headChecksum(head);
        return bytes.replace(0, sizeof head, reinterpret_cast<const char *>(&head), sizeof head);
    }

private:
    std::mt19937 m_random;
};

} // namespace

void tst_DissectorFaults::damagedFramesCauseNoErrorOfTheScript()
{
    std::vector<std::string> frames;
    for (const char *name :
         {"identity-request", "identity-answer", "write-request", "write-response", "write-refused",
          "read-request", "read-response", "read-request-1", "read-response-1",
          "split-write-request-0", "split-write-response-0", "split-write-request-1",
          "split-write-response-1", "report", "ping", "pong"})
        frames.push_back(dump(name));
    WireHead outcome = requestHead(1, 0x0102, 9);
    frames.push_back(frameOf(outcome, "CLIENT-1\3\0\0\0\5\0\0\0"));
    frames.push_back(responseTo(outcome, "\3\4"));
    frames.push_back(frameOf(requestHead(2, 0x0101, 9)));
    Damage damage;
    HandMadeCapture capture;
    for (int channel = 2; channel < 300; ++channel) {
        capture.add(channel, CaptureEvent::Open, "10.1.2.3");
        for (std::size_t count = 1 + damage.below(12); count > 0; --count) {
            const auto event = damage.below(2) == 0 ? CaptureEvent::Sent : CaptureEvent::Received;
            capture.add(channel, event, damage.applyToFrame(frames[damage.below(frames.size())]));
        }
        capture.add(channel, CaptureEvent::Close, {});
    }
    const QString path = capture.save();
    QCOMPARE(Tshark::lines(path, scriptError), QStringList());
    QVERIFY(Tshark::infos(path).size() > 1000);
}

void tst_DissectorFaults::damagedDatagramsCauseNoErrorOfTheScript()
{
    ProtoModel::DeviceBaseInfo wall;
    wall.name = "wall";
    const std::string datagrams[] = {Wire::encodeDiscoveryRequest().toStdString(),
                                     Wire::encodeDiscoveryAnswer(wall).toStdString()};
    Damage damage;
    UdpCapture capture;
    for (int i = 0; i < 1000; ++i)
        capture.add({"192.0.2.8", 6631}, {"192.0.2.7", 50000},
                    damage.apply(datagrams[damage.below(2)]));
    const QString path = capture.save();
    QCOMPARE(Tshark::lines(path, scriptError), QStringList());
    QVERIFY(Tshark::infos(path).size() > 500);
}

QTEST_GUILESS_MAIN(tst_DissectorFaults)
#include "tst_dissectorfaults.moc"
