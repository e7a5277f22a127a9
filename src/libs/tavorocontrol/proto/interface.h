#pragma once

#include <tavorocontrol/proto/fields.h>
#include <tavorocontrol/proto/identities.h>
#include <tavorocontrol/proto/rgb.h>
#include <tavorocontrol/proto/signalbodies.h>

#include <QtGlobal>

#include <string>

/// Records of the interfaces, the video connectors of a device. Bodies that screens and layers use
/// as well stand in signalbodies.h.
namespace Tavoro::ProtoModel::Interface {

/// Name and kind of an interface. On the wire the kind comes last, in memory first.
struct s_InterfaceGeneralBody {
    qint32 type = 0;
    std::string name = "N/A";
    std::string nameGB2312 = "N/A"; ///< The name for a display with that character set.
    TAVORO_FIELDS(name, nameGB2312, type)
};

/// Copy protection: asked version and version in force.
struct s_HDCPBody {
    bool enable = false;
    qint32 presetType = 1;
    qint32 actualType = 1;
    TAVORO_FIELDS(enable, presetType, actualType)
};

struct s_CutoutBrightness {
    qint32 threshold = 0;
    qint32 gain = 0;
    TAVORO_FIELDS(threshold, gain)
};

struct s_CutoutHue {
    qint32 background = 0;
    qint32 foreground = 0;
    s_RGB color;
    TAVORO_FIELDS(background, foreground, color)
};

/// What is cut out of the picture of an interface, by brightness or by hue.
struct s_CutoutBody {
    qint32 enable = 0;
    qint32 type = 0;
    s_CutoutBrightness brightness;
    s_CutoutHue hue;
    TAVORO_FIELDS(enable, type, brightness, hue)
};

/// The whole state of an interface: one element of the answer to the read.
struct s_InterfaceDetail {
    s_InterfaceID interfaceId;
    s_InterfaceGeneralBody general;
    s_ColorDepthBody colorDepths;
    s_ColorSpaceBody colorSpaces;
    s_ColorRangeBody colorRanges;
    qint32 formatMapping = 0;
    s_HDRBody HDR;
    s_HDCPBody HDCP;
    s_TestPatternBody testPattern;
    s_TimingDetailBody presetTiming;
    s_TimingDetailBody actualTiming;
    s_ImageQualityBody imageQuality;
    s_CropBody crop;
    s_CutoutBody cutoutGeneral;
    TAVORO_FIELDS(interfaceId, general, colorDepths, colorSpaces, colorRanges, formatMapping, HDR,
                  HDCP, testPattern, presetTiming, actualTiming, imageQuality, crop, cutoutGeneral)
};

/// \name Write records
/// The identity of the interface, flat, and what is written.
/// @{

struct s_General : s_InterfaceID {
    s_InterfaceGeneralBody general;
    TAVORO_FIELDS(slotId, connectorId, splitId, general)
};

struct s_TestPattern : s_InterfaceID {
    s_TestPatternBody testPattern;
    TAVORO_FIELDS(slotId, connectorId, splitId, testPattern)
};

struct s_PresetTimingDetail : s_InterfaceID {
    s_TimingDetailBody presetTiming;
    TAVORO_FIELDS(slotId, connectorId, splitId, presetTiming)
};

struct s_ActualTimingDetail : s_InterfaceID {
    s_TimingDetailBody actualTiming;
    TAVORO_FIELDS(slotId, connectorId, splitId, actualTiming)
};

struct s_ImageQuality : s_InterfaceID {
    s_ImageQualityBody imageQuality;
    TAVORO_FIELDS(slotId, connectorId, splitId, imageQuality)
};

struct s_CropDetail : s_InterfaceID {
    s_CropBody crop;
    TAVORO_FIELDS(slotId, connectorId, splitId, crop)
};

struct s_CutoutGeneral : s_InterfaceID {
    s_CutoutBody cutoutGeneral;
    TAVORO_FIELDS(slotId, connectorId, splitId, cutoutGeneral)
};

/// Kept: the key is in lower case here and in upper case in s_InterfaceDetail.
struct s_HDCP : s_InterfaceID {
    s_HDCPBody hdcp;
    TAVORO_FIELDS(slotId, connectorId, splitId, hdcp)
};

struct s_ColorDepth : s_InterfaceID {
    s_ColorDepthBody colorDepths;
    TAVORO_FIELDS(slotId, connectorId, splitId, colorDepths)
};

struct s_ColorSpace : s_InterfaceID {
    s_ColorSpaceBody colorSpaces;
    TAVORO_FIELDS(slotId, connectorId, splitId, colorSpaces)
};

struct s_ColorRange : s_InterfaceID {
    s_ColorRangeBody colorRanges;
    TAVORO_FIELDS(slotId, connectorId, splitId, colorRanges)
};

struct s_FormatMapping : s_InterfaceID {
    qint32 formatMapping = 0;
    TAVORO_FIELDS(slotId, connectorId, splitId, formatMapping)
};

/// "DHR": the protocol spells it so.
struct s_DHR : s_InterfaceID {
    s_HDRBody HDR;
    TAVORO_FIELDS(slotId, connectorId, splitId, HDR)
};

/// @}

} // namespace Tavoro::ProtoModel::Interface
