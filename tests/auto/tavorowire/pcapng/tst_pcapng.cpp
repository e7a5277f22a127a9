// Captures as pcapng: the bytes of the file.

#include <tavorowire/captureformats.h>
#include <tavorowire/pcapng.h>

#include <QTest>
#include <QtEndian>

#include <string>
#include <vector>

using namespace Tavoro::SSProxy::Wire;

namespace {

QByteArray hexOf(const std::string &bytes)
{
    return QByteArray::fromStdString(bytes).toHex();
}

QByteArray hex(std::initializer_list<const char *> rows)
{
    QByteArray digits;
    for (const char *row : rows)
        digits += QByteArray(row).replace(' ', "");
    return digits;
}

/// Bytes of a block with a packet before the packet.
constexpr int packetStart = 28;

std::size_t numberAt(const std::string &blocks, std::size_t position)
{
    return qFromLittleEndian<quint32>(blocks.substr(position, 4).data());
}

std::vector<std::string> packetsOf(const std::string &blocks)
{
    std::vector<std::string> packets;
    for (std::size_t start = 0; start < blocks.size(); start += numberAt(blocks, start + 4))
        packets.push_back(blocks.substr(start + packetStart, numberAt(blocks, start + 20)));
    return packets;
}

std::string packetOf(const std::string &blocks, std::size_t number)
{
    return packetsOf(blocks).at(number);
}

int packetCount(const std::string &blocks)
{
    return static_cast<int>(packetsOf(blocks).size());
}

} // namespace

class tst_Pcapng : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void endingOfTheNameChoosesTheFormat_data();
    void endingOfTheNameChoosesTheFormat();
    void fileBeginsWithASectionAndAnInterface();
    void connectionOpensWithThreePackets();
    void bytesAreSegmentsThatAcknowledgeThoseOfTheOtherEnd();
    void ipv6ConnectionHasIpv6Packets();
    void longBytesAreSeveralSegments();
    void eachConnectionHasAPortOfItsOwn();
    void closedConnectionEndsAtBothEnds();
    void lostConnectionIsResetWithTheReason();
    void eventsWithoutAConnectionAreSkipped();
};

void tst_Pcapng::endingOfTheNameChoosesTheFormat_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("isPcapng");
    QTest::newRow("text") << QStringLiteral("capture.txt") << false;
    QTest::newRow("without an ending") << QStringLiteral("pcapng") << false;
    QTest::newRow("pcapng") << QStringLiteral("/a/b.c/show.pcapng") << true;
    QTest::newRow("capitals") << QStringLiteral("SHOW.PCAPNG") << true;
    QTest::newRow("ending in the middle") << QStringLiteral("show.pcapng.txt") << false;
}

void tst_Pcapng::endingOfTheNameChoosesTheFormat()
{
    QFETCH(QString, name);
    QFETCH(bool, isPcapng);
    const std::string heading = captureEncoderFor(name, 0)->heading();
    QCOMPARE(heading.substr(0, 4), std::string(isPcapng ? "\n\r\r\n" : "# ta"));
}

void tst_Pcapng::fileBeginsWithASectionAndAnInterface()
{
    QCOMPARE(hexOf(PcapngEncoder(0).heading()),
             hex({"0a0d0d0a 1c000000 4d3c2b1a 0100 0000 ffffffffffffffff 1c000000",
                  "01000000 24000000 6500 0000 00000000 0200 0800 6368616e6e656c73 00000000",
                  "24000000"}));
}

/// The time is 0x0006_44D1_0000_0000 + 5 microseconds.
void tst_Pcapng::connectionOpensWithThreePackets()
{
    PcapngEncoder encoder(qint64(0x644D1) << 32);
    const std::string blocks = encoder.encode(3, 5, CaptureEvent::Open, "10.1.2.3");
    QCOMPARE(packetCount(blocks), 3);
    QCOMPARE(hexOf(blocks.substr(0, 100)),
             hex({"06000000 64000000 00000000 d1440600 05000000 30000000 30000000",
                  "45000030 00004000 4006 6cc3 c0000201 0a010203",
                  "c000 19e6 00000000 00000000 7002 ffff d6fd 0000 0204fde8 03030e01",
                  "0100 0900 6368616e6e656c2033 000000 0000 0000 64000000"}));
    QCOMPARE(hexOf(packetOf(blocks, 1)),
             hex({"45000030 00004000 4006 6cc3 0a010203 c0000201",
                  "19e6 c000 00000000 00000001 7012 ffff d6ec 0000 0204fde8 03030e01"}));
    QCOMPARE(hexOf(packetOf(blocks, 2)),
             hex({"45000028 00004000 4006 6ccb c0000201 0a010203",
                  "c000 19e6 00000001 00000001 5010 ffff 07e7 0000"}));
}

