#pragma once

#include <tavorocontrol/proto/fields.h>
#include <tavorocontrol/proto/geometry.h>
#include <tavorocontrol/proto/identities.h>
#include <tavorocontrol/proto/rgb.h>
#include <tavorocontrol/proto/signalbodies.h>

#include <QtGlobal>

#include <string>
#include <vector>

/// Records of the screens. Each travels as an element of an array, also when only one screen is
/// meant. Numbers such as \c type, \c direction and \c unit are the device's own codes and pass
/// through unchanged.
namespace Tavoro::ProtoModel::Screen {

struct s_ScreenGeneralBody {
    std::string name = "N/A";
    std::string nameGB2312 = "N/A"; ///< The name for a display with that character set.
    qint32 index = 0;
    TAVORO_FIELDS(name, nameGB2312, index)
};

/// Rows and columns of a mosaic.
struct s_Splice {
    qint32 row = 1;
    qint32 column = 1;
    TAVORO_FIELDS(row, column)
};

/// One edge blend of an output.
struct s_Feather {
    qint32 enable = 0;
    qint32 type = 0;
    qint32 gamma = 220;
    qint32 width = 0;
    TAVORO_FIELDS(enable, type, gamma, width)
};

/// One output that takes part in a screen.
struct s_MosaicOutput {
    s_InterfaceID interfaceId;
    s_Position pos; ///< Place of the output in the screen.
    s_Rect crop; ///< Region of the screen that the output shows.
    std::vector<s_Feather> feather;
    TAVORO_FIELDS(interfaceId, pos, crop, feather)
};

/// What all outputs of a mosaic are set to.
struct s_RefOutputPara {
    s_ColorDepthBody colorDepths;
    s_ColorSpaceBody colorSpaces;
    s_ColorRangeBody colorRanges;
    qint32 formatMapping = 0;
    s_TimingDetailBody timing;
    TAVORO_FIELDS(colorDepths, colorSpaces, colorRanges, formatMapping, timing)
};

/// Outputs and geometry of a screen.
struct s_Mosaic {
    qint32 type = 0;
    s_Splice splice;
    s_Rect window;
    s_RefOutputPara refOutputPara;
    std::vector<s_MosaicOutput> outputs;
    TAVORO_FIELDS(type, splice, window, refOutputPara, outputs)
};

/// Physical size of a screen. On the wire the pitch and the unit come first, in memory last.
struct s_PhysicalSizeBody {
    qint32 width = 1920;
    qint32 height = 1080;
    qint32 dotPitch = 0; ///< Pitch of the LED dots.
    qint32 unit = 0;
    TAVORO_FIELDS(dotPitch, unit, width, height)
};

/// Fade to black.
struct s_FTBBody {
    qint32 enable = 0;
    qint32 time = 0; ///< Duration, in the device's own unit.
    TAVORO_FIELDS(enable, time)
};

/// Transition between preview and programme.
struct s_SwitchEffectBody {
    qint32 time = 5; ///< Duration, in the device's own unit.
    qint32 direction = 0;
    qint32 type = 1;
    TAVORO_FIELDS(time, direction, type)
};

struct s_TBarBody {
    qint32 percent = 0; ///< Position of the bar.
    TAVORO_FIELDS(percent)
};

/// Per-screen feature switch.
struct s_ScreenZeLK {
    qint32 enable = 0;
    qint32 status = 0; ///< As the device reports it.
    TAVORO_FIELDS(enable, status)
};

/// The whole state of a screen: one element of the answer to the read.
struct s_ScreenFullDetail : s_ScreenId {
    s_ScreenGeneralBody general;
    s_Mosaic mosaic;
    s_RGB backgroundColor;
    s_Position layout; ///< Place of the screen on the canvas.
    s_PhysicalSizeBody physicalSize;
    qint32 PGMEdit = 0; ///< State of programme editing.
    qint32 selected = 0;
    s_ImageQualityBody imageQuality;
    qint32 freeze = 0;
    s_FTBBody FTB;
    s_TestPatternBody testPattern;
    s_SwitchEffectBody switchEffect;
    s_TBarBody tbar;
    s_HDRBody HDR;
    s_ScreenZeLK screenZeLK;
    TAVORO_FIELDS(screenId, screenType, general, mosaic, backgroundColor, layout, physicalSize,
                  PGMEdit, selected, imageQuality, freeze, FTB, testPattern, switchEffect, tbar,
                  HDR, screenZeLK)
};

/// \name Write records
/// The identity of the screen, flat, and what is written. A screen is deleted by its s_ScreenId
/// alone.
/// @{

/// Brings a screen into being, with its mosaic. There is no write of the mosaic by itself.
/// Kept: the mosaic comes before the general body, the reverse of s_ScreenFullDetail.
struct s_Enable : s_ScreenId {
    s_Mosaic mosaic;
    s_ScreenGeneralBody general;
    s_PhysicalSizeBody physicalSize;
    s_Position layout;
    TAVORO_FIELDS(screenId, screenType, mosaic, general, physicalSize, layout)
};

struct s_General : s_ScreenId {
    s_ScreenGeneralBody general;
    TAVORO_FIELDS(screenId, screenType, general)
};

struct s_BackgroundColor : s_ScreenId {
    s_RGB backgroundColor;
    TAVORO_FIELDS(screenId, screenType, backgroundColor)
};

/// Places a screen on the canvas. Its outputs, rows and columns are the mosaic's.
struct s_Layout : s_ScreenId {
    s_Position layout;
    TAVORO_FIELDS(screenId, screenType, layout)
};

struct s_PhysicalSize : s_ScreenId {
    s_PhysicalSizeBody physicalSize;
    TAVORO_FIELDS(screenId, screenType, physicalSize)
};

struct s_PGMEdit : s_ScreenId {
    qint32 PGMEdit = 0;
    TAVORO_FIELDS(screenId, screenType, PGMEdit)
};

struct s_Selected : s_ScreenId {
    qint32 selected = 0;
    TAVORO_FIELDS(screenId, screenType, selected)
};

struct s_ImageQuality : s_ScreenId {
    s_ImageQualityBody imageQuality;
    TAVORO_FIELDS(screenId, screenType, imageQuality)
};

struct s_Freeze : s_ScreenId {
    qint32 freeze = 0;
    TAVORO_FIELDS(screenId, screenType, freeze)
};

struct s_FTB : s_ScreenId {
    s_FTBBody FTB;
    TAVORO_FIELDS(screenId, screenType, FTB)
};

struct s_TestPattern : s_ScreenId {
    s_TestPatternBody testPattern;
    TAVORO_FIELDS(screenId, screenType, testPattern)
};

/// Sets the transition, or takes with it: the command tells which.
struct s_SwitchEffect : s_ScreenId {
    s_SwitchEffectBody switchEffect;
    TAVORO_FIELDS(screenId, screenType, switchEffect)
};

struct s_TBar : s_ScreenId {
    s_TBarBody tbar;
    TAVORO_FIELDS(screenId, screenType, tbar)
};

struct s_HDR : s_ScreenId {
    s_HDRBody HDR;
    TAVORO_FIELDS(screenId, screenType, HDR)
};

/// Written to switch the feature, reported when its state changes.
struct s_ScreenZeLKFull : s_ScreenId {
    s_ScreenZeLK screenZeLK;
    TAVORO_FIELDS(screenId, screenType, screenZeLK)
};

/// @}

/// Whether the genlock of a screen holds.
struct s_ScreenGenlockStatus {
    qint32 status = 0;
    TAVORO_FIELDS(status)
};

/// One screen's element of the screen genlock report.
struct s_ScreenGenlockBody : s_ScreenId {
    s_ScreenGenlockStatus genlockSignal;
    TAVORO_FIELDS(screenId, screenType, genlockSignal)
};

} // namespace Tavoro::ProtoModel::Screen
