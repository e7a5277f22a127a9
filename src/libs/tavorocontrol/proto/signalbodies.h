#pragma once

#include <tavorocontrol/proto/fields.h>
#include <tavorocontrol/proto/geometry.h>

#include <QtGlobal>

/// Bodies that describe a video signal and how it is shown. Interfaces, screens and layers share
/// them. Numbers such as \c type and the values of depths, spaces and ranges are the device's own
/// codes and pass through unchanged.
namespace Tavoro::ProtoModel {

/// Colour depth: what the device measures and what was asked for.
struct s_ColorDepthBody {
    qint32 actualColorDepth = 0;
    qint32 presetColorDepth = 255;
    TAVORO_FIELDS(actualColorDepth, presetColorDepth)
};

/// Colour space: what the device measures and what was asked for.
struct s_ColorSpaceBody {
    qint32 actualColorSpace = 0;
    qint32 presetColorSpace = 255;
    TAVORO_FIELDS(actualColorSpace, presetColorSpace)
};

/// Colour range: what the device measures and what was asked for.
struct s_ColorRangeBody {
    qint32 actualColorRange = 0;
    qint32 presetColorRange = 255;
    TAVORO_FIELDS(actualColorRange, presetColorRange)
};

/// Colour gamut: what the device measures and what was asked for.
struct s_ColorGamutBody {
    qint32 actualColorGamut = 0;
    qint32 presetColorGamut = 255;
    TAVORO_FIELDS(actualColorGamut, presetColorGamut)
};

/// One axis of a video timing.
struct s_TimingAxisBody {
    qint32 addTime = 0;
    qint32 frontPorch = 0;
    qint32 sync = 0;
    qint32 syncPolarity = 0;
    qint32 totalTime = 0;
    TAVORO_FIELDS(addTime, frontPorch, sync, syncPolarity, totalTime)
};

/// A video timing.
struct s_TimingDetailBody {
    qint32 interlaced = 0;
    qint32 refresh = 0; ///< Refresh rate, in the device's own unit.
    qint32 compatMode = 0;
    s_TimingAxisBody horizontal;
    s_TimingAxisBody vertical;
    TAVORO_FIELDS(interlaced, refresh, compatMode, horizontal, vertical)
};

/// Standard dynamic range. "Gamma": the protocol writes it with a capital here.
struct s_SDRBody {
    qint32 Gamma = 220;
    TAVORO_FIELDS(Gamma)
};

/// High dynamic range by the HDR10 curve.
struct s_HDR10Body {
    bool toneMapping = false;
    qint32 screenPeakBrightness = 1000;
    qint32 ambientLight = 30;
    qint32 pqMaxCll = 1000; ///< Brightest pixel of the content.
    TAVORO_FIELDS(toneMapping, screenPeakBrightness, ambientLight, pqMaxCll)
};

/// High dynamic range by the hybrid log-gamma curve.
struct s_HLGBody {
    qint32 ambientLight = 0;
    qint32 grade = 5;
    TAVORO_FIELDS(ambientLight, grade)
};

/// A dynamic range with the settings of every kind that \c type can select.
struct s_DynamicRangeDetail {
    qint32 type = 255;
    s_SDRBody SDR;
    s_HDR10Body HDR10;
    s_HLGBody HLG;
    TAVORO_FIELDS(type, SDR, HDR10, HLG)
};

/// Dynamic range: what the device measures and what was asked for.
struct s_DynamicRangeBody {
    s_DynamicRangeDetail actualDynamicRange;
    s_DynamicRangeDetail presetDynamicRange;
    TAVORO_FIELDS(actualDynamicRange, presetDynamicRange)
};

/// Colour gamut and dynamic range together.
struct s_HDRBody {
    s_ColorGamutBody colorGamut;
    s_DynamicRangeBody dynamicRange;
    TAVORO_FIELDS(colorGamut, dynamicRange)
};

/// Test pattern of an interface or a screen.
struct s_TestPatternBody {
    qint32 enable = 0;
    qint32 type = 65535;
    qint32 bright = 2;
    qint32 grid = 4;
    qint32 speed = 3;
    qint32 gridLineWidth = 1;
    qint32 gridType = 0;
    TAVORO_FIELDS(enable, type, bright, grid, speed, gridLineWidth, gridType)
};

/// A value for all channels and one for each. On the wire the common value comes first, in memory
/// last.
struct s_AllRGB {
    qint32 R = 50;
    qint32 G = 50;
    qint32 B = 50;
    qint32 all = 50;
    TAVORO_FIELDS(all, R, G, B)
};

/// Image quality of an interface, a screen or a layer.
struct s_ImageQualityBody {
    s_AllRGB contrast;
    s_AllRGB brightness;
    qint32 hue = 0;
    qint32 saturation = 50;
    qint32 gamma = 220;
    TAVORO_FIELDS(contrast, brightness, hue, saturation, gamma)
};

/// The part of a picture that is shown, as shares of its size: 100000 is the whole width or height.
struct s_CropBody {
    quint32 id = 0;
    qint32 type = 0;
    qint32 enable = 0;
    qint32 widthRatio = 100000;
    qint32 heightRatio = 100000;
    qint32 xRatio = 0;
    qint32 yRatio = 0;
    Screen::s_Rect rect; ///< The crop in pixels, for whoever works it out. Never travels.
    TAVORO_FIELDS(id, type, enable, widthRatio, heightRatio, xRatio, yRatio)
};

} // namespace Tavoro::ProtoModel
