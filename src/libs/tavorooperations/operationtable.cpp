#include "operationcode_p.h"

#include <tavorocontrol/auxiliary.h>
#include <tavorocontrol/device.h>
#include <tavorocontrol/file.h>
#include <tavorocontrol/interface.h>
#include <tavorocontrol/layer.h>
#include <tavorocontrol/preset.h>
#include <tavorocontrol/screen.h>

#include <QLatin1String>

#include <algorithm>
#include <iterator>

namespace Tavoro::Operations {

namespace Internal {

namespace {

using namespace Control;
using SSProxy::Command;

// clang-format off

// What writes change: the objects that their arguments name, or all objects of a kind.
constexpr auto Named = Extent::Named;
constexpr auto All = Extent::All;
constexpr ChangedKind deviceKind[]           = {{ScopeKind::Device, All}};
constexpr ChangedKind interfaceKind[]        = {{ScopeKind::Interfaces, Named}};
constexpr ChangedKind fileKind[]             = {{ScopeKind::Files, Named}};
constexpr ChangedKind screenKind[]           = {{ScopeKind::Screens, Named}};
constexpr ChangedKind layerKind[]            = {{ScopeKind::Layers, Named}};
constexpr ChangedKind screenAndLayerKinds[]  = {{ScopeKind::Screens, Named}, {ScopeKind::Layers, Named}};
constexpr ChangedKind presetKinds[]          = {{ScopeKind::Screens, All}, {ScopeKind::Layers, All}};
constexpr ChangedKind projectKinds[]         = {{ScopeKind::Files, All}, {ScopeKind::Screens, All}, {ScopeKind::Layers, All}};
constexpr ChangedKind allKinds[]             = {{ScopeKind::Device, All}, {ScopeKind::Interfaces, All}, {ScopeKind::Files, All},
                                                {ScopeKind::Screens, All}, {ScopeKind::Layers, All}};
constexpr Effect device(deviceKind);
constexpr Effect interfaces(interfaceKind);
constexpr Effect files(fileKind);
constexpr Effect screens(screenKind);
constexpr Effect layers(layerKind);
constexpr Effect screensAndLayers(screenAndLayerKinds);
constexpr Effect preset(presetKinds); // Only the device knows what a preset or a project contains.
constexpr Effect project(projectKinds);
constexpr Effect everything(allKinds);

// Writes after which every read returns the same, with the reason.
constexpr Effect notSent     ("The library does not send it: the device measures the timing.");
constexpr Effect notYetListed("The device lists a file when its whole content has arrived.");
constexpr Effect restart     ("The device disconnects. After a restart, a client reads the whole device again.");
constexpr Effect saved       ("The device copies its state to its memory, and continues with the same state.");
constexpr Effect lossCounts  ("The counts are not part of the model. Auxiliary.readSourceLossStatResult reads them.");
constexpr Effect pickedColor ("The device sends the colour as a report.");
constexpr Effect upgrade     ("The progress is not part of the model. Auxiliary.readUpgradeProgress reads it.");
constexpr Effect clock       ("No read returns the time of the device.");

#define READ(Class, member)          #Class "." #member, reads<&Class::member>
#define WRITE(Class, member, effect) #Class "." #member, writes<&Class::member, effect>
constexpr OperationRow operations[] = {
//         class      member                       effect             command                                arguments
    {READ (Device,    readDetails),                                    Command::DeviceDetail,                 ""},
    {READ (Device,    readDeviceDetails),                              Command::DeviceDetail,                 ""},
    {READ (Device,    sendReadDeviceDetailsCmd),                       Command::DeviceDetail,                 ""},
    {READ (Device,    readSubcardDetail),                              Command::DeviceDetail,                 "reported"},
    {READ (Device,    readDeviceGroupInfo),                            Command::DeviceGroupInfo,              ""},
    {READ (Device,    readOutputMapping),                              Command::DeviceOutputMapping,          ""},
    {WRITE(Device,    writeDeviceGeneral,          device),            Command::DeviceGeneral,                "general"},
    {WRITE(Device,    writeSubcardMode,            device),            Command::DeviceCardMode,               "subcards"},
    {WRITE(Device,    writeGenlockConfig,          device),            Command::DeviceGenlockConfig,          "genlock"},
    {WRITE(Device,    writeNetConfig,              device),            Command::DeviceNetConfig,              "networks"},
    {WRITE(Device,    writeSwap,                   device),            Command::DeviceSwap,                   "swap"},
    {WRITE(Device,    writeOutputMapping,          device),            Command::DeviceOutputMapping,          "mapping"},
    {WRITE(Device,    writeDynamicRangConversion,  device),            Command::DeviceDynamicRangConversion,  "conversion"},
    {WRITE(Device,    writeDeviceGroupInfo,        device),            Command::DeviceGroupInfo,              "groups"},
    {WRITE(Device,    writeInterfaceRelationInfo,  device),            Command::DeviceInterfaceRelation,      "relation"},
    {WRITE(Device,    writeZelk,                   device),            Command::DeviceZelk,                   "zelk"},
    {WRITE(Device,    writeLoadToPGM,              device),            Command::DeviceLoadToPGM,              "status"},

    {READ (Interface, readDetails),                                    Command::InterfaceDetail,              "first second"},
    {WRITE(Interface, writeInterfaceGeneral,       interfaces),        Command::InterfaceGeneral,             "interfaces"},
    {WRITE(Interface, writeInterfaceName,          interfaces),        Command::InterfaceGeneral,             "interfaces"},
    {WRITE(Interface, writeTestPattern,            interfaces),        Command::InterfaceTestPattern,         "interfaces"},
    {WRITE(Interface, writePresetTiming,           interfaces),        Command::InterfacePresetTiming,        "interfaces"},
    {WRITE(Interface, writeActualTiming,           notSent),           Command::InterfaceActualTiming,        "interfaces"},
    {WRITE(Interface, writeImageQuality,           interfaces),        Command::InterfaceImageQuality,        "interfaces"},
    {WRITE(Interface, writeCrop,                   interfaces),        Command::InterfaceCrop,                "interfaces"},
    {WRITE(Interface, writeCutoutGeneral,          interfaces),        Command::InterfaceCutoutGeneral,       "interfaces"},
    {WRITE(Interface, writeHDCP,                   interfaces),        Command::InterfaceHDCP,                "interfaces"},
    {WRITE(Interface, writeInterfaceColorDepth,    interfaces),        Command::InterfaceColorDepth,          "interfaces"},
    {WRITE(Interface, writeInterfaceColorSpace,    interfaces),        Command::InterfaceColorSpace,          "interfaces"},
    {WRITE(Interface, writeInterfaceColorRange,    interfaces),        Command::InterfaceColorRange,          "interfaces"},
    {WRITE(Interface, writeInterfaceFormatMapping, interfaces),        Command::InterfaceFormatMapping,       "interfaces"},
    {WRITE(Interface, writeInterfaceHDR,           interfaces),        Command::InterfaceHDR,                 "interfaces"},

    {READ (Screen,    readDetails),                                    Command::ScreenDetail,                 "screenId screenType third"},
    {WRITE(Screen,    writeScreenEnable,           screens),           Command::ScreenEnable,                 "screens"},
    {WRITE(Screen,    writeScreenGeneral,          screens),           Command::ScreenGeneral,                "screens"},
    {WRITE(Screen,    writeScreenBackgroundColor,  screens),           Command::ScreenBackgroundColor,        "screens"},
    {WRITE(Screen,    writeLayout,                 screens),           Command::ScreenLayout,                 "screens"},
    {WRITE(Screen,    writePhysicalSize,           screens),           Command::ScreenPhysicalSize,           "screens"},
    {WRITE(Screen,    writePGMEdit,                screens),           Command::ScreenPGMEdit,                "screens"},
    {WRITE(Screen,    writeSelected,               screens),           Command::ScreenSelected,               "screens"},
    {WRITE(Screen,    writeImageQuality,           screens),           Command::ScreenImageQuality,           "screens"},
    {WRITE(Screen,    writeFreeze,                 screens),           Command::ScreenFreeze,                 "screens"},
    {WRITE(Screen,    writeFTB,                    screens),           Command::ScreenFTB,                    "screens"},
    {WRITE(Screen,    writeTestPattern,            screens),           Command::ScreenTestPattern,            "screens"},
    {WRITE(Screen,    writeSwitchEffect,           screens),           Command::ScreenSwitchEffect,           "screens"},
    {WRITE(Screen,    writeTBar,                   screensAndLayers),  Command::ScreenTBar,                   "screens"},
    {WRITE(Screen,    writeTake,                   layers),            Command::ScreenTake,                   "screens"},
    {WRITE(Screen,    writeScreenDeleted,          screensAndLayers),  Command::ScreenDeleted,                "screens"},
    {WRITE(Screen,    writeScreenHDR,              screens),           Command::ScreenHDR,                    "screens"},
    {WRITE(Screen,    writeScreenZelk,             screens),           Command::ScreenZelk,                   "screens"},

    {READ (Layer,     readDetails),                                    Command::LayerDetail,                  "screenId screenType third fourth"},
    {WRITE(Layer,     writeEnableAll,              layers),            Command::LayerDetail,                  "layers"},
    {WRITE(Layer,     writeEnable,                 layers),            Command::LayerEnable,                  "layers"},
    {WRITE(Layer,     writeZOrder,                 layers),            Command::LayerZOrder,                  "layers"},
    {WRITE(Layer,     writeGeneral,                layers),            Command::LayerGeneral,                 "layers"},
    {WRITE(Layer,     writeSource,                 layers),            Command::LayerSource,                  "layers"},
    {WRITE(Layer,     writeWindow,                 layers),            Command::LayerWindow,                  "layers"},
    {WRITE(Layer,     writeMask,                   layers),            Command::LayerMask,                    "layers"},
    {WRITE(Layer,     writeColor,                  layers),            Command::LayerColor,                   "layers"},
    {WRITE(Layer,     writeOpacity,                layers),            Command::LayerOpacity,                 "layers"},
    {WRITE(Layer,     writeImageQuality,           layers),            Command::LayerImageQuality,            "layers"},
    {WRITE(Layer,     writeShadow,                 layers),            Command::LayerShadow,                  "layers"},
    {WRITE(Layer,     writeBorder,                 layers),            Command::LayerBorder,                  "layers"},
    {WRITE(Layer,     writeSelected,               layers),            Command::LayerSelected,                "layers"},
    {WRITE(Layer,     writeUMD,                    layers),            Command::LayerUMD,                     "layers"},
    {WRITE(Layer,     writeRemoved,                layers),            Command::LayerRemoved,                 "layers"},
    {WRITE(Layer,     writeRemovedAll,             layers),            Command::LayerRemoved,                 "screenId screenType"},
    {WRITE(Layer,     writeCutAndFill,             layers),            Command::LayerCutFill,                 "layers"},

    {WRITE(Preset,    presetApply,                 preset),            Command::PresetApply,                  "presets"},

    {READ (File,      readDetails),                                    Command::FileDetail,                   "fileType fileId"},
    {WRITE(File,      writeDeleteFiles,            files),             Command::FileDelete,                   "files"},
    {WRITE(File,      writeFilesInfo,              files),             Command::FileGeneral,                  "files"},
    {WRITE(File,      importFile,                  notYetListed),      Command::FileImport,                   "files"},
    {WRITE(File,      writeCreateImageFile,        files),             Command::FileCreateImage,              "files"},
    {WRITE(File,      writeCreatePresetFile,       files),             Command::FileCreatePreset,             "files"},
    {WRITE(File,      writeCreateProjectFile,      files),             Command::FileCreateProject,            "files"},
    {WRITE(File,      writeCreateLogFile,          files),             Command::FileCreateLog,                "files"},
    {WRITE(File,      edidCreateFileBinary,        files),             Command::FileCreateEdid,               "files"},
    {WRITE(File,      writeApplyProjectFile,       project),           Command::ProjectApply,                 "files"},

    {WRITE(Auxiliary, writeRestartShutdown,        restart),           Command::AuxiliaryRestartShutdown,     "option"},
    {WRITE(Auxiliary, writeFactoryType,            everything),        Command::AuxiliaryFactoryReset,        "option"},
    {WRITE(Auxiliary, saveDeviceData,              saved),             Command::AuxiliarySave,                ""},
    {WRITE(Auxiliary, writeSourceLostCnt,          lossCounts),        Command::AuxiliarySourceLossCount,     "option"},
    {WRITE(Auxiliary, pickCutoutPos,               pickedColor),       Command::AuxiliaryCutoutPosition,      "position"},
    {WRITE(Auxiliary, setUgradeConfig,             upgrade),           Command::AuxiliaryUpgradeDetail,       "upgrade"},
    {WRITE(Auxiliary, setDeviceTime,               clock),             Command::AuxiliaryDeviceTime,          "time"},
    {READ (Auxiliary, readSourceLossStatResult),                       Command::AuxiliarySourceLossResult,    ""},
    {READ (Auxiliary, readUpgradeProgress),                            Command::AuxiliaryUpgradePercent,      ""},
    {READ (Auxiliary, readDeviceVersion),                              Command::AuxiliaryDeviceVersion,       ""},
    {READ (Auxiliary, readDeviceSelfCheckDetail),                      Command::AuxiliarySelfCheck,           ""},
    {READ (Auxiliary, readDeviceLoadTransferProgress),                 Command::AuxiliaryLoadProgress,        ""},
};
#undef READ
#undef WRITE
// clang-format on

template <class Predicate>
std::optional<Operation> findIf(Predicate predicate)
{
    const auto *const found = std::find_if(std::begin(operations), std::end(operations), predicate);
    if (found == std::end(operations))
        return std::nullopt;
    return Operation(*found);
}

} // namespace

} // namespace Internal

using Internal::OperationRow;

std::vector<Operation> all()
{
    return {std::begin(Internal::operations), std::end(Internal::operations)};
}

std::optional<Operation> find(const QString &name)
{
    return Internal::findIf(
        [&](const OperationRow &row) { return name == QLatin1String(row.name); });
}

std::optional<Operation> findMember(const std::type_info &type, const void *member)
{
    return Internal::findIf(
        [&](const OperationRow &row) { return row.code.isMember(type, member); });
}

} // namespace Tavoro::Operations
