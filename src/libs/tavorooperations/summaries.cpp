#include "operation_p.h"

#include <QtGlobal>

#include <cstring>

namespace Tavoro::Operations::Internal {

namespace {

#define TEXT(text) QT_TRANSLATE_NOOP("Tavoro::Operations", text)

struct SummaryRow {
    const char *name;
    const char *summary; ///< The first sentence of the documentation of the member.
};

// clang-format off
constexpr SummaryRow summaries[] = {
//   operation                                       what it does
    {"Device.readDetails",                          TEXT("Reads the whole state of the device.")},
    {"Device.readDeviceDetails",                    TEXT("Reads the whole state of the device into the model.")},
    {"Device.sendReadDeviceDetailsCmd",             TEXT("Reads the whole state of the device as the JSON text that the device sent.")},
    {"Device.readSubcardDetail",                    TEXT("Reads the whole state of the device and replaces the cards in the model that the argument names.")},
    {"Device.readDeviceGroupInfo",                  TEXT("Reads the groups that the device belongs to.")},
    {"Device.readOutputMapping",                    TEXT("Reads the output mapping.")},
    {"Device.writeDeviceGeneral",                   TEXT("Renames the device.")},
    {"Device.writeSubcardMode",                     TEXT("Sets the working modes of cards and connectors.")},
    {"Device.writeGenlockConfig",                   TEXT("Selects the signal that the device locks its outputs to.")},
    {"Device.writeNetConfig",                       TEXT("Sets up the network ports.")},
    {"Device.writeSwap",                            TEXT("Selects whether a take swaps preview and programme.")},
    {"Device.writeOutputMapping",                   TEXT("Sets the output mapping and its test pattern.")},
    {"Device.writeDynamicRangConversion",           TEXT("Sets the conversion between dynamic ranges.")},
    {"Device.writeDeviceGroupInfo",                 TEXT("Sets the groups that the device belongs to.")},
    {"Device.writeInterfaceRelationInfo",           TEXT("Sets the backup relations between interfaces.")},
    {"Device.writeZelk",                            TEXT("Switches the device's ZeLK feature on or off.")},
    {"Device.writeLoadToPGM",                       TEXT("Selects where an applied preset goes: preview or programme.")},

    {"Interface.readDetails",                       TEXT("Reads interfaces.")},
    {"Interface.writeInterfaceGeneral",             TEXT("Sets the names of interfaces.")},
    {"Interface.writeInterfaceName",                TEXT("Sends the same command as writeInterfaceGeneral().")},
    {"Interface.writeTestPattern",                  TEXT("Shows or hides a test pattern.")},
    {"Interface.writePresetTiming",                 TEXT("Requests a video timing.")},
    {"Interface.writeActualTiming",                 TEXT("Sends nothing and fails: the device measures timings.")},
    {"Interface.writeImageQuality",                 TEXT("Sets contrast, brightness, hue, saturation and gamma.")},
    {"Interface.writeCrop",                         TEXT("Crops inputs, in units of 1/100000 of their size.")},
    {"Interface.writeCutoutGeneral",                TEXT("Cuts a colour or a brightness out of inputs.")},
    {"Interface.writeHDCP",                         TEXT("Switches copy protection on or off.")},
    {"Interface.writeInterfaceColorDepth",          TEXT("Requests a colour depth.")},
    {"Interface.writeInterfaceColorSpace",          TEXT("Requests a colour space.")},
    {"Interface.writeInterfaceColorRange",          TEXT("Requests a colour range.")},
    {"Interface.writeInterfaceFormatMapping",       TEXT("Selects the format mapping.")},
    {"Interface.writeInterfaceHDR",                 TEXT("Sets gamut and dynamic range.")},

    {"Screen.readDetails",                          TEXT("Reads screens.")},
    {"Screen.writeScreenEnable",                    TEXT("Creates screens with their outputs and their position.")},
    {"Screen.writeScreenGeneral",                   TEXT("Renames screens.")},
    {"Screen.writeScreenBackgroundColor",           TEXT("Sets the colour of the area that no layer covers.")},
    {"Screen.writeLayout",                          TEXT("Moves screens on the canvas, in pixels.")},
    {"Screen.writePhysicalSize",                    TEXT("Sets the physical size of screens.")},
    {"Screen.writePGMEdit",                         TEXT("Selects whether edits go to the preview or to the programme.")},
    {"Screen.writeSelected",                        TEXT("Selects screens on the device's own panel.")},
    {"Screen.writeImageQuality",                    TEXT("Sets contrast, brightness, hue, saturation and gamma of screens.")},
    {"Screen.writeFreeze",                          TEXT("Freezes or releases the picture of screens.")},
    {"Screen.writeFTB",                             TEXT("Fades screens to black, or back to the picture.")},
    {"Screen.writeTestPattern",                     TEXT("Shows or hides a test pattern.")},
    {"Screen.writeSwitchEffect",                    TEXT("Sets the transition of the next take.")},
    {"Screen.writeTBar",                            TEXT("Moves the T-bar, in percent.")},
    {"Screen.writeTake",                            TEXT("Takes: switches the preview to programme with the given transition.")},
    {"Screen.writeScreenDeleted",                   TEXT("Deletes screens with their layers.")},
    {"Screen.writeScreenHDR",                       TEXT("Sets the dynamic range of the outputs of screens.")},
    {"Screen.writeScreenZelk",                      TEXT("Switches the ZeLK feature of screens on or off.")},

    {"Layer.readDetails",                           TEXT("Reads layers.")},
    {"Layer.writeEnableAll",                        TEXT("Creates layers with all their properties, or replaces them.")},
    {"Layer.writeEnable",                           TEXT("Creates layers, or switches them on, with stacking order, source, window and border.")},
    {"Layer.writeZOrder",                           TEXT("Sets the stacking order of layers.")},
    {"Layer.writeGeneral",                          TEXT("Sets name, freeze, monochrome, inversion and flip of layers.")},
    {"Layer.writeSource",                           TEXT("Selects what layers show, and which part of it.")},
    {"Layer.writeWindow",                           TEXT("Moves and resizes layers on their screen, in pixels.")},
    {"Layer.writeMask",                             TEXT("Masks the edges of layers.")},
    {"Layer.writeColor",                            TEXT("Shows a test colour instead of the source of layers, or the source again.")},
    {"Layer.writeOpacity",                          TEXT("Sets the opacity of layers, from 0 (transparent) to 100 (opaque).")},
    {"Layer.writeImageQuality",                     TEXT("Sets contrast, brightness, hue, saturation and gamma of layers.")},
    {"Layer.writeShadow",                           TEXT("Sets the shadow of layers.")},
    {"Layer.writeBorder",                           TEXT("Sets the border of layers.")},
    {"Layer.writeSelected",                         TEXT("Selects layers on the device's own panel.")},
    {"Layer.writeUMD",                              TEXT("Sets the under-monitor displays of layers.")},
    {"Layer.writeRemoved",                          TEXT("Removes the listed layers.")},
    {"Layer.writeRemovedAll",                       TEXT("Removes all layers of one screen.")},
    {"Layer.writeCutAndFill",                       TEXT("Binds layers to partners as cut and fill, or releases them.")},

    {"Preset.presetApply",                          TEXT("Applies presets.")},

    {"File.readDetails",                            TEXT("Lists files.")},
    {"File.writeDeleteFiles",                       TEXT("Deletes files.")},
    {"File.writeFilesInfo",                         TEXT("Renames and moves files.")},
    {"File.importFile",                             TEXT("Announces files whose content follows.")},
    {"File.writeCreateImageFile",                   TEXT("Makes the device capture images.")},
    {"File.writeCreatePresetFile",                  TEXT("Makes the device store its state as presets.")},
    {"File.writeCreateProjectFile",                 TEXT("Makes the device store projects.")},
    {"File.writeCreateLogFile",                     TEXT("Makes the device collect logs.")},
    {"File.edidCreateFileBinary",                   TEXT("Makes the device create EDID files from interfaces.")},
    {"File.writeApplyProjectFile",                  TEXT("Applies projects.")},

    {"Auxiliary.writeRestartShutdown",              TEXT("Restarts the device or shuts it down.")},
    {"Auxiliary.writeFactoryType",                  TEXT("Resets the device to factory settings.")},
    {"Auxiliary.saveDeviceData",                    TEXT("Makes the device save its state.")},
    {"Auxiliary.writeSourceLostCnt",                TEXT("Starts, stops or clears the count of lost sources.")},
    {"Auxiliary.pickCutoutPos",                     TEXT("Makes the device pick the colour at a position.")},
    {"Auxiliary.setUgradeConfig",                   TEXT("Starts a firmware upgrade from a package that the device already holds.")},
    {"Auxiliary.setDeviceTime",                     TEXT("Sets the clock of the device, in local time.")},
    {"Auxiliary.readSourceLossStatResult",          TEXT("Reads how often sources were lost.")},
    {"Auxiliary.readUpgradeProgress",               TEXT("Reads the progress of a firmware upgrade, in percent.")},
    {"Auxiliary.readDeviceVersion",                 TEXT("Reads the versions of the device and its units.")},
    {"Auxiliary.readDeviceSelfCheckDetail",         TEXT("Reads the result of the device's self check.")},
    {"Auxiliary.readDeviceLoadTransferProgress",    TEXT("Reads the progress with which the device loads its stored files.")},
};
// clang-format on

} // namespace

const char *summaryOf(const char *name)
{
    for (const SummaryRow &row : summaries) {
        if (std::strcmp(row.name, name) == 0)
            return row.summary;
    }
    return "";
}

} // namespace Tavoro::Operations::Internal
