// The names of commands. A label names the command code, not the operation that uses it.

#include "commandlabels_p.h"

#include "translation_p.h"

#include <tavorossproxy/commandcodes.h>

#include <algorithm>
#include <iterator>

namespace Tavoro::Control::Internal {

namespace {

using SSProxy::Command;

struct LabelRow {
    Command command;
    const char *label;
};

// clang-format off
constexpr LabelRow labelRows[] = {
//   command                               label
    {Command::DeviceDetail,                QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "device detail information")},
    {Command::DeviceGeneral,               QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "device general information")},
    {Command::DeviceCardMode,              QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "device card mode information")},
    {Command::DevicePower,                 QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "device power information")},
    {Command::DeviceGenlockConfig,         QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "device genlock config information")},
    {Command::DeviceGenlockStatus,         QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "device genlock status information")},
    {Command::DeviceNetConfig,             QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "device net config information")},
    {Command::DeviceSwap,                  QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "device swap status information")},
    {Command::DeviceOutputMapping,         QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "device test pattern information")},
    {Command::DeviceDynamicRangConversion, QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "device Dynamic Rang Conversion information")},
    {Command::DeviceGroupInfo,             QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "device group information")},
    {Command::DeviceInterfaceRelation,     QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "input backup information")},
    {Command::DeviceZelk,                  QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "device backup information")},
    {Command::DeviceLoadToPGM,             QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "Load to PGM")},
    {Command::InterfaceDetail,             QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "interface detail information")},
    {Command::InterfaceGeneral,            QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "interface general information")},
    {Command::InterfaceTestPattern,        QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "interface test pattern information")},
    {Command::InterfacePresetTiming,       QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "interface preset timing information")},
    {Command::InterfaceActualTiming,       QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "interface actual timing information")},
    {Command::InterfaceImageQuality,       QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "interface image quality information")},
    {Command::InterfaceCrop,               QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "interface crop information")},
    {Command::InterfaceCutoutGeneral,      QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "interface cutout general information")},
    {Command::InterfaceHDCP,               QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "interface HDCP information")},
    {Command::InterfaceColorDepth,         QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "interface colorDepth information")},
    {Command::InterfaceColorSpace,         QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "interface colorSpace information")},
    {Command::InterfaceColorRange,         QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "interface colorRange information")},
    {Command::InterfaceFormatMapping,      QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "interface formatMapping information")},
    {Command::InterfaceHDR,                QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "interface HDR information")},
    {Command::ScreenDetail,                QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "screen detail information")},
    {Command::ScreenEnable,                QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "screen enable information")},
    {Command::ScreenGeneral,               QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "screen general information")},
    {Command::ScreenBackgroundColor,       QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "screen background color information")},
    {Command::ScreenLayout,                QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "screen layout information")},
    {Command::ScreenPhysicalSize,          QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "screen physical size information")},
    {Command::ScreenPGMEdit,               QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "screen pgm edit information")},
    {Command::ScreenSelected,              QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "screen selected information")},
    {Command::ScreenImageQuality,          QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "screen image quality information")},
    {Command::ScreenFreeze,                QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "screen freeze information")},
    {Command::ScreenFTB,                   QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "screen FTB information")},
    {Command::ScreenTestPattern,           QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "screen test pattern information")},
    {Command::ScreenSwitchEffect,          QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "screen switch effect information")},
    {Command::ScreenTBar,                  QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "screen tbar information")},
    {Command::ScreenTake,                  QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "screen take information")},
    {Command::ScreenDeleted,               QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "screen delete information")},
    {Command::ScreenHDR,                   QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "screen HDR information")},
    {Command::ScreenZelk,                  QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "screen backup information")},
    {Command::LayerDetail,                 QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "layer detail information")},
    {Command::LayerEnable,                 QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "layer enable information")},
    {Command::LayerZOrder,                 QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "layer z order information")},
    {Command::LayerGeneral,                QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "layer general information")},
    {Command::LayerSource,                 QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "layer source information")},
    {Command::LayerWindow,                 QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "layer window information")},
    {Command::LayerMask,                   QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "layer mask information")},
    {Command::LayerColor,                  QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "layer color information")},
    {Command::LayerOpacity,                QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "layer opacity information")},
    {Command::LayerImageQuality,           QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "layer image quality information")},
    {Command::LayerShadow,                 QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "layer shadow information")},
    {Command::LayerBorder,                 QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "layer border information")},
    {Command::LayerSelected,               QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "layer selected information")},
    {Command::LayerUMD,                    QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "layer UMD information")},
    {Command::LayerRemoved,                QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "layer remove information")},
    {Command::LayerCutFill,                QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "layer Cut & fill information")},
    {Command::PresetApply,                 QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "preset apply information")},
    {Command::ProjectApply,                QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "ProjectFile apply information")},
    {Command::FileDetail,                  QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "file detail information")},
    {Command::FileDelete,                  QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "file delete information")},
    {Command::FileGeneral,                 QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "file general information")},
    {Command::FileImport,                  QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "file import information")},
    {Command::FileExport,                  QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "file export information")},
    {Command::FileTransferProgress,        QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "file transfer progress information")},
    {Command::FileCreateImage,             QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "file create image file information")},
    {Command::FileCreatePreset,            QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "file create preset file information")},
    {Command::FileCreateProject,           QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "file create project file information")},
    {Command::FileCreateLog,               QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "file create log file information")},
    {Command::AuxiliaryRestartShutdown,    QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "shutdown or restart information")},
    {Command::AuxiliaryFactoryReset,       QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "factory reset information")},
    {Command::AuxiliarySave,               QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "save information")},
    {Command::AuxiliarySourceLossCount,    QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "source loss statics information")},
    {Command::AuxiliarySourceLossResult,   QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "source loss statics result information")},
    {Command::AuxiliaryCutoutPosition,     QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "cutout position information")},
    {Command::AuxiliaryCutoutRGB,          QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "cutout RGB information")},
    {Command::AuxiliaryUpgradeDetail,      QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "upgrade detail information")},
    {Command::AuxiliaryUpgradePercent,     QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "upgrade percent information")},
    {Command::AuxiliaryDeviceVersion,      QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "device version information")},
    {Command::AuxiliarySelfCheck,          QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "self check detail information")},
    {Command::AuxiliaryDeviceTime,         QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "set device time information")},
    {Command::AuxiliaryLoadProgress,       QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "device file load progress information")},
};
// clang-format on

constexpr bool areOrdered()
{
    for (std::size_t i = 1; i < std::size(labelRows); ++i) {
        if (labelRows[i - 1].command >= labelRows[i].command)
            return false;
    }
    return true;
}
static_assert(areOrdered(), "labels are looked up by bisection");

} // namespace

QString commandLabel(quint8 BC, quint8 FC)
{
    const auto command = static_cast<Command>(BC << 8 | FC);
    const auto row = std::lower_bound(
        std::begin(labelRows), std::end(labelRows), command,
        [](const LabelRow &candidate, Command wanted) { return candidate.command < wanted; });
    if (row == std::end(labelRows) || row->command != command)
        return QStringLiteral("N/A");
    return translated(row->label);
}

} // namespace Tavoro::Control::Internal
