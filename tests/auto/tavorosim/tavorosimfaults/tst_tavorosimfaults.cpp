// The effects of faults of the simulated device on a client.

#include <support/common/contains.h>
#include <support/tavorosim/commandcodes.h>
#include <support/tavorosim/faultrule.h>
#include <support/tavorosim/packetsize.h>
#include <support/tavorosim/simbench.h>

#include <tavorosim/commandline.h>
#include <tavorowire/frame.h>

#include <QElapsedTimer>

#include <vector>

using namespace CommandCodes;
using namespace Tavoro;
using namespace Tavoro::Sim;
using SSProxy::CommandType;

namespace {

int swapOf(SimBench &bench)
{
    return contains(bench.client->read(deviceDetail).body, "\"swap\":1") ? 1 : 0;
}

WireFrame tagged(quint8 tag, WireFrame frame)
{
    frame.head.lables = tag;
    return frame;
}

/// The device receives the requests in one piece.
void sendTogether(SimBench &bench, const std::vector<WireFrame> &requests)
{
    QByteArray bytes;
    for (const WireFrame &request : requests) {
        const WireFrame numbered = bench.client->numbered(request);
        bytes += SSProxy::Wire::encodeFrame(numbered.head, numbered.body);
    }
    bench.client->sendBytes(bytes);
}

/// The lines of the console that end what a fault holds up.
void addLinesThatRelease()
{
    QTest::addColumn<QString>("line");
    for (const char *line : {"fault release", "fault clear"})
        QTest::newRow(line) << QString::fromLatin1(line);
}

/// Makes the device stop reading from the client for this number of milliseconds.
void pauseReading(SimBench &bench, int milliseconds)
{
    const QString line = QStringLiteral("fault add stop-reading=%1,count=1").arg(milliseconds);
    QVERIFY(bench.device->execute(line).ok);
    bench.client->send(WireClient::request(deviceSwap, CommandType::Write, swapOff));
    QTRY_COMPARE(bench.device->execute(QStringLiteral("fault list")).text, QString());
}

} // namespace

class tst_TavorosimFaults : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void consoleAddsListsAndClears();
    void commandLineAcceptsRulesAndTheSeed();
    void seedDeterminesWhichExchangesFail();
    void ruleAppliesToTheSelectedExchangeOnly();
    void requestsThatAreNotCarriedOutChangeNothing_data();
    void requestsThatAreNotCarriedOutChangeNothing();
    void requestsThatAreCarriedOutChangeTheDevice_data();
    void requestsThatAreCarriedOutChangeTheDevice();
    void lateAnswersArriveAfterOthers();
    void heldAnswersAreSentInTheirOrderWhenReleased_data();
    void heldAnswersAreSentInTheirOrderWhenReleased();
    void releaseKeepsTheRules();
    void requestsBeyondTheHeldAnswersAreReadWhenReleased();
    void deviceThatStopsReadingReadsOnWhenReleased_data();
    void deviceThatStopsReadingReadsOnWhenReleased();
    void deviceThatStopsReadingLeavesFurtherRequests();
    void pauseWithATimeEndsByItself();
    void timerOfAClearedPauseDoesNotEndTheNextOne();
    void rebootedDeviceHasTheSavedSetup();
    void floodArrivesBeforeTheAnswer();
    void largestFloodArrivesCompletely();
    void oldestSwappedPacketIsForgottenBeyondSixteen();
    void identityFaultsNeedItsName();
};

void tst_TavorosimFaults::consoleAddsListsAndClears()
{
    SimBench bench;
    const auto line = [&](const char *text) {
        return bench.device->execute(QLatin1String(text)).line();
    };
    QCOMPARE(line("fault list"), QStringLiteral("ok"));
    QCOMPARE(line("fault add status=8,code=0x1107,count=2"), QStringLiteral("ok"));
    QCOMPARE(line("fault add late=5,share=10"), QStringLiteral("ok"));
    QCOMPARE(bench.write(deviceSwap, swapOff), 8);
    QCOMPARE(line("fault list"),
             QStringLiteral("ok status=8,code=DeviceSwap,count=1 late=5,share=10"));
    QCOMPARE(line("fault add loud"), QStringLiteral("error unknown fault: \"loud\""));
    QCOMPARE(line("fault clear"), QStringLiteral("ok"));
    QCOMPARE(line("fault list"), QStringLiteral("ok"));
    QCOMPARE(line("fault release"), QStringLiteral("ok"));
    const QString usage =
        QStringLiteral("error usage: fault add RULE, fault clear, fault list, fault release");
    for (const char *wrong : {"fault", "fault 50", "fault add", "fault list all", "fault drop x"})
        QCOMPARE(line(wrong), usage);
}

