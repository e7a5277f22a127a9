#include <requestpath.h>
#include <tavorobizmodel/device.h>
#include <tavorocontrol/device.h>
#include <tavorocontrol/proto/codec.h>

#include <QtTest>

using namespace Tavoro;
using namespace Tavoro::ProtoModel::Device;

class tst_Device : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void operations_data();
    void operations();
    void refusedOperations_data();
    void refusedOperations();
    void withNoChannelDecodingReadsFailAndWritesSucceed_data();
    void withNoChannelDecodingReadsFailAndWritesSucceed();
    void operationsOfAGoneDevice_data();
    void operationsOfAGoneDevice();

    void decodeFailureIsNeitherLoggedNorShown();
    void readsOfADeviceLostInFlight();
    void keysThatAreMissingKeepTheirDefaults();
    void readSubcardDetailPassesTheModelsText();
    void timeoutOfSubcardModeIsOverridden();

    void sharedDevicesKnowThemselves();
};

namespace {

template <class Record>
std::string json(const Record &record)
{
    std::string text;
    ajson::encodeRecord(record, text);
    return text;
}

/// Calls one operation. \a seen gets what a read handed over, as JSON.
using Call = bool (*)(Control::Device &device, BizModel::Device *model, std::string &seen,
                      QString &error);

template <auto operation, class Record>
bool readRecord(Control::Device &device, BizModel::Device *, std::string &seen, QString &error)
{
    Record record;
    const bool ok = (device.*operation)(record, error);
    seen = json(record);
    return ok;
}

bool readRaw(Control::Device &device, BizModel::Device *, std::string &seen, QString &error)
{
    return device.sendReadDeviceDetailsCmd(seen, error);
}

bool readIntoModel(Control::Device &device, BizModel::Device *model, std::string &seen,
                   QString &error)
{
    const bool ok = device.readDeviceDetails(error);
    seen = model ? json(model->deviceDetail()) : std::string();
    return ok;
}

bool readSlot(Control::Device &device, BizModel::Device *model, std::string &seen, QString &error)
{
    s_subcards reported;
    reported.subcards.resize(1);
    reported.subcards[0].slotId = 4;
    const bool ok = device.readSubcardDetail(reported, error);
    seen = model ? json(model->deviceDetail().subcards) : std::string();
    return ok;
}

/// Writes a record of which no field has its default.
template <auto operation, const auto &record>
bool write(Control::Device &device, BizModel::Device *, std::string &, QString &error)
{
    auto copy = record; // some operations take it by a reference that is not const
    return (device.*operation)(copy, error);
}

// clang-format off
const s_General               general{{"Main \"A\"", 1}};
const s_subcards              subcards{{{1, 2, 3, 4, 5, {{6, 7, 8, 9, 10}, {-1, -2, 3, -4, -5}}}, {2, 0, 0, 0, 0, {}}}};
const s_Genlock               genlock{{2, 4294967295U}};
const s_Networks              networks{{{1, "02:00:5E", 1, "192.0.2.7", "255.255.0.0", "192.0.2.1"}}}; // the address it has
const s_swap                  swapped{1};
const s_InterfaceMapping      mapping{{3}, {1, 2, 3, 4, 5, 6, 7}};
const s_DynamicRangConversion conversion{1, 2};
const s_DeviceGroupInfos      groups{{{"hall", "1"}, {"foyer", "2"}}};
const s_InterfaceRelation     relation{{1, {{1, 2, 3, 4}, {5, 6, 7, 8}}}};
const s_DeviceZelk            zelk{1};
const BizModel::Enum::Device::LoadToPGMStatus loadToPGM = BizModel::Enum::Device::LoadToProgramme;

constexpr auto detailBody =
    R"({"general":{"name":"Main","status":1},"swap":1,"genlock":{"type":2,"interfaceId":3},)"
    R"("genlockSignal":{"extSignalIn":1,"status":2},"powers":[{"powerId":1,"iSignal":2,"status":3}],)"
    R"("subcards":[{"slotId":4,"modelId":5,"boardId":6,"cardType":7,"online":1,)"
    R"("connectors":[{"id":1,"type":2,"copyId":3,"workMode":4,"capacityMode":5}]}],)"
    R"("networks":[{"index":1,"MAC":"m","dhcp":1,"ip":"192.0.2.9","subnetMask":"255.0.0.0","gateway":"192.0.2.1"}],)"
    R"("dynamicRangConversion":{"enable":1,"type":2},"interfaceMapping":{"general":{"type":1},)"
    R"("testPattern":{"enable":1,"type":2,"bright":3,"grid":4,"speed":5,"gridLineWidth":6,"gridType":7}},)"
    R"("groupInfos":[{"groupName":"g","groupId":"h"}],"zeLKEnable":1,)"
    R"("interfaceRelation":{"enable":1,"relation":[{"type":1,"interfaceA":2,"interfaceB":3,"actualInterface":4}]},)"
    R"("presetApplyType":1})";
constexpr auto slotBody =
    R"([{"slotId":4,"modelId":5,"boardId":6,"cardType":7,"online":1,)"
    R"("connectors":[{"id":1,"type":2,"copyId":3,"workMode":4,"capacityMode":5}]}])";
constexpr auto groupsBody  = R"({"groupInfos":[{"groupName":"hall","groupId":"1"},{"groupName":"foyer","groupId":"2"}]})";
constexpr auto mappingBody = R"({"general":{"type":3},"testPattern":{"enable":1,"type":2,"bright":3,"grid":4,"speed":5,"gridLineWidth":6,"gridType":7}})";
// clang-format on

/// What an operation does beside the exchange.
enum Kind : unsigned {
    Plain = 0,
    Decodes = 1,
    LocksFirst = 2, ///< Asks for the model device before it sends.
};

struct OperationRow {
    const char *name;
    quint8 type;
    quint16 code;
    const char *label;
    const char *body; ///< Of the request.
    const char *answer;
    const char *seen; ///< By the caller or in the model.
    unsigned kind;
    Call call;
};

// clang-format off
using D = Control::Device;
const OperationRow operationRows[] = {
//   name                       type code    label
//   body          answer        seen         kind                  call
    {"readDetails",                1, 0x1100, "device detail information",
     "",           detailBody,   detailBody,  Decodes,              readRecord<&D::readDetails, s_DeviceDetail>},
    {"readDeviceDetails",          1, 0x1100, "device detail information",
     "",           detailBody,   detailBody,  Decodes,              readIntoModel},
    {"sendReadDeviceDetailsCmd",   1, 0x1100, "device detail information",
     "",           "{ raw ]",    "{ raw ]",   Plain,                readRaw},
    {"readSubcardDetail",          1, 0x1100, "device detail information",
     "",           detailBody,   slotBody,    Decodes,              readSlot},
    {"readDeviceGroupInfo",        1, 0x110A, "device group information",
     "",           groupsBody,   groupsBody,  Decodes | LocksFirst, readRecord<&D::readDeviceGroupInfo, s_DeviceGroupInfos>},
    {"readOutputMapping",          1, 0x1108, "device test pattern information",
     "",           mappingBody,  mappingBody, Decodes | LocksFirst, readRecord<&D::readOutputMapping, s_InterfaceMapping>},
    {"writeDeviceGeneral",         2, 0x1101, "device general information",
     R"({"general":{"name":"Main \"A\"","status":1}})",
                   "",           "",          Plain,                write<&D::writeDeviceGeneral, general>},
    {"writeSubcardMode",           2, 0x1102, "device card mode information",
     R"({"subcards":[{"slotId":1,"modelId":2,"boardId":3,"cardType":4,"online":5,"connectors":[{"id":6,"type":7,"copyId":8,"workMode":9,"capacityMode":10},)"
     R"({"id":-1,"type":-2,"copyId":3,"workMode":-4,"capacityMode":-5}]},{"slotId":2,"modelId":0,"boardId":0,"cardType":0,"online":0,"connectors":[]}]})",
                   "",           "",          Plain,                write<&D::writeSubcardMode, subcards>},
    {"writeGenlockConfig",         2, 0x1104, "device genlock config information",
     R"({"genlock":{"type":2,"interfaceId":4294967295}})",
                   "",           "",          Plain,                write<&D::writeGenlockConfig, genlock>},
    {"writeNetConfig",             2, 0x1106, "device net config information",
     R"({"networks":[{"index":1,"MAC":"02:00:5E","dhcp":1,"ip":"192.0.2.7","subnetMask":"255.255.0.0","gateway":"192.0.2.1"}]})",
                   "",           "",          Plain,                write<&D::writeNetConfig, networks>},
    {"writeSwap",                  2, 0x1107, "device swap status information",
     R"({"swap":1})",
                   "",           "",          Plain,                write<&D::writeSwap, swapped>},
    {"writeOutputMapping",         2, 0x1108, "device test pattern information",
     mappingBody,  "",           "",          Plain,                write<&D::writeOutputMapping, mapping>},
    {"writeDynamicRangConversion", 2, 0x1109, "device Dynamic Rang Conversion information",
     R"({"enable":1,"type":2})",
                   "",           "",          Plain,                write<&D::writeDynamicRangConversion, conversion>},
    {"writeDeviceGroupInfo",       2, 0x110A, "device group information",
     groupsBody,   "",           "",          LocksFirst,           write<&D::writeDeviceGroupInfo, groups>},
    {"writeInterfaceRelationInfo", 2, 0x110C, "input backup information",
     R"({"interfaceRelation":{"enable":1,"relation":[{"type":1,"interfaceA":2,"interfaceB":3,"actualInterface":4},)"
     R"({"type":5,"interfaceA":6,"interfaceB":7,"actualInterface":8}]}})",
                   "",           "",          LocksFirst,           write<&D::writeInterfaceRelationInfo, relation>},
    {"writeZelk",                  2, 0x110D, "device backup information",
     R"({"zeLKEnable":1})",
                   "",           "",          Plain,                write<&D::writeZelk, zelk>},
    {"writeLoadToPGM",             2, 0x110E, "Load to PGM",
     R"({"presetApplyType":1})",
                   "",           "",          Plain,                write<&D::writeLoadToPGM, loadToPGM>},
};

