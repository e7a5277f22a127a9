// The simulated device lets only one client at a time write.

#include <support/common/contains.h>
#include <support/tavorosim/commandcodes.h>
#include <support/tavorosim/simbench.h>

#include <QTest>

using namespace CommandCodes;
using namespace Tavoro;
using SSProxy::CommandType;

namespace {

/// A client that has asked for the identity.
struct Client {
    explicit Client(const SimBench &bench)
    {
        if (wire.connectTo(bench.device->port()))
            identity = wire.identity();
    }

    int control(quint8 action) { return wire.control(action); }
    int write() { return wire.write(deviceSwap, swapOff).head.status; }
    bool seesThatOthersHoldControl() const { return contains(identity, "\"controlState\":1"); }

    WireClient wire;
    std::string identity;
};

constexpr quint8 take = 1;
constexpr quint8 giveUp = 2;
constexpr quint8 force = 3;

} // namespace

class tst_TavoroSimControl : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void firstWriterGetsControl();
    void allClientsMayRead();
    void writesOfOthersChangeNothing();
    void splitWritesOfOthersAreRefused();
    void controlIsTakenGivenUpAndForced();
    void controlEndsWithItsConnection();
    void clientsConcernedGetAReport();
    void identityShowsWhetherOthersHoldControl();
    void readOfControlNamesTheHolder();
    void unknownActionsAreOutOfRange();
    void refusedWriteDoesNotTakeControl_data();
    void refusedWriteDoesNotTakeControl();
    void settingTheClockNeedsNoControlAndDoesNotTakeIt();
};

void tst_TavoroSimControl::firstWriterGetsControl()
{
    SimBench bench;
    Client first(bench);
    Client second(bench);
    QCOMPARE(first.write(), 0);
    QCOMPARE(second.write(), 67);
    QCOMPARE(first.write(), 0);
}

void tst_TavoroSimControl::allClientsMayRead()
{
    SimBench bench;
    Client first(bench);
    Client second(bench);
    QCOMPARE(first.control(take), 0);
    QCOMPARE(int(second.wire.read(deviceDetail).head.status), 0);
    QCOMPARE(first.control(take), 0); // taking it again changes nothing
}

void tst_TavoroSimControl::writesOfOthersChangeNothing()
{
    SimBench bench;
    Client first(bench);
    Client second(bench);
    QCOMPARE(first.control(take), 0);
    const std::string before = second.wire.read(deviceDetail).body;
    QVERIFY(contains(before, "\"swap\":1"));
    QCOMPARE(second.write(), 67);
    QCOMPARE(second.wire.read(deviceDetail).body, before);
}

void tst_TavoroSimControl::splitWritesOfOthersAreRefused()
{
    Sim::SimOptions options;
    options.packetSize = 8;
    SimBench bench(options);
    Client first(bench);
    Client second(bench);
    QCOMPARE(first.control(take), 0);
    WireFrame piece = WireClient::request(deviceSwap, CommandType::Write, R"({"swap")");
    piece.head.totalCount = 2;
    QCOMPARE(int(second.wire.exchange(piece).head.status), 0); // nothing is carried out yet
    piece.head.sendCount = 1;
    piece.body = ":0}";
    QCOMPARE(int(second.wire.exchange(piece).head.status), 67);
}

void tst_TavoroSimControl::controlIsTakenGivenUpAndForced()
{
    SimBench bench;
    Client first(bench);
    Client second(bench);
    QCOMPARE(first.control(take), 0);
    QCOMPARE(second.control(take), 67);
    QCOMPARE(second.control(giveUp), 0); // it does not have control
    QCOMPARE(second.write(), 67);
    QCOMPARE(first.control(giveUp), 0);
    QCOMPARE(second.control(take), 0);
    QCOMPARE(first.write(), 67);
    QCOMPARE(first.control(force), 0);
    QCOMPARE(second.write(), 67);
    QCOMPARE(first.write(), 0);
}