void tst_TavorosimFaults::commandLineAcceptsRulesAndTheSeed()
{
    const CommandLine line = parseCommandLine(
        {QStringLiteral("tavorosim"), QStringLiteral("--fault"), QStringLiteral("silent,count=1"),
         QStringLiteral("--fault=late=5"), QStringLiteral("--seed"), QStringLiteral("7")});
    QVERIFY(line.isValid);
    QCOMPARE(int(line.options.faults.size()), 2);
    QCOMPARE(toText(line.options.faults[0]), QStringLiteral("silent,count=1"));
    QCOMPARE(toText(line.options.faults[1]), QStringLiteral("late=5"));
    QCOMPARE(line.options.seed, 7u);
    const CommandLine wrong = parseCommandLine(
        {QStringLiteral("tavorosim"), QStringLiteral("--fault"), QStringLiteral("loud")});
    QVERIFY(!wrong.isValid);
    QCOMPARE(wrong.text,
             QStringLiteral(
                 "tavorosim: \"loud\" is not a valid value for --fault: unknown fault: \"loud\"."));
}

void tst_TavorosimFaults::seedDeterminesWhichExchangesFail()
{
    const auto statuses = [](quint32 seed) {
        SimOptions options;
        options.seed = seed;
        options.faults = {faultRule("status=8,share=50")};
        SimBench bench(options);
        QList<int> seen;
        for (int i = 0; i < 32; ++i)
            seen.append(bench.write(deviceSwap, swapOff));
        return seen;
    };
    QCOMPARE(statuses(7), statuses(7));
    QVERIFY(statuses(7) != statuses(8));
}

void tst_TavorosimFaults::ruleAppliesToTheSelectedExchangeOnly()
{
    SimOptions options;
    options.faults = {faultRule("status=8,skip=1,count=1")};
    SimBench bench(options);
    QCOMPARE(bench.write(deviceSwap, swapOff), 0);
    QCOMPARE(bench.write(deviceSwap, swapOff), 8);
    QCOMPARE(bench.write(deviceSwap, swapOff), 0);
}

void tst_TavorosimFaults::requestsThatAreNotCarriedOutChangeNothing_data()
{
    QTest::addColumn<QString>("fault");
    for (const char *fault : {"status=8", "ignore", "drop-request"})
        QTest::newRow(fault) << QString::fromLatin1(fault);
}

void tst_TavorosimFaults::requestsThatAreNotCarriedOutChangeNothing()
{
    QFETCH(QString, fault);
    SimBench bench;
    QVERIFY(bench.device->execute(QStringLiteral("fault add %1,count=1").arg(fault)).ok);
    bench.client->send(WireClient::request(deviceSwap, CommandType::Write, swapOff));
    QTRY_COMPARE(bench.device->execute(QStringLiteral("fault list")).text, QString());
    QVERIFY(bench.reconnect());
    QCOMPARE(swapOf(bench), 1);
}

void tst_TavorosimFaults::requestsThatAreCarriedOutChangeTheDevice_data()
{
    QTest::addColumn<QString>("fault");
    for (const char *fault : {"silent", "stall", "drop-before", "drop-within", "drop-after"})
        QTest::newRow(fault) << QString::fromLatin1(fault);
}

void tst_TavorosimFaults::requestsThatAreCarriedOutChangeTheDevice()
{
    QFETCH(QString, fault);
    SimBench bench;
    QVERIFY(bench.device->execute(QStringLiteral("fault add %1,count=1").arg(fault)).ok);
    bench.client->send(WireClient::request(deviceSwap, CommandType::Write, swapOff));
    if (fault.startsWith(QLatin1String("drop")))
        QVERIFY(bench.client->waitForEnd());
    QTRY_COMPARE(bench.device->execute(QStringLiteral("fault list")).text, QString());
    QVERIFY(bench.reconnect());
    QCOMPARE(swapOf(bench), 0);
}

