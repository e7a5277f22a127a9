#include "operation_p.h"

#include <cstring>

namespace Tavoro::Operations::Internal {

namespace {

struct SummaryRow {
    const char *name;
    const char *summary; ///< The first sentence of the documentation of the member.
};

// clang-format off
constexpr SummaryRow summaries[] = {
//   operation                                       what it does
    {"Device.readDetails",                          "Reads the whole state of the device."},
    {"Device.readDeviceDetails",                    "Reads the whole state of the device into the model."},
    {"Device.sendReadDeviceDetailsCmd",             "Reads the whole state of the device as the JSON text that the device sent."},
    {"Device.readSubcardDetail",                    "Reads the whole state of the device and replaces the cards in the model that the argument names."},
    {"Device.readDeviceGroupInfo",                  "Reads the groups that the device belongs to."},
    {"Device.readOutputMapping",                    "Reads the output mapping."},
    {"Device.writeDeviceGeneral",                   "Renames the device."},
    {"Device.writeSubcardMode",                     "Sets the working modes of cards and connectors."},
    {"Device.writeGenlockConfig",                   "Selects the signal that the device locks its outputs to."},
    {"Device.writeNetConfig",                       "Sets up the network ports."},
    {"Device.writeSwap",                            "Selects whether a take swaps preview and programme."},
    {"Device.writeOutputMapping",                   "Sets the output mapping and its test pattern."},
    {"Device.writeDynamicRangConversion",           "Sets the conversion between dynamic ranges."},
    {"Device.writeDeviceGroupInfo",                 "Sets the groups that the device belongs to."},
    {"Device.writeInterfaceRelationInfo",           "Sets the backup relations between interfaces."},
    {"Device.writeZelk",                            "Switches the device's ZeLK feature on or off."},
    {"Device.writeLoadToPGM",                       "Selects where an applied preset goes: preview or programme."},

    {"Interface.readDetails",                       "Reads interfaces."},
    {"Interface.writeInterfaceGeneral",             "Sets the names of interfaces."},
    {"Interface.writeInterfaceName",                "Sends the same command as writeInterfaceGeneral()."},
    {"Interface.writeTestPattern",                  "Shows or hides a test pattern."},
    {"Interface.writePresetTiming",                 "Requests a video timing."},
    {"Interface.writeActualTiming",                 "Sends nothing and fails: the device measures timings."},
    {"Interface.writeImageQuality",                 "Sets contrast, brightness, hue, saturation and gamma."},
    {"Interface.writeCrop",                         "Crops inputs, in units of 1/100000 of their size."},
    {"Interface.writeCutoutGeneral",                "Cuts a colour or a brightness out of inputs."},
    {"Interface.writeHDCP",                         "Switches copy protection on or off."},
    {"Interface.writeInterfaceColorDepth",          "Requests a colour depth."},
    {"Interface.writeInterfaceColorSpace",          "Requests a colour space."},
    {"Interface.writeInterfaceColorRange",          "Requests a colour range."},
    {"Interface.writeInterfaceFormatMapping",       "Selects the format mapping."},
    {"Interface.writeInterfaceHDR",                 "Sets gamut and dynamic range."},

    {"Screen.readDetails",                          "Reads screens."},
    {"Screen.writeScreenEnable",                    "Creates screens with their outputs and their position."},
    {"Screen.writeScreenGeneral",                   "Renames screens."},
    {"Screen.writeScreenBackgroundColor",           "Sets the colour of the area that no layer covers."},
    {"Screen.writeLayout",                          "Moves screens on the canvas, in pixels."},
    {"Screen.writePhysicalSize",                    "Sets the physical size of screens."},
    {"Screen.writePGMEdit",                         "Selects whether edits go to the preview or to the programme."},
    {"Screen.writeSelected",                        "Selects screens on the device's own panel."},
    {"Screen.writeImageQuality",                    "Sets contrast, brightness, hue, saturation and gamma of screens."},
    {"Screen.writeFreeze",                          "Freezes or releases the picture of screens."},
    {"Screen.writeFTB",                             "Fades screens to black, or back to the picture."},
    {"Screen.writeTestPattern",                     "Shows or hides a test pattern."},
    {"Screen.writeSwitchEffect",                    "Sets the transition of the next take."},
    {"Screen.writeTBar",                            "Moves the T-bar, in percent."},
    {"Screen.writeTake",                            "Takes: switches the preview to programme with the given transition."},
    {"Screen.writeScreenDeleted",                   "Deletes screens with their layers."},
    {"Screen.writeScreenHDR",                       "Sets the dynamic range of the outputs of screens."},
    {"Screen.writeScreenZelk",                      "Switches the ZeLK feature of screens on or off."},

    {"Layer.readDetails",                           "Reads layers."},
    {"Layer.writeEnableAll",                        "Creates layers with all their properties, or replaces them."},
    {"Layer.writeEnable",                           "Creates layers, or switches them on, with stacking order, source, window and border."},
    {"Layer.writeZOrder",                           "Sets the stacking order of layers."},
    {"Layer.writeGeneral",                          "Sets name, freeze, monochrome, inversion and flip of layers."},
    {"Layer.writeSource",                           "Selects what layers show, and which part of it."},
    {"Layer.writeWindow",                           "Moves and resizes layers on their screen, in pixels."},
    {"Layer.writeMask",                             "Masks the edges of layers."},
    {"Layer.writeColor",                            "Shows a test colour instead of the source of layers, or the source again."},
    {"Layer.writeOpacity",                          "Sets the opacity of layers, from 0 (transparent) to 100 (opaque)."},
    {"Layer.writeImageQuality",                     "Sets contrast, brightness, hue, saturation and gamma of layers."},
    {"Layer.writeShadow",                           "Sets the shadow of layers."},
    {"Layer.writeBorder",                           "Sets the border of layers."},
    {"Layer.writeSelected",                         "Selects layers on the device's own panel."},
    {"Layer.writeUMD",                              "Sets the under-monitor displays of layers."},
    {"Layer.writeRemoved",                          "Removes the listed layers."},
    {"Layer.writeRemovedAll",                       "Removes all layers of one screen."},
    {"Layer.writeCutAndFill",                       "Binds layers to partners as cut and fill, or releases them."},

    {"Preset.presetApply",                          "Applies presets."},

    {"File.readDetails",                            "Lists files."},
    {"File.writeDeleteFiles",                       "Deletes files."},
    {"File.writeFilesInfo",                         "Renames and moves files."},
    {"File.importFile",                             "Announces files whose content follows."},
    {"File.writeCreateImageFile",                   "Makes the device capture images."},
    {"File.writeCreatePresetFile",                  "Makes the device store its state as presets."},
    {"File.writeCreateProjectFile",                 "Makes the device store projects."},
    {"File.writeCreateLogFile",                     "Makes the device collect logs."},
    {"File.edidCreateFileBinary",                   "Makes the device create EDID files from interfaces."},
    {"File.writeApplyProjectFile",                  "Applies projects."},

    {"Auxiliary.writeRestartShutdown",              "Restarts the device or shuts it down."},
    {"Auxiliary.writeFactoryType",                  "Resets the device to factory settings."},
    {"Auxiliary.saveDeviceData",                    "Makes the device save its state."},
    {"Auxiliary.writeSourceLostCnt",                "Starts, stops or clears the count of lost sources."},
    {"Auxiliary.pickCutoutPos",                     "Makes the device pick the colour at a position."},
    {"Auxiliary.setUgradeConfig",                   "Starts a firmware upgrade from a package that the device already holds."},
    {"Auxiliary.setDeviceTime",                     "Sets the clock of the device, in local time."},
    {"Auxiliary.readSourceLossStatResult",          "Reads how often sources were lost."},
    {"Auxiliary.readUpgradeProgress",               "Reads the progress of a firmware upgrade, in percent."},
    {"Auxiliary.readDeviceVersion",                 "Reads the versions of the device and its units."},
    {"Auxiliary.readDeviceSelfCheckDetail",         "Reads the result of the device's self check."},
    {"Auxiliary.readDeviceLoadTransferProgress",    "Reads the progress with which the device loads its stored files."},
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
