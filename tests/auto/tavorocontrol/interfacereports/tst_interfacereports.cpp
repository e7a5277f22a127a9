#include <support/proto/samplebodies.h>
#include <support/tavorocontrol/operationtest.h>

#include <tavorobizmodel/interface.h>
#include <tavorocontrol/interface.h>
#include <tavorocontrol/proto/codec.h>

#include <QtTest>

using Tavoro::Control::Interface;
using Tavoro::ProtoModel::s_InterfaceID;
using Tavoro::ProtoModel::Interface::s_InterfaceDetail;

/// Reports on interfaces, and what they change in the model.
class tst_InterfaceReports : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void reportReachesTheModel_data();
    void reportReachesTheModel();
    void onlyActualTimingUpdatesLayerInputCrops_data();
    void onlyActualTimingUpdatesLayerInputCrops();
    void timingIsStoredBeforeTheCropsAreUpdated();
    void unknownInterfaceIsLoggedAndTheRestApplied_data();
    void unknownInterfaceIsLoggedAndTheRestApplied();
    void interface123IsLoggedAsNumber66051();
    void identityIsLoggedAsOneUnsignedNumber_data();
    void identityIsLoggedAsOneUnsignedNumber();
    void expiredDeviceReturnsFalseWithoutText_data();
    void expiredDeviceReturnsFalseWithoutText();
    void emptyListSucceedsExceptForAnExpiredDevice_data();
    void emptyListSucceedsExceptForAnExpiredDevice();
    void undecodableReportGivesTheCodecsText_data();
    void undecodableReportGivesTheCodecsText();
    void elementWithoutItsBodyAppliesTheDefaults();
};

namespace {

/// Takes a part out of the details of an interface: returns its text, and sets the default.
template <auto part>
std::string take(s_InterfaceDetail &detail)
{
    std::string text;
    ajson::encodeRecord(detail.*part, text);
    detail.*part = {};
    return text;
}

struct ReportRow {
    const char *name;
    bool (Interface::*update)(const std::string &, QString &);
    const char *key; ///< Key of the part that is reported.
    const char *text; ///< The part with no field at its default.
    std::string (*takePart)(s_InterfaceDetail &);
    const char *expired; ///< Logged for an expired device.
    const char *unknown; ///< Logged for interface {1, 2, 3} when the model does not have it.
};

using I = Interface;
using Detail = s_InterfaceDetail;

// clang-format off
const std::vector<ReportRow> reports = {
    {"updateActualTiming", &I::updateActualTiming, "actualTiming", Sample::timingText,
     &take<&Detail::actualTiming>,
     "warning: Process auto report actual timing failed: device is null.",
     "warning: Process auto report actual timing failed:Can not find the interface: 66051"},
    {"updateInterfaceGeneralInfo", &I::updateInterfaceGeneralInfo, "general", R"({"name":"Cam","nameGB2312":"C","type":7})",
     &take<&Detail::general>,
     "warning: Process auto report interface general info failed: device is null.",
     "warning: Process auto report interface general info failed:Can not find the interface: 66051"},
    {"updateInterfaceBitDepthInfo", &I::updateInterfaceBitDepthInfo, "colorDepths", R"({"actualColorDepth":8,"presetColorDepth":10})",
     &take<&Detail::colorDepths>,
     "warning: Process auto report interface colorDepths info failed: device is null.",
     "warning: Process auto report interface colorDepths info failed:Can not find the interface: 66051"},
    {"updateInterfaceColorSpacesInfo", &I::updateInterfaceColorSpacesInfo, "colorSpaces", R"({"actualColorSpace":1,"presetColorSpace":2})",
     &take<&Detail::colorSpaces>,
     "warning: Process auto report interface colorSpaces info failed: device is null.",
     "warning: Process auto report interface colorSpaces info failed:Can not find the interface: 66051"},
    {"updateInterfaceColorRangesInfo", &I::updateInterfaceColorRangesInfo, "colorRanges", R"({"actualColorRange":1,"presetColorRange":2})",
     &take<&Detail::colorRanges>,
     "warning: Process auto report interface colorRanges info failed: device is null.",
     "warning: Process auto report interface colorRanges info failed:Can not find the interface: 66051"},
    {"updateInterfaceHDRInfo", &I::updateInterfaceHDRInfo, "HDR", Sample::hdrText,
     &take<&Detail::HDR>,
     "warning: Process auto report interface HDR info failed: device is null.",
     "warning: Process auto report interface HDR info failed:Can not find the interface: 66051"},
};
// clang-format on

const ReportRow &report(int row)
{
    return reports[std::size_t(row)];
}

/// One element of a report.
std::string element(const ReportRow &row, const s_InterfaceID &id)
{
    return R"({"slotId":)" + std::to_string(id.slotId) + R"(,"connectorId":)"
        + std::to_string(id.connectorId) + R"(,"splitId":)" + std::to_string(id.splitId) + ",\""
        + row.key + "\":" + row.text + "}";
}

/// A device of the model with two interfaces.
struct WithInterfaces : Controlled<Interface> {
    WithInterfaces()
    {
        std::vector<s_InterfaceDetail> details(2);
        details[0].interfaceId = first;
        details[1].interfaceId = second;
        QString ignored;
        device.model->initModelData(details, ignored);
    }

