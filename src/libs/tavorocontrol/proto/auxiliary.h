#pragma once

#include <tavorocontrol/proto/fields.h>

#include <QtGlobal>

#include <string>
#include <vector>

/// Records of the device's maintenance functions. Flags travel as plain numbers; numbers such as
/// \c type, \c result and \c state are the device's own codes and pass through unchanged.
namespace Tavoro::ProtoModel::Auxiliary {

/// One option; each command gives the number its own meaning.
struct s_AuxiliaryOpt {
    qint32 type = 0;
    TAVORO_FIELDS(type)
};

struct s_CutoutPoint {
    qint32 x = 0;
    qint32 y = 0;
    TAVORO_FIELDS(x, y)
};

/// A point of an input or a screen at which the device is to pick a colour.
struct s_CutoutPos {
    qint32 enable = 0;
    qint32 type = 0; ///< Kind of the object picked on.
    quint32 id = 0;
    s_CutoutPoint pos;
    TAVORO_FIELDS(enable, type, id, pos)
};

/// The device's clock, in numbers as the calendar writes them.
struct s_DeviceTime {
    qint32 year = 0;
    qint32 month = 0;
    qint32 day = 0;
    qint32 hour = 0;
    qint32 minute = 0;
    qint32 second = 0;
    qint32 millisecond = 0;
    TAVORO_FIELDS(year, month, day, hour, minute, second, millisecond)
};

/// Progress of one file that the device loads. Unlike in the records of files, the type stands
/// first.
struct s_DeviceProcessDetail {
    quint32 fileType = 0;
    quint32 fileId = 0;
    quint8 process = 0;
    TAVORO_FIELDS(fileType, fileId, process)
};

/// How far the device is with loading what it stores.
struct s_DeviceProcess {
    quint8 status = 0;
    quint8 totalProcess = 0; ///< Progress of the load as a whole.
    std::vector<s_DeviceProcessDetail> processDetails;
    TAVORO_FIELDS(status, totalProcess, processDetails)
};

/// \name Self check
/// @{

/// One measured value, as text.
struct s_SelfCheckItem {
    quint8 sequence = 0; ///< Position in the list.
    std::string name = "-";
    std::string value = "-";
    std::string max = "-";
    std::string min = "-";
    quint8 state = 0;
    quint8 showBrief = 0; ///< Not zero: shown in the brief list too.
    TAVORO_FIELDS(sequence, name, value, max, min, state, showBrief)
};

/// One unit of the device with its measured values.
struct s_SelfCheckPart {
    quint8 type = 1;
    quint8 slotId = 0;
    quint16 modelId = 0x7701;
    std::vector<s_SelfCheckItem> section;
    TAVORO_FIELDS(type, slotId, modelId, section)
};

struct s_DeviceSelfCheckDetail {
    std::vector<s_SelfCheckPart> parts;
    TAVORO_FIELDS(parts)
};

/// @}
/// \name Versions
/// @{

/// Version of one program section of a unit.
struct s_VersionSection {
    quint16 code = 0;
    std::string version;
    std::string brief;
    TAVORO_FIELDS(code, version, brief)
};

/// Version of one unit. Kept: the model is 32 bits wide here, and 16 in s_SelfCheckPart.
struct s_VersionPart {
    quint8 type = 1;
    quint8 slotId = 0;
    quint32 modelId = 0x7701;
    std::string version = "N/A";
    std::string brief = "N/A";
    std::vector<s_VersionSection> section;
    TAVORO_FIELDS(type, slotId, modelId, version, brief, section)
};

struct s_DeviceVersion {
    std::string version;
    std::string brief;
    std::vector<s_VersionPart> parts;
    TAVORO_FIELDS(version, brief, parts)
};

/// @}
/// \name Firmware upgrade
/// @{

/// A program section that is to be written.
struct s_UpgradeSection {
    quint16 code = 0;
    TAVORO_FIELDS(code)
};

/// A unit that is to be upgraded.
struct s_UpgradePart {
    qint32 type = 0;
    quint8 slotId = 0;
    quint8 boardId = 0;
    std::vector<s_UpgradeSection> section;
    TAVORO_FIELDS(type, slotId, boardId, section)
};

/// What an upgrade is to do.
struct s_UpgradeDetail {
    qint32 upgradeType = 0;
    std::string filePath; ///< Path of the upgrade package.
    qint32 reboot = 0; ///< Not zero: the device restarts afterwards.
    qint32 deleteUpgradeFile = 0; ///< Not zero: the device deletes the package afterwards.
    std::vector<s_UpgradePart> parts;
    TAVORO_FIELDS(upgradeType, filePath, reboot, deleteUpgradeFile, parts)
};

/// Progress of the current step. Kept: the name is in the plural, and it is one object.
struct s_UpgradeSubSections {
    quint8 rate = 0;
    TAVORO_FIELDS(rate)
};

/// Progress of one program section.
struct s_UpgradeSectionPercent {
    quint16 code = 0x0102;
    quint8 rate = 0;
    qint32 result = 0;
    TAVORO_FIELDS(code, rate, result)
};

/// Progress of one unit. Kept: the outcome is 8 bits wide here, and 32 in the records around it.
struct s_UpgradePartPercent {
    qint32 type = 1;
    quint8 slotId = 0;
    quint8 rate = 0;
    quint8 result = 0;
    std::vector<s_UpgradeSectionPercent> section;
    TAVORO_FIELDS(type, slotId, rate, result, section)
};

/// Progress of an upgrade.
struct s_UpgradePercent {
    qint32 result = 0;
    quint8 rate = 0;
    s_UpgradeSubSections subSections;
    std::vector<s_UpgradePartPercent> parts;
    TAVORO_FIELDS(result, rate, subSections, parts)
};

/// @}
/// \name Source loss
/// @{

struct s_SourceLossConnector {
    quint8 index = 0;
    quint32 times = 0; ///< How often the connector lost its source.
    TAVORO_FIELDS(index, times)
};

/// Loss counts of one slot.
struct s_SourceLossStat {
    quint8 slotId = 0;
    std::vector<s_SourceLossConnector> connectors;
    TAVORO_FIELDS(slotId, connectors)
};

/// @}

} // namespace Tavoro::ProtoModel::Auxiliary