void tst_TavorosimFaults::lateAnswersArriveAfterOthers()
{
    SimBench bench;
    QVERIFY(bench.device->execute(QStringLiteral("fault add late=500,code=DeviceSwap")).ok);
    const auto write = tagged(1, WireClient::request(deviceSwap, CommandType::Write, swapOff));
    const auto read = tagged(2, WireClient::readRequest(deviceDetail));
    sendTogether(bench, {write, read}); // the device reads both before the delay begins
    QCOMPARE(int(bench.client->receiveResponse().head.lables), 2);
    QCOMPARE(int(bench.client->receiveResponse().head.lables), 1);
}

void tst_TavorosimFaults::heldAnswersAreSentInTheirOrderWhenReleased_data()
{
    addLinesThatRelease();
}

void tst_TavorosimFaults::heldAnswersAreSentInTheirOrderWhenReleased()
{
    QFETCH(const QString, line);
    SimBench bench;
    QVERIFY(bench.device->execute(QStringLiteral("fault add hold,code=DeviceSwap,count=2")).ok);
    const WireFrame write = WireClient::request(deviceSwap, CommandType::Write, swapOff);
    bench.client->send(tagged(1, write));
    bench.client->send(tagged(2, write));
    const WireFrame other =
        bench.client->exchange(tagged(3, WireClient::readRequest(deviceDetail)));
    QCOMPARE(int(other.head.lables), 3);
    QVERIFY(contains(other.body, "\"swap\":0")); // carried out at once
    QVERIFY(bench.device->execute(line).ok);
    for (const int tag : {1, 2})
        QCOMPARE(int(bench.client->receiveResponse().head.lables), tag);
    QVERIFY(bench.device->execute(line).ok); // nothing is sent twice
    QCOMPARE(int(bench.client->exchange(tagged(4, write)).head.lables), 4);
}

void tst_TavorosimFaults::releaseKeepsTheRules()
{
    SimBench bench;
    const QString rule = QStringLiteral("hold,code=DeviceSwap");
    QVERIFY(bench.device->execute(QStringLiteral("fault add ") + rule).ok);
    const WireFrame write = WireClient::request(deviceSwap, CommandType::Write, swapOff);
    for (const quint8 tag : {quint8(1), quint8(2)}) {
        sendTogether(bench, {tagged(tag, write), tagged(9, WireClient::readRequest(deviceDetail))});
        QCOMPARE(int(bench.client->receiveResponse().head.lables), 9);
        QVERIFY(bench.device->execute(QStringLiteral("fault release")).ok);
        QCOMPARE(int(bench.client->receiveResponse().head.lables), int(tag));
        QCOMPARE(bench.device->execute(QStringLiteral("fault list")).text, rule);
    }
}

void tst_TavorosimFaults::requestsBeyondTheHeldAnswersAreReadWhenReleased()
{
    constexpr int mostHeld = 1024;
    SimBench bench;
    QVERIFY(bench.device->execute(QStringLiteral("fault add hold,count=%1").arg(mostHeld)).ok);
    std::vector<WireFrame> requests(mostHeld, WireClient::readRequest(deviceSwap));
    requests.push_back(tagged(9, WireClient::readRequest(deviceDetail)));
    sendTogether(bench, requests);
    QTRY_COMPARE(bench.device->execute(QStringLiteral("fault list")).text, QString());
    QVERIFY(bench.device->execute(QStringLiteral("fault release")).ok);
    for (int i = 0; i < mostHeld; ++i)
        QCOMPARE(int(bench.client->receiveResponse().head.lables), 1);
    QCOMPARE(int(bench.client->receiveResponse().head.lables), 9);
}

void tst_TavorosimFaults::deviceThatStopsReadingReadsOnWhenReleased_data()
{
    addLinesThatRelease();
}

void tst_TavorosimFaults::deviceThatStopsReadingReadsOnWhenReleased()
{
    QFETCH(const QString, line);
    SimBench bench;
    QVERIFY(bench.device->execute(QStringLiteral("fault add stop-reading,count=1")).ok);
    bench.client->send(WireClient::request(deviceSwap, CommandType::Write, swapOff));
    QTRY_COMPARE(bench.device->execute(QStringLiteral("fault list")).text, QString());
    WireFrame read = WireClient::readRequest(deviceDetail);
    read.head.lables = 9;
    bench.client->send(read);
    QVERIFY(bench.device->execute(line).ok);
    const WireFrame answer = bench.client->receiveResponse();
    QCOMPARE(int(answer.head.lables), 9);
    QVERIFY(contains(answer.body, "\"swap\":1"));
}

