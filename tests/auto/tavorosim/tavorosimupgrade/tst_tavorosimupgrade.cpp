// Upgrades of the simulated device. Time passes only when a test lets it.

#include <support/common/contains.h>
#include <support/tavorosim/commandcodes.h>
#include <support/tavorosim/simclock.h>

using namespace CommandCodes;

class tst_TavoroSimUpgrade : public QObject, private SimClockFixture {
    Q_OBJECT

private Q_SLOTS:
    void init() { start(); }
    void cleanup() { stop(); }

    void anUpgradeAdvancesThroughItsSections();
    void anUpgradeOfNothingNamedIsOneOfAll();
    void anUpgradeChangesTheVersions();
    void upgradeFailsAtTheSpoiledPercentage();
    void anUpgradeEndsWithTheRestart();
    void anUpgradeMayRestartTheDevice();
    void oneUpgradeRunsAtATime();
    void badUpgradesAreRefused_data();
    void badUpgradesAreRefused();
};

namespace {

const char *const upgradeCard1 =
    R"({"upgradeType":1,"filePath":"/a.bin","reboot":0,"parts":[{"type":2,"slotId":1,"section":[{"code":257},{"code":258}]}]})";

} // namespace

void tst_TavoroSimUpgrade::anUpgradeAdvancesThroughItsSections()
{
    const auto progress = [](int whole, int step, int first, int second) {
        return QStringLiteral(R"({"result":0,"rate":%1,"subSections":{"rate":%2},"parts":[)"
                              R"({"type":2,"slotId":1,"rate":%1,"result":0,"section":[)"
                              R"({"code":257,"rate":%3,"result":0},)"
                              R"({"code":258,"rate":%4,"result":0}]}]})")
            .arg(whole)
            .arg(step)
            .arg(first)
            .arg(second)
            .toStdString();
    };
    QCOMPARE(read(upgradePercent),
             std::string(R"({"result":0,"rate":0,"subSections":{"rate":0},"parts":[]})"));
    QCOMPARE(m_bench->write(upgradeDetail, upgradeCard1), 0);
    QCOMPARE(read(upgradePercent), progress(0, 0, 0, 0));
    run("pass 500");
    QCOMPARE(read(upgradePercent), progress(25, 50, 50, 0));
    run("pass 500");
    QCOMPARE(read(upgradePercent), progress(50, 0, 100, 0));
    run("pass 900");
    QCOMPARE(read(upgradePercent), progress(95, 90, 100, 90));
    run("pass 10000");
    QCOMPARE(read(upgradePercent), progress(100, 100, 100, 100));
}

void tst_TavoroSimUpgrade::anUpgradeOfNothingNamedIsOneOfAll()
{
    QCOMPARE(m_bench->write(upgradeDetail, R"({"filePath":"/a.bin"})"), 0);
    run("pass 5999");
    const std::string progress = read(upgradePercent);
    QVERIFY(contains(progress, R"("rate":99,)"));
    for (const char *unit :
         {R"("type":1,"slotId":0,)", R"("type":2,"slotId":1,)", R"("type":2,"slotId":2,)"})
        QVERIFY2(contains(progress, unit), progress.c_str());
    run("pass 1");
    QVERIFY(contains(read(upgradePercent), R"({"result":0,"rate":100,)"));
}

void tst_TavoroSimUpgrade::anUpgradeChangesTheVersions()
{
    QVERIFY(hasVersion(R"({"version":"1.0.0","brief":"simulated","parts":[{"type":1,"slotId":0,)"));
    const char *const card = R"({"type":2,"slotId":1,"modelId":30480,"version":"1.0.%1",)";
    QVERIFY(hasVersion(qPrintable(QString::fromLatin1(card).arg(0))));
    for (int revision = 1; revision <= 2; ++revision) {
        QCOMPARE(m_bench->write(upgradeDetail, upgradeCard1), 0);
        run("pass 2000");
        QVERIFY(hasVersion(qPrintable(QString::fromLatin1(card).arg(revision))));
    }
    QVERIFY(hasVersion(R"({"version":"1.0.0",)")); // The device as a whole was left out.
}