    std::shared_ptr<Tavoro::BizModel::Interface> interface(const s_InterfaceID &id) const
    {
        return device.model->findInterface(id).lock();
    }

    bool update(const ReportRow &row, const std::string &body)
    {
        return (control.*row.update)(body, error);
    }

    const s_InterfaceID first{1, 2, 0};
    const s_InterfaceID second{3, 2, 1};
};

std::string textOf(const s_InterfaceDetail &detail)
{
    std::string text;
    ajson::encodeRecord(detail, text);
    return text;
}

} // namespace

void tst_InterfaceReports::reportReachesTheModel_data()
{
    addRows(reports);
}

void tst_InterfaceReports::reportReachesTheModel()
{
    QFETCH(int, row);
    WithInterfaces it;
    const std::string firstBefore = textOf(it.interface(it.first)->detail());
    const std::string secondBefore = textOf(it.interface(it.second)->detail());

    QVERIFY(it.update(report(row), "[" + element(report(row), it.second) + "]"));
    QCOMPARE(it.error, textFromBefore());
    s_InterfaceDetail detail = it.interface(it.second)->detail();
    QCOMPARE(asText(report(row).takePart(detail)), asText(report(row).text));
    QCOMPARE(asText(textOf(detail)), asText(secondBefore)); // everything else is unchanged
    QCOMPARE(asText(textOf(it.interface(it.first)->detail())), asText(firstBefore));
    QCOMPARE(it.journal.lines(), QStringList());
    QCOMPARE(it.sentCount(), std::size_t(0));
}

void tst_InterfaceReports::onlyActualTimingUpdatesLayerInputCrops_data()
{
    addRows(reports);
}

void tst_InterfaceReports::onlyActualTimingUpdatesLayerInputCrops()
{
    QFETCH(int, row);
    WithInterfaces it;
    using Tavoro::BizModel::Interface;
    const auto interface = it.interface(it.first);
    const QSignalSpy crops(interface.get(), &Interface::layerInputCropOutdated);
    const QSignalSpy changes(interface.get(), &Interface::interfaceChanged);

    QVERIFY(it.update(report(row), "[" + element(report(row), it.first) + "]"));
    QCOMPARE(changes.size(), 1);
    QCOMPARE(crops.size(), row == 0 ? 1 : 0);
}

void tst_InterfaceReports::timingIsStoredBeforeTheCropsAreUpdated()
{
    WithInterfaces it;
    const auto interface = it.interface(it.first);
    int refreshSeen = 0;
    connect(interface.get(), &Tavoro::BizModel::Interface::layerInputCropOutdated, this,
            [&] { refreshSeen = interface->detail().actualTiming.refresh; });

    QVERIFY(it.update(report(0), "[" + element(report(0), it.first) + "]"));
    QCOMPARE(refreshSeen, 60);
}

void tst_InterfaceReports::unknownInterfaceIsLoggedAndTheRestApplied_data()
{
    addRows(reports);
}

void tst_InterfaceReports::unknownInterfaceIsLoggedAndTheRestApplied()
{
    QFETCH(int, row);
    WithInterfaces it;
    const std::string body = "[" + element(report(row), it.first) + ","
        + element(report(row), {1, 2, 3}) + "," + element(report(row), it.second) + "]";

    QVERIFY(it.update(report(row), body));
    QCOMPARE(it.error, textFromBefore());
    for (const s_InterfaceID &id : {it.first, it.second}) {
        s_InterfaceDetail detail = it.interface(id)->detail();
        QCOMPARE(asText(report(row).takePart(detail)), asText(report(row).text));
    }
    QCOMPARE(it.journal.lines(), QStringList(QString::fromLatin1(report(row).unknown)));
}

