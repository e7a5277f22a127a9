// Long answers and split writes of the simulated device.

#include <support/common/contains.h>
#include <support/tavorosim/commandcodes.h>
#include <support/tavorosim/packetsize.h>
#include <support/tavorosim/simbench.h>

using namespace CommandCodes;
using Tavoro::Sim::SimOptions;
using Tavoro::SSProxy::CommandType;

class tst_TavoroSimPackets : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aReadAnswersInOnePacketWhenItFits();
    void aLongAnswerIsSplitIntoPackets();
    void anAnswerDoesNotChangeBetweenItsPackets();
    void furtherPacketsAreGoneAfterTheLast();
    void aPacketOutOfTurnIsRefused();
    void streamsKeepTheirAnswersApart();
    void aSplitWriteIsCarriedOutWithItsLastPacket();
    void aSplitWriteOutOfTurnIsDropped();
    void aPacketThatDiffersFromItsSplitWriteDropsIt_data();
    void aPacketThatDiffersFromItsSplitWriteDropsIt();
    void aFirstPacketDropsTheSplitWriteOfItsStream_data();
    void aFirstPacketDropsTheSplitWriteOfItsStream();
    void aPacketAboveTheLimitIsRefused();
};

namespace {

WireFrame furtherPacket(WireFrame request, quint32 totalCount, quint32 sendCount)
{
    request.head.totalCount = totalCount;
    request.head.sendCount = sendCount;
    return request;
}

} // namespace

void tst_TavoroSimPackets::aReadAnswersInOnePacketWhenItFits()
{
    SimBench bench;
    const WireFrame answer = bench.client->read(deviceDetail);
    QCOMPARE(int(answer.head.kind), 2);
    QCOMPARE(int(answer.head.status), 0);
    QCOMPARE(answer.head.totalCount, 1u);
    QCOMPARE(answer.head.sendCount, 0u);
    QVERIFY(contains(answer.body, "{\"general\":{\"name\":\"Simulated device\",\"status\":1},"));
}

void tst_TavoroSimPackets::aLongAnswerIsSplitIntoPackets()
{
    SimBench whole;
    const std::string expected = whole.client->read(deviceDetail).body;
    SimBench split(packetsOf(500));
    const WireFrame request = WireClient::readRequest(deviceDetail);
    WireFrame answer = split.client->exchange(request);
    const quint32 count = answer.head.totalCount;
    QCOMPARE(count, quint32((expected.size() + 499) / 500));
    std::string joined = answer.body;
    for (quint32 i = 1; i < count; ++i) {
        QCOMPARE(answer.body.size(), std::size_t(500));
        answer = split.client->exchange(furtherPacket(request, count, i));
        QCOMPARE(int(answer.head.status), 0);
        QCOMPARE(answer.head.totalCount, count);
        QCOMPARE(answer.head.sendCount, i);
        joined += answer.body;
    }
    QCOMPARE(joined, expected);
}

void tst_TavoroSimPackets::anAnswerDoesNotChangeBetweenItsPackets()
{
    SimBench bench(packetsOf(40));
    const WireFrame request = WireClient::readRequest(deviceDetail);
    WireFrame answer = bench.client->exchange(request);
    std::string joined = answer.body;
    WireFrame change = WireClient::request(0x1104, CommandType::Write, R"({"genlock":{"type":1}})");
    change.head.stream = 2;
    QCOMPARE(int(bench.client->exchange(change).head.status), 0);
    for (quint32 i = 1; i < answer.head.totalCount; ++i)
        joined += bench.client->exchange(furtherPacket(request, answer.head.totalCount, i)).body;
    QVERIFY(contains(joined, "\"genlock\":{\"type\":0,"));
}

void tst_TavoroSimPackets::furtherPacketsAreGoneAfterTheLast()
{
    SimBench bench(packetsOf(1000));
    const WireFrame request = WireClient::readRequest(deviceDetail);
    const quint32 count = bench.client->exchange(request).head.totalCount;
    QCOMPARE(count, 2u);
    QCOMPARE(int(bench.client->exchange(furtherPacket(request, count, 1)).head.status), 0);
    const WireFrame again = bench.client->exchange(furtherPacket(request, count, 1));
    QCOMPARE(int(again.head.status), 6);
    QCOMPARE(again.body, std::string());
}

void tst_TavoroSimPackets::aPacketOutOfTurnIsRefused()
{
    SimBench bench(packetsOf(500));
    const WireFrame request = WireClient::readRequest(deviceDetail);
    const quint32 count = bench.client->exchange(request).head.totalCount;
    QVERIFY(count > 2);
    QCOMPARE(int(bench.client->exchange(furtherPacket(request, count, 2)).head.status), 5);
    QCOMPARE(int(bench.client->exchange(furtherPacket(request, count + 1, 1)).head.status), 5);
    QCOMPARE(int(bench.client->exchange(furtherPacket(request, count, 1)).head.status), 0);
}

void tst_TavoroSimPackets::streamsKeepTheirAnswersApart()
{
    SimBench bench(packetsOf(100));
    WireFrame details = WireClient::readRequest(deviceDetail);
    WireFrame mapping = WireClient::readRequest(0x1108);
    mapping.head.stream = 2;
    const quint32 detailCount = bench.client->exchange(details).head.totalCount;
    const quint32 mappingCount = bench.client->exchange(mapping).head.totalCount;
    QCOMPARE(mappingCount, 2u);
    const WireFrame end = bench.client->exchange(furtherPacket(mapping, mappingCount, 1));
    QVERIFY(contains(end.body, "\"gridType\":0}}"));
    QCOMPARE(int(bench.client->exchange(furtherPacket(details, detailCount, 1)).head.status), 0);
}

