// The maintenance of the simulated device: power, factory, clock, counts and checks. Time passes
// only when a test lets it.

#include <support/common/contains.h>
#include <support/tavorosim/commandcodes.h>
#include <support/tavorosim/simclock.h>

using namespace CommandCodes;

class tst_TavoroSimMaintenance : public QObject, private SimClockFixture {
    Q_OBJECT

private Q_SLOTS:
    void init() { start(); }
    void cleanup() { stop(); }

    void aRestartDropsConnectionsAndTheDeviceReturns();
    void aRestartAnswersFirstHoweverLate();
    void aShutDownDeviceWaitsToBeSwitchedOn();
    void restartRestoresTheSavedSetup();
    void theFactoryResetRestoresTheSetup();
    void theFactoryResetMayRemoveTheFiles();
    void theClockContinuesFromTheTimeThatWasSet();
    void filesAreLoadedAfterARestart();
    void lossesAreCountedBetweenStartAndStop();
    void aPickedColourIsReported_data();
    void aPickedColourIsReported();
    void aFailedPowerSupplyIsSeenInTheSelfCheck();
    void invalidRequestsAreRefused_data();
    void invalidRequestsAreRefused();
    void theClockRunsByItself();
};

void tst_TavoroSimMaintenance::aRestartDropsConnectionsAndTheDeviceReturns()
{
    const quint16 port = m_bench->device->port();
    WireClient other;
    QVERIFY(other.connectTo(port));
    QVERIFY(!other.identity().empty());
    QCOMPARE(m_bench->write(restartShutdown, R"({"type":0})"), 0);
    QVERIFY(m_bench->client->waitForEnd());
    QVERIFY(other.waitForEnd());
    run("pass 999");
    QVERIFY(!m_bench->reconnect());
    run("pass 1");
    QCOMPARE(m_bench->device->port(), port);
    QVERIFY(m_bench->reconnect());
    QVERIFY(contains(read(deviceDetail), "Simulated device"));
}

void tst_TavoroSimMaintenance::aRestartAnswersFirstHoweverLate()
{
    auto late = options();
    late.latencyMilliseconds = 30;
    m_bench = std::make_unique<SimBench>(late);
    QCOMPARE(m_bench->write(restartShutdown, R"({"type":0})"), 0);
    QVERIFY(m_bench->client->waitForEnd());
}

void tst_TavoroSimMaintenance::aShutDownDeviceWaitsToBeSwitchedOn()
{
    QCOMPARE(m_bench->write(restartShutdown, R"({"type":1})"), 0);
    QVERIFY(m_bench->client->waitForEnd());
    run("pass 1000000");
    QVERIFY(!m_bench->reconnect());
    run("switch 1");
    QVERIFY(m_bench->reconnect());
    run("switch 0");
    QVERIFY(m_bench->client->waitForEnd());
}

void tst_TavoroSimMaintenance::restartRestoresTheSavedSetup()
{
    QCOMPARE(m_bench->write(deviceSwap, swapOff), 0);
    restart();
    QVERIFY(contains(read(deviceDetail), "\"swap\":1"));
    QCOMPARE(m_bench->write(deviceSwap, swapOff), 0);
    QCOMPARE(m_bench->write(save, {}), 0);
    restart();
    QVERIFY(contains(read(deviceDetail), "\"swap\":0"));
}

void tst_TavoroSimMaintenance::theFactoryResetRestoresTheSetup()
{
    const std::string factory = read(deviceDetail) + read(0x1300);
    m_bench->import(2, 1, "logo");
    QCOMPARE(m_bench->write(deviceSwap, swapOff), 0);
    QCOMPARE(m_bench->write(screenDeleted, R"([{"screenId":1,"screenType":1}])"), 0);
    QCOMPARE(m_bench->write(save, {}), 0);
    QCOMPARE(m_bench->write(factoryReset, R"({"type":0})"), 0);
    QCOMPARE(read(deviceDetail) + read(0x1300), factory);
    QCOMPARE(m_bench->receive(2, 1).body, std::string("logo"));
    restart();
    QCOMPARE(read(deviceDetail) + read(0x1300), factory);
}