void tst_TavoroSimControl::controlEndsWithItsConnection()
{
    SimBench bench;
    Client second(bench);
    {
        Client first(bench);
        QCOMPARE(first.write(), 0);
        QCOMPARE(int(second.wire.waitForReport().head.arg2[0]), 1);
    }
    const WireFrame free = second.wire.waitForReport();
    QCOMPARE(free.head.code(), controlCode);
    QCOMPARE(int(free.head.arg2[0]), 0);
    QCOMPARE(free.body, std::string());
    QCOMPARE(second.write(), 0);
}

void tst_TavoroSimControl::clientsConcernedGetAReport()
{
    SimBench bench;
    Client first(bench);
    Client second(bench);
    QCOMPARE(first.write(), 0);
    const WireFrame held = second.wire.waitForReport();
    QCOMPARE(held.head.code(), controlCode);
    QCOMPARE(int(held.head.arg2[0]), 1);
    QVERIFY2(held.body.rfind("127.0.0.1:", 0) == 0, held.body.c_str());

    QCOMPARE(second.control(force), 0);
    const WireFrame lost = first.wire.waitForReport(); // its own writes were not reported to it
    QCOMPARE(lost.head.code(), controlCode);
    QCOMPARE(int(lost.head.arg2[0]), 1);
    QVERIFY(lost.body != held.body);
    QCOMPARE(int(second.wire.waitForReport().head.arg2[0]), 0);
}

void tst_TavoroSimControl::identityShowsWhetherOthersHoldControl()
{
    SimBench bench;
    Client first(bench);
    QVERIFY(!first.seesThatOthersHoldControl());
    QCOMPARE(first.control(take), 0);
    QVERIFY(Client(bench).seesThatOthersHoldControl());
    QVERIFY(contains(first.wire.identity(), "\"controlState\":0"));
}

void tst_TavoroSimControl::readOfControlNamesTheHolder()
{
    SimBench bench;
    Client first(bench);
    Client second(bench);
    QCOMPARE(second.wire.read(controlCode).body, std::string());
    QCOMPARE(first.control(take), 0);
    const std::string holder = second.wire.read(controlCode).body;
    QVERIFY2(holder.rfind("127.0.0.1:", 0) == 0, holder.c_str());
}

void tst_TavoroSimControl::unknownActionsAreOutOfRange()
{
    SimBench bench;
    Client client(bench);
    for (const quint8 action : {quint8(0), quint8(4), quint8(255)})
        QCOMPARE(client.control(action), 4);
    WireFrame frame = WireClient::request(controlCode, CommandType::BinaryWrite);
    QCOMPARE(int(client.wire.exchange(frame).head.status), 1);
}

void tst_TavoroSimControl::refusedWriteDoesNotTakeControl_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<int>("status");
    QTest::newRow("no such command") << 0x9900 << QByteArray("{}") << 1;
    QTest::newRow("body") << int(deviceSwap) << QByteArray("{") << 2;
    QTest::newRow("value") << int(deviceSwap) << QByteArray(R"({"swap":7})") << 4;
}

void tst_TavoroSimControl::refusedWriteDoesNotTakeControl()
{
    QFETCH(int, code);
    QFETCH(QByteArray, body);
    QFETCH(int, status);
    SimBench bench;
    Client first(bench);
    Client second(bench);
    QCOMPARE(int(first.wire.write(quint16(code), body.toStdString()).head.status), status);
    QCOMPARE(second.wire.read(controlCode).body, std::string());
    QCOMPARE(second.write(), 0);
    QCOMPARE(first.write(), 67);
}

void tst_TavoroSimControl::settingTheClockNeedsNoControlAndDoesNotTakeIt()
{
    SimBench bench;
    Client first(bench);
    Client second(bench);
    const std::string time = R"({"year":2024,"month":5,"day":6,"hour":7})";
    QCOMPARE(int(first.wire.write(deviceTime, time).head.status), 0);
    QCOMPARE(second.wire.read(controlCode).body, std::string());
    QCOMPARE(second.control(take), 0);
    QCOMPARE(int(first.wire.write(deviceTime, time).head.status), 0);
    QCOMPARE(first.write(), 67);
    QCOMPARE(second.write(), 0);
}

QTEST_GUILESS_MAIN(tst_TavoroSimControl)
#include "tst_tavorosimcontrol.moc"