void tst_TavoroSimPackets::aSplitWriteIsCarriedOutWithItsLastPacket()
{
    SimBench bench(packetsOf(4));
    const std::string body = R"({"swap":0})";
    for (quint32 i = 0; i < 3; ++i) {
        const WireFrame piece =
            WireClient::request(deviceSwap, CommandType::Write, body.substr(4 * i, 4));
        const WireFrame answer = bench.client->exchange(furtherPacket(piece, 3, i));
        QCOMPARE(int(answer.head.status), 0);
        QCOMPARE(answer.body, std::string());
    }
    SimBench whole;
    QVERIFY(contains(whole.client->read(deviceDetail).body, "\"swap\":1"));

    WireFrame first = WireClient::readRequest(deviceDetail);
    const quint32 count = bench.client->exchange(first).head.totalCount;
    std::string joined;
    for (quint32 i = 1; i < count; ++i)
        joined += bench.client->exchange(furtherPacket(first, count, i)).body;
    QVERIFY(contains(joined, "\"swap\":0"));
}

void tst_TavoroSimPackets::aSplitWriteOutOfTurnIsDropped()
{
    SimBench bench;
    const WireFrame piece = WireClient::request(deviceSwap, CommandType::Write, "{\"swap\"");
    QCOMPARE(int(bench.client->exchange(furtherPacket(piece, 3, 1)).head.status), 5);
    QCOMPARE(int(bench.client->exchange(furtherPacket(piece, 3, 0)).head.status), 0);
    QCOMPARE(int(bench.client->exchange(furtherPacket(piece, 3, 2)).head.status), 5);
    QCOMPARE(int(bench.client->exchange(furtherPacket(piece, 3, 1)).head.status), 5);

    WireFrame other = furtherPacket(piece, 3, 1);
    QCOMPARE(int(bench.client->exchange(furtherPacket(piece, 3, 0)).head.status), 0);
    other.head.FC = 0x0D;
    QCOMPARE(int(bench.client->exchange(other).head.status), 5);
}

void tst_TavoroSimPackets::aPacketThatDiffersFromItsSplitWriteDropsIt_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("code");
    QTest::addColumn<int>("filter");
    QTest::addColumn<quint32>("totalCount");
    QTest::newRow("read") << 1 << 0x1107 << 0 << 3u;
    QTest::newRow("binary read") << 3 << 0x1107 << 0 << 3u;
    QTest::newRow("binary write") << 4 << 0x1107 << 0 << 3u;
    QTest::newRow("unknown type") << 9 << 0x1107 << 0 << 3u;
    QTest::newRow("code") << 2 << 0x110D << 0 << 3u;
    QTest::newRow("arg2") << 2 << 0x1107 << 1 << 3u;
    QTest::newRow("more packets") << 2 << 0x1107 << 0 << 4u;
    QTest::newRow("one packet") << 2 << 0x1107 << 0 << 1u;
    QTest::newRow("packet count 0") << 2 << 0x1107 << 0 << 0u;
}

void tst_TavoroSimPackets::aPacketThatDiffersFromItsSplitWriteDropsIt()
{
    QFETCH(int, type);
    QFETCH(int, code);
    QFETCH(int, filter);
    QFETCH(quint32, totalCount);
    SimBench bench;
    const WireFrame piece = WireClient::request(deviceSwap, CommandType::Write, R"({"swap":0})");
    QCOMPARE(int(bench.client->exchange(furtherPacket(piece, 3, 0)).head.status), 0);
    WireFrame other = WireClient::request(quint16(code), static_cast<CommandType>(type), " ");
    other.head.arg2[0] = quint8(filter);
    const WireFrame answer = bench.client->exchange(furtherPacket(other, totalCount, 1));
    QCOMPARE(int(answer.head.status), 5);
    QCOMPARE(answer.body, std::string());
    QCOMPARE(int(bench.client->exchange(furtherPacket(piece, 3, 1)).head.status), 5); // dropped
    QVERIFY(contains(bench.client->read(deviceDetail).body, "\"swap\":1"));
}

void tst_TavoroSimPackets::aFirstPacketDropsTheSplitWriteOfItsStream_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("status");
    QTest::newRow("write in one packet") << 2 << 0;
    QTest::newRow("binary write") << 4 << 1;
}

void tst_TavoroSimPackets::aFirstPacketDropsTheSplitWriteOfItsStream()
{
    QFETCH(int, type);
    QFETCH(int, status);
    SimBench bench;
    const WireFrame piece = WireClient::request(deviceSwap, CommandType::Write, "{\"swap\"");
    QCOMPARE(int(bench.client->exchange(furtherPacket(piece, 2, 0)).head.status), 0);
    const WireFrame whole =
        WireClient::request(deviceSwap, static_cast<CommandType>(type), R"({"swap":1})");
    QCOMPARE(int(bench.client->exchange(whole).head.status), status);
    QCOMPARE(int(bench.client->exchange(furtherPacket(piece, 2, 1)).head.status), 5);
}

void tst_TavoroSimPackets::aPacketAboveTheLimitIsRefused()
{
    SimBench bench(packetsOf(9));
    QCOMPARE(int(bench.client->write(deviceSwap, R"({"swap":0})").head.status), 7);
    QCOMPARE(int(bench.client->write(deviceSwap, R"({"swap":)").head.status), 2);
}

QTEST_GUILESS_MAIN(tst_TavoroSimPackets)
#include "tst_tavorosimpackets.moc"
