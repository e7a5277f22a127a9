#include <reported.h>
#include <requestpath.h>
#include <samplebodies.h>

#include <tavorocontrol/autoreportmanager.h>

#include <QtTest>

#include <thread>

using namespace Tavoro;
using Control::AutoReportManager;

/// The manager lives once per process: the order of these tests is that of its life.
class tst_AutoReportManager : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void reportsBeforeTheFirstCallAreNotHandled();
    void firstCallMakesTheOnlyManager();

    void reportReachesItsPartOfTheModel_data();
    void reportReachesItsPartOfTheModel();
    void undecodableReportLeavesTheModelAlone_data();
    void undecodableReportLeavesTheModelAlone();
    void typeOfTheCommandDoesNotMatter();

    void fileProgressIsRecorded();
    void emptyFileProgressIsLoggedAndNotRecorded();
    void undecodableFileProgressIsLoggedTwice();

    void expiredChannelOrNoCommandIsLogged();
    void reportOfAnUnknownDeviceOnlyLogs_data();
    void reportOfAnUnknownDeviceOnlyLogs();
    void stoppedReportsAreDroppedForGood();
    void stopComesBeforeTheLookup();
    void unknownDeviceComesBeforeTheStop();
    void unknownCodeIsLogged_data();
    void unknownCodeIsLogged();

    void deletedManagerHandlesNothing();
    void noManagerIsMadeASecondTime();
};

