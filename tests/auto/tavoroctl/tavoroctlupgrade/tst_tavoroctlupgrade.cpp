// upgrade on a simulated device: how it is started, followed and attached to.

#include <support/tavoroctl/fastdevice.h>

#include <QTest>

class tst_TavoroCtlUpgrade : public QObject, protected FastDevice {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void upgradeIsFollowedToItsEnd();
    void failedUpgradeEndsWithOne();
    void refusedUpgradeEndsWithFour();
    void upgradeWithRebootWaitsForTheDevice();
    void upgradeOfADeviceThatStaysAwayEndsAsUnreachable();
    void interruptedUpgradeContinuesOnTheDevice();

    void refusedReadOfTheProgressIsRepeated();
    void upgradeIsFollowedAcrossAReconnect();
    void upgradeThatCannotBeFollowedContinuesOnTheDevice();
    void secondUpgradeFollowsTheRunningOne();
    void lostAnswerToTheStartIsNotAFailure();

private:
    /// Waits until an upgrade has begun.
    void waitForStart() const;
};

namespace {

constexpr int stopped = 0; ///< Speed of a clock that does not run.
const QByteArray allUnitsWritten = "slot 0, type 1: written\n"
                                   "slot 1, type 2: written\n"
                                   "slot 2, type 2: written\n"
                                   "The upgrade is done.\n";

} // namespace

void tst_TavoroCtlUpgrade::init()
{
    useDevice();
}

void tst_TavoroCtlUpgrade::cleanup()
{
    m_bench.reset();
}

void tst_TavoroCtlUpgrade::waitForStart() const
{
    QTRY_VERIFY(read("Auxiliary.readUpgradeProgress").contains(R"("parts":[{)"));
}

void tst_TavoroCtlUpgrade::upgradeIsFollowedToItsEnd()
{
    const ToolRun upgrade = m_bench->run("upgrade", {"/firmware/2.bin"});
    QCOMPARE(upgrade.output, allUnitsWritten);
    QCOMPARE(upgrade.errors, QByteArray());
    QCOMPARE(upgrade.exitCode, 0);
    QVERIFY(m_bench->run("version", {}).output.contains("258 logic    1.0.1"));
}

void tst_TavoroCtlUpgrade::failedUpgradeEndsWithOne()
{
    m_bench->console(QStringLiteral("spoil 50"));
    const ToolRun upgrade = m_bench->run("upgrade", {"/firmware/2.bin"});
    QCOMPARE(upgrade.output,
             QByteArray("slot 0, type 1: written\n"
                        "slot 1, type 2: failed with result 1\n"));
    QCOMPARE(upgrade.errors, QByteArray("The upgrade failed at 50 %.\n"));
    QCOMPARE(upgrade.exitCode, 1);
}

void tst_TavoroCtlUpgrade::refusedUpgradeEndsWithFour()
{
    m_bench->console(QStringLiteral("fault add status=4,code=0xFC08"));
    const ToolRun upgrade = m_bench->run("upgrade", {"/firmware/2.bin"});
    QCOMPARE(upgrade.output, QByteArray());
    QCOMPARE(upgrade.errors,
             QByteArray("Set upgrade detail information failed: hardware error:4 (a value is out "
                        "of range) .\n"));
    QCOMPARE(upgrade.exitCode, 4);
}

void tst_TavoroCtlUpgrade::upgradeWithRebootWaitsForTheDevice()
{
    QCOMPARE(m_bench->run("call", {"Device.writeDeviceGeneral", name}).exitCode, 0);
    const ToolRun upgrade = m_bench->run("upgrade", {"/firmware/2.bin", "--reboot"});
    QCOMPARE(upgrade.output, allUnitsWritten);
    QCOMPARE(upgrade.errors, QByteArray());
    QCOMPARE(upgrade.exitCode, 0);
    QVERIFY(!read("Device.readDetails").contains("Main hall")); // The device has restarted.
}

void tst_TavoroCtlUpgrade::upgradeOfADeviceThatStaysAwayEndsAsUnreachable()
{
    useDevice(stopped);
    RunningTool tool(m_bench->line("upgrade", {"/firmware/2.bin", "--reboot", "--timeout", "500"}));
    waitForStart();
    m_bench->console(QStringLiteral("pass 2000"));
    QVERIFY(tool.waitForOutput("slot 0, type 1: written\n"));
    m_bench->console(QStringLiteral("switch 0"));
    const ToolRun upgrade = tool.finish();
    QVERIFY2(upgrade.errors.startsWith("Get upgrade percent information failed: "),
             upgrade.errors.constData());
    QVERIFY(upgrade.errors.endsWith("\nThe device continues with the upgrade.\n"));
    QCOMPARE(upgrade.errors.count('\n'), 2);
    QCOMPARE(upgrade.exitCode, 3);
}

