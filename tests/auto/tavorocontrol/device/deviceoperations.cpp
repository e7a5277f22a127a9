#include "deviceoperations.h"

#include <support/proto/recordjson.h>

#include <tavorobizmodel/device.h>

#include <type_traits>

using namespace Tavoro;
using namespace Tavoro::ProtoModel::Device;

// clang-format off
const char *const detailBody =
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
// clang-format on

namespace {

using D = Control::Device;

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

/// Writes a record in which no field has its default.
template <auto operation, const auto &record>
bool write(Control::Device &device, BizModel::Device *, std::string &, QString &error)
{
    auto copy = record; // some operations take a non-const reference
    return (device.*operation)(copy, error);
}

// clang-format off
const s_General               general{{"Main \"A\"", 1}};
const s_subcards              subcards{{{1, 2, 3, 4, 5, {{6, 7, 8, 9, 10}, {-1, -2, 3, -4, -5}}}, {2, 0, 0, 0, 0, {}}}};
const s_Genlock               genlock{{2, 4294967295U}};
const s_Networks              networks{{{1, "02:00:5E", 1, "192.0.2.7", "255.255.0.0", "192.0.2.1"}}}; // its current address
const s_swap                  swapped{1};
const s_InterfaceMapping      mapping{{3}, {1, 2, 3, 4, 5, 6, 7}};
const s_DynamicRangConversion conversion{1, 2};
const s_DeviceGroupInfos      groups{{{"hall", "1"}, {"foyer", "2"}}};
const s_InterfaceRelation     relation{{1, {{1, 2, 3, 4}, {5, 6, 7, 8}}}};
const s_DeviceZelk            zelk{1};
const BizModel::Enum::Device::LoadToPGMStatus loadToPGM = BizModel::Enum::Device::LoadToProgramme;

constexpr auto slotBody =
    R"([{"slotId":4,"modelId":5,"boardId":6,"cardType":7,"online":1,)"
    R"("connectors":[{"id":1,"type":2,"copyId":3,"workMode":4,"capacityMode":5}]}])";
constexpr auto groupsBody  = R"({"groupInfos":[{"groupName":"hall","groupId":"1"},{"groupName":"foyer","groupId":"2"}]})";
constexpr auto mappingBody = R"({"general":{"type":3},"testPattern":{"enable":1,"type":2,"bright":3,"grid":4,"speed":5,"gridLineWidth":6,"gridType":7}})";

// The signatures that applications compile against.
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

} // namespace

// clang-format off
const std::vector<OperationRow> operationRows = {
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
// clang-format on
