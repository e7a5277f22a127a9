// What each report changes in the model, and what a body that is not a report does.

#include <support/tavorocontrol/reportrows.h>

#include <tavorocontrol/autoreportmanager.h>

#include <QtTest>

using namespace Tavoro;
using Control::AutoReportManager;

class tst_AutoReports : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { AutoReportManager::instance(); } // from now on reports are handled

    void reportReachesItsPartOfTheModel_data();
    void reportReachesItsPartOfTheModel();
    void undecodableReportDoesNotChangeTheModel_data();
    void undecodableReportDoesNotChangeTheModel();
    void typeOfTheCommandDoesNotMatter();

    void fileProgressIsRecorded();
    void emptyFileProgressIsLoggedAndNotRecorded();
    void undecodableFileProgressIsLoggedTwice();
};

namespace {

void addReportRows(bool withFileProgress)
{
    QTest::addColumn<int>("row");
    for (std::size_t i = 0; i < reportRows.size(); ++i) {
        if (withFileProgress || reportRows[i].failed)
            QTest::newRow(reportRows[i].name) << int(i);
    }
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

} // namespace

void tst_AutoReports::reportReachesItsPartOfTheModel_data()
{
    QCOMPARE(reportRows.size(), std::size_t(16));
    addReportRows(true);
}

void tst_AutoReports::reportReachesItsPartOfTheModel()
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

void tst_AutoReports::undecodableReportDoesNotChangeTheModel_data()
{
    addReportRows(false);
}

void tst_AutoReports::undecodableReportDoesNotChangeTheModel()
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

void tst_AutoReports::typeOfTheCommandDoesNotMatter()
{
    for (quint8 type = 0; type < 5; ++type) {
        Reported it;
        const auto command = reportOf(powerCode, powerBody);
        command->head().type = type;
        announce(it.device.channel, command);
        QCOMPARE(heldPowers(it), std::string(powersThen));
    }
}

void tst_AutoReports::fileProgressIsRecorded()
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

void tst_AutoReports::emptyFileProgressIsLoggedAndNotRecorded()
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

void tst_AutoReports::undecodableFileProgressIsLoggedTwice()
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

QTEST_GUILESS_MAIN(tst_AutoReports)
#include "tst_autoreports.moc"
