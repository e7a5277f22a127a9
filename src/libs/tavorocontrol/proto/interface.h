#pragma once

#include <tavorocontrol/proto/fields.h>
#include <tavorocontrol/proto/identities.h>
#include <tavorocontrol/proto/rgb.h>
#include <tavorocontrol/proto/signalbodies.h>

#include <QtGlobal>

#include <string>

/// Records of the interfaces: the video connectors of a device. signalbodies.h contains the records
/// that interfaces share with screens and layers.
///
/// The ranges given here are those that the simulated device accepts.
namespace Tavoro::ProtoModel::Interface {

/// Names and kind of an interface.
struct s_InterfaceGeneralBody {
    qint32 type = 0; ///< Kind of interface. Ignored in a write. Encoded as the last key.
    std::string name = "N/A"; ///< Name for display.
    std::string nameGB2312 = "N/A"; ///< Name for a display with the character set GB2312.
    TAVORO_FIELDS(name, nameGB2312, type)
};

/// Copy protection: version requested and version in force.
struct s_HDCPBody {
    bool enable = false; ///< True if HDCP is on.
    qint32 presetType = 1; ///< Version requested, 0 to 65535.
    qint32 actualType = 1; ///< Version in force. Ignored in a write.
    TAVORO_FIELDS(enable, presetType, actualType)
};

/// Cutout by brightness.
struct s_CutoutBrightness {
    qint32 threshold = 0; ///< 0 to 65535.
    qint32 gain = 0; ///< 0 to 65535.
    TAVORO_FIELDS(threshold, gain)
};

/// Cutout by hue.
struct s_CutoutHue {
    qint32 background = 0; ///< 0 to 65535.
    qint32 foreground = 0; ///< 0 to 65535.
    s_RGB color; ///< Colour that is cut out.
    TAVORO_FIELDS(background, foreground, color)
};

/// What is cut out of the picture of an interface, by brightness or by hue.
struct s_CutoutBody {
    qint32 enable = 0; ///< 0 or 1.
    qint32 type = 0; ///< Kind of cutout, 0 to 65535.
    s_CutoutBrightness brightness; ///< Settings of the cutout by brightness.
    s_CutoutHue hue; ///< Settings of the cutout by hue.
    TAVORO_FIELDS(enable, type, brightness, hue)
};

/// The whole state of an interface: one element of the answer to the read.
struct s_InterfaceDetail {
    s_InterfaceID interfaceId; ///< Identity of the interface.
    s_InterfaceGeneralBody general; ///< Names and kind.
    s_ColorDepthBody colorDepths; ///< Colour depth, measured and requested.
    s_ColorSpaceBody colorSpaces; ///< Colour space, measured and requested.
    s_ColorRangeBody colorRanges; ///< Colour range, measured and requested.
    qint32 formatMapping = 0; ///< Format mapping, 0 to 65535.
    s_HDRBody HDR; ///< Colour gamut and dynamic range.
    s_HDCPBody HDCP; ///< Copy protection.
    s_TestPatternBody testPattern; ///< Test pattern.
    s_TimingDetailBody presetTiming; ///< Timing requested.
    s_TimingDetailBody actualTiming; ///< Timing measured.
    s_ImageQualityBody imageQuality; ///< Image quality.
    s_CropBody crop; ///< Part of the picture that is shown.
    s_CutoutBody cutoutGeneral; ///< What is cut out of the picture.
    TAVORO_FIELDS(interfaceId, general, colorDepths, colorSpaces, colorRanges, formatMapping, HDR,
                  HDCP, testPattern, presetTiming, actualTiming, imageQuality, crop, cutoutGeneral)
};

/// \name Write records
/// Each record begins with the keys of the interface's identity, followed by what is written or
/// reported.
/// @{

/// Renames an interface; reported when the names change.
struct s_General : s_InterfaceID {
    s_InterfaceGeneralBody general; ///< The new names.
    TAVORO_FIELDS(slotId, connectorId, splitId, general)
};

/// Sets the test pattern.
struct s_TestPattern : s_InterfaceID {
    s_TestPatternBody testPattern; ///< Test pattern.
    TAVORO_FIELDS(slotId, connectorId, splitId, testPattern)
};

/// Requests a timing.
struct s_PresetTimingDetail : s_InterfaceID {
    s_TimingDetailBody presetTiming; ///< Timing requested.
    TAVORO_FIELDS(slotId, connectorId, splitId, presetTiming)
};

/// Reported when the measured timing changes.
struct s_ActualTimingDetail : s_InterfaceID {
    s_TimingDetailBody actualTiming; ///< Timing measured.
    TAVORO_FIELDS(slotId, connectorId, splitId, actualTiming)
};

/// Sets the image quality.
struct s_ImageQuality : s_InterfaceID {
    s_ImageQualityBody imageQuality; ///< Image quality.
    TAVORO_FIELDS(slotId, connectorId, splitId, imageQuality)
};

/// Sets the crop.
struct s_CropDetail : s_InterfaceID {
    s_CropBody crop; ///< Part of the picture that is shown.
    TAVORO_FIELDS(slotId, connectorId, splitId, crop)
};

/// Sets the cutout.
struct s_CutoutGeneral : s_InterfaceID {
    s_CutoutBody cutoutGeneral; ///< What is cut out of the picture.
    TAVORO_FIELDS(slotId, connectorId, splitId, cutoutGeneral)
};

/// Sets the copy protection.
struct s_HDCP : s_InterfaceID {
    /// Kept: the key is in lower case here, and in upper case in s_InterfaceDetail.
    s_HDCPBody hdcp;
    TAVORO_FIELDS(slotId, connectorId, splitId, hdcp)
};

/// Requests a colour depth; reported when it changes.
struct s_ColorDepth : s_InterfaceID {
    s_ColorDepthBody colorDepths; ///< Colour depth. A write takes the requested value only.
    TAVORO_FIELDS(slotId, connectorId, splitId, colorDepths)
};

/// Requests a colour space; reported when it changes.
struct s_ColorSpace : s_InterfaceID {
    s_ColorSpaceBody colorSpaces; ///< Colour space. A write takes the requested value only.
    TAVORO_FIELDS(slotId, connectorId, splitId, colorSpaces)
};

/// Requests a colour range; reported when it changes.
struct s_ColorRange : s_InterfaceID {
    s_ColorRangeBody colorRanges; ///< Colour range. A write takes the requested value only.
    TAVORO_FIELDS(slotId, connectorId, splitId, colorRanges)
};

/// Sets the format mapping.
struct s_FormatMapping : s_InterfaceID {
    qint32 formatMapping = 0; ///< Format mapping, 0 to 65535.
    TAVORO_FIELDS(slotId, connectorId, splitId, formatMapping)
};

/// Requests colour gamut and dynamic range; reported when they change. Kept: the protocol spells it
/// "DHR".
struct s_DHR : s_InterfaceID {
    s_HDRBody HDR; ///< Colour gamut and dynamic range.
    TAVORO_FIELDS(slotId, connectorId, splitId, HDR)
};

/// @}

} // namespace Tavoro::ProtoModel::Interface