void tst_TavoroSimMaintenance::theFactoryResetMayRemoveTheFiles()
{
    m_bench->import(2, 1, "logo");
    QCOMPARE(m_bench->write(factoryReset, R"({"type":1})"), 0);
    QCOMPARE(m_bench->list(), std::string("[]"));
}

void tst_TavoroSimMaintenance::theClockContinuesFromTheTimeThatWasSet()
{
    const char *const given =
        R"({"year":2026,"month":2,"day":28,"hour":23,"minute":59,"second":59,"millisecond":500})";
    QCOMPARE(m_bench->write(deviceTime, given), 0);
    run("pass 1500");
    QCOMPARE(m_bench->write(createLog, R"([{"fileId":1,"fileType":10,"parts":[]}])"), 0);
    QCOMPARE(m_bench->receive(10, 1).body, std::string("2026-03-01T00:00:01.000Z\n"));
    restart();
    m_bench->client = std::make_unique<WireClient>();
    QVERIFY(m_bench->client->connectTo(m_bench->device->port()));
    QVERIFY(contains(m_bench->client->identity(), "\"startTime\":1772323202000,"));
}

void tst_TavoroSimMaintenance::filesAreLoadedAfterARestart()
{
    QCOMPARE(read(loadProgress),
             std::string(R"({"status":0,"totalProcess":100,"processDetails":[]})"));
    m_bench->import(2, 1, "a");
    m_bench->import(6, 3, "b");
    restart();
    QCOMPARE(read(loadProgress),
             std::string(R"({"status":1,"totalProcess":0,"processDetails":[)"
                         R"({"fileType":2,"fileId":1,"process":0},)"
                         R"({"fileType":6,"fileId":3,"process":0}]})"));
    run("pass 150");
    const std::string middle = R"({"status":1,"totalProcess":75,"processDetails":[)"
                               R"({"fileType":2,"fileId":1,"process":100},)"
                               R"({"fileType":6,"fileId":3,"process":50}]})";
    const WireFrame report = m_bench->client->waitForReport();
    QCOMPARE(report.head.code(), loadProgress);
    QCOMPARE(report.body, middle);
    QCOMPARE(read(loadProgress), middle);
    run("pass 50");
    QCOMPARE(m_bench->client->waitForReport().body,
             std::string(R"({"status":0,"totalProcess":100,"processDetails":[]})"));
}

void tst_TavoroSimMaintenance::lossesAreCountedBetweenStartAndStop()
{
    const auto counts = [](int second, int fourth) {
        return QStringLiteral(R"([{"slotId":1,"connectors":[{"index":1,"times":0},)"
                              R"({"index":2,"times":%1},{"index":3,"times":0},)"
                              R"({"index":4,"times":%2}]}])")
            .arg(second)
            .arg(fourth)
            .toStdString();
    };
    run("cable 1 2");
    QCOMPARE(read(lossResult), counts(0, 0));
    QCOMPARE(m_bench->write(lossCount, R"({"type":1})"), 0);
    run("cable 1 2"); // The cable is no longer plugged in.
    QCOMPARE(read(lossResult), counts(0, 0));
    run("cable 1 4");
    run("timing 1 2 1280 720 50");
    run("cable 1 2");
    run("timing 1 2 1280 720 50");
    run("cable 1 2");
    QCOMPARE(read(lossResult), counts(2, 1));
    QCOMPARE(m_bench->write(lossCount, R"({"type":0})"), 0);
    run("timing 1 4 1280 720 50");
    run("cable 1 4");
    QCOMPARE(read(lossResult), counts(2, 1));
    QCOMPARE(m_bench->write(lossCount, R"({"type":2})"), 0);
    QCOMPARE(read(lossResult), counts(0, 0));
}

void tst_TavoroSimMaintenance::aPickedColourIsReported_data()
{
    QTest::addColumn<QString>("point");
    QTest::addColumn<QString>("color");
    QTest::newRow("first pixel of an input") << R"({"enable":1,"type":1,"id":65792})"
                                             << R"({"R":0,"G":0,"B":0})";
    QTest::newRow("last pixel of an input")
        << R"({"enable":1,"type":1,"id":66048,"pos":{"x":1919,"y":1079}})"
        << R"({"R":255,"G":255,"B":93})";
    QTest::newRow("middle of a screen") << R"({"enable":1,"type":3,"id":1,"pos":{"x":1920,"y":0}})"
                                        << R"({"R":127,"G":0,"B":31})";
}

