// preset, reboot, selfcheck and version on a simulated device.

#include <support/tavoroctl/fastdevice.h>

#include <QTest>

class tst_TavoroCtlMaintenance : public QObject, protected FastDevice {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void versionShowsEveryUnit();
    void versionPrintsJson();
    void selfCheckWithoutFaultsEndsWithZero();
    void selfCheckWithFaultsEndsWithOne();
    void rebootRestoresTheSavedState();

    void applyingAPresetRestoresScreens();
    void presetCoversTheGivenScreens();
    void presetOfAllScreensHasADefaultName();
    void presetCanBeAppliedToThePreview();
    void presetOfAMissingScreenEndsWithOne();
    void missingPresetEndsWithFour();
    void wrongUsageEndsWithTwo_data();
    void wrongUsageEndsWithTwo();
};

namespace {

const QByteArray take = R"([{"screenId":1,"screenType":1,)"
                        R"("switchEffect":{"time":5,"direction":0,"type":1}}])";

} // namespace

void tst_TavoroCtlMaintenance::init()
{
    useDevice();
}

void tst_TavoroCtlMaintenance::cleanup()
{
    m_bench.reset();
}

void tst_TavoroCtlMaintenance::versionShowsEveryUnit()
{
    const ToolRun version = m_bench->run("version", {});
    QCOMPARE(version.output, QByteArray(R"(SLOT    TYPE  MODEL   SECTION      VERSION
device                             1.0.0
0       1     0x7701               1.0.0
                      257 program  1.0.0
                      258 logic    1.0.0
1       2     0x7710               1.0.0
                      257 program  1.0.0
                      258 logic    1.0.0
2       2     0x7720               1.0.0
                      257 program  1.0.0
                      258 logic    1.0.0
)"));
    QCOMPARE(version.errors, QByteArray());
    QCOMPARE(version.exitCode, 0);
}

void tst_TavoroCtlMaintenance::versionPrintsJson()
{
    QVERIFY(m_bench->run("version", {"--json"})
                .output.startsWith(R"({"version":"1.0.0","brief":"simulated","parts":[{)"));
}

void tst_TavoroCtlMaintenance::selfCheckWithoutFaultsEndsWithZero()
{
    const ToolRun check = m_bench->run("selfcheck", {});
    QCOMPARE(check.output,
             QByteArray(R"(SLOT  TYPE  MODEL   MEASUREMENT  VALUE   MIN     MAX     STATE
0     1     0x7701  Temperature  41 C    -10 C   85 C    good
0     1     0x7701  Power        12.1 V  11.4 V  12.6 V  good
1     2     0x7710  Temperature  41 C    -10 C   85 C    good
2     2     0x7720  Temperature  41 C    -10 C   85 C    good
)"));
    QCOMPARE(check.errors, QByteArray());
    QCOMPARE(check.exitCode, 0);
}

void tst_TavoroCtlMaintenance::selfCheckWithFaultsEndsWithOne()
{
    m_bench->console(QStringLiteral("power 2 0"));
    m_bench->console(QStringLiteral("card 1 0"));
    const ToolRun check = m_bench->run("selfcheck", {});
    QVERIFY(
        check.output.contains("0     1     0x7701  Power        0.0 V  11.4 V  12.6 V  faulty"));
    QCOMPARE(check.errors, QByteArray("The self check reports a fault in 2.\n"));
    QCOMPARE(check.exitCode, 1);
    const ToolRun json = m_bench->run("selfcheck", {"--json"});
    QVERIFY(json.output.startsWith(R"({"parts":[{"type":1,"slotId":0,)"));
    QCOMPARE(json.exitCode, 1);
}

void tst_TavoroCtlMaintenance::rebootRestoresTheSavedState()
{
    QCOMPARE(m_bench->run("call", {"Device.writeDeviceGeneral", name}).exitCode, 0);
    const ToolRun reboot = m_bench->run("reboot", {});
    QCOMPARE(reboot.errors + reboot.output, QByteArray());
    QCOMPARE(reboot.exitCode, 0);
    const QByteArray details = read("Device.readDetails", {});
    QVERIFY2(details.contains("\"name\":\"Simulated device\""), details.constData());
}

void tst_TavoroCtlMaintenance::applyingAPresetRestoresScreens()
{
    const QByteArray before = read("Layer.readDetails", {"1", "1", "-1", "-1"});
    const ToolRun save = m_bench->run("preset save", {"3", "--name", "Opening"});
    QCOMPARE(save.errors + save.output, QByteArray());
    QCOMPARE(save.exitCode, 0);
    QCOMPARE(m_bench->run("call", {"Screen.writeTake", take}).exitCode, 0);
    QVERIFY(read("Layer.readDetails", {"1", "1", "-1", "-1"}) != before);
    const ToolRun apply = m_bench->run("preset apply", {"3"});
    QCOMPARE(apply.errors + apply.output, QByteArray());
    QCOMPARE(apply.exitCode, 0);
    QCOMPARE(read("Layer.readDetails", {"1", "1", "-1", "-1"}), before);
    QVERIFY(m_bench->run("files", {}).output.contains("screen-preset  3   Opening"));
}

void tst_TavoroCtlMaintenance::presetCoversTheGivenScreens()
{
    m_bench = std::make_unique<ToolBench>();
    QCOMPARE(m_bench->run("preset save", {"1", "2", "4", "--type", "device-preset"}).exitCode, 0);
    QCOMPARE(m_bench->run("pull", {"8", "1", m_bench->path("preset")}).exitCode, 0);
    const QByteArray preset = m_bench->content("preset");
    QVERIFY(!preset.contains(R"({"screenId":1,)"));
    QVERIFY(preset.contains(R"({"screenId":2,)"));
    QVERIFY(!preset.contains(R"({"screenId":3,)"));
    QVERIFY(preset.contains(R"({"screenId":4,)"));
}

void tst_TavoroCtlMaintenance::presetOfAllScreensHasADefaultName()
{
    QCOMPARE(m_bench->run("preset save", {"12"}).exitCode, 0);
    QCOMPARE(m_bench->run("pull", {"screen-preset", "12", m_bench->path("preset")}).exitCode, 0);
    QVERIFY(m_bench->content("preset").contains(R"({"screenId":1,)"));
    QVERIFY(m_bench->run("files", {}).output.contains("Preset 12"));
}

void tst_TavoroCtlMaintenance::presetCanBeAppliedToThePreview()
{
    const QByteArray programme = read("Layer.readDetails", {"1", "1", "4", "-1"});
    QCOMPARE(m_bench->run("preset save", {"3"}).exitCode, 0);
    QCOMPARE(m_bench->run("preset apply", {"3", "--apply-type", "1"}).exitCode, 0);
    QCOMPARE(read("Layer.readDetails", {"1", "1", "4", "-1"}), programme);
    QByteArray expected = programme;
    expected.replace(R"("sceneType":4)", R"("sceneType":2)");
    QCOMPARE(read("Layer.readDetails", {"1", "1", "2", "-1"}), expected);
}

void tst_TavoroCtlMaintenance::presetOfAMissingScreenEndsWithOne()
{
    const ToolRun save = m_bench->run("preset save", {"1", "1", "77"});
    QCOMPARE(save.errors, QByteArray("The device has no screen 77.\n"));
    QCOMPARE(save.exitCode, 1);
    QVERIFY(!m_bench->run("files", {}).output.contains("preset"));
}

void tst_TavoroCtlMaintenance::missingPresetEndsWithFour()
{
    const ToolRun apply = m_bench->run("preset apply", {"9"});
    QCOMPARE(apply.errors,
             QByteArray("Set preset apply information failed: hardware error:3 (the body or the "
                        "filters name an object that does not exist) .\n"));
    QCOMPARE(apply.exitCode, 4);
}

void tst_TavoroCtlMaintenance::wrongUsageEndsWithTwo_data()
{
    QTest::addColumn<QByteArrayList>("arguments");
    QTest::addColumn<QString>("words");
    const QByteArray host = "nowhere.invalid";
    // clang-format off
    QTest::newRow("half a name")   << QByteArrayList{"preset", host, "1"}
        << "unknown command \"preset\"; --help lists all commands";
    QTest::newRow("no preset")     << QByteArrayList{"preset", "save", host}                               << "preset save takes HOST[:PORT] ID [SCREEN ...]";
    QTest::newRow("bad preset")    << QByteArrayList{"preset", "apply", host, "first"}
        << "\"first\" is not a valid file ID (0 to 254)";
    QTest::newRow("bad screen")    << QByteArrayList{"preset", "save", host, "1", "256"}
        << "\"256\" is not a valid screen ID (0 to 255)";
    QTest::newRow("bad way")       << QByteArrayList{"preset", "apply", host, "1", "--apply-type", "soft"} << "\"soft\" is not a number";
    QTest::newRow("no package")    << QByteArrayList{"upgrade", host}                                      << "upgrade takes HOST[:PORT] PACKAGE";
    QTest::newRow("bad host")      << QByteArrayList{"reboot", "a:b:c"}                                    << "\"a:b:c\" is not HOST[:PORT]";
    // clang-format on
}

void tst_TavoroCtlMaintenance::wrongUsageEndsWithTwo()
{
    QFETCH(QByteArrayList, arguments);
    QFETCH(QString, words);
    const ToolRun run = ToolBench::run(arguments);
    QCOMPARE(QString::fromUtf8(run.errors), QStringLiteral("tavoroctl: %1\n").arg(words));
    QCOMPARE(run.exitCode, 2);
}

QTEST_GUILESS_MAIN(tst_TavoroCtlMaintenance)
#include "tst_tavoroctlmaintenance.moc"
