#pragma once

#include <tavorossproxy/export.h>

#include <QObject>
#include <QtGlobal>

namespace Tavoro::SSProxy {

Q_NAMESPACE_EXPORT(TAVOROSSPROXY_EXPORT) // for the names of the commands

/// The codes of the device's commands: base code in the high byte, function code in the low byte.
///
/// CommandType says whether a request reads or writes. Some codes are also used for operations that
/// their names do not describe.
// clang-format off
enum class Command : quint16 {
    // The device as a whole.
    DeviceDetail                = 0x1100,
    DeviceGeneral               = 0x1101,
    DeviceCardMode              = 0x1102,
    DevicePower                 = 0x1103,
    DeviceGenlockConfig         = 0x1104,
    DeviceGenlockStatus         = 0x1105,
    DeviceNetConfig             = 0x1106,
    DeviceSwap                  = 0x1107,
    DeviceOutputMapping         = 0x1108,
    DeviceDynamicRangConversion = 0x1109,
    DeviceGroupInfo             = 0x110A,
    DeviceInterfaceRelation     = 0x110C,
    DeviceZelk                  = 0x110D,
    DeviceLoadToPGM             = 0x110E,

    // Inputs and outputs.
    InterfaceDetail             = 0x1200,
    InterfaceGeneral            = 0x1201,
    InterfaceTestPattern        = 0x1202,
    InterfacePresetTiming       = 0x1203,
    InterfaceActualTiming       = 0x1204,
    InterfaceImageQuality       = 0x1205,
    InterfaceCrop               = 0x1206,
    InterfaceCutoutGeneral      = 0x1207,
    InterfaceHDCP               = 0x1208,
    InterfaceColorDepth         = 0x1209,
    InterfaceColorSpace         = 0x120A,
    InterfaceColorRange         = 0x120B,
    InterfaceFormatMapping      = 0x120C,
    InterfaceHDR                = 0x120D,

    // Screens.
    ScreenDetail                = 0x1300,
    ScreenEnable                = 0x1301,
    ScreenGeneral               = 0x1302,
    ScreenBackgroundColor       = 0x1303,
    ScreenLayout                = 0x1304,
    ScreenPhysicalSize          = 0x1305,
    ScreenPGMEdit               = 0x1306,
    ScreenSelected              = 0x1307,
    ScreenImageQuality          = 0x1308,
    ScreenFreeze                = 0x1309,
    ScreenFTB                   = 0x130A,
    ScreenTestPattern           = 0x130B,
    ScreenSwitchEffect          = 0x130C,
    ScreenTBar                  = 0x130D,
    ScreenTake                  = 0x130E,
    ScreenDeleted               = 0x130F,
    ScreenHDR                   = 0x1310,
    ScreenGenlock               = 0x1313, ///< Only reported.
    ScreenZelk                  = 0x1314,

    // Layers on screens.
    LayerDetail                 = 0x1400,
    LayerEnable                 = 0x1401,
    LayerZOrder                 = 0x1402,
    LayerGeneral                = 0x1403,
    LayerSource                 = 0x1404,
    LayerWindow                 = 0x1405,
    LayerMask                   = 0x1406,
    LayerColor                  = 0x1407,
    LayerOpacity                = 0x1408,
    LayerImageQuality           = 0x1409,
    LayerShadow                 = 0x140A,
    LayerBorder                 = 0x140B,
    LayerSelected               = 0x140C,
    LayerUMD                    = 0x140D,
    LayerRemoved                = 0x140E,
    LayerCutFill                = 0x1410,

    // Presets and projects.
    PresetApply                 = 0x1501,
    ProjectApply                = 0x1601,

    // Files on the device.
    FileDetail                  = 0xFA00,
    FileDelete                  = 0xFA01,
    FileGeneral                 = 0xFA02,
    FileImport                  = 0xFA03,
    FileExport                  = 0xFA04,
    FileTransferProgress        = 0xFA05, ///< Only reported.
    FileCreateImage             = 0xFA06,
    FileCreatePreset            = 0xFA07,
    FileCreateProject           = 0xFA08,
    FileCreateLog               = 0xFA09,
    FileCreateEdid              = 0xFA0B,

    // Maintenance.
    AuxiliaryRestartShutdown    = 0xFC01,
    AuxiliaryFactoryReset       = 0xFC02,
    AuxiliarySave               = 0xFC03,
    AuxiliarySourceLossCount    = 0xFC04,
    AuxiliarySourceLossResult   = 0xFC05,
    AuxiliaryCutoutPosition     = 0xFC06,
    AuxiliaryCutoutRGB          = 0xFC07,
    AuxiliaryUpgradeDetail      = 0xFC08,
    AuxiliaryUpgradePercent     = 0xFC09,
    AuxiliaryDeviceVersion      = 0xFC0A,
    AuxiliarySelfCheck          = 0xFC0B,
    AuxiliaryDeviceTime         = 0xFC0C,
    AuxiliaryLoadProgress       = 0xFC0D,
};
Q_ENUM_NS(Command)
// clang-format on

/// The base code of \a command.
constexpr quint8 baseCode(Command command)
{
    return static_cast<quint8>(static_cast<quint16>(command) >> 8);
}
/// The function code of \a command.
constexpr quint8 functionCode(Command command)
{
    return static_cast<quint8>(static_cast<quint16>(command) & 0xFF);
}

/// Status of a device that refuses a write because another client holds control.
constexpr quint16 statusControlledByOthers = 67;
/// Status with which a device reports that another client has changed its data: synchronise first.
constexpr quint16 statusDataUpdated = 68;

} // namespace Tavoro::SSProxy