void tst_TavoroSimMaintenance::aPickedColourIsReported()
{
    QFETCH(QString, point);
    QFETCH(QString, color);
    QCOMPARE(m_bench->write(cutoutPosition, R"({"enable":0})"), 0);
    QCOMPARE(m_bench->write(cutoutPosition, point.toStdString()), 0);
    const WireFrame report = m_bench->client->waitForReport();
    QCOMPARE(int(report.head.code()), 0xFC07);
    QCOMPARE(QString::fromStdString(report.body), color);
}

void tst_TavoroSimMaintenance::aFailedPowerSupplyIsSeenInTheSelfCheck()
{
    QCOMPARE(
        read(selfCheck),
        std::string(
            R"({"parts":[{"type":1,"slotId":0,"modelId":30465,"section":[)"
            R"({"sequence":0,"name":"Temperature","value":"41 C","max":"85 C","min":"-10 C","state":0,"showBrief":1},)"
            R"({"sequence":1,"name":"Power","value":"12.1 V","max":"12.6 V","min":"11.4 V","state":0,"showBrief":1}]},)"
            R"({"type":2,"slotId":1,"modelId":30480,"section":[)"
            R"({"sequence":0,"name":"Temperature","value":"41 C","max":"85 C","min":"-10 C","state":0,"showBrief":1}]},)"
            R"({"type":2,"slotId":2,"modelId":30496,"section":[)"
            R"({"sequence":0,"name":"Temperature","value":"41 C","max":"85 C","min":"-10 C","state":0,"showBrief":1}]}]})"));
    run("power 2 0");
    QVERIFY(
        contains(read(selfCheck), R"("value":"0.0 V","max":"12.6 V","min":"11.4 V","state":1,)"));
}

void tst_TavoroSimMaintenance::invalidRequestsAreRefused_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("body");
    QTest::addColumn<int>("status");
    // clang-format off
    QTest::newRow("power, no such option")    << 0xFC01 << R"({"type":2})"                                        << 4;
    QTest::newRow("power, no JSON")           << 0xFC01 << "x"                                                    << 2;
    QTest::newRow("factory, no such option")  << 0xFC02 << R"({"type":-1})"                                       << 4;
    QTest::newRow("losses, no such option")   << 0xFC04 << R"({"type":3})"                                        << 4;
    QTest::newRow("cutout, no such source")   << 0xFC06 << R"({"enable":1,"type":1,"id":1})"                      << 3;
    QTest::newRow("cutout on a file")         << 0xFC06 << R"({"enable":1,"type":2,"id":1})"                      << 3;
    QTest::newRow("cutout beside an input")   << 0xFC06 << R"({"enable":1,"type":1,"id":65792,"pos":{"x":1920}})" << 4;
    QTest::newRow("cutout above an input")    << 0xFC06 << R"({"enable":1,"type":1,"id":65792,"pos":{"y":-1}})"   << 4;
    QTest::newRow("cutout, no flag")          << 0xFC06 << R"({"enable":2,"type":1,"id":65792})"                  << 4;
    QTest::newRow("29 February 2026")         << 0xFC0C << R"({"year":2026,"month":2,"day":29})"                  << 4;
    QTest::newRow("24 o'clock")               << 0xFC0C << R"({"year":2026,"month":2,"day":1,"hour":24})"         << 4;
    // clang-format on
}

void tst_TavoroSimMaintenance::invalidRequestsAreRefused()
{
    QFETCH(int, code);
    QFETCH(QString, body);
    const int status = m_bench->write(static_cast<quint16>(code), body.toStdString());
    QTEST(status, "status");
    QVERIFY(!read(deviceDetail).empty());
}

void tst_TavoroSimMaintenance::theClockRunsByItself()
{
    auto fast = options();
    fast.clockSpeed = 100000;
    m_bench = std::make_unique<SimBench>(fast);
    QCOMPARE(m_bench->write(upgradeDetail, upgradeAndRestart), 0);
    QVERIFY(m_bench->client->waitForEnd());
    QTRY_VERIFY(m_bench->reconnect());
}

QTEST_GUILESS_MAIN(tst_TavoroSimMaintenance)
#include "tst_tavorosimmaintenance.moc"