void tst_TavoroCtlUpgrade::interruptedUpgradeContinuesOnTheDevice()
{
    useDevice(stopped);
    RunningTool tool(m_bench->line("upgrade", {"/firmware/2.bin"}));
    waitForStart();
    m_bench->console(QStringLiteral("pass 3000"));
    QVERIFY(tool.waitForOutput("slot 0, type 1: written\n"));
    tool.interrupt();
    const ToolRun upgrade = tool.finish();
    QCOMPARE(upgrade.output, QByteArray("slot 0, type 1: written\n"));
    QCOMPARE(upgrade.errors, QByteArray("Interrupted. The device continues with the upgrade.\n"));
    QCOMPARE(upgrade.exitCode, 130);
    m_bench->console(QStringLiteral("pass 3000"));
    QVERIFY(read("Auxiliary.readUpgradeProgress").startsWith(R"({"result":0,"rate":100,)"));
}

void tst_TavoroCtlUpgrade::refusedReadOfTheProgressIsRepeated()
{
    m_bench->console(QStringLiteral("fault add status=9,code=AuxiliaryUpgradePercent,count=2"));
    const ToolRun upgrade = m_bench->run("upgrade", {"/firmware/2.bin"});
    QCOMPARE(upgrade.output, allUnitsWritten);
    QCOMPARE(upgrade.errors, QByteArray());
    QCOMPARE(upgrade.exitCode, 0);
}

void tst_TavoroCtlUpgrade::upgradeIsFollowedAcrossAReconnect()
{
    useDevice(stopped);
    RunningTool tool(m_bench->line("upgrade", {"/firmware/2.bin"}));
    waitForStart();
    m_bench->console(QStringLiteral("fault add drop-before,code=AuxiliaryUpgradePercent,count=1"));
    m_bench->console(QStringLiteral("pass 2000"));
    QVERIFY(tool.waitForOutput("slot 0, type 1: written\n"));
    m_bench->console(QStringLiteral("pass 10000"));
    const ToolRun upgrade = tool.finish();
    QCOMPARE(upgrade.output, allUnitsWritten);
    QCOMPARE(upgrade.errors, QByteArray());
    QCOMPARE(upgrade.exitCode, 0);
}

void tst_TavoroCtlUpgrade::upgradeThatCannotBeFollowedContinuesOnTheDevice()
{
    m_bench->console(QStringLiteral("fault add status=9,code=AuxiliaryUpgradePercent"));
    const ToolRun upgrade = m_bench->run("upgrade", {"/firmware/2.bin", "--timeout", "300"});
    QCOMPARE(upgrade.output, QByteArray());
    QCOMPARE(upgrade.errors,
             QByteArray("Get upgrade percent information failed: hardware error:9 (length or hash "
                        "of a file's content differ from those announced) .\n"
                        "The device continues with the upgrade.\n"));
    QCOMPARE(upgrade.exitCode, 4);
    m_bench->console(QStringLiteral("fault clear"));
    QTRY_VERIFY(m_bench->run("version", {}).output.contains("258 logic    1.0.1"));
}

void tst_TavoroCtlUpgrade::secondUpgradeFollowsTheRunningOne()
{
    useDevice(stopped);
    RunningTool first(m_bench->line("upgrade", {"/firmware/2.bin"}));
    waitForStart();
    RunningTool second(m_bench->line("upgrade", {"/firmware/2.bin"}));
    QVERIFY(second.waitForOutput("Following the upgrade that is running on the device.\n"));
    m_bench->console(QStringLiteral("pass 20000"));
    QCOMPARE(first.finish().output, allUnitsWritten);
    const ToolRun attached = second.finish();
    QCOMPARE(attached.output,
             "Following the upgrade that is running on the device.\n" + allUnitsWritten);
    QCOMPARE(attached.errors, QByteArray());
    QCOMPARE(attached.exitCode, 0);
}

void tst_TavoroCtlUpgrade::lostAnswerToTheStartIsNotAFailure()
{
    useDevice(stopped);
    m_bench->console(QStringLiteral("fault add drop-within,code=AuxiliaryUpgradeDetail,count=1"));
    RunningTool tool(m_bench->line("upgrade", {"/firmware/2.bin"}));
    QVERIFY(tool.waitForOutput("Following the upgrade that is running on the device.\n"));
    m_bench->console(QStringLiteral("pass 20000"));
    QCOMPARE(tool.finish().exitCode, 0);
}

QTEST_GUILESS_MAIN(tst_TavoroCtlUpgrade)
#include "tst_tavoroctlupgrade.moc"
