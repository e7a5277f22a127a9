#include "commandtable.h"

#include "createcommands.h"
#include "devicecommands.h"
#include "filecommands.h"
#include "handlers_p.h"
#include "interfacecommands.h"
#include "layercommands.h"
#include "maintenancecommands.h"
#include "presetcommands.h"
#include "screencommands.h"
#include "upgradecommands.h"

#include <algorithm>
#include <iterator>

namespace Tavoro::Sim {

namespace {

namespace D = ProtoModel::Device;
namespace I = ProtoModel::Interface;
namespace S = ProtoModel::Screen;
namespace L = ProtoModel::Layer;
using DD = D::s_DeviceDetail;
using ID = I::s_InterfaceDetail;
using SD = S::s_ScreenFullDetail;
using LD = L::s_LayerFullDetail;

// In the order of the codes. The arguments of writeMember and writeDevice are the member of the
// body, the member of the object, and the check of the value.
// clang-format off
constexpr CommandRow commandRows[] = {
//   command                               read            write                            content read   content write
    {Command::DeviceDetail,                readDevice,     nullptr},
    {Command::DeviceGeneral,               nullptr,        writeDeviceGeneral},
    {Command::DeviceCardMode,              nullptr,        writeCardModes},
    {Command::DeviceGenlockConfig,         nullptr,        writeGenlock},
    {Command::DeviceNetConfig,             nullptr,        writeNetworks},
    {Command::DeviceSwap,                  nullptr,        writeDevice<&D::s_swap::swap, &DD::swap, isFlag>},
    {Command::DeviceOutputMapping,         readMapping,    writeDeviceRecord<&DD::interfaceMapping, isMapping>},
    {Command::DeviceDynamicRangConversion, nullptr,        writeDeviceRecord<&DD::dynamicRangConversion, isDynamicRangConversion>},
    {Command::DeviceGroupInfo,             readGroups,     writeGroups},
    {Command::DeviceInterfaceRelation,     nullptr,        writeRelation},
    {Command::DeviceZelk,                  nullptr,        writeDevice<&D::s_DeviceZelk::zeLKEnable, &DD::zeLKEnable, isFlag>},
    {Command::DeviceLoadToPGM,             nullptr,        writeDevice<&D::s_PresetApplyType::presetApplyType, &DD::presetApplyType, isFlag>},

    {Command::InterfaceDetail,             readInterfaces, nullptr},
    {Command::InterfaceGeneral,            nullptr,        writeInterfaceGeneral},
    {Command::InterfaceTestPattern,        nullptr,        writeMember<&I::s_TestPattern::testPattern, &ID::testPattern, isTestPattern>},
    {Command::InterfacePresetTiming,       nullptr,        writePresetTiming},
    {Command::InterfaceImageQuality,       nullptr,        writeMember<&I::s_ImageQuality::imageQuality, &ID::imageQuality, isImageQuality>},
    {Command::InterfaceCrop,               nullptr,        writeMember<&I::s_CropDetail::crop, &ID::crop, isCrop>},
    {Command::InterfaceCutoutGeneral,      nullptr,        writeMember<&I::s_CutoutGeneral::cutoutGeneral, &ID::cutoutGeneral, isCutout>},
    {Command::InterfaceHDCP,               nullptr,        writeHDCP},
    {Command::InterfaceColorDepth,         nullptr,        writeColorDepth},
    {Command::InterfaceColorSpace,         nullptr,        writeColorSpace},
    {Command::InterfaceColorRange,         nullptr,        writeColorRange},
    {Command::InterfaceFormatMapping,      nullptr,        writeMember<&I::s_FormatMapping::formatMapping, &ID::formatMapping, isUInt16>},
    {Command::InterfaceHDR,                nullptr,        writeInterfaceHDR},

    {Command::ScreenDetail,                readScreens,    nullptr},
    {Command::ScreenEnable,                nullptr,        writeScreenEnable},
    {Command::ScreenGeneral,               nullptr,        writeMember<&S::s_General::general, &SD::general>},
    {Command::ScreenBackgroundColor,       nullptr,        writeMember<&S::s_BackgroundColor::backgroundColor, &SD::backgroundColor, isColor>},
    {Command::ScreenLayout,                nullptr,        writeMember<&S::s_Layout::layout, &SD::layout>},
    {Command::ScreenPhysicalSize,          nullptr,        writeMember<&S::s_PhysicalSize::physicalSize, &SD::physicalSize, isPhysicalSize>},
    {Command::ScreenPGMEdit,               nullptr,        writeMember<&S::s_PGMEdit::PGMEdit, &SD::PGMEdit, isFlag>},
    {Command::ScreenSelected,              nullptr,        writeMember<&S::s_Selected::selected, &SD::selected, isFlag>},
    {Command::ScreenImageQuality,          nullptr,        writeMember<&S::s_ImageQuality::imageQuality, &SD::imageQuality, isImageQuality>},
    {Command::ScreenFreeze,                nullptr,        writeMember<&S::s_Freeze::freeze, &SD::freeze, isFlag>},
    {Command::ScreenFTB,                   nullptr,        writeMember<&S::s_FTB::FTB, &SD::FTB, isFTB>},
    {Command::ScreenTestPattern,           nullptr,        writeMember<&S::s_TestPattern::testPattern, &SD::testPattern, isTestPattern>},
    {Command::ScreenSwitchEffect,          nullptr,        writeMember<&S::s_SwitchEffect::switchEffect, &SD::switchEffect, isSwitchEffect>},
    {Command::ScreenTBar,                  nullptr,        writeTBar},
    {Command::ScreenTake,                  nullptr,        writeTake},
    {Command::ScreenDeleted,               nullptr,        writeScreenDeleted},
    {Command::ScreenHDR,                   nullptr,        writeMember<&S::s_HDR::HDR, &SD::HDR>},
    {Command::ScreenZelk,                  nullptr,        writeScreenZelk},

    {Command::LayerDetail,                 readLayers,     writeLayerEnableAll},
    {Command::LayerEnable,                 nullptr,        writeLayerEnable},
    {Command::LayerZOrder,                 nullptr,        writeLayerZOrder},
    {Command::LayerGeneral,                nullptr,        writeMember<&L::s_LayerGeneral::general, &LD::general, isLayerGeneral>},
    {Command::LayerSource,                 nullptr,        writeLayerSource},
    {Command::LayerWindow,                 nullptr,        writeMember<&L::s_LayerWindow::window, &LD::window, isWindow>},
    {Command::LayerMask,                   nullptr,        writeMember<&L::s_LayerMask::mask, &LD::mask, isMask>},
    {Command::LayerColor,                  nullptr,        writeMember<&L::s_LayerColor::testColor, &LD::testColor, isTestColor>},
    {Command::LayerOpacity,                nullptr,        writeMember<&L::s_LayerOpacity::opacity, &LD::opacity, isPercent>},
    {Command::LayerImageQuality,           nullptr,        writeMember<&L::s_LayerImageQuality::imageQuality, &LD::imageQuality, isImageQuality>},
    {Command::LayerShadow,                 nullptr,        writeMember<&L::s_LayerShadow::shadow, &LD::shadow, isShadow>},
    {Command::LayerBorder,                 nullptr,        writeMember<&L::s_LayerBorder::border, &LD::border, isBorder>},
    {Command::LayerSelected,               nullptr,        writeMember<&L::s_LayerSelected::selected, &LD::selected, isFlag>},
    {Command::LayerUMD,                    nullptr,        writeMember<&L::s_LayerUMD::UMD, &LD::UMD, isUMD>},
    {Command::LayerRemoved,                nullptr,        writeLayerRemoved},
    {Command::LayerCutFill,                nullptr,        writeMember<&L::s_CutFill::cutFill, &LD::cutFill>},

    {Command::PresetApply,                 nullptr,        writePresetApply},
    {Command::ProjectApply,                nullptr,        writeProjectApply},

    {Command::FileDetail,                  readFiles,      nullptr},
    {Command::FileDelete,                  nullptr,        writeFileDelete},
    {Command::FileGeneral,                 nullptr,        writeFileGeneral},
    {Command::FileImport,                  nullptr,        writeFileAnnounced, nullptr,     writeFileContent},
    {Command::FileExport,                  nullptr,        nullptr,            readContent, nullptr},
    {Command::FileCreateImage,             nullptr,        writeCreateImage},
    {Command::FileCreatePreset,            nullptr,        writeCreatePreset},
    {Command::FileCreateProject,           nullptr,        writeCreateProject},
    {Command::FileCreateLog,               nullptr,        writeCreateLog},
    {Command::FileCreateEdid,              nullptr,        writeCreateEdid},

    {Command::AuxiliaryRestartShutdown,    nullptr,        writePower},
    {Command::AuxiliaryFactoryReset,       nullptr,        writeFactoryReset},
    {Command::AuxiliarySave,               nullptr,        writeSave},
    {Command::AuxiliarySourceLossCount,    nullptr,        writeLossCount},
    {Command::AuxiliarySourceLossResult,   readLosses,     nullptr},
    {Command::AuxiliaryCutoutPosition,     nullptr,        writeCutoutPosition},
    {Command::AuxiliaryUpgradeDetail,      nullptr,        writeUpgrade},
    {Command::AuxiliaryUpgradePercent,     readUpgrade,    nullptr},
    {Command::AuxiliaryDeviceVersion,      readVersion,    nullptr},
    {Command::AuxiliarySelfCheck,          readSelfCheck,  nullptr},
    {Command::AuxiliaryDeviceTime,         nullptr,        writeDeviceTime},
    {Command::AuxiliaryLoadProgress,       readLoad,       nullptr},
};
// clang-format on

constexpr bool isBefore(const CommandRow &row, Command command)
{
    return row.command < command;
}

constexpr bool areOrdered()
{
    for (std::size_t i = 1; i < std::size(commandRows); ++i) {
        if (!isBefore(commandRows[i - 1], commandRows[i].command))
            return false;
    }
    return true;
}
static_assert(areOrdered(), "commands are looked up by bisection");

} // namespace

const CommandRow *findCommand(Command command)
{
    const CommandRow *const row =
        std::lower_bound(std::begin(commandRows), std::end(commandRows), command, isBefore);
    return row != std::end(commandRows) && row->command == command ? row : nullptr;
}

Answer carryOut(SimState &state, const Request &request, Reports &reports)
{
    const CommandRow *const row = findCommand(request.command);
    if (row && row->read && request.type == CommandType::Read)
        return {DeviceStatus::Success, row->read(state, request), nullptr};
    if (row && row->write && request.type == CommandType::Write)
        return {row->write(state, request, reports), {}, nullptr};
    if (row && row->readContent && request.type == CommandType::BinaryRead)
        return row->readContent(state, request);
    if (row && row->writeContent && request.type == CommandType::BinaryWrite)
        return {row->writeContent(state, request, reports), {}, nullptr};
    return {DeviceStatus::UnknownCommand, {}, nullptr};
}

} // namespace Tavoro::Sim
