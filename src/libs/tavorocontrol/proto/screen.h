#pragma once

#include <tavorocontrol/proto/fields.h>
#include <tavorocontrol/proto/geometry.h>
#include <tavorocontrol/proto/identities.h>
#include <tavorocontrol/proto/rgb.h>
#include <tavorocontrol/proto/signalbodies.h>

#include <QtGlobal>

#include <string>
#include <vector>

/// Records of the screens. Each record is sent as an element of an array, even for a single screen.
///
/// Codes such as \c type, \c direction and \c unit are defined by the device and pass through
/// unchanged. The ranges given here are those that the simulated device accepts.
namespace Tavoro::ProtoModel::Screen {

/// Names and index of a screen.
struct s_ScreenGeneralBody {
    std::string name = "N/A"; ///< Name for display.
    std::string nameGB2312 = "N/A"; ///< Name for a display with the character set GB2312.
    qint32 index = 0; ///< Index of the screen.
    TAVORO_FIELDS(name, nameGB2312, index)
};

/// Rows and columns of a mosaic.
struct s_Splice {
    qint32 row = 1; ///< Rows, 1 to 255.
    qint32 column = 1; ///< Columns, 1 to 255.
    TAVORO_FIELDS(row, column)
};

/// One edge blend of an output.
struct s_Feather {
    qint32 enable = 0; ///< 0 or 1.
    /// Edge or kind of the blend, 0 to 65535. On the simulated device 0 is left, 1 top, 2 right and
    /// 3 bottom.
    qint32 type = 0;
    qint32 gamma = 220; ///< Gamma of the blend, 0 to 65535; the default is 220.
    qint32 width = 0; ///< Width of the blend in pixels, 0 to 65535.
    TAVORO_FIELDS(enable, type, gamma, width)
};

/// One output that takes part in a screen.
struct s_MosaicOutput {
    s_InterfaceID interfaceId; ///< The output.
    s_Position pos; ///< Position of the output in the screen.
    s_Rect crop; ///< Region of the screen that the output shows.
    std::vector<s_Feather> feather; ///< Blends of the edges of the output.
    TAVORO_FIELDS(interfaceId, pos, crop, feather)
};

/// Settings that all outputs of a mosaic share.
struct s_RefOutputPara {
    s_ColorDepthBody colorDepths; ///< Colour depth.
    s_ColorSpaceBody colorSpaces; ///< Colour space.
    s_ColorRangeBody colorRanges; ///< Colour range.
    qint32 formatMapping = 0; ///< Format mapping.
    s_TimingDetailBody timing; ///< Timing.
    TAVORO_FIELDS(colorDepths, colorSpaces, colorRanges, formatMapping, timing)
};

/// Outputs and geometry of a screen.
struct s_Mosaic {
    qint32 type = 0; ///< Kind of mosaic, 0 to 65535.
    s_Splice splice; ///< Rows and columns.
    s_Rect window; ///< Rectangle of the whole screen.
    s_RefOutputPara refOutputPara; ///< Settings that all outputs share.
    std::vector<s_MosaicOutput> outputs; ///< The outputs; each belongs to one screen at a time.
    TAVORO_FIELDS(type, splice, window, refOutputPara, outputs)
};

/// Physical size of a screen.
struct s_PhysicalSizeBody {
    qint32 width = 1920; ///< Width in \c unit, from 0.
    qint32 height = 1080; ///< Height in \c unit, from 0.
    qint32 dotPitch = 0; ///< Pitch of the LED dots, from 0. Encoded as the first key.
    qint32 unit = 0; ///< Code of the unit of measure, from 0. Encoded as the second key.
    TAVORO_FIELDS(dotPitch, unit, width, height)
};

/// Fade to black.
struct s_FTBBody {
    qint32 enable = 0; ///< 1 for a black screen, 0 for the picture.
    qint32 time = 0; ///< Duration of the fade in the unit of the device, 0 to 65535.
    TAVORO_FIELDS(enable, time)
};

/// Transition between preview and programme.
struct s_SwitchEffectBody {
    qint32 time = 5; ///< Duration of the transition in the unit of the device, 0 to 65535.
    qint32 direction = 0; ///< Direction of the transition, 0 to 65535.
    qint32 type = 1; ///< Kind of transition, 0 to 65535.
    TAVORO_FIELDS(time, direction, type)
};

/// Position of the T-bar.
struct s_TBarBody {
    /// Position of the bar, 0 to 100. A take happens when the bar arrives at 100.
    qint32 percent = 0;
    TAVORO_FIELDS(percent)
};

/// The ZeLK feature of one screen.
struct s_ScreenZeLK {
    qint32 enable = 0; ///< 0 or 1.
    qint32 status = 0; ///< State of the feature. Ignored in a write.
    TAVORO_FIELDS(enable, status)
};

/// The whole state of a screen: one element of the answer to the read.
struct s_ScreenFullDetail : s_ScreenId {
    s_ScreenGeneralBody general; ///< Names and index.
    s_Mosaic mosaic; ///< Outputs and geometry.
    s_RGB backgroundColor; ///< Colour of the area that no layer covers.
    s_Position layout; ///< Position of the screen on the canvas.
    s_PhysicalSizeBody physicalSize; ///< Physical size.
    qint32 PGMEdit = 0; ///< Programme editing, 0 or 1.
    qint32 selected = 0; ///< 1 when the screen is selected, 0 otherwise.
    s_ImageQualityBody imageQuality; ///< Image quality.
    qint32 freeze = 0; ///< 1 when the picture is frozen, 0 otherwise.
    s_FTBBody FTB; ///< Fade to black.
    s_TestPatternBody testPattern; ///< Test pattern.
    s_SwitchEffectBody switchEffect; ///< Transition of the next take.
    s_TBarBody tbar; ///< Position of the T-bar.
    s_HDRBody HDR; ///< Colour gamut and dynamic range.
    s_ScreenZeLK screenZeLK; ///< The ZeLK feature of the screen.
    TAVORO_FIELDS(screenId, screenType, general, mosaic, backgroundColor, layout, physicalSize,
                  PGMEdit, selected, imageQuality, freeze, FTB, testPattern, switchEffect, tbar,
                  HDR, screenZeLK)
};

/// \name Write records
/// Each record begins with the keys of the screen's identity, followed by what is written. The
/// record that deletes a screen is s_ScreenId.
/// @{

/// Creates a screen with its mosaic, or changes the mosaic of an existing screen. No other command
/// writes the mosaic. Kept: the mosaic precedes the general body, unlike in s_ScreenFullDetail.
struct s_Enable : s_ScreenId {
    s_Mosaic mosaic; ///< Outputs and geometry.
    s_ScreenGeneralBody general; ///< Names and index.
    s_PhysicalSizeBody physicalSize; ///< Physical size.
    s_Position layout; ///< Position of the screen on the canvas.
    TAVORO_FIELDS(screenId, screenType, mosaic, general, physicalSize, layout)
};

/// Renames a screen.
struct s_General : s_ScreenId {
    s_ScreenGeneralBody general; ///< Names and index.
    TAVORO_FIELDS(screenId, screenType, general)
};

/// Sets the background colour.
struct s_BackgroundColor : s_ScreenId {
    s_RGB backgroundColor; ///< Colour of the area that no layer covers.
    TAVORO_FIELDS(screenId, screenType, backgroundColor)
};

/// Moves a screen on the canvas. The rows, columns and outputs of a screen are in its mosaic.
struct s_Layout : s_ScreenId {
    s_Position layout; ///< Position of the screen on the canvas.
    TAVORO_FIELDS(screenId, screenType, layout)
};

/// Sets the physical size.
struct s_PhysicalSize : s_ScreenId {
    s_PhysicalSizeBody physicalSize; ///< Physical size.
    TAVORO_FIELDS(screenId, screenType, physicalSize)
};

/// Switches programme editing.
struct s_PGMEdit : s_ScreenId {
    qint32 PGMEdit = 0; ///< Programme editing, 0 or 1.
    TAVORO_FIELDS(screenId, screenType, PGMEdit)
};

/// Selects a screen.
struct s_Selected : s_ScreenId {
    qint32 selected = 0; ///< 1 when the screen is selected, 0 otherwise.
    TAVORO_FIELDS(screenId, screenType, selected)
};

/// Sets the image quality.
struct s_ImageQuality : s_ScreenId {
    s_ImageQualityBody imageQuality; ///< Image quality.
    TAVORO_FIELDS(screenId, screenType, imageQuality)
};

/// Freezes the picture, or releases it.
struct s_Freeze : s_ScreenId {
    qint32 freeze = 0; ///< 1 when the picture is frozen, 0 otherwise.
    TAVORO_FIELDS(screenId, screenType, freeze)
};

/// Fades to black, or back to the picture.
struct s_FTB : s_ScreenId {
    s_FTBBody FTB; ///< Fade to black.
    TAVORO_FIELDS(screenId, screenType, FTB)
};

/// Sets the test pattern.
struct s_TestPattern : s_ScreenId {
    s_TestPatternBody testPattern; ///< Test pattern.
    TAVORO_FIELDS(screenId, screenType, testPattern)
};

/// Sets the transition, or takes with it, depending on the command.
struct s_SwitchEffect : s_ScreenId {
    s_SwitchEffectBody switchEffect; ///< The transition.
    TAVORO_FIELDS(screenId, screenType, switchEffect)
};

/// Moves the T-bar.
struct s_TBar : s_ScreenId {
    s_TBarBody tbar; ///< Position of the T-bar.
    TAVORO_FIELDS(screenId, screenType, tbar)
};

/// Sets colour gamut and dynamic range.
struct s_HDR : s_ScreenId {
    s_HDRBody HDR; ///< Colour gamut and dynamic range.
    TAVORO_FIELDS(screenId, screenType, HDR)
};

/// Switches the ZeLK feature of a screen; reported when its state changes.
struct s_ScreenZeLKFull : s_ScreenId {
    s_ScreenZeLK screenZeLK; ///< The ZeLK feature of the screen.
    TAVORO_FIELDS(screenId, screenType, screenZeLK)
};

/// @}

/// Whether a screen is locked to the genlock signal.
struct s_ScreenGenlockStatus {
    qint32 status = 0; ///< 1 while the screen is locked, 0 otherwise.
    TAVORO_FIELDS(status)
};

/// One screen in the genlock report.
struct s_ScreenGenlockBody : s_ScreenId {
    s_ScreenGenlockStatus genlockSignal; ///< State of the lock.
    TAVORO_FIELDS(screenId, screenType, genlockSignal)
};

} // namespace Tavoro::ProtoModel::Screen
