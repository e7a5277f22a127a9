#pragma once

#include <tavorocontrol/proto/fields.h>

#include <QtGlobal>

#include <string>
#include <vector>

/// Records of the maintenance functions. Flags are plain numbers.
///
/// Codes such as \c type, \c result and \c state are defined by the device and pass through
/// unchanged. The ranges and codes given here are those of the simulated device.
namespace Tavoro::ProtoModel::Auxiliary {

/// One option, whose meaning depends on the command.
struct s_AuxiliaryOpt {
    /// Restart and shutdown: 0 restart, 1 shut down. Factory reset: 0 keeps the files, 1 removes
    /// them. Loss counts: 0 stop, 1 start, 2 clear.
    qint32 type = 0;
    TAVORO_FIELDS(type)
};

/// A point of a picture.
struct s_CutoutPoint {
    qint32 x = 0; ///< Pixels from the left, from 0.
    qint32 y = 0; ///< Pixels from the top, from 0.
    TAVORO_FIELDS(x, y)
};

/// A point of an input or a screen at which the device picks a colour.
struct s_CutoutPos {
    qint32 enable = 0; ///< 1 to pick a colour, 0 to stop.
    qint32 type = 0; ///< Kind of object: 1 an input, 3 a screen.
    quint32 id = 0; ///< Number of the object; of an input slot << 16 | connector << 8 | split.
    s_CutoutPoint pos; ///< The point.
    TAVORO_FIELDS(enable, type, id, pos)
};

/// Time of the device's clock.
struct s_DeviceTime {
    qint32 year = 0; ///< Year, such as 2024.
    qint32 month = 0; ///< 1 to 12.
    qint32 day = 0; ///< 1 to 31.
    qint32 hour = 0; ///< 0 to 23.
    qint32 minute = 0; ///< 0 to 59.
    qint32 second = 0; ///< 0 to 59.
    qint32 millisecond = 0; ///< 0 to 999.
    TAVORO_FIELDS(year, month, day, hour, minute, second, millisecond)
};

/// Load progress of one file. Kept: \c fileType precedes \c fileId, unlike in the records of files.
struct s_DeviceProcessDetail {
    quint32 fileType = 0; ///< A value of the model's \c FileType.
    quint32 fileId = 0; ///< Number of the file within its type.
    quint8 process = 0; ///< Progress in percent, 0 to 100.
    TAVORO_FIELDS(fileType, fileId, process)
};

/// Progress with which the device loads its stored files.
struct s_DeviceProcess {
    quint8 status = 0; ///< 1 while the device loads, 0 otherwise.
    quint8 totalProcess = 0; ///< Progress of all files in percent, 0 to 100.
    std::vector<s_DeviceProcessDetail> processDetails; ///< Progress of each file.
    TAVORO_FIELDS(status, totalProcess, processDetails)
};

/// \name Self check
/// @{

/// One measured value, as text.
struct s_SelfCheckItem {
    quint8 sequence = 0; ///< Position in the list, from 0.
    std::string name = "-"; ///< What was measured.
    std::string value = "-"; ///< The value with its unit.
    std::string max = "-"; ///< Upper limit with its unit.
    std::string min = "-"; ///< Lower limit with its unit.
    quint8 state = 0; ///< 0 when the value is within its limits, 1 for a fault.
    quint8 showBrief = 0; ///< Not 0 if the item is part of the brief list.
    TAVORO_FIELDS(sequence, name, value, max, min, state, showBrief)
};

/// One unit of the device, with its measured values.
struct s_SelfCheckPart {
    quint8 type = 1; ///< Kind of unit: 1 the device as a whole, 2 a card.
    quint8 slotId = 0; ///< Slot of the unit; 0 for the device as a whole.
    quint16 modelId = 0x7701; ///< Model of the unit.
    std::vector<s_SelfCheckItem> section; ///< The measured values.
    TAVORO_FIELDS(type, slotId, modelId, section)
};

/// Result of the self check.
struct s_DeviceSelfCheckDetail {
    std::vector<s_SelfCheckPart> parts; ///< All units.
    TAVORO_FIELDS(parts)
};

/// @}
/// \name Versions
/// @{

/// Version of one program section of a unit.
struct s_VersionSection {
    quint16 code = 0; ///< Code of the section.
    std::string version; ///< Version as text.
    std::string brief; ///< Short description.
    TAVORO_FIELDS(code, version, brief)
};

/// Version of one unit.
struct s_VersionPart {
    quint8 type = 1; ///< Kind of unit: 1 the device as a whole, 2 a card.
    quint8 slotId = 0; ///< Slot of the unit; 0 for the device as a whole.
    quint32 modelId = 0x7701; ///< Model of the unit. Kept: 32 bits here, 16 in s_SelfCheckPart.
    std::string version = "N/A"; ///< Version of the unit as text.
    std::string brief = "N/A"; ///< Short description.
    std::vector<s_VersionSection> section; ///< Versions of the program sections.
    TAVORO_FIELDS(type, slotId, modelId, version, brief, section)
};

/// Versions of the device and its units.
struct s_DeviceVersion {
    std::string version; ///< Version of the device as text.
    std::string brief; ///< Short description.
    std::vector<s_VersionPart> parts; ///< Versions of the units.
    TAVORO_FIELDS(version, brief, parts)
};

/// @}
/// \name Firmware upgrade
/// @{

/// A program section to upgrade.
struct s_UpgradeSection {
    quint16 code = 0; ///< Code of the section.
    TAVORO_FIELDS(code)
};

/// A unit to upgrade.
struct s_UpgradePart {
    qint32 type = 0; ///< Kind of unit: 1 the device as a whole, 2 a card.
    quint8 slotId = 0; ///< Slot of the unit; 0 for the device as a whole.
    quint8 boardId = 0; ///< Board of the unit.
    std::vector<s_UpgradeSection> section; ///< The sections to upgrade.
    TAVORO_FIELDS(type, slotId, boardId, section)
};

/// Starts a firmware upgrade.
struct s_UpgradeDetail {
    qint32 upgradeType = 0; ///< Kind of upgrade.
    std::string filePath; ///< Path of the upgrade package.
    qint32 reboot = 0; ///< 1 to restart after the upgrade, 0 otherwise.
    qint32 deleteUpgradeFile = 0; ///< 1 to delete the package after the upgrade, 0 otherwise.
    std::vector<s_UpgradePart> parts; ///< The units to upgrade; empty for all units.
    TAVORO_FIELDS(upgradeType, filePath, reboot, deleteUpgradeFile, parts)
};

/// Progress of the current step of an upgrade.
struct s_UpgradeSubSections {
    quint8 rate = 0; ///< Progress in percent, 0 to 100.
    TAVORO_FIELDS(rate)
};

/// Progress of one program section.
struct s_UpgradeSectionPercent {
    quint16 code = 0x0102; ///< Code of the section.
    quint8 rate = 0; ///< Progress in percent, 0 to 100.
    qint32 result = 0; ///< 1 if the upgrade of the section failed, 0 otherwise.
    TAVORO_FIELDS(code, rate, result)
};

/// Progress of one unit.
struct s_UpgradePartPercent {
    qint32 type = 1; ///< Kind of unit: 1 the device as a whole, 2 a card.
    quint8 slotId = 0; ///< Slot of the unit; 0 for the device as a whole.
    quint8 rate = 0; ///< Progress in percent, 0 to 100.
    /// 1 if the upgrade of the unit failed, 0 otherwise. Kept: 8 bits here, 32 in the records
    /// around it.
    quint8 result = 0;
    std::vector<s_UpgradeSectionPercent> section; ///< Progress of each section.
    TAVORO_FIELDS(type, slotId, rate, result, section)
};

/// Progress of an upgrade.
struct s_UpgradePercent {
    qint32 result = 0; ///< 1 if the upgrade failed, 0 otherwise.
    quint8 rate = 0; ///< Progress of the whole upgrade in percent, 0 to 100.
    /// Progress of the current step. Kept: the key is plural, but holds one object.
    s_UpgradeSubSections subSections;
    std::vector<s_UpgradePartPercent> parts; ///< Progress of each unit.
    TAVORO_FIELDS(result, rate, subSections, parts)
};

/// @}
/// \name Source loss
/// @{

/// How often one connector lost its source.
struct s_SourceLossConnector {
    quint8 index = 0; ///< Connector on the card.
    quint32 times = 0; ///< Number of losses.
    TAVORO_FIELDS(index, times)
};

/// How often the connectors of one slot lost their sources.
struct s_SourceLossStat {
    quint8 slotId = 0; ///< Slot of the card.
    std::vector<s_SourceLossConnector> connectors; ///< Counts of the connectors.
    TAVORO_FIELDS(slotId, connectors)
};

/// @}

} // namespace Tavoro::ProtoModel::Auxiliary