namespace {

struct ReportRow {
    const char *name;
    quint16 code;
    const char *codes; ///< As the log tells them.
    const char *label;
    std::string body;
    std::string (*held)(const Reported &); ///< The part of the model that the report is about.
    std::string effect; ///< What that part then is.
    const char *failed; ///< Logged before the error text.
    const char *badBody;
    int resultOfFailure;
};

// clang-format off
std::string heldSubcards(const Reported &it)    { return json(it.device.model->deviceDetail().subcards); }
std::string heldGenlock(const Reported &it)     { return json(it.device.model->deviceDetail().genlockSignal); }
std::string heldGroups(const Reported &it)      { return json(it.device.model->deviceDetail().groupInfos); }
std::string heldRelations(const Reported &it)   { return json(it.device.model->deviceDetail().interfaceRelation.relation); }
std::string heldGeneral(const Reported &it)     { return json(it.interface().general); }
std::string heldTiming(const Reported &it)      { return json(it.interface().actualTiming); }
std::string heldDepth(const Reported &it)       { return json(it.interface().colorDepths); }
std::string heldSpace(const Reported &it)       { return json(it.interface().colorSpaces); }
std::string heldRange(const Reported &it)       { return json(it.interface().colorRanges); }
std::string heldHdr(const Reported &it)         { return json(it.interface().HDR); }
std::string heldGenlocks(const Reported &it)    { return json(it.device.model->screenGenlocks()); }
std::string heldZelk(const Reported &it)        { return json(it.screen().screenZeLK); }
std::string heldFileShare(const Reported &it)   { return json(it.file()->transferProgress()); }
std::string heldCutout(const Reported &it)      { return json(it.device.model->cutoutRGB()); }
std::string heldProcess(const Reported &it)     { return json(it.device.model->deviceProcess()); }

/// One element of a report on the interface.
std::string ofInterface(const char *key, const std::string &value)
{
    return R"([{"slotId":1,"connectorId":2,"splitId":3,")" + std::string(key) + R"(":)" + value + "}]";
}

const std::vector<ReportRow> reportRows = {
    {"subcards", 0x1102, "BC(11), FC(02)", "device card mode information",
     R"({"subcards":[{"slotId":4,"modelId":5,"boardId":6,"cardType":7,"online":1,"connectors":[]}]})", heldSubcards,
     R"([{"slotId":4,"modelId":5,"boardId":6,"cardType":7,"online":1,"connectors":[]}])",
     "Process subcard auto report info failed ", "[]", 1},
    {"power", 0x1103, "BC(11), FC(03)", "device power information",
     R"({"powers":[{"powerId":1,"iSignal":2,"status":3}]})", heldPowers,
     R"([{"powerId":1,"iSignal":2,"status":3}])",
     "Process power info auto report info failed ", "[]", 1},
    {"genlock status", 0x1105, "BC(11), FC(05)", "device genlock status information",
     R"({"genlockSignal":{"extSignalIn":1,"status":2}})", heldGenlock,
     R"({"extSignalIn":1,"status":2})",
     "Process device genlock status auto report info failed ", "[]", 1},
    {"groups", 0x110A, "BC(11), FC(0a)", "device group information",
     R"({"groupInfos":[{"groupName":"hall","groupId":"1"}]})", heldGroups,
     R"([{"groupName":"hall","groupId":"1"}])",
     "Process device group information auto report info failed ", "[]", 0},
    {"relations", 0x110C, "BC(11), FC(0c)", "input backup information",
     R"({"interfaceRelation":{"enable":1,"relation":[{"type":1,"interfaceA":2,"interfaceB":3,"actualInterface":4}]}})", heldRelations,
     R"([{"type":1,"interfaceA":2,"interfaceB":3,"actualInterface":4}])",
     "Process device interface relation auto report info failed ", "[]", 0},
    {"interface general", 0x1201, "BC(12), FC(01)", "interface general information",
     ofInterface("general", R"({"name":"Cam","nameGB2312":"C","type":7})"), heldGeneral,
     R"({"name":"Cam","nameGB2312":"C","type":7})",
     "Process interface general info auto report info failed ", "{}", 1},
    {"actual timing", 0x1204, "BC(12), FC(04)", "interface actual timing information",
     ofInterface("actualTiming", Sample::timingText), heldTiming,
     Sample::timingText,
     "Process interface actual timing auto report info failed ", "{}", 1},
    {"colour depth", 0x1209, "BC(12), FC(09)", "interface colorDepth information",
     ofInterface("colorDepths", R"({"actualColorDepth":8,"presetColorDepth":10})"), heldDepth,
     R"({"actualColorDepth":8,"presetColorDepth":10})",
     "Process interface colorDepths info auto report info failed ", "{}", 1},
    {"colour space", 0x120A, "BC(12), FC(0a)", "interface colorSpace information",
     ofInterface("colorSpaces", R"({"actualColorSpace":1,"presetColorSpace":2})"), heldSpace,
     R"({"actualColorSpace":1,"presetColorSpace":2})",
     "Process interface colorSpaces info auto report info failed ", "{}", 1},
    {"colour range", 0x120B, "BC(12), FC(0b)", "interface colorRange information",
     ofInterface("colorRanges", R"({"actualColorRange":1,"presetColorRange":2})"), heldRange,
     R"({"actualColorRange":1,"presetColorRange":2})",
     "Process interface colorRsnges info auto report info failed ", "{}", 1}, // so spelt
    {"HDR", 0x120D, "BC(12), FC(0d)", "interface HDR information",
     ofInterface("HDR", Sample::hdrText), heldHdr,
     Sample::hdrText,
     "Process interface HDR info auto report info failed ", "{}", 1},
    {"screen genlock", 0x1313, "BC(13), FC(13)", "N/A",
     R"([{"screenId":1,"screenType":2,"genlockSignal":{"status":3}}])", heldGenlocks,
     R"([{"screenId":1,"screenType":2,"genlockSignal":{"status":3}}])",
     "Process screen Genlock info auto report info failed ", "{}", 1},
    {"screen ZeLK", 0x1314, "BC(13), FC(14)", "screen backup information",
     R"([{"screenId":1,"screenType":2,"screenZeLK":{"enable":1,"status":5}}])", heldZelk,
     R"({"enable":1,"status":5})",
     "Process screen Zelk info auto report info failed ", "{}", 1},
    {"file progress", 0xFA05, "BC(fa), FC(05)", "file transfer progress information",
     R"([{"fileId":4,"fileType":6,"type":1,"percent":40,"status":2}])", heldFileShare,
     R"({"fileId":4,"fileType":6,"type":1,"percent":40,"status":2})",
     nullptr, nullptr, 0}, // its failures are told apart below
    {"cutout colour", 0xFC07, "BC(fc), FC(07)", "cutout RGB information",
     R"({"R":1,"G":2,"B":3})", heldCutout,
     R"({"R":1,"G":2,"B":3})",
     "Process cutout RGB auto report info failed ", "[]", 1},
    {"device progress", 0xFC0D, "BC(fc), FC(0d)", "device file load progress information",
     R"({"status":1,"totalProcess":40,"processDetails":[{"fileType":6,"fileId":2,"process":30}]})", heldProcess,
     R"({"status":1,"totalProcess":40,"processDetails":[{"fileType":6,"fileId":2,"process":30}]})",
     "Process device file transfer progress auto report info failed ", "[]", 1},
};
// clang-format on

constexpr auto identity = "stage left 192.0.2.7 02005E100007 0123456789ABCD07";

void addReportRows(bool withFileProgress)
{
    QTest::addColumn<int>("row");
    for (std::size_t i = 0; i < reportRows.size(); ++i) {
        if (withFileProgress || reportRows[i].failed)
            QTest::newRow(reportRows[i].name) << int(i);
    }
}

/// Everything that any report may change.
QStringList snapshot(const Reported &it)
{
    QStringList parts;
    for (const ReportRow &row : reportRows)
        parts << QString::fromStdString(row.held(it));
    return parts;
}

QString handledLine(const ReportRow &row, int result, const std::string &body)
{
    return QStringLiteral(R"(debug: "TavoroCmd auto report:%1 %2.Process result: %3, %4" %5)")
        .arg(QLatin1String(identity), QLatin1String(row.codes), QString::number(result),
             QLatin1String(row.label), inQuotes(body));
}

QString decodeError(const char *badBody)
{
    const bool isObjectDue = *badBody == '[';
    return QStringLiteral("Decode json failed: error at line :0 col :1 msg:%1")
        .arg(isObjectDue ? QStringLiteral("read object must start with {!")
                         : QStringLiteral("array must start with [."));
}

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

void tst_AutoReportManager::firstCallMakesTheOnlyManager()
{
    auto *manager = AutoReportManager::instance();
    QVERIFY(manager);
    QCOMPARE(AutoReportManager::instance(), manager);
    QVERIFY(!manager->parent());
}

void tst_AutoReportManager::reportReachesItsPartOfTheModel_data()
{
    QCOMPARE(reportRows.size(), std::size_t(16));
    addReportRows(true);
}

void tst_AutoReportManager::reportReachesItsPartOfTheModel()
{
    QFETCH(const int, row);
    const ReportRow &report = reportRows[std::size_t(row)];
    Reported it;
    QStringList expected = snapshot(it);
    QVERIFY(expected[row] != QString::fromStdString(report.effect));
    expected[row] = QString::fromStdString(report.effect);

    it.report(report.code, report.body);
    QCOMPARE(snapshot(it), expected); // and nothing else has changed
    QCOMPARE(it.journal.lines(), QStringList(handledLine(report, 1, report.body)));
    QVERIFY(it.device.channel->sent().empty());
}

void tst_AutoReportManager::undecodableReportLeavesTheModelAlone_data()
{
    addReportRows(false);
}

void tst_AutoReportManager::undecodableReportLeavesTheModelAlone()
{
    QFETCH(const int, row);
    const ReportRow &report = reportRows[std::size_t(row)];
    Reported it;
    const QStringList before = snapshot(it);
    it.report(report.code, report.badBody);
    QCOMPARE(snapshot(it), before);
    const QString warning = QStringLiteral(R"(warning: %1 "%2")")
                                .arg(QLatin1String(report.failed), decodeError(report.badBody));
    QCOMPARE(it.journal.lines(),
             (QStringList{warning, handledLine(report, report.resultOfFailure, report.badBody)}));
}

void tst_AutoReportManager::typeOfTheCommandDoesNotMatter()
{
    for (quint8 type = 0; type < 5; ++type) {
        Reported it;
        const auto command = reportOf(powerCode, powerBody);
        command->head().type = type;
        announce(it.device.channel, command);
        QCOMPARE(heldPowers(it), std::string(powersThen));
    }
}

void tst_AutoReportManager::fileProgressIsRecorded()
{
    Reported it;
    Control::s_DeviceFileTransferProgress record;
    auto *manager = AutoReportManager::instance();
    QVERIFY(!manager->findDeviceFileTransferProgressRecord(it.device.model, record));
    it.report(0xFA05,
              R"([{"fileId":4,"fileType":6,"type":1,"percent":40,"status":2},)"
              R"({"fileId":9,"fileType":2,"type":3,"percent":1,"status":0}])");
    QVERIFY(manager->findDeviceFileTransferProgressRecord(it.device.model, record));
    QCOMPARE(record.device.lock(), it.device.model);
    QVERIFY(record.isTransferring);
    QCOMPARE(QString::fromStdString(json(record.percents)),
             QStringLiteral(R"([{"fileId":4,"fileType":6,"type":1,"percent":40,"status":2},)"
                            R"({"fileId":9,"fileType":2,"type":3,"percent":1,"status":0}])"));
}

void tst_AutoReportManager::emptyFileProgressIsLoggedAndNotRecorded()
{
    Reported it;
    auto *manager = AutoReportManager::instance();
    Control::s_DeviceFileTransferProgress record;
    it.report(0xFA05, "[]");
    QVERIFY(!manager->findDeviceFileTransferProgressRecord(it.device.model, record));
    it.report(0xFA05, R"([{"fileId":4,"fileType":6,"percent":40}])");
    it.journal.clear();

    it.report(0xFA05, "[]");
    QVERIFY(manager->findDeviceFileTransferProgressRecord(it.device.model, record));
    QCOMPARE(record.percents.size(), std::size_t(1));
    QVERIFY(record.isTransferring);
    QCOMPARE(
        it.journal.lines(),
        (QStringList{QStringLiteral(
                         "warning: Process file transfer progress auto report info failed:receive "
                         "json is empty array."),
                     handledLine(reportRows[13], 0, "[]")}));
}

void tst_AutoReportManager::undecodableFileProgressIsLoggedTwice()
{
    Reported it;
    Control::s_DeviceFileTransferProgress record;
    it.report(0xFA05, "{}");
    QVERIFY(!AutoReportManager::instance()->findDeviceFileTransferProgressRecord(it.device.model,
                                                                                 record));
    QCOMPARE(
        it.journal.lines(),
        (QStringList{QStringLiteral(
                         R"(warning: Process file transfer progress auto report info failed  "%1")")
                         .arg(decodeError("{}")),
                     QStringLiteral(
                         "warning: Process file transfer progress auto report info failed:receive "
                         "json is empty array."),
                     handledLine(reportRows[13], 0, "{}")}));
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

void tst_AutoReportManager::stoppedReportsAreDroppedForGood()
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

void tst_AutoReportManager::stopComesBeforeTheLookup()
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

void tst_AutoReportManager::unknownDeviceComesBeforeTheStop()
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
    channels.join(); // this one is on its way
    AutoReportManager::deleteInstance();
    it.report(powerCode, powerBody);
    QCoreApplication::processEvents();
    QVERIFY(it.journal.lines().isEmpty());
    QCOMPARE(heldPowers(it), std::string("[]"));
    AutoReportManager::deleteInstance();
}

void tst_AutoReportManager::noManagerIsMadeASecondTime()
{
    AutoReportManager::instance(); // the first one, when this test runs alone
    AutoReportManager::deleteInstance();
    QVERIFY(!AutoReportManager::instance());
    QVERIFY(!AutoReportManager::instance());
}

QTEST_GUILESS_MAIN(tst_AutoReportManager)
#include "tst_autoreportmanager.moc"
