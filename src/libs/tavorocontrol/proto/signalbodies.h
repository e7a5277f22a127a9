#pragma once

#include <tavorocontrol/proto/fields.h>
#include <tavorocontrol/proto/geometry.h>

#include <QtGlobal>

/// Records that describe a video signal and how it is shown, shared by interfaces, screens and
/// layers.
///
/// Codes such as \c type and the values of depths, spaces and ranges are defined by the device and
/// pass through unchanged. The ranges given here are those that the simulated device accepts.
namespace Tavoro::ProtoModel {

/// Colour depth, measured and requested.
struct s_ColorDepthBody {
    qint32 actualColorDepth = 0; ///< What the device measures.
    qint32 presetColorDepth = 255; ///< What was requested, 0 to 65535; 255 follows the signal.
    TAVORO_FIELDS(actualColorDepth, presetColorDepth)
};

/// Colour space, measured and requested.
struct s_ColorSpaceBody {
    qint32 actualColorSpace = 0; ///< What the device measures.
    qint32 presetColorSpace = 255; ///< What was requested, 0 to 65535; 255 follows the signal.
    TAVORO_FIELDS(actualColorSpace, presetColorSpace)
};

/// Colour range, measured and requested.
struct s_ColorRangeBody {
    qint32 actualColorRange = 0; ///< What the device measures.
    qint32 presetColorRange = 255; ///< What was requested, 0 to 65535; 255 follows the signal.
    TAVORO_FIELDS(actualColorRange, presetColorRange)
};

/// Colour gamut, measured and requested.
struct s_ColorGamutBody {
    qint32 actualColorGamut = 0; ///< What the device measures.
    qint32 presetColorGamut = 255; ///< What was requested, 0 to 65535; 255 follows the signal.
    TAVORO_FIELDS(actualColorGamut, presetColorGamut)
};

/// One axis of a video timing.
struct s_TimingAxisBody {
    qint32 addTime = 0; ///< Active size: pixels or lines, 0 to 65535.
    qint32 frontPorch = 0; ///< Front porch: pixels or lines, 0 to 65535.
    qint32 sync = 0; ///< Sync pulse: pixels or lines, 0 to 65535.
    qint32 syncPolarity = 0; ///< Polarity of the sync pulse, 0 or 1.
    qint32 totalTime = 0; ///< Total size with blanking: pixels or lines, 0 to 65535.
    TAVORO_FIELDS(addTime, frontPorch, sync, syncPolarity, totalTime)
};

/// A video timing.
struct s_TimingDetailBody {
    qint32 interlaced = 0; ///< 1 for interlaced, 0 for progressive.
    /// Refresh rate in the unit of the device, 0 to 1000000. The simulated device uses Hz.
    qint32 refresh = 0;
    qint32 compatMode = 0; ///< Compatibility mode, 0 to 65535.
    s_TimingAxisBody horizontal; ///< Sizes in pixels.
    s_TimingAxisBody vertical; ///< Sizes in lines.
    TAVORO_FIELDS(interlaced, refresh, compatMode, horizontal, vertical)
};

/// Settings of the standard dynamic range.
struct s_SDRBody {
    /// Gamma; the default is 220. Kept: the protocol spells this key with a capital letter.
    qint32 Gamma = 220;
    TAVORO_FIELDS(Gamma)
};

/// Settings of HDR10.
struct s_HDR10Body {
    bool toneMapping = false; ///< True to map tones to the brightness range of the screen.
    qint32 screenPeakBrightness = 1000; ///< Peak brightness of the screen; the default is 1000.
    qint32 ambientLight = 30; ///< Light around the screen; the default is 30.
    qint32 pqMaxCll = 1000; ///< Highest light level of the content; the default is 1000.
    TAVORO_FIELDS(toneMapping, screenPeakBrightness, ambientLight, pqMaxCll)
};

/// Settings of hybrid log-gamma.
struct s_HLGBody {
    qint32 ambientLight = 0; ///< Light around the screen; the default is 0.
    qint32 grade = 5; ///< Grade of the curve; the default is 5.
    TAVORO_FIELDS(ambientLight, grade)
};

/// A dynamic range: its kind, and the settings of each kind.
struct s_DynamicRangeDetail {
    qint32 type = 255; ///< Kind of dynamic range, 0 to 65535; 255 follows the signal.
    s_SDRBody SDR; ///< Settings of the standard dynamic range.
    s_HDR10Body HDR10; ///< Settings of HDR10.
    s_HLGBody HLG; ///< Settings of hybrid log-gamma.
    TAVORO_FIELDS(type, SDR, HDR10, HLG)
};

/// Dynamic range, measured and requested.
struct s_DynamicRangeBody {
    s_DynamicRangeDetail actualDynamicRange; ///< What the device measures.
    s_DynamicRangeDetail presetDynamicRange; ///< What was requested.
    TAVORO_FIELDS(actualDynamicRange, presetDynamicRange)
};

/// Colour gamut and dynamic range together.
struct s_HDRBody {
    s_ColorGamutBody colorGamut; ///< Colour gamut, measured and requested.
    s_DynamicRangeBody dynamicRange; ///< Dynamic range, measured and requested.
    TAVORO_FIELDS(colorGamut, dynamicRange)
};

/// Test pattern of an interface or a screen.
struct s_TestPatternBody {
    qint32 enable = 0; ///< 1 to show the pattern, 0 to show the picture.
    qint32 type = 65535; ///< Kind of pattern, 0 to 65535.
    qint32 bright = 2; ///< Brightness, 0 to 65535.
    qint32 grid = 4; ///< Size of the grid, 0 to 65535.
    qint32 speed = 3; ///< Speed of a moving pattern, 0 to 65535.
    qint32 gridLineWidth = 1; ///< Width of the grid lines, 0 to 65535.
    qint32 gridType = 0; ///< Kind of grid, 0 to 65535.
    TAVORO_FIELDS(enable, type, bright, grid, speed, gridLineWidth, gridType)
};

/// A value for all channels and one for each.
struct s_AllRGB {
    qint32 R = 50; ///< Red, 0 to 100.
    qint32 G = 50; ///< Green, 0 to 100.
    qint32 B = 50; ///< Blue, 0 to 100.
    qint32 all = 50; ///< All channels together, 0 to 100. Encoded as the first key.
    TAVORO_FIELDS(all, R, G, B)
};

/// Image quality of an interface, a screen or a layer.
struct s_ImageQualityBody {
    s_AllRGB contrast; ///< Contrast of all channels and of each.
    s_AllRGB brightness; ///< Brightness of all channels and of each.
    qint32 hue = 0; ///< -180 to 180.
    qint32 saturation = 50; ///< 0 to 100.
    qint32 gamma = 220; ///< 10 to 1000; the default is 220.
    TAVORO_FIELDS(contrast, brightness, hue, saturation, gamma)
};

/// The part of a picture that is shown. Ratios are in units of 1/100000 of the width or height of
/// the picture.
struct s_CropBody {
    quint32 id = 0; ///< Number of the crop.
    qint32 type = 0; ///< Kind of crop, 0 to 65535.
    qint32 enable = 0; ///< 1 to crop, 0 to show the whole picture.
    qint32 widthRatio = 100000; ///< Width, 1 to 100000.
    qint32 heightRatio = 100000; ///< Height, 1 to 100000.
    qint32 xRatio = 0; ///< Distance from the left, 0 to 100000.
    qint32 yRatio = 0; ///< Distance from the top, 0 to 100000.
    Screen::s_Rect rect; ///< The crop in pixels, computed by the model. Not part of the JSON.
    TAVORO_FIELDS(id, type, enable, widthRatio, heightRatio, xRatio, yRatio)
};

} // namespace Tavoro::ProtoModel