// The signatures that other components compile against.
static_assert(std::is_same_v<decltype(&D::readSubcardDetail),          bool (D::*)(const s_subcards &, QString &)>);
static_assert(std::is_same_v<decltype(&D::writeDeviceGeneral),         bool (D::*)(const s_General &, QString &)>);
static_assert(std::is_same_v<decltype(&D::writeOutputMapping),         bool (D::*)(s_InterfaceMapping &, QString &)>);
static_assert(std::is_same_v<decltype(&D::writeDynamicRangConversion), bool (D::*)(s_DynamicRangConversion &, QString &)>);
static_assert(std::is_same_v<decltype(&D::writeInterfaceRelationInfo), bool (D::*)(const s_InterfaceRelation &, QString &)>);
static_assert(std::is_same_v<decltype(&D::writeZelk),                  bool (D::*)(s_DeviceZelk &, QString &)>);
static_assert(std::is_same_v<decltype(&D::writeLoadToPGM),             bool (D::*)(const BizModel::Enum::Device::LoadToPGMStatus &, QString &)>);
static_assert(std::is_base_of_v<QObject, D> && std::is_base_of_v<std::enable_shared_from_this<D>, D>);
static_assert(std::is_constructible_v<D, std::weak_ptr<BizModel::Device>, QObject *>);
// clang-format on