void tst_Pcapng::bytesAreSegmentsThatAcknowledgeThoseOfTheOtherEnd()
{
    PcapngEncoder encoder(0);
    encoder.encode(1, 0, CaptureEvent::Open, "10.1.2.3");
    const std::string sent = encoder.encode(1, 1, CaptureEvent::Sent, "TVTVT");
    QCOMPARE(hexOf(sent),
             hex({"06000000 50000000 00000000 00000000 01000000 2d000000 2d000000",
                  "4500002d 00004000 4006 6cc6 c0000201 0a010203",
                  "c000 19e6 00000001 00000001 5018 ffff 0b2d 0000 5456545654 000000 50000000"}));
    const std::string received = encoder.encode(1, 2, CaptureEvent::Received, "TV");
    QCOMPARE(hexOf(packetOf(received, 0)),
             hex({"4500002a 00004000 4006 6cc9 0a010203 c0000201",
                  "19e6 c000 00000001 00000006 5018 ffff b381 0000 5456"}));
    const std::string again = encoder.encode(1, 3, CaptureEvent::Sent, "T");
    QCOMPARE(hexOf(packetOf(again, 0)).mid(48, 16), hex({"00000006 00000003"}));
}

void tst_Pcapng::ipv6ConnectionHasIpv6Packets()
{
    PcapngEncoder encoder(0);
    const std::string blocks = encoder.encode(1, 0, CaptureEvent::Open, "fe80::7%eth0");
    QCOMPARE(hexOf(packetOf(blocks, 2)),
             hex({"60000000 0014 06 40 20010db8000000000000000000000001",
                  "fe800000000000000000000000000007",
                  "c000 19e6 00000001 00000001 5010 ffff a9aa 0000"}));
}

void tst_Pcapng::longBytesAreSeveralSegments()
{
    PcapngEncoder encoder(0);
    encoder.encode(1, 0, CaptureEvent::Open, "10.1.2.3");
    const std::string blocks =
        encoder.encode(1, 0, CaptureEvent::Received, std::string(130001, 'x'));
    QCOMPARE(packetCount(blocks), 3);
    QCOMPARE(packetOf(blocks, 0).size(), std::size_t(65040));
    QCOMPARE(packetOf(blocks, 1).size(), std::size_t(65040));
    QCOMPARE(packetOf(blocks, 2).size(), std::size_t(41));
    QCOMPARE(hexOf(packetOf(blocks, 2)).mid(48, 8), hex({"0001fbd1"})); // 1 + 130000
}

void tst_Pcapng::eachConnectionHasAPortOfItsOwn()
{
    PcapngEncoder encoder(0);
    const auto portOf = [&encoder](int channel) {
        const std::string blocks = encoder.encode(channel, 0, CaptureEvent::Open, "10.1.2.3");
        return hexOf(packetOf(blocks, 0)).mid(40, 4);
    };
    QCOMPARE(portOf(1), hex({"c000"}));
    QCOMPARE(portOf(2), hex({"c001"}));
    QCOMPARE(portOf(1), hex({"c002"}));
    for (int i = 3; i < 0x4000; ++i)
        portOf(1);
    QCOMPARE(portOf(1), hex({"c000"}));
}

void tst_Pcapng::closedConnectionEndsAtBothEnds()
{
    PcapngEncoder encoder(0);
    encoder.encode(1, 0, CaptureEvent::Open, "10.1.2.3");
    const std::string blocks = encoder.encode(1, 1, CaptureEvent::Close, {});
    QCOMPARE(packetCount(blocks), 3);
    // Sequence number, acknowledged number, length of the header, flags.
    QCOMPARE(hexOf(packetOf(blocks, 0)).mid(48, 20), hex({"00000001 00000001 50 11"}));
    QCOMPARE(hexOf(packetOf(blocks, 1)).mid(48, 20), hex({"00000001 00000002 50 11"}));
    QCOMPARE(hexOf(packetOf(blocks, 2)).mid(48, 20), hex({"00000002 00000002 50 10"}));
}

void tst_Pcapng::lostConnectionIsResetWithTheReason()
{
    PcapngEncoder encoder(0);
    encoder.encode(1, 0, CaptureEvent::Open, "10.1.2.3");
    const std::string blocks = encoder.encode(1, 1, CaptureEvent::Lost, "no answer");
    QCOMPARE(packetCount(blocks), 1);
    QCOMPARE(hexOf(packetOf(blocks, 0)).mid(40, 28), hex({"19e6 c000 00000001 00000001 50 14"}));
    QCOMPARE(hexOf(blocks).mid(2 * (packetStart + 40)),
             hex({"0100 0900 6e6f20616e73776572 000000 0000 0000 5c000000"}));
}

void tst_Pcapng::eventsWithoutAConnectionAreSkipped()
{
    PcapngEncoder encoder(0);
    QCOMPARE(encoder.encode(1, 0, CaptureEvent::Sent, "TV"), std::string());
    encoder.encode(1, 0, CaptureEvent::Open, "10.1.2.3");
    QCOMPARE(encoder.encode(2, 0, CaptureEvent::Received, "TV"), std::string());
    encoder.encode(1, 0, CaptureEvent::Close, {});
    QCOMPARE(encoder.encode(1, 0, CaptureEvent::Lost, "late"), std::string());
}

QTEST_GUILESS_MAIN(tst_Pcapng)
#include "tst_pcapng.moc"
