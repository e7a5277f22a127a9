#include <support/tavorocontrol/requestpath.h>
#include <tavorobizmodel/device.h>
#include <tavorocontrol/device.h>
#include <tavorocontrol/proto/codec.h>

#include <QSignalSpy>
#include <QtTest>

using namespace Tavoro;

class tst_DeviceReports : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void reportsReachTheModel_data();
    void reportsReachTheModel();
    void undecodableReportsFail_data();
    void undecodableReportsFail();
    void reportsOnAMissingDeviceFail_data();
    void reportsOnAMissingDeviceFail();
    void bodyIsDecodedBeforeTheDeviceIsChecked_data();
    void bodyIsDecodedBeforeTheDeviceIsChecked();
    void everyGroupReachesTheModel();
    void switchOfTheRelationsIsNotApplied();
    void missingCutoutChannelsKeepTheirDefaults();
};

namespace {

template <class Record>
std::string json(const Record &record)
{
    std::string text;
    ajson::encodeRecord(record, text);
    return text;
}

using Handler = bool (Control::Device::*)(const std::string &, QString &);

struct ReportRow {
    const char *name;
    Handler handler;
    const char *body;
    const char *effect; ///< The part of the model after the report, as JSON.
    std::string (*held)(const BizModel::Device &);
    const char *badBody;
    const char *badText; ///< After "Decode json failed: ".
    const char *goneText; ///< The caller's error text; null for none.
    const char *goneLine; ///< The log line; null for none.
};

// clang-format off
std::string heldGroups(const BizModel::Device &model)         { return json(model.deviceDetail().groupInfos); }
std::string heldGenlock(const BizModel::Device &model)        { return json(model.deviceDetail().genlockSignal); }
std::string heldProcess(const BizModel::Device &model)        { return json(model.deviceProcess()); }
std::string heldRelations(const BizModel::Device &model)      { return json(model.deviceDetail().interfaceRelation.relation); }
std::string heldPowers(const BizModel::Device &model)         { return json(model.deviceDetail().powers); }
std::string heldScreenGenlocks(const BizModel::Device &model) { return json(model.screenGenlocks()); }
std::string heldSubcards(const BizModel::Device &model)       { return json(model.deviceDetail().subcards); }
std::string heldCutout(const BizModel::Device &model)         { return json(model.cutoutRGB()); }

constexpr auto noObject = "error at line :0 col :1 msg:read object must start with {!";
constexpr auto noArray  = "error at line :0 col :1 msg:array must start with [.";

using D = Control::Device;
const ReportRow reportRows[] = {
//   name                           handler
//   body
//   effect
//   held                bad body, text  device gone: text, log line
    {"updateDeviceGroupInfo",       &D::updateDeviceGroupInfo,
     R"({"groupInfos":[{"groupName":"hall","groupId":"1"},{"groupName":"foyer","groupId":"2"}]})",
     R"([{"groupName":"hall","groupId":"1"},{"groupName":"foyer","groupId":"2"}])",
     heldGroups,         "[]", noObject,  "Device is null.", nullptr},
    {"updateGenlockStatus",         &D::updateGenlockStatus,
     R"({"genlockSignal":{"extSignalIn":1,"status":2}})",
     R"({"extSignalIn":1,"status":2})",
     heldGenlock,        "[]", noObject,  "Device is null.", nullptr},
    {"updateTransferProgress",      &D::updateTransferProgress,
     R"({"status":1,"totalProcess":40,"processDetails":[{"fileType":6,"fileId":2,"process":30}]})",
     R"({"status":1,"totalProcess":40,"processDetails":[{"fileType":6,"fileId":2,"process":30}]})",
     heldProcess,        "[]", noObject,  "Device is null.", nullptr},
    {"updateInterfaceRelationInfo", &D::updateInterfaceRelationInfo,
     R"({"interfaceRelation":{"enable":1,"relation":[{"type":1,"interfaceA":2,"interfaceB":3,"actualInterface":4}]}})",
     R"([{"type":1,"interfaceA":2,"interfaceB":3,"actualInterface":4}])",
     heldRelations,      "[]", noObject,  "Device is null.", nullptr},
    {"updatePowerConfig",           &D::updatePowerConfig,
     R"({"powers":[{"powerId":1,"iSignal":2,"status":3},{"powerId":2,"iSignal":0,"status":0}]})",
     R"([{"powerId":1,"iSignal":2,"status":3},{"powerId":2,"iSignal":0,"status":0}])",
     heldPowers,         "[]", noObject,  "Device is null.", nullptr},
    {"updateScreenGenlockInfo",     &D::updateScreenGenlockInfo,
     R"([{"screenId":1,"screenType":2,"genlockSignal":{"status":3}},{"screenId":2}])",
     R"([{"screenId":1,"screenType":2,"genlockSignal":{"status":3}},{"screenId":2,"screenType":0,"genlockSignal":{"status":0}}])",
     heldScreenGenlocks, "{}", noArray,   "Device is null.", nullptr},
    {"updateSubcardsInfo",          &D::updateSubcardsInfo,
     R"({"subcards":[{"slotId":4,"modelId":5,"boardId":6,"cardType":7,"online":1,"connectors":[]}]})",
     R"([{"slotId":4,"modelId":5,"boardId":6,"cardType":7,"online":1,"connectors":[]}])",
     heldSubcards,       "[]", noObject,  nullptr,           nullptr},
    {"updateCutoutRGB",             &D::updateCutoutRGB,
     R"({"R":1,"G":2,"B":3})",
     R"({"R":1,"G":2,"B":3})",
     heldCutout,         "[]", noObject,  nullptr,           "warning: Device is null"},
};
// clang-format on

void addReportRows()
{
    QTest::addColumn<const ReportRow *>("row");
    for (const ReportRow &row : reportRows)
        QTest::newRow(row.name) << &row;
}

constexpr auto before = "text from before";

} // namespace

