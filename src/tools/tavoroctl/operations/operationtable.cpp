#include "operation_p.h"

#include <tavorocontrol/auxiliary.h>
#include <tavorocontrol/device.h>
#include <tavorocontrol/file.h>
#include <tavorocontrol/interface.h>
#include <tavorocontrol/layer.h>
#include <tavorocontrol/preset.h>
#include <tavorocontrol/screen.h>

#include <algorithm>
#include <cstdlib>
#include <iterator>

#if __has_include(<cxxabi.h>)
#include <cxxabi.h>
#endif

namespace Tavoro::Ctl {

namespace {

using namespace Control;
using SSProxy::Command;

// clang-format off
constexpr Operation operations[] = {
//   name                                     command                               how it is called
    {"Device.readDetails",                    Command::DeviceDetail,                reads <&Device::readDetails>},
    {"Device.readDeviceDetails",              Command::DeviceDetail,                reads <&Device::readDeviceDetails>},
    {"Device.sendReadDeviceDetailsCmd",       Command::DeviceDetail,                reads <&Device::sendReadDeviceDetailsCmd>},
    {"Device.readSubcardDetail",              Command::DeviceDetail,                reads <&Device::readSubcardDetail>},
    {"Device.readDeviceGroupInfo",            Command::DeviceGroupInfo,             reads <&Device::readDeviceGroupInfo>},
    {"Device.readOutputMapping",              Command::DeviceOutputMapping,         reads <&Device::readOutputMapping>},
    {"Device.writeDeviceGeneral",             Command::DeviceGeneral,               writes<&Device::writeDeviceGeneral>},
    {"Device.writeSubcardMode",               Command::DeviceCardMode,              writes<&Device::writeSubcardMode>},
    {"Device.writeGenlockConfig",             Command::DeviceGenlockConfig,         writes<&Device::writeGenlockConfig>},
    {"Device.writeNetConfig",                 Command::DeviceNetConfig,             writes<&Device::writeNetConfig>},
    {"Device.writeSwap",                      Command::DeviceSwap,                  writes<&Device::writeSwap>},
    {"Device.writeOutputMapping",             Command::DeviceOutputMapping,         writes<&Device::writeOutputMapping>},
    {"Device.writeDynamicRangConversion",     Command::DeviceDynamicRangConversion, writes<&Device::writeDynamicRangConversion>},
    {"Device.writeDeviceGroupInfo",           Command::DeviceGroupInfo,             writes<&Device::writeDeviceGroupInfo>},
    {"Device.writeInterfaceRelationInfo",     Command::DeviceInterfaceRelation,     writes<&Device::writeInterfaceRelationInfo>},
    {"Device.writeZelk",                      Command::DeviceZelk,                  writes<&Device::writeZelk>},
    {"Device.writeLoadToPGM",                 Command::DeviceLoadToPGM,             writes<&Device::writeLoadToPGM>},

    {"Interface.readDetails",                 Command::InterfaceDetail,             reads <&Interface::readDetails>},
    {"Interface.writeInterfaceGeneral",       Command::InterfaceGeneral,            writes<&Interface::writeInterfaceGeneral>},
    {"Interface.writeInterfaceName",          Command::InterfaceGeneral,            writes<&Interface::writeInterfaceName>},
    {"Interface.writeTestPattern",            Command::InterfaceTestPattern,        writes<&Interface::writeTestPattern>},
    {"Interface.writePresetTiming",           Command::InterfacePresetTiming,       writes<&Interface::writePresetTiming>},
    {"Interface.writeActualTiming",           Command::InterfaceActualTiming,       writes<&Interface::writeActualTiming>},
    {"Interface.writeImageQuality",           Command::InterfaceImageQuality,       writes<&Interface::writeImageQuality>},
    {"Interface.writeCrop",                   Command::InterfaceCrop,               writes<&Interface::writeCrop>},
    {"Interface.writeCutoutGeneral",          Command::InterfaceCutoutGeneral,      writes<&Interface::writeCutoutGeneral>},
    {"Interface.writeHDCP",                   Command::InterfaceHDCP,               writes<&Interface::writeHDCP>},
    {"Interface.writeInterfaceColorDepth",    Command::InterfaceColorDepth,         writes<&Interface::writeInterfaceColorDepth>},
    {"Interface.writeInterfaceColorSpace",    Command::InterfaceColorSpace,         writes<&Interface::writeInterfaceColorSpace>},
    {"Interface.writeInterfaceColorRange",    Command::InterfaceColorRange,         writes<&Interface::writeInterfaceColorRange>},
    {"Interface.writeInterfaceFormatMapping", Command::InterfaceFormatMapping,      writes<&Interface::writeInterfaceFormatMapping>},
    {"Interface.writeInterfaceHDR",           Command::InterfaceHDR,                writes<&Interface::writeInterfaceHDR>},

    {"Screen.readDetails",                    Command::ScreenDetail,                reads <&Screen::readDetails>},
    {"Screen.writeScreenEnable",              Command::ScreenEnable,                writes<&Screen::writeScreenEnable>},
    {"Screen.writeScreenGeneral",             Command::ScreenGeneral,               writes<&Screen::writeScreenGeneral>},
    {"Screen.writeScreenBackgroundColor",     Command::ScreenBackgroundColor,       writes<&Screen::writeScreenBackgroundColor>},
    {"Screen.writeLayout",                    Command::ScreenLayout,                writes<&Screen::writeLayout>},
    {"Screen.writePhysicalSize",              Command::ScreenPhysicalSize,          writes<&Screen::writePhysicalSize>},
    {"Screen.writePGMEdit",                   Command::ScreenPGMEdit,               writes<&Screen::writePGMEdit>},
    {"Screen.writeSelected",                  Command::ScreenSelected,              writes<&Screen::writeSelected>},
    {"Screen.writeImageQuality",              Command::ScreenImageQuality,          writes<&Screen::writeImageQuality>},
    {"Screen.writeFreeze",                    Command::ScreenFreeze,                writes<&Screen::writeFreeze>},
    {"Screen.writeFTB",                       Command::ScreenFTB,                   writes<&Screen::writeFTB>},
    {"Screen.writeTestPattern",               Command::ScreenTestPattern,           writes<&Screen::writeTestPattern>},
    {"Screen.writeSwitchEffect",              Command::ScreenSwitchEffect,          writes<&Screen::writeSwitchEffect>},
    {"Screen.writeTBar",                      Command::ScreenTBar,                  writes<&Screen::writeTBar>},
    {"Screen.writeTake",                      Command::ScreenTake,                  writes<&Screen::writeTake>},
    {"Screen.writeScreenDeleted",             Command::ScreenDeleted,               writes<&Screen::writeScreenDeleted>},
    {"Screen.writeScreenHDR",                 Command::ScreenHDR,                   writes<&Screen::writeScreenHDR>},
    {"Screen.writeScreenZelk",                Command::ScreenZelk,                  writes<&Screen::writeScreenZelk>},

    {"Layer.readDetails",                     Command::LayerDetail,                 reads <&Layer::readDetails>},
    {"Layer.writeEnableAll",                  Command::LayerDetail,                 writes<&Layer::writeEnableAll>},
    {"Layer.writeEnable",                     Command::LayerEnable,                 writes<&Layer::writeEnable>},
    {"Layer.writeZOrder",                     Command::LayerZOrder,                 writes<&Layer::writeZOrder>},
    {"Layer.writeGeneral",                    Command::LayerGeneral,                writes<&Layer::writeGeneral>},
    {"Layer.writeSource",                     Command::LayerSource,                 writes<&Layer::writeSource>},
    {"Layer.writeWindow",                     Command::LayerWindow,                 writes<&Layer::writeWindow>},
    {"Layer.writeMask",                       Command::LayerMask,                   writes<&Layer::writeMask>},
    {"Layer.writeColor",                      Command::LayerColor,                  writes<&Layer::writeColor>},
    {"Layer.writeOpacity",                    Command::LayerOpacity,                writes<&Layer::writeOpacity>},
    {"Layer.writeImageQuality",               Command::LayerImageQuality,           writes<&Layer::writeImageQuality>},
    {"Layer.writeShadow",                     Command::LayerShadow,                 writes<&Layer::writeShadow>},
    {"Layer.writeBorder",                     Command::LayerBorder,                 writes<&Layer::writeBorder>},
    {"Layer.writeSelected",                   Command::LayerSelected,               writes<&Layer::writeSelected>},
    {"Layer.writeUMD",                        Command::LayerUMD,                    writes<&Layer::writeUMD>},
    {"Layer.writeRemoved",                    Command::LayerRemoved,                writes<&Layer::writeRemoved>},
    {"Layer.writeRemovedAll",                 Command::LayerRemoved,                writes<&Layer::writeRemovedAll>},
    {"Layer.writeCutAndFill",                 Command::LayerCutFill,                writes<&Layer::writeCutAndFill>},

    {"Preset.presetApply",                    Command::PresetApply,                 writes<&Preset::presetApply>},

    {"File.readDetails",                      Command::FileDetail,                  reads <&File::readDetails>},
    {"File.writeDeleteFiles",                 Command::FileDelete,                  writes<&File::writeDeleteFiles>},
    {"File.writeFilesInfo",                   Command::FileGeneral,                 writes<&File::writeFilesInfo>},
    {"File.importFile",                       Command::FileImport,                  writes<&File::importFile>},
    {"File.writeCreateImageFile",             Command::FileCreateImage,             writes<&File::writeCreateImageFile>},
    {"File.writeCreatePresetFile",            Command::FileCreatePreset,            writes<&File::writeCreatePresetFile>},
    {"File.writeCreateProjectFile",           Command::FileCreateProject,           writes<&File::writeCreateProjectFile>},
    {"File.writeCreateLogFile",               Command::FileCreateLog,               writes<&File::writeCreateLogFile>},
    {"File.edidCreateFileBinary",             Command::FileCreateEdid,              writes<&File::edidCreateFileBinary>},
    {"File.writeApplyProjectFile",            Command::ProjectApply,                writes<&File::writeApplyProjectFile>},

    {"Auxiliary.writeRestartShutdown",        Command::AuxiliaryRestartShutdown,    writes<&Auxiliary::writeRestartShutdown>},
    {"Auxiliary.writeFactoryType",            Command::AuxiliaryFactoryReset,       writes<&Auxiliary::writeFactoryType>},
    {"Auxiliary.saveDeviceData",              Command::AuxiliarySave,               writes<&Auxiliary::saveDeviceData>},
    {"Auxiliary.writeSourceLostCnt",          Command::AuxiliarySourceLossCount,    writes<&Auxiliary::writeSourceLostCnt>},
    {"Auxiliary.pickCutoutPos",               Command::AuxiliaryCutoutPosition,     writes<&Auxiliary::pickCutoutPos>},
    {"Auxiliary.setUgradeConfig",             Command::AuxiliaryUpgradeDetail,      writes<&Auxiliary::setUgradeConfig>},
    {"Auxiliary.setDeviceTime",               Command::AuxiliaryDeviceTime,         writes<&Auxiliary::setDeviceTime>},
    {"Auxiliary.readSourceLossStatResult",    Command::AuxiliarySourceLossResult,   reads <&Auxiliary::readSourceLossStatResult>},
    {"Auxiliary.readUpgradeProgress",         Command::AuxiliaryUpgradePercent,     reads <&Auxiliary::readUpgradeProgress>},
    {"Auxiliary.readDeviceVersion",           Command::AuxiliaryDeviceVersion,      reads <&Auxiliary::readDeviceVersion>},
    {"Auxiliary.readDeviceSelfCheckDetail",   Command::AuxiliarySelfCheck,          reads <&Auxiliary::readDeviceSelfCheckDetail>},
    {"Auxiliary.readDeviceLoadTransferProgress", Command::AuxiliaryLoadProgress,    reads <&Auxiliary::readDeviceLoadTransferProgress>},
};
// clang-format on

} // namespace

OperationRange allOperations()
{
    return {std::begin(operations), std::end(operations)};
}

const Operation *findOperation(const QString &name)
{
    const auto found =
        std::find_if(std::begin(operations), std::end(operations),
                     [&](const Operation &row) { return name == QLatin1String(row.name); });
    return found == std::end(operations) ? nullptr : found;
}

QString recordName(const std::type_info &type)
{
    const char *name = type.name();
#if __has_include(<cxxabi.h>)
    const std::unique_ptr<char, decltype(&std::free)> readable(
        abi::__cxa_demangle(name, nullptr, nullptr, nullptr), std::free);
    if (readable)
        name = readable.get();
#endif
    return QString::fromLatin1(name).remove(QStringLiteral("Tavoro::ProtoModel::"));
}

} // namespace Tavoro::Ctl