void tst_TavorosimFaults::deviceThatStopsReadingLeavesFurtherRequests()
{
    using SSProxy::Wire::encodeFrame;
    SimBench bench;
    WireClient other;
    QVERIFY(other.connectTo(bench.device->port()));
    const auto swap = [&] {
        return contains(other.read(deviceDetail).body, "\"swap\":1");
    };
    QVERIFY(bench.device->execute(QStringLiteral("fault add stop-reading,code=0x1100,count=1")).ok);
    const WireFrame read = WireClient::readRequest(deviceDetail);
    const WireFrame write = WireClient::request(deviceSwap, CommandType::Write, swapOff);
    bench.client->sendBytes(encodeFrame(read.head, {}) + encodeFrame(write.head, write.body));
    QTRY_COMPARE(bench.device->execute(QStringLiteral("fault list")).text, QString());
    QVERIFY(swap());
    QVERIFY(bench.device->execute(QStringLiteral("fault clear")).ok);
    QTRY_VERIFY(!swap());
}

void tst_TavorosimFaults::pauseWithATimeEndsByItself()
{
    SimBench bench;
    QElapsedTimer time;
    time.start();
    pauseReading(bench, 100);
    QCOMPARE(swapOf(bench), 1);
    QVERIFY2(time.elapsed() >= 100, qPrintable(QString::number(time.elapsed())));
}

void tst_TavorosimFaults::timerOfAClearedPauseDoesNotEndTheNextOne()
{
    SimBench bench;
    pauseReading(bench, 200);
    QVERIFY(bench.device->execute(QStringLiteral("fault clear")).ok);
    QElapsedTimer time;
    time.start();
    pauseReading(bench, 600);
    QCOMPARE(swapOf(bench), 1);
    QVERIFY2(time.elapsed() >= 600, qPrintable(QString::number(time.elapsed())));
}

void tst_TavorosimFaults::rebootedDeviceHasTheSavedSetup()
{
    SimOptions options;
    options.clockSpeed = 10000;
    SimBench bench(options);
    QCOMPARE(bench.write(deviceSwap, swapOff), 0);
    QVERIFY(bench.device->execute(QStringLiteral("fault add reboot,count=1")).ok);
    bench.client->send(WireClient::readRequest(deviceDetail));
    QVERIFY(bench.client->waitForEnd());
    QTRY_VERIFY(bench.reconnect());
    QCOMPARE(swapOf(bench), 1);
}

void tst_TavorosimFaults::floodArrivesBeforeTheAnswer()
{
    SimBench bench;
    QVERIFY(bench.device->execute(QStringLiteral("fault add flood=100,count=1")).ok);
    QCOMPARE(bench.write(deviceSwap, swapOff), 0);
    QCOMPARE(bench.client->keptReports(), 100);
    QCOMPARE(int(bench.client->waitForReport().head.code()), 0x1103);
}

void tst_TavorosimFaults::largestFloodArrivesCompletely()
{
    SimBench bench;
    QVERIFY(bench.device->execute(QStringLiteral("fault add flood=100000,count=1")).ok);
    QCOMPARE(bench.write(deviceSwap, swapOff), 0);
    QCOMPARE(bench.client->keptReports(), 100000);
}

void tst_TavorosimFaults::oldestSwappedPacketIsForgottenBeyondSixteen()
{
    SimBench bench(packetsOf(500));
    QVERIFY(bench.device->execute(QStringLiteral("fault add swap-packets,count=17")).ok);
    WireFrame request = WireClient::readRequest(deviceDetail);
    for (quint16 stream = 1; stream <= 17; ++stream) {
        request.head.stream = stream;
        const WireFrame second = bench.client->exchange(request);
        QCOMPARE(int(second.head.sendCount), 1);
        request.head.totalCount = second.head.totalCount;
    }
    request.head.sendCount = 1;
    for (quint16 stream = 1; stream <= 17; ++stream) {
        request.head.stream = stream;
        QCOMPARE(int(bench.client->exchange(request).head.status), stream == 1 ? 6 : 0);
    }
}

void tst_TavorosimFaults::identityFaultsNeedItsName()
{
    SimBench bench;
    QVERIFY(bench.device->execute(QStringLiteral("fault add garble=400,code=identity,count=1")).ok);
    WireClient client;
    QVERIFY(client.connectTo(bench.device->port()));
    QVERIFY(client.identity().find('#') != std::string::npos);
    QVERIFY(client.identity().find('#') == std::string::npos);
}

QTEST_GUILESS_MAIN(tst_TavorosimFaults)
#include "tst_tavorosimfaults.moc"