void tst_TavoroSimUpgrade::upgradeFailsAtTheSpoiledPercentage()
{
    QCOMPARE(m_bench->write(upgradeDetail, upgradeCard1), 0);
    run("spoil 75");
    run("pass 1000");
    QVERIFY(contains(read(upgradePercent), R"({"result":0,"rate":50,)"));
    run("pass 10000");
    const std::string failed =
        R"({"result":1,"rate":75,"subSections":{"rate":50},"parts":[{"type":2,"slotId":1,)"
        R"("rate":75,"result":1,"section":[{"code":257,"rate":100,"result":0},)"
        R"({"code":258,"rate":50,"result":1}]}]})";
    QCOMPARE(read(upgradePercent), failed);
    QVERIFY(hasVersion(R"({"code":257,"version":"1.0.1",)"));
    QVERIFY(!hasVersion(R"({"code":258,"version":"1.0.1",)"));
    QCOMPARE(m_bench->write(upgradeDetail, upgradeCard1), 0); // The fault is over.
    run("pass 2000");
    QVERIFY(contains(read(upgradePercent), R"({"result":0,"rate":100,)"));
}

void tst_TavoroSimUpgrade::anUpgradeEndsWithTheRestart()
{
    QCOMPARE(m_bench->write(upgradeDetail, upgradeCard1), 0);
    run("pass 500");
    restart();
    QVERIFY(contains(read(upgradePercent), R"({"result":1,"rate":25,)"));
}

void tst_TavoroSimUpgrade::anUpgradeMayRestartTheDevice()
{
    QCOMPARE(m_bench->write(upgradeDetail, upgradeAndRestart), 0);
    run("pass 1000");
    QVERIFY(m_bench->client->waitForEnd());
    run("pass 1000");
    QVERIFY(m_bench->reconnect());
    QVERIFY(contains(read(upgradePercent), R"({"result":0,"rate":100,)"));
    QVERIFY(hasVersion(R"({"version":"1.0.1",)"));
}

void tst_TavoroSimUpgrade::oneUpgradeRunsAtATime()
{
    QCOMPARE(m_bench->write(upgradeDetail, upgradeCard1), 0);
    QCOMPARE(m_bench->write(upgradeDetail, upgradeCard1), 8);
    run("pass 2000");
    QCOMPARE(m_bench->write(upgradeDetail, upgradeCard1), 0);
}

void tst_TavoroSimUpgrade::badUpgradesAreRefused_data()
{
    QTest::addColumn<QString>("body");
    QTest::addColumn<int>("status");
    // clang-format off
    QTest::newRow("no JSON")          << "x"                                                                                                    << 2;
    QTest::newRow("no package")       << R"({"filePath":""})"                                                                                   << 4;
    QTest::newRow("no flag")          << R"({"filePath":"a","reboot":2})"                                                                       << 4;
    QTest::newRow("no such unit")     << R"({"filePath":"a","parts":[{"type":2,"slotId":9,"section":[{"code":257}]}]})"                         << 3;
    QTest::newRow("no such section")  << R"({"filePath":"a","parts":[{"type":2,"slotId":1,"section":[{"code":1}]}]})"                           << 3;
    QTest::newRow("no section")       << R"({"filePath":"a","parts":[{"type":2,"slotId":1}]})"                                                  << 4;
    QTest::newRow("a section twice")  << R"({"filePath":"a","parts":[{"type":2,"slotId":1,"section":[{"code":257},{"code":257}]}]})"            << 4;
    // clang-format on
}

void tst_TavoroSimUpgrade::badUpgradesAreRefused()
{
    QFETCH(QString, body);
    const int status = m_bench->write(upgradeDetail, body.toStdString());
    QTEST(status, "status");
    QVERIFY(contains(read(upgradePercent), R"("parts":[]})"));
}

QTEST_GUILESS_MAIN(tst_TavoroSimUpgrade)
#include "tst_tavorosimupgrade.moc"
