#pragma once

#include <tavorocontrol/proto/fields.h>

#include <QtGlobal>

#include <string>
#include <vector>

/// Records of the device as a whole. Numbers such as \c type, \c status, \c workMode and \c
/// cardType are the device's own codes and pass through unchanged.
namespace Tavoro::ProtoModel::Device {

/// Name and state of the device.
struct s_GeneralBody {
    std::string name = "N/A";
    qint32 status = 0; ///< 1 when the device is ready.
    TAVORO_FIELDS(name, status)
};

/// Written to rename the device.
struct s_General {
    s_GeneralBody general;
    TAVORO_FIELDS(general)
};

/// A connector on a plug-in card.
struct s_ConnectorBody {
    qint32 id = 0;
    qint32 type = 0;
    quint32 copyId = 0;
    qint32 workMode = 0;
    qint32 capacityMode = 0;
    TAVORO_FIELDS(id, type, copyId, workMode, capacityMode)
};

/// A plug-in card and its connectors.
struct s_subcardBody {
    qint32 slotId = 0;
    qint32 modelId = 0;
    qint32 boardId = 0;
    qint32 cardType = 0;
    qint32 online = 0;
    std::vector<s_ConnectorBody> connectors;
    TAVORO_FIELDS(slotId, modelId, boardId, cardType, online, connectors)
};

/// Cards of the device. Written to change their working modes, reported when a card is plugged or
/// pulled.
struct s_subcards {
    std::vector<s_subcardBody> subcards;
    TAVORO_FIELDS(subcards)
};

/// What the device locks its outputs to.
struct s_GenlockBody {
    qint32 type = 0;
    quint32 interfaceId = 0;
    TAVORO_FIELDS(type, interfaceId)
};

/// Written to choose what the device locks its outputs to.
struct s_Genlock {
    s_GenlockBody genlock;
    TAVORO_FIELDS(genlock)
};

/// State of the external genlock signal.
struct s_GenlockSignalBody {
    qint32 extSignalIn = 0;
    qint32 status = 0;
    TAVORO_FIELDS(extSignalIn, status)
};

/// Reported when the genlock signal comes or goes.
struct s_GenlockSignal {
    s_GenlockSignalBody genlockSignal;
    TAVORO_FIELDS(genlockSignal)
};

/// One power supply.
struct s_PowerBody {
    qint32 powerId = 0;
    qint32 iSignal = 0;
    qint32 status = 0;
    TAVORO_FIELDS(powerId, iSignal, status)
};

/// Reported when a power supply fails or comes back.
struct s_Powers {
    std::vector<s_PowerBody> powers;
    TAVORO_FIELDS(powers)
};

/// One network port of the device.
struct s_NetworkBody {
    qint32 index = 0;
    std::string MAC;
    qint32 dhcp = 0;
    std::string ip = "192.168.0.10";
    std::string subnetMask = "255.255.255.0";
    std::string gateway = "192.168.0.1";
    TAVORO_FIELDS(index, MAC, dhcp, ip, subnetMask, gateway)
};

/// Written to set up the network ports.
struct s_Networks {
    std::vector<s_NetworkBody> networks;
    TAVORO_FIELDS(networks)
};

/// Whether preview and programme change places on a take.
struct s_swap {
    quint8 swap = 0;
    TAVORO_FIELDS(swap)
};

/// Test pattern of the output mapping. Unlike the test pattern of an interface or a screen, every
/// value begins at 0.
struct s_InterfaceMappingTestPattern {
    qint32 enable = 0;
    qint32 type = 0;
    qint32 bright = 0;
    qint32 grid = 0;
    qint32 speed = 0;
    qint32 gridLineWidth = 0;
    qint32 gridType = 0;
    TAVORO_FIELDS(enable, type, bright, grid, speed, gridLineWidth, gridType)
};

struct s_InterfaceMappingGeneral {
    qint32 type = 0;
    TAVORO_FIELDS(type)
};

/// How the outputs are mapped, with the test pattern that shows it.
struct s_InterfaceMapping {
    s_InterfaceMappingGeneral general;
    s_InterfaceMappingTestPattern testPattern;
    TAVORO_FIELDS(general, testPattern)
};

/// Conversion between dynamic ranges. "Rang": the protocol spells it so.
struct s_DynamicRangConversion {
    qint32 enable = 0;
    qint32 type = 0;
    TAVORO_FIELDS(enable, type)
};

/// A group of devices that are operated together.
struct s_DeviceGroupInfoBody {
    std::string groupName;
    std::string groupId;
    TAVORO_FIELDS(groupName, groupId)
};

struct s_DeviceGroupInfos {
    std::vector<s_DeviceGroupInfoBody> groupInfos;
    TAVORO_FIELDS(groupInfos)
};

/// Two interfaces of which one stands in for the other.
struct s_Relation {
    qint32 type = 0;
    qint32 interfaceA = 0;
    qint32 interfaceB = 0;
    qint32 actualInterface = 0; ///< The one in use now.
    TAVORO_FIELDS(type, interfaceA, interfaceB, actualInterface)
};

struct s_InterfaceRelationBody {
    qint32 enable = 0;
    std::vector<s_Relation> relation;
    TAVORO_FIELDS(enable, relation)
};

/// Backup relations between interfaces.
struct s_InterfaceRelation {
    s_InterfaceRelationBody interfaceRelation;
    TAVORO_FIELDS(interfaceRelation)
};

struct s_DeviceZelk {
    quint8 zeLKEnable = 0;
    TAVORO_FIELDS(zeLKEnable)
};

/// How presets are applied: the whole body of the load-to-programme write.
struct s_PresetApplyType {
    quint8 presetApplyType = 0;
    TAVORO_FIELDS(presetApplyType)
};

/// The whole state of a device, as one read answers it. The keys hold the inner records, not their
/// one-key wrappers.
struct s_DeviceDetail {
    s_GeneralBody general;
    quint8 swap = 0;
    s_GenlockBody genlock;
    s_GenlockSignalBody genlockSignal;
    std::vector<s_PowerBody> powers;
    std::vector<s_subcardBody> subcards;
    std::vector<s_NetworkBody> networks;
    s_DynamicRangConversion dynamicRangConversion;
    s_InterfaceMapping interfaceMapping;
    std::vector<s_DeviceGroupInfoBody> groupInfos;
    quint8 zeLKEnable = 0;
    s_InterfaceRelationBody interfaceRelation;
    quint8 presetApplyType = 0;
    TAVORO_FIELDS(general, swap, genlock, genlockSignal, powers, subcards, networks,
                  dynamicRangConversion, interfaceMapping, groupInfos, zeLKEnable,
                  interfaceRelation, presetApplyType)
};

} // namespace Tavoro::ProtoModel::Device