Q_DECLARE_METATYPE(const ReportRow *)

void tst_DeviceReports::reportsReachTheModel_data()
{
    addReportRows();
}

void tst_DeviceReports::reportsReachTheModel()
{
    QFETCH(const ReportRow *, row);
    RequestPath path;
    const QSignalSpy changes(path.device.model.get(), &BizModel::Device::deviceDataChanged);
    Control::Device device(path.device.model, nullptr);
    QString error = QString::fromLatin1(before);
    QVERIFY((device.*row->handler)(row->body, error));
    QCOMPARE(QString::fromStdString(row->held(*path.device.model)),
             QString::fromLatin1(row->effect));
    QVERIFY(!changes.isEmpty());
    QCOMPARE(error, QString::fromLatin1(before));
    QVERIFY(path.takeLines().isEmpty());
    QVERIFY(path.device.channel->sent().empty());
}

void tst_DeviceReports::undecodableReportsFail_data()
{
    addReportRows();
}

void tst_DeviceReports::undecodableReportsFail()
{
    QFETCH(const ReportRow *, row);
    RequestPath path;
    const QSignalSpy changes(path.device.model.get(), &BizModel::Device::deviceDataChanged);
    Control::Device device(path.device.model, nullptr);
    QString error;
    QVERIFY(!(device.*row->handler)(row->badBody, error));
    QCOMPARE(error, QStringLiteral("Decode json failed: ") + QString::fromLatin1(row->badText));
    QVERIFY(changes.isEmpty());
    QVERIFY(path.takeLines().isEmpty());
}

void tst_DeviceReports::reportsOnAMissingDeviceFail_data()
{
    addReportRows();
}

void tst_DeviceReports::reportsOnAMissingDeviceFail()
{
    QFETCH(const ReportRow *, row);
    RequestPath path;
    path.device.model.reset();
    Control::Device device(path.device.model, nullptr);
    QString error = QString::fromLatin1(before);
    QVERIFY(!(device.*row->handler)(row->body, error));
    QCOMPARE(error, QString::fromLatin1(row->goneText ? row->goneText : before));
    QCOMPARE(path.takeLines(), row->goneLine ? textLines({row->goneLine}) : QStringList());
}

void tst_DeviceReports::bodyIsDecodedBeforeTheDeviceIsChecked_data()
{
    addReportRows();
}

void tst_DeviceReports::bodyIsDecodedBeforeTheDeviceIsChecked()
{
    QFETCH(const ReportRow *, row);
    RequestPath path;
    Control::Device device({}, nullptr);
    QString error;
    QVERIFY(!(device.*row->handler)(row->badBody, error));
    QVERIFY(error.startsWith(QStringLiteral("Decode json failed: ")));
    QVERIFY(path.takeLines().isEmpty());
}

void tst_DeviceReports::everyGroupReachesTheModel()
{
    RequestPath path;
    const QSignalSpy changes(path.device.model.get(), &BizModel::Device::deviceDataChanged);
    Control::Device device(path.device.model, nullptr);
    QString error;
    QVERIFY(device.updateDeviceGroupInfo(R"({"groupInfos":[]})", error));
    QCOMPARE(changes.size(), 0);
    QVERIFY(device.updateDeviceGroupInfo(
        R"({"groupInfos":[{"groupId":"1"},{"groupId":"2"},{"groupId":"3"}]})", error));
    QCOMPARE(changes.size(), 3);
}

// Kept: a report changes only the relations.
void tst_DeviceReports::switchOfTheRelationsIsNotApplied()
{
    RequestPath path;
    Control::Device device(path.device.model, nullptr);
    QString error;
    QVERIFY(device.updateInterfaceRelationInfo(
        R"({"interfaceRelation":{"enable":1,"relation":[{"type":1}]}})", error));
    const auto held = path.device.model->deviceDetail().interfaceRelation;
    QCOMPARE(held.relation.size(), std::size_t(1));
    QCOMPARE(held.enable, 0);
}

void tst_DeviceReports::missingCutoutChannelsKeepTheirDefaults()
{
    RequestPath path;
    Control::Device device(path.device.model, nullptr);
    QString error;
    QVERIFY(device.updateCutoutRGB(R"({"G":7})", error));
    QCOMPARE(heldCutout(*path.device.model), std::string(R"({"R":50,"G":7,"B":50})"));
}

QTEST_GUILESS_MAIN(tst_DeviceReports)
#include "tst_devicereports.moc"
