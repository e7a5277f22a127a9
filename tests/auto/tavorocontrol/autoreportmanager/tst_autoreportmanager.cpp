#include <support/tavorocontrol/reportrows.h>

#include <support/tavorocontrol/requestpath.h>

#include <tavorocontrol/autoreportmanager.h>

#include <QtTest>

#include <thread>

using namespace Tavoro;
using Control::AutoReportManager;

/// There is one manager per process: these tests follow its life from creation to deletion.
class tst_AutoReportManager : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void reportsBeforeTheFirstCallAreNotHandled();
    void firstCallCreatesTheOnlyManager();

    void expiredChannelOrNoCommandIsLogged();
    void reportOfAnUnknownDeviceOnlyLogs_data();
    void reportOfAnUnknownDeviceOnlyLogs();
    void stoppedReportsAreDropped();
    void stopIsCheckedBeforeTheCode();
    void deviceIsLookedUpBeforeTheStopIsChecked();
    void unknownCodeIsLogged_data();
    void unknownCodeIsLogged();

    void deletedManagerHandlesNothing();
    void noSecondManagerIsCreated();
};

namespace {

constexpr auto powerLogged = R"("{\"powers\":[{\"powerId\":1,\"iSignal\":2,\"status\":3}]}")";

const QStringList stoppedLine = textLines(
    {R"(debug: "TavoroCmd auto report: stage left 192.0.2.7 02005E100007 0123456789ABCD07 BC(11), )"
     R"(FC(03),auto report is closed by spacial task, report cmd: device power information, )"
     R"(report info: " "{\"powers\":[{\"powerId\":1,\"iSignal\":2,\"status\":3}]}")"});

} // namespace

void tst_AutoReportManager::reportsBeforeTheFirstCallAreNotHandled()
{
    Reported it;
    const QStringList before = snapshot(it);
    it.report(powerCode, powerBody);
    QVERIFY(it.journal.lines().isEmpty());
    QCOMPARE(snapshot(it), before);
}

void tst_AutoReportManager::firstCallCreatesTheOnlyManager()
{
    auto *manager = AutoReportManager::instance();
    QVERIFY(manager);
    QCOMPARE(AutoReportManager::instance(), manager);
    QVERIFY(!manager->parent());
}

void tst_AutoReportManager::expiredChannelOrNoCommandIsLogged()
{
    Reported it;
    announce({}, reportOf(powerCode, powerBody));
    announce(it.device.channel, nullptr);
    announce({}, nullptr);
    const auto line = "warning: TavoroCmd auto report: Invalid channel";
    QCOMPARE(it.journal.lines(), textLines({line, line, line}));
    QCOMPARE(heldPowers(it), std::string("[]"));
}

void tst_AutoReportManager::reportOfAnUnknownDeviceOnlyLogs_data()
{
    QTest::addColumn<quint16>("code");
    QTest::addColumn<QString>("line");

    QTest::newRow("known code")
        << powerCode
        << QStringLiteral(R"(debug: "TavoroCmd auto report BC(11), FC(03),device model is null, )"
                          R"(report cmd: device power information, report info: " %1)")
               .arg(QLatin1String(powerLogged));
    QTest::newRow("unknown code")
        << quint16(0x0901)
        << QStringLiteral(R"(debug: "TavoroCmd auto report BC(09), FC(01),device model is null, )"
                          R"(report cmd: N/A, report info: " %1)")
               .arg(QLatin1String(powerLogged));
}

void tst_AutoReportManager::reportOfAnUnknownDeviceOnlyLogs()
{
    QFETCH(const quint16, code);
    QFETCH(const QString, line);
    Reported it;
    const ScriptedDevice unknown(8);
    const QStringList before = snapshot(it);
    announce(unknown.channel, reportOf(code, powerBody));
    QCOMPARE(it.journal.lines(), QStringList(line));
    QCOMPARE(snapshot(it), before);
    QVERIFY(unknown.model->deviceDetail().powers.empty());
}

