#include "commandnames.h"

#include <tavorosim/state/numbers.h>
#include <tavorossproxy/commandcodes.h>

#include <algorithm>
#include <iterator>
#include <limits>

namespace Tavoro::Sim {

namespace {

using SSProxy::Command;

struct NameRow {
    quint16 code;
    const char *name;
};

constexpr NameRow row(Command command, const char *name)
{
    return {static_cast<quint16>(command), name};
}

// clang-format off
constexpr NameRow nameRows[] = {
    {identityCode, "identity"},
    row(Command::DeviceDetail,                 "DeviceDetail"),
    row(Command::DeviceGeneral,                "DeviceGeneral"),
    row(Command::DeviceCardMode,               "DeviceCardMode"),
    row(Command::DevicePower,                  "DevicePower"),
    row(Command::DeviceGenlockConfig,          "DeviceGenlockConfig"),
    row(Command::DeviceGenlockStatus,          "DeviceGenlockStatus"),
    row(Command::DeviceNetConfig,              "DeviceNetConfig"),
    row(Command::DeviceSwap,                   "DeviceSwap"),
    row(Command::DeviceOutputMapping,          "DeviceOutputMapping"),
    row(Command::DeviceDynamicRangConversion,  "DeviceDynamicRangConversion"),
    row(Command::DeviceGroupInfo,              "DeviceGroupInfo"),
    row(Command::DeviceInterfaceRelation,      "DeviceInterfaceRelation"),
    row(Command::DeviceZelk,                   "DeviceZelk"),
    row(Command::DeviceLoadToPGM,              "DeviceLoadToPGM"),
    row(Command::InterfaceDetail,              "InterfaceDetail"),
    row(Command::InterfaceGeneral,             "InterfaceGeneral"),
    row(Command::InterfaceTestPattern,         "InterfaceTestPattern"),
    row(Command::InterfacePresetTiming,        "InterfacePresetTiming"),
    row(Command::InterfaceActualTiming,        "InterfaceActualTiming"),
    row(Command::InterfaceImageQuality,        "InterfaceImageQuality"),
    row(Command::InterfaceCrop,                "InterfaceCrop"),
    row(Command::InterfaceCutoutGeneral,       "InterfaceCutoutGeneral"),
    row(Command::InterfaceHDCP,                "InterfaceHDCP"),
    row(Command::InterfaceColorDepth,          "InterfaceColorDepth"),
    row(Command::InterfaceColorSpace,          "InterfaceColorSpace"),
    row(Command::InterfaceColorRange,          "InterfaceColorRange"),
    row(Command::InterfaceFormatMapping,       "InterfaceFormatMapping"),
    row(Command::InterfaceHDR,                 "InterfaceHDR"),
    row(Command::ScreenDetail,                 "ScreenDetail"),
    row(Command::ScreenEnable,                 "ScreenEnable"),
    row(Command::ScreenGeneral,                "ScreenGeneral"),
    row(Command::ScreenBackgroundColor,        "ScreenBackgroundColor"),
    row(Command::ScreenLayout,                 "ScreenLayout"),
    row(Command::ScreenPhysicalSize,           "ScreenPhysicalSize"),
    row(Command::ScreenPGMEdit,                "ScreenPGMEdit"),
    row(Command::ScreenSelected,               "ScreenSelected"),
    row(Command::ScreenImageQuality,           "ScreenImageQuality"),
    row(Command::ScreenFreeze,                 "ScreenFreeze"),
    row(Command::ScreenFTB,                    "ScreenFTB"),
    row(Command::ScreenTestPattern,            "ScreenTestPattern"),
    row(Command::ScreenSwitchEffect,           "ScreenSwitchEffect"),
    row(Command::ScreenTBar,                   "ScreenTBar"),
    row(Command::ScreenTake,                   "ScreenTake"),
    row(Command::ScreenDeleted,                "ScreenDeleted"),
    row(Command::ScreenHDR,                    "ScreenHDR"),
    row(Command::ScreenGenlock,                "ScreenGenlock"),
    row(Command::ScreenZelk,                   "ScreenZelk"),
    row(Command::LayerDetail,                  "LayerDetail"),
    row(Command::LayerEnable,                  "LayerEnable"),
    row(Command::LayerZOrder,                  "LayerZOrder"),
    row(Command::LayerGeneral,                 "LayerGeneral"),
    row(Command::LayerSource,                  "LayerSource"),
    row(Command::LayerWindow,                  "LayerWindow"),
    row(Command::LayerMask,                    "LayerMask"),
    row(Command::LayerColor,                   "LayerColor"),
    row(Command::LayerOpacity,                 "LayerOpacity"),
    row(Command::LayerImageQuality,            "LayerImageQuality"),
    row(Command::LayerShadow,                  "LayerShadow"),
    row(Command::LayerBorder,                  "LayerBorder"),
    row(Command::LayerSelected,                "LayerSelected"),
    row(Command::LayerUMD,                     "LayerUMD"),
    row(Command::LayerRemoved,                 "LayerRemoved"),
    row(Command::LayerCutFill,                 "LayerCutFill"),
    row(Command::PresetApply,                  "PresetApply"),
    row(Command::ProjectApply,                 "ProjectApply"),
    row(Command::FileDetail,                   "FileDetail"),
    row(Command::FileDelete,                   "FileDelete"),
    row(Command::FileGeneral,                  "FileGeneral"),
    row(Command::FileImport,                   "FileImport"),
    row(Command::FileExport,                   "FileExport"),
    row(Command::FileTransferProgress,         "FileTransferProgress"),
    row(Command::FileCreateImage,              "FileCreateImage"),
    row(Command::FileCreatePreset,             "FileCreatePreset"),
    row(Command::FileCreateProject,            "FileCreateProject"),
    row(Command::FileCreateLog,                "FileCreateLog"),
    row(Command::FileCreateEdid,               "FileCreateEdid"),
    row(Command::AuxiliaryRestartShutdown,     "AuxiliaryRestartShutdown"),
    row(Command::AuxiliaryFactoryReset,        "AuxiliaryFactoryReset"),
    row(Command::AuxiliarySave,                "AuxiliarySave"),
    row(Command::AuxiliarySourceLossCount,     "AuxiliarySourceLossCount"),
    row(Command::AuxiliarySourceLossResult,    "AuxiliarySourceLossResult"),
    row(Command::AuxiliaryCutoutPosition,      "AuxiliaryCutoutPosition"),
    row(Command::AuxiliaryCutoutRGB,           "AuxiliaryCutoutRGB"),
    row(Command::AuxiliaryUpgradeDetail,       "AuxiliaryUpgradeDetail"),
    row(Command::AuxiliaryUpgradePercent,      "AuxiliaryUpgradePercent"),
    row(Command::AuxiliaryDeviceVersion,       "AuxiliaryDeviceVersion"),
    row(Command::AuxiliarySelfCheck,           "AuxiliarySelfCheck"),
    row(Command::AuxiliaryDeviceTime,          "AuxiliaryDeviceTime"),
    row(Command::AuxiliaryLoadProgress,        "AuxiliaryLoadProgress"),
};
// clang-format on

} // namespace

std::optional<quint16> findCode(const QString &text)
{
    const auto found =
        std::find_if(std::begin(nameRows), std::end(nameRows), [&](const NameRow &candidate) {
            return text == QLatin1String(candidate.name);
        });
    if (found != std::end(nameRows))
        return found->code;
    const std::optional<qint64> code = toNumber(text);
    if (!code || *code <= identityCode || *code > std::numeric_limits<quint16>::max())
        return std::nullopt;
    return static_cast<quint16>(*code);
}

QString nameOfCode(quint16 code)
{
    const auto found =
        std::find_if(std::begin(nameRows), std::end(nameRows),
                     [code](const NameRow &candidate) { return candidate.code == code; });
    return found != std::end(nameRows) ? QLatin1String(found->name)
                                       : QStringLiteral("0x%1").arg(code, 4, 16, QLatin1Char('0'));
}

} // namespace Tavoro::Sim