constexpr auto emptyBodyText =
    "Decode json failed: error at line :0 col :0 msg:read object must start with {!";

/// One call of one operation, and what came of it.
struct Called {
    Called(RequestPath &path, const OperationRow &row)
    {
        Control::Device device(path.device.model, nullptr);
        ok = row.call(device, path.device.model.get(), seen, error);
        lines = path.takeLines();
    }

    bool ok;
    std::string seen;
    QString error = QStringLiteral("text from before");
    QStringList lines;
};

void addOperationRows()
{
    QTest::addColumn<const OperationRow *>("row");
    for (const OperationRow &row : operationRows)
        QTest::newRow(row.name) << &row;
}

const OperationRow &operationRow(const char *name)
{
    return *std::find_if(std::begin(operationRows), std::end(operationRows),
                         [&](const OperationRow &row) { return qstrcmp(row.name, name) == 0; });
}

QString sentence(const OperationRow &row, const char *reason)
{
    return QStringLiteral("%1 %2 failed: %3 .")
        .arg(row.type == 1 ? QStringLiteral("Get") : QStringLiteral("Set"),
             QString::fromLatin1(row.label), QString::fromLatin1(reason));
}

} // namespace

Q_DECLARE_METATYPE(const OperationRow *)

void tst_Device::operations_data()
{
    addOperationRows();
}