void tst_AutoReportManager::stoppedReportsAreDropped()
{
    Reported it;
    auto *manager = AutoReportManager::instance();
    manager->setIsStopAutoReport(true);
    it.report(powerCode, powerBody);
    QCOMPARE(it.journal.lines(), stoppedLine);
    QCOMPARE(heldPowers(it), std::string("[]"));

    manager->setIsStopAutoReport(false);
    QCoreApplication::processEvents();
    QCOMPARE(heldPowers(it), std::string("[]"));
    QCOMPARE(it.journal.lines(), stoppedLine);
    it.report(powerCode, powerBody);
    QCOMPARE(heldPowers(it), std::string(powersThen));
}

void tst_AutoReportManager::stopIsCheckedBeforeTheCode()
{
    Reported it;
    AutoReportManager::instance()->setIsStopAutoReport(true);
    it.report(0x1199, "x");
    AutoReportManager::instance()->setIsStopAutoReport(false);
    QCOMPARE(it.journal.lines(),
             QStringList(QStringLiteral(R"(debug: "TavoroCmd auto report: %1 BC(11), FC(99),auto )"
                                        R"(report is closed by spacial task, report cmd: N/A, )"
                                        R"(report info: " "x")")
                             .arg(QLatin1String(identity))));
}

void tst_AutoReportManager::deviceIsLookedUpBeforeTheStopIsChecked()
{
    Reported it;
    const ScriptedDevice unknown(8);
    AutoReportManager::instance()->setIsStopAutoReport(true);
    announce(unknown.channel, reportOf(powerCode, powerBody));
    AutoReportManager::instance()->setIsStopAutoReport(false);
    QCOMPARE(it.journal.lines().size(), 1);
    QVERIFY(it.journal.lines().first().contains(QStringLiteral("device model is null")));
}

void tst_AutoReportManager::unknownCodeIsLogged_data()
{
    QTest::addColumn<quint16>("code");
    QTest::addColumn<QString>("codes");

    const auto add = [](const char *name, quint16 code, const char *codes) {
        QTest::newRow(name) << code << QString::fromLatin1(codes);
    };
    add("a read of the device", 0x1100, "base code 11,functionCode 00");
    add("bytes the other way round", 0x0311, "base code 03,functionCode 11");
    add("file progress with the base of the device's", 0xFC05, "base code fc,functionCode 05");
    add("device progress with the base of the files'", 0xFA0D, "base code fa,functionCode 0d");
    add("nothing", 0x0000, "base code 00,functionCode 00");
    add("all bits", 0xFFFF, "base code ff,functionCode ff");
}

void tst_AutoReportManager::unknownCodeIsLogged()
{
    QFETCH(const quint16, code);
    QFETCH(const QString, codes);
    Reported it;
    const QStringList before = snapshot(it);
    it.report(code, powerBody);
    QCOMPARE(
        it.journal.lines(),
        QStringList(QStringLiteral(
                        R"(warning: "TavoroCmd auto report:%1 Not support auto report cmd, %2.")")
                        .arg(QLatin1String(identity), codes)));
    QCOMPARE(snapshot(it), before);
}

void tst_AutoReportManager::deletedManagerHandlesNothing()
{
    Reported it;
    std::thread channels([&] { it.report(powerCode, powerBody); });
    channels.join(); // this report is queued
    AutoReportManager::deleteInstance();
    it.report(powerCode, powerBody);
    QCoreApplication::processEvents();
    QVERIFY(it.journal.lines().isEmpty());
    QCOMPARE(heldPowers(it), std::string("[]"));
    AutoReportManager::deleteInstance();
}

void tst_AutoReportManager::noSecondManagerIsCreated()
{
    AutoReportManager::instance(); // creates the manager if this test runs alone
    AutoReportManager::deleteInstance();
    QVERIFY(!AutoReportManager::instance());
    QVERIFY(!AutoReportManager::instance());
}

QTEST_GUILESS_MAIN(tst_AutoReportManager)
#include "tst_autoreportmanager.moc"
