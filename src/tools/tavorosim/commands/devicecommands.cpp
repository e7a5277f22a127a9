#include "devicecommands.h"

#include "handlers_p.h"

#include <QHostAddress>
#include <QString>

#include <algorithm>

namespace Tavoro::Sim {

using namespace ProtoModel::Device;

namespace {

constexpr std::size_t maxDeviceNameLength = 128; ///< Bytes of the name of the device.
constexpr std::size_t maxGroups = 64;

template <class List, class Predicate>
auto *findIf(List &list, Predicate predicate)
{
    const auto found = std::find_if(list.begin(), list.end(), predicate);
    return found == list.end() ? nullptr : &*found;
}

template <class State>
auto *findCard(State &state, qint32 slotId)
{
    return findIf(state.device.subcards,
                  [=](const s_subcardBody &card) { return card.slotId == slotId; });
}

template <class Card>
auto *findConnector(Card &card, qint32 id)
{
    return findIf(card.connectors,
                  [=](const s_ConnectorBody &connector) { return connector.id == id; });
}

DeviceStatus checkModes(const SimState &state, const s_subcardBody &wanted)
{
    const s_subcardBody *const card = findCard(state, wanted.slotId);
    if (!card)
        return DeviceStatus::NoSuchObject;
    for (const s_ConnectorBody &connector : wanted.connectors) {
        if (!findConnector(*card, connector.id))
            return DeviceStatus::NoSuchObject;
        if (!isUInt16(connector.workMode) || !isUInt16(connector.capacityMode))
            return DeviceStatus::ValueOutOfRange;
    }
    return DeviceStatus::Success;
}

void setModes(s_subcardBody &card, const std::vector<s_ConnectorBody> &wanted)
{
    for (const s_ConnectorBody &from : wanted) {
        s_ConnectorBody &connector = *findConnector(card, from.id);
        connector.copyId = from.copyId;
        connector.workMode = from.workMode;
        connector.capacityMode = from.capacityMode;
    }
}

bool isIPv4(const std::string &text)
{
    return QHostAddress(QString::fromStdString(text)).protocol() == QAbstractSocket::IPv4Protocol;
}

template <class State>
auto *findNetwork(State &state, qint32 index)
{
    return findIf(state.device.networks,
                  [=](const s_NetworkBody &network) { return network.index == index; });
}

DeviceStatus checkNetwork(const SimState &state, const s_NetworkBody &network)
{
    if (!findNetwork(state, network.index))
        return DeviceStatus::NoSuchObject;
    const bool isValid = isFlag(network.dhcp) && isIPv4(network.ip) && isIPv4(network.subnetMask)
        && isIPv4(network.gateway);
    return isValid ? DeviceStatus::Success : DeviceStatus::ValueOutOfRange;
}

DeviceStatus checkRelation(const SimState &state, const s_Relation &relation)
{
    for (const qint32 id : {relation.interfaceA, relation.interfaceB, relation.actualInterface}) {
        if (!findInterface(state, static_cast<quint32>(id)))
            return DeviceStatus::NoSuchObject;
    }
    const bool isOneOfThem = relation.actualInterface == relation.interfaceA
        || relation.actualInterface == relation.interfaceB;
    return isUInt16(relation.type) && isOneOfThem ? DeviceStatus::Success
                                                  : DeviceStatus::ValueOutOfRange;
}

/// Calls \a check for each element of \a list. Returns the status of the first one that is refused.
template <class List, class Check>
DeviceStatus checkAll(const SimState &state, const List &list, Check check)
{
    for (const auto &element : list) {
        const DeviceStatus status = check(state, element);
        if (status != DeviceStatus::Success)
            return status;
    }
    return DeviceStatus::Success;
}

} // namespace

std::string readDevice(const SimState &state, const Request & /*request*/)
{
    return encoded(state.device);
}

std::string readMapping(const SimState &state, const Request & /*request*/)
{
    return encoded(state.device.interfaceMapping);
}

std::string readGroups(const SimState &state, const Request & /*request*/)
{
    return reportGroups(state).body;
}

DeviceStatus writeDeviceGeneral(SimState &state, const Request &request, Reports & /*reports*/)
{
    s_General record;
    if (!decoded(request.body, record))
        return DeviceStatus::MalformedBody;
    if (record.general.name.empty() || record.general.name.size() > maxDeviceNameLength)
        return DeviceStatus::ValueOutOfRange;
    state.device.general.name = record.general.name;
    return DeviceStatus::Success;
}

DeviceStatus writeCardModes(SimState &state, const Request &request, Reports &reports)
{
    s_subcards record;
    if (!decoded(request.body, record))
        return DeviceStatus::MalformedBody;
    const DeviceStatus status = checkAll(state, record.subcards, checkModes);
    if (status != DeviceStatus::Success)
        return status;
    std::vector<s_subcardBody> changed;
    for (const s_subcardBody &wanted : record.subcards) {
        s_subcardBody &card = *findCard(state, wanted.slotId);
        setModes(card, wanted.connectors);
        changed.push_back(card);
    }
    reports.push_back(reportCards(std::move(changed)));
    return DeviceStatus::Success;
}

DeviceStatus writeGenlock(SimState &state, const Request &request, Reports & /*reports*/)
{
    s_Genlock record;
    if (!decoded(request.body, record))
        return DeviceStatus::MalformedBody;
    const s_GenlockBody &genlock = record.genlock;
    if (genlock.type < InternalGenlock || genlock.type > InputGenlock)
        return DeviceStatus::ValueOutOfRange;
    if (genlock.type == InputGenlock && !findInterface(state, genlock.interfaceId))
        return DeviceStatus::NoSuchObject;
    state.device.genlock = genlock;
    return DeviceStatus::Success;
}

DeviceStatus writeNetworks(SimState &state, const Request &request, Reports & /*reports*/)
{
    s_Networks record;
    if (!decoded(request.body, record))
        return DeviceStatus::MalformedBody;
    const DeviceStatus status = checkAll(state, record.networks, checkNetwork);
    if (status != DeviceStatus::Success)
        return status;
    for (const s_NetworkBody &from : record.networks) {
        s_NetworkBody &network = *findNetwork(state, from.index);
        const std::string mac = network.MAC;
        network = from;
        network.MAC = mac;
    }
    return DeviceStatus::Success;
}

DeviceStatus writeGroups(SimState &state, const Request &request, Reports &reports)
{
    s_DeviceGroupInfos record;
    if (!decoded(request.body, record))
        return DeviceStatus::MalformedBody;
    const bool allNamed =
        std::all_of(record.groupInfos.begin(), record.groupInfos.end(),
                    [](const s_DeviceGroupInfoBody &group) { return !group.groupId.empty(); });
    if (!allNamed || record.groupInfos.size() > maxGroups)
        return DeviceStatus::ValueOutOfRange;
    state.device.groupInfos = record.groupInfos;
    reports.push_back(reportGroups(state));
    return DeviceStatus::Success;
}

DeviceStatus writeRelation(SimState &state, const Request &request, Reports &reports)
{
    s_InterfaceRelation record;
    if (!decoded(request.body, record))
        return DeviceStatus::MalformedBody;
    if (!isFlag(record.interfaceRelation.enable))
        return DeviceStatus::ValueOutOfRange;
    const DeviceStatus status = checkAll(state, record.interfaceRelation.relation, checkRelation);
    if (status != DeviceStatus::Success)
        return status;
    state.device.interfaceRelation = record.interfaceRelation;
    reports.push_back(reportRelation(state));
    return DeviceStatus::Success;
}

// clang-format off
Report reportCards(std::vector<s_subcardBody> cards) { return {Command::DeviceCardMode,          encoded(s_subcards{std::move(cards)})}; }
Report reportPowers(const SimState &now)             { return {Command::DevicePower,             encoded(s_Powers{now.device.powers})}; }
Report reportGenlock(const SimState &now)            { return {Command::DeviceGenlockStatus,     encoded(s_GenlockSignal{now.device.genlockSignal})}; }
Report reportGroups(const SimState &now)             { return {Command::DeviceGroupInfo,         encoded(s_DeviceGroupInfos{now.device.groupInfos})}; }
Report reportRelation(const SimState &now)           { return {Command::DeviceInterfaceRelation, encoded(s_InterfaceRelation{now.device.interfaceRelation})}; }
// clang-format on

} // namespace Tavoro::Sim