void tst_Device::operations()
{
    QFETCH(const OperationRow *, row);
    RequestPath path;
    auto &timeouts = path.device.model->deviceConfig().timeouts;
    timeouts.clear();
    timeouts.append(std::make_shared<BizModel::s_CommandTimeout>(
        BizModel::s_CommandTimeout{quint16(row->code >> 8), quint16(row->code & 0xFF), 777}));
    path.device.channel->answerBody(row->answer);

    const Called called(path, *row);
    QVERIFY(called.ok);
    QCOMPARE(called.error, QStringLiteral("text from before"));
    QCOMPARE(QString::fromStdString(called.seen), QString::fromLatin1(row->seen));
    QCOMPARE(called.lines.last(),
             QStringLiteral("status bar 0 for 5000 ms: %1 %2 successfully.")
                 .arg(row->type == 1 ? QStringLiteral("Get") : QStringLiteral("Set"),
                      QString::fromLatin1(row->label)));

    const auto sent = path.device.channel->sent();
    QCOMPARE(sent.size(), std::size_t(1));
    const char head[18] = {0,
                           0,
                           char(row->type),
                           0,
                           0,
                           0,
                           0,
                           0,
                           0,
                           0,
                           0,
                           char(row->code & 0xFF),
                           char(row->code >> 8)};
    QCOMPARE(QByteArray::fromStdString(sent[0].headBytes(18, 35)).toHex(),
             QByteArray(head, sizeof head).toHex());
    QCOMPARE(QString::fromStdString(sent[0].body), QString::fromLatin1(row->body));
    QCOMPARE(sent[0].timeout, 777);
}

void tst_Device::refusedOperations_data()
{
    addOperationRows();
}

void tst_Device::refusedOperations()
{
    QFETCH(const OperationRow *, row);
    RequestPath path;
    path.device.channel->answer(ScriptedAnswer::refusal(5));
    const Called called(path, *row);
    QVERIFY(!called.ok);
    QCOMPARE(called.error, sentence(*row, "hardware error:5"));
    const bool saysMore = row->kind == (Decodes | LocksFirst);
    QCOMPARE(called.lines.contains(QStringLiteral("warning: Failed to SendSyncRequest")), saysMore);
    QCOMPARE(called.lines.size(), saysMore ? 4 : 3); // request, failure, status bar
}

void tst_Device::withNoChannelDecodingReadsFailAndWritesSucceed_data()
{
    addOperationRows();
}

void tst_Device::withNoChannelDecodingReadsFailAndWritesSucceed()
{
    QFETCH(const OperationRow *, row);
    RequestPath path;
    path.device.removeChannel();
    const Called called(path, *row);
    const bool decodes = row->kind & Decodes;
    QCOMPARE(called.ok, !decodes);
    QCOMPARE(called.error, QString::fromLatin1(decodes ? emptyBodyText : "text from before"));
    QVERIFY(called.lines.filter(QStringLiteral("status bar")).isEmpty());
}

void tst_Device::operationsOfAGoneDevice_data()
{
    addOperationRows();
}