void tst_InterfaceReports::interface123IsLoggedAsNumber66051()
{
    Controlled<Interface> it; // the model has no interface
    QVERIFY(
        it.control.updateActualTiming(R"([{"slotId":1,"connectorId":2,"splitId":3}])", it.error));
    QCOMPARE(it.error, textFromBefore());
    QCOMPARE(it.journal.lines(),
             QStringList(QStringLiteral("warning: Process auto report actual timing failed:"
                                        "Can not find the interface: 66051")));
}

void tst_InterfaceReports::identityIsLoggedAsOneUnsignedNumber_data()
{
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<QString>("number");

    // clang-format off
    QTest::newRow("all zero")        << QByteArray(R"([{"splitId":0}])")                                   << QStringLiteral("0");
    QTest::newRow("split alone")     << QByteArray(R"([{"splitId":9}])")                                   << QStringLiteral("9");
    QTest::newRow("connector alone") << QByteArray(R"([{"connectorId":1}])")                               << QStringLiteral("256");
    QTest::newRow("slot alone")      << QByteArray(R"([{"slotId":1}])")                                    << QStringLiteral("65536");
    QTest::newRow("bits overlap")    << QByteArray(R"([{"slotId":1,"connectorId":257,"splitId":256}])")    << QStringLiteral("65792");
    QTest::newRow("negative slot")   << QByteArray(R"([{"slotId":-1,"connectorId":0,"splitId":1}])")       << QStringLiteral("4294901761");
    // clang-format on
}

void tst_InterfaceReports::identityIsLoggedAsOneUnsignedNumber()
{
    QFETCH(QByteArray, body);
    QFETCH(QString, number);
    Controlled<Interface> it;
    QVERIFY(it.control.updateInterfaceHDRInfo(body.toStdString(), it.error));
    QCOMPARE(it.journal.lines().size(), 1);
    QCOMPARE(it.journal.lines().first().section(QLatin1Char(' '), -1), number);
}

void tst_InterfaceReports::expiredDeviceReturnsFalseWithoutText_data()
{
    addRows(reports);
}

void tst_InterfaceReports::expiredDeviceReturnsFalseWithoutText()
{
    QFETCH(int, row);
    WithInterfaces it;
    it.device.model.reset();
    QVERIFY(!it.update(report(row), "[" + element(report(row), it.first) + "]"));
    QCOMPARE(it.error, textFromBefore());
    QCOMPARE(it.journal.lines(), QStringList(QString::fromLatin1(report(row).expired)));
}

void tst_InterfaceReports::emptyListSucceedsExceptForAnExpiredDevice_data()
{
    addRows(reports);
}

void tst_InterfaceReports::emptyListSucceedsExceptForAnExpiredDevice()
{
    QFETCH(int, row);
    WithInterfaces it;
    QVERIFY(it.update(report(row), "[]"));
    QCOMPARE(it.error, textFromBefore());
    QCOMPARE(it.journal.lines(), QStringList());

    it.device.model.reset();
    QVERIFY(!it.update(report(row), "[]"));
    QCOMPARE(it.error, textFromBefore());
    QCOMPARE(it.journal.lines(), QStringList(QString::fromLatin1(report(row).expired)));
}

void tst_InterfaceReports::undecodableReportGivesTheCodecsText_data()
{
    addRows(reports);
}

void tst_InterfaceReports::undecodableReportGivesTheCodecsText()
{
    QFETCH(int, row);
    WithInterfaces it;
    const std::string before = textOf(it.interface(it.first)->detail());

    // The first element is valid, and is not applied either.
    QVERIFY(!it.update(report(row), "[" + element(report(row), it.first) + ",\n7]"));
    QCOMPARE(it.error,
             QStringLiteral("Decode json failed: error at line :1 col :2 "
                            "msg:read object must start with {!"));
    QCOMPARE(asText(textOf(it.interface(it.first)->detail())), asText(before));

    it.device.model.reset(); // the body is decoded first
    QVERIFY(!it.update(report(row), ""));
    QCOMPARE(it.error,
             QStringLiteral("Decode json failed: error at line :0 col :0 "
                            "msg:array must start with [."));
    QCOMPARE(it.journal.lines(), QStringList());
}

void tst_InterfaceReports::elementWithoutItsBodyAppliesTheDefaults()
{
    WithInterfaces it;
    it.interface(it.first)->setColorDepth({8, 10});
    QVERIFY(it.control.updateInterfaceBitDepthInfo(R"([{"slotId":1,"connectorId":2}])", it.error));
    const auto depths = it.interface(it.first)->detail().colorDepths;
    QCOMPARE(depths.actualColorDepth, 0);
    QCOMPARE(depths.presetColorDepth, 255);
}

QTEST_GUILESS_MAIN(tst_InterfaceReports)
#include "tst_interfacereports.moc"
