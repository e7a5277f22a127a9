#pragma once

#include <tavorocontrol/proto/fields.h>

#include <QtGlobal>

#include <string>
#include <vector>

/// Records of the device as a whole.
///
/// Codes such as \c type, \c workMode and \c cardType are defined by the device and pass through
/// unchanged. The ranges given here are those that the simulated device accepts; another device may
/// have other ranges. A device refuses a value outside its range with a status.
namespace Tavoro::ProtoModel::Device {

/// Name and state of the device.
struct s_GeneralBody {
    std::string name = "N/A"; ///< 1 to 128 bytes of UTF-8.
    qint32 status = 0; ///< 1 when the device is ready. Ignored in a write.
    TAVORO_FIELDS(name, status)
};

/// Renames the device.
struct s_General {
    s_GeneralBody general; ///< The new name.
    TAVORO_FIELDS(general)
};

/// A connector on a plug-in card.
struct s_ConnectorBody {
    qint32 id = 0; ///< Connector on the card, from 1.
    qint32 type = 0; ///< Kind of connector. Ignored in a write.
    quint32 copyId = 0; ///< Identifier of a copy, defined by the device.
    qint32 workMode = 0; ///< Working mode, 0 to 65535.
    qint32 capacityMode = 0; ///< Capacity mode, 0 to 65535.
    TAVORO_FIELDS(id, type, copyId, workMode, capacityMode)
};

/// A plug-in card and its connectors.
struct s_subcardBody {
    qint32 slotId = 0; ///< Slot that holds the card, from 1.
    qint32 modelId = 0; ///< Model of the card. Ignored in a write.
    qint32 boardId = 0; ///< Board of the card. Ignored in a write.
    qint32 cardType = 0; ///< Kind of card. Ignored in a write.
    qint32 online = 0; ///< 1 while the card works, 0 otherwise. Ignored in a write.
    std::vector<s_ConnectorBody> connectors; ///< In a write, only those whose modes change.
    TAVORO_FIELDS(slotId, modelId, boardId, cardType, online, connectors)
};

/// Cards of the device. Written to change the working modes of connectors; reported when a card is
/// plugged in or removed.
struct s_subcards {
    /// In a report and in a write, only the cards that change.
    std::vector<s_subcardBody> subcards;
    TAVORO_FIELDS(subcards)
};

/// The signal that the device locks its outputs to.
struct s_GenlockBody {
    qint32 type = 0; ///< Source of the lock: 0 internal, 1 external, 2 the input \c interfaceId.
    /// Number of the input: slot << 16 | connector << 8 | split. Used with \c type 2.
    quint32 interfaceId = 0;
    TAVORO_FIELDS(type, interfaceId)
};

/// Selects the signal that the device locks its outputs to.
struct s_Genlock {
    s_GenlockBody genlock; ///< The new source of the lock.
    TAVORO_FIELDS(genlock)
};

/// State of the external genlock signal.
struct s_GenlockSignalBody {
    qint32 extSignalIn = 0; ///< 1 while an external signal is connected, 0 otherwise.
    qint32 status = 0; ///< 1 while the device is locked, 0 otherwise.
    TAVORO_FIELDS(extSignalIn, status)
};

/// Reported when the genlock signal appears or disappears.
struct s_GenlockSignal {
    s_GenlockSignalBody genlockSignal; ///< The current state.
    TAVORO_FIELDS(genlockSignal)
};

/// One power supply.
struct s_PowerBody {
    qint32 powerId = 0; ///< Number of the power supply, from 1.
    qint32 iSignal = 0; ///< State of the supply's input, defined by the device.
    qint32 status = 0; ///< 1 while the supply works, 0 when it has failed.
    TAVORO_FIELDS(powerId, iSignal, status)
};

/// Reported when a power supply fails or recovers.
struct s_Powers {
    std::vector<s_PowerBody> powers; ///< All power supplies of the device.
    TAVORO_FIELDS(powers)
};

/// One network port of the device.
struct s_NetworkBody {
    qint32 index = 0; ///< Number of the port, from 0.
    std::string MAC; ///< Hardware address as text. Ignored in a write.
    qint32 dhcp = 0; ///< 1 to obtain the address by DHCP, 0 to use the addresses below.
    std::string ip = "192.168.0.10"; ///< IPv4 address as text.
    std::string subnetMask = "255.255.255.0"; ///< IPv4 mask as text.
    std::string gateway = "192.168.0.1"; ///< IPv4 address as text.
    TAVORO_FIELDS(index, MAC, dhcp, ip, subnetMask, gateway)
};

/// Sets up the network ports.
struct s_Networks {
    std::vector<s_NetworkBody> networks; ///< In a write, only the ports that change.
    TAVORO_FIELDS(networks)
};

/// Whether a take swaps preview and programme.
struct s_swap {
    /// 1: a take swaps preview and programme. 0: it copies the preview to the programme.
    quint8 swap = 0;
    TAVORO_FIELDS(swap)
};

/// Test pattern of the output mapping. Unlike the test pattern of an interface or a screen, all
/// defaults are 0.
struct s_InterfaceMappingTestPattern {
    qint32 enable = 0; ///< 0 or 1.
    qint32 type = 0; ///< Kind of pattern, 0 to 65535.
    qint32 bright = 0; ///< Brightness, 0 to 65535.
    qint32 grid = 0; ///< Size of the grid, 0 to 65535.
    qint32 speed = 0; ///< Speed of a moving pattern, 0 to 65535.
    qint32 gridLineWidth = 0; ///< Width of the grid lines, 0 to 65535.
    qint32 gridType = 0; ///< Kind of grid, 0 to 65535.
    TAVORO_FIELDS(enable, type, bright, grid, speed, gridLineWidth, gridType)
};

/// Kind of the output mapping.
struct s_InterfaceMappingGeneral {
    qint32 type = 0; ///< Kind of mapping, 0 to 65535.
    TAVORO_FIELDS(type)
};

/// Mapping of the outputs, and the test pattern that identifies them.
struct s_InterfaceMapping {
    s_InterfaceMappingGeneral general; ///< The kind of mapping.
    s_InterfaceMappingTestPattern testPattern; ///< The pattern that identifies the outputs.
    TAVORO_FIELDS(general, testPattern)
};

/// Conversion between dynamic ranges. The protocol spells it "Rang".
struct s_DynamicRangConversion {
    qint32 enable = 0; ///< 0 or 1.
    qint32 type = 0; ///< Kind of conversion, 0 to 65535.
    TAVORO_FIELDS(enable, type)
};

/// A group of devices that are operated together.
struct s_DeviceGroupInfoBody {
    std::string groupName; ///< Name for display.
    std::string groupId; ///< Identifier of the group, not empty.
    TAVORO_FIELDS(groupName, groupId)
};

/// The groups to which the device belongs. Written and reported.
struct s_DeviceGroupInfos {
    /// All groups of the device, 64 at most. A write replaces them.
    std::vector<s_DeviceGroupInfoBody> groupInfos;
    TAVORO_FIELDS(groupInfos)
};

/// Two interfaces, one of which is the backup of the other.
struct s_Relation {
    qint32 type = 0; ///< Kind of relation, 0 to 65535.
    qint32 interfaceA = 0; ///< Number of one interface: slot << 16 | connector << 8 | split.
    qint32 interfaceB = 0; ///< Number of the other interface.
    qint32 actualInterface = 0; ///< Number of the interface in use: \c interfaceA or \c interfaceB.
    TAVORO_FIELDS(type, interfaceA, interfaceB, actualInterface)
};

/// Backup relations between interfaces.
struct s_InterfaceRelationBody {
    qint32 enable = 0; ///< 0 or 1.
    std::vector<s_Relation> relation; ///< All relations of the device. A write replaces them.
    TAVORO_FIELDS(enable, relation)
};

/// Written to set the backup relations; reported when the interface in use changes.
struct s_InterfaceRelation {
    s_InterfaceRelationBody interfaceRelation; ///< The relations, and whether they are enabled.
    TAVORO_FIELDS(interfaceRelation)
};

/// The ZeLK feature of the whole device.
struct s_DeviceZelk {
    quint8 zeLKEnable = 0; ///< 0 or 1.
    TAVORO_FIELDS(zeLKEnable)
};

/// Whether presets are applied to the preview or to the programme: the body of the
/// load-to-programme write.
struct s_PresetApplyType {
    /// A value of \c Enum::LoadToPGMStatus: 0 to the preview, 1 to the programme.
    quint8 presetApplyType = 0;
    TAVORO_FIELDS(presetApplyType)
};

/// The whole state of a device: the answer to its read. The keys hold the inner records
/// (s_GenlockBody), not the records with one key that are written (s_Genlock).
struct s_DeviceDetail {
    s_GeneralBody general; ///< Name and state.
    quint8 swap = 0; ///< As in s_swap.
    s_GenlockBody genlock; ///< What the device locks its outputs to.
    s_GenlockSignalBody genlockSignal; ///< State of the external genlock signal.
    std::vector<s_PowerBody> powers; ///< All power supplies.
    std::vector<s_subcardBody> subcards; ///< All cards with their connectors.
    std::vector<s_NetworkBody> networks; ///< All network ports.
    s_DynamicRangConversion dynamicRangConversion; ///< Conversion between dynamic ranges.
    s_InterfaceMapping interfaceMapping; ///< Mapping of the outputs.
    std::vector<s_DeviceGroupInfoBody> groupInfos; ///< All groups of devices.
    quint8 zeLKEnable = 0; ///< As in s_DeviceZelk.
    s_InterfaceRelationBody interfaceRelation; ///< Backup relations between interfaces.
    quint8 presetApplyType = 0; ///< As in s_PresetApplyType.
    TAVORO_FIELDS(general, swap, genlock, genlockSignal, powers, subcards, networks,
                  dynamicRangConversion, interfaceMapping, groupInfos, zeLKEnable,
                  interfaceRelation, presetApplyType)
};

} // namespace Tavoro::ProtoModel::Device