void tst_Device::operationsOfAGoneDevice()
{
    QFETCH(const OperationRow *, row);
    RequestPath path;
    path.device.model.reset();
    const Called called(path, *row);
    QVERIFY(!called.ok);
    if (row->kind & LocksFirst) {
        QCOMPARE(called.error, QStringLiteral("text from before"));
        QCOMPARE(called.lines, textLines({"warning: The device object is empty."}));
    } else {
        QCOMPARE(called.error, sentence(*row, "invalid device model data"));
        QCOMPARE(called.lines.size(), 2);
    }
    QVERIFY(path.device.channel->sent().empty());
}

void tst_Device::decodeFailureIsNeitherLoggedNorShown()
{
    for (const OperationRow &row : operationRows) {
        if (!(row.kind & Decodes))
            continue;
        RequestPath path;
        path.device.channel->answerBody("[]");
        const Called called(path, row);
        QVERIFY(!called.ok);
        QCOMPARE(called.error,
                 QStringLiteral("Decode json failed: "
                                "error at line :0 col :1 msg:read object must start with {!"));
        QCOMPARE(called.lines.size(), 3); // request, answer, status bar
        QCOMPARE(called.lines.last(),
                 QStringLiteral("status bar 0 for 5000 ms: Get %1 successfully.")
                     .arg(QString::fromLatin1(row.label)));
    }
}

void tst_Device::readsOfADeviceLostInFlight()
{
    for (const char *name : {"readDetails", "readDeviceDetails", "readSubcardDetail"}) {
        RequestPath path;
        auto answer = ScriptedAnswer::packet(detailBody);
        answer.before = [&path] {
            path.device.model.reset();
        };
        path.device.channel->answer(answer);
        Control::Device device(path.device.model, nullptr);
        std::string seen;
        QString error = QStringLiteral("text from before");
        QVERIFY2(!operationRow(name).call(device, nullptr, seen, error), name);
        QCOMPARE(error, QStringLiteral("text from before"));
    }
}

void tst_Device::keysThatAreMissingKeepTheirDefaults()
{
    RequestPath path;
    path.device.channel->answerBody(R"({"swap":1,"networks":[{"index":2}]})");
    Control::Device device(path.device.model, nullptr);
    s_DeviceDetail detail;
    QString error;
    QVERIFY(device.readDetails(detail, error));
    QCOMPARE(int(detail.swap), 1);
    QCOMPARE(detail.general.name, std::string("N/A"));
    QVERIFY(detail.powers.empty());
    QCOMPARE(json(detail.networks),
             std::string(R"([{"index":2,"MAC":"","dhcp":0,"ip":"192.168.0.10",)"
                         R"("subnetMask":"255.255.255.0","gateway":"192.168.0.1"}])"));
}

void tst_Device::readSubcardDetailPassesTheModelsText()
{
    RequestPath path;
    path.device.channel->answerBody(R"({"subcards":[]})");
    s_subcards reported;
    reported.subcards.resize(1);
    QString modelsText;
    QVERIFY(!path.device.model->updateSlotModelData(reported, {}, modelsText));
    QString error;
    QVERIFY(!Control::Device(path.device.model, nullptr).readSubcardDetail(reported, error));
    QCOMPARE(error, modelsText);
    QVERIFY(!error.isEmpty());
}

void tst_Device::timeoutOfSubcardModeIsOverridden()
{
    RequestPath path;
    auto &config = path.device.model->deviceConfig();
    config.timeouts.clear();
    config.defaultTimeout = 1234;
    QVERIFY(Called(path, operationRow("writeSubcardMode")).ok);
    QCOMPARE(path.device.channel->sent().front().timeout, 1234);
}

void tst_Device::sharedDevicesKnowThemselves()
{
    const auto device =
        std::make_shared<Control::Device>(std::weak_ptr<BizModel::Device>(), nullptr);
    QCOMPARE(device->shared_from_this(), device);
}

QTEST_GUILESS_MAIN(tst_Device)
#include "tst_device.moc"
