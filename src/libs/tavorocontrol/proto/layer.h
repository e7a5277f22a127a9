#pragma once

#include <tavorocontrol/proto/fields.h>
#include <tavorocontrol/proto/geometry.h>
#include <tavorocontrol/proto/identities.h>
#include <tavorocontrol/proto/signalbodies.h>

#include <QtGlobal>

#include <string>
#include <vector>

/// Records of the layers, the windows of video on a screen. Unlike the records of screens and
/// interfaces, each record holds its identity as an object.
///
/// Codes such as \c layerType, \c sceneType and \c flipType are defined by the device and pass
/// through unchanged. The ranges and codes given here are those that the simulated device accepts.
namespace Tavoro::ProtoModel::Layer {

/// Identity of a layer: its screen, its scene, and its kind and number there.
struct s_LayerIdentity : s_ScreenId {
    quint8 layerId = 0; ///< Number of the layer in its scene.
    /// Kind of layer, 0 to 65535. The simulated device has the kinds 1 (mixing) and 2 (background).
    qint32 layerType = 0;
    qint32 sceneType = 0; ///< Scene of the layer: 2 preview, 4 programme.
    TAVORO_FIELDS(screenId, screenType, layerId, layerType, sceneType)
};

/// Cut and fill of a layer and its partner.
struct s_CutFillBody {
    bool enable = false; ///< True to combine the layer with its partner.
    bool isBinding = false; ///< True if the layer is bound to its partner.
    TAVORO_FIELDS(enable, isBinding)
};

/// Name of a layer, and how its picture is shown.
struct s_LayerGeneralBody {
    std::string name = "N/A"; ///< Name for display.
    qint32 isBackground = 0; ///< 1 for a background, 0 otherwise.
    qint32 isFreeze = 0; ///< 1 to freeze the picture, 0 otherwise.
    qint32 isMonochrome = 0; ///< 1 for a monochrome picture, 0 otherwise.
    qint32 isInverse = 0; ///< 1 for inverted colours, 0 otherwise.
    qint32 flipType = 0; ///< Kind of flip, 0 to 65535; 0 for none.
    TAVORO_FIELDS(name, isBackground, isFreeze, isMonochrome, isInverse, flipType)
};

/// Kind and number of a source.
struct s_SourceGeneral {
    qint32 type = 0; ///< Kind of source: 0 none, 1 an input, 2 a file, 3 the programme of a screen.
    quint32 id = 0; ///< Number of the source; of an input slot << 16 | connector << 8 | split.
    TAVORO_FIELDS(type, id)
};

/// What a layer shows.
struct s_LayerSourceBody {
    s_SourceGeneral general; ///< What the layer shows.
    /// Parts of the picture that are shown. Unlike an interface, a layer may have several crops.
    std::vector<s_CropBody> crop;
    TAVORO_FIELDS(general, crop)
};

/// Mask of a layer.
struct s_LayerMaskBody {
    qint32 enable = 0; ///< 0 or 1.
    qint32 left = 0; ///< Left edge, 0 to 65535.
    qint32 right = 0; ///< Right edge, 0 to 65535.
    qint32 top = 0; ///< Top edge, 0 to 65535.
    qint32 bottom = 0; ///< Bottom edge, 0 to 65535.
    TAVORO_FIELDS(enable, left, right, top, bottom)
};

/// A colour that is shown instead of the source.
struct s_LayerTestColor {
    qint32 R = 50; ///< Red, 0 to 255.
    qint32 G = 50; ///< Green, 0 to 255.
    qint32 B = 50; ///< Blue, 0 to 255.
    qint32 enable = 0; ///< 1 to show the colour, 0 to show the source. Encoded as the first key.
    TAVORO_FIELDS(enable, R, G, B)
};

/// A colour with its opacity.
struct s_RGBA {
    qint32 R = 50; ///< Red, 0 to 255.
    qint32 G = 50; ///< Green, 0 to 255.
    qint32 B = 50; ///< Blue, 0 to 255.
    qint32 opacity = 100; ///< 0 (transparent) to 100 (opaque).
    TAVORO_FIELDS(R, G, B, opacity)
};

/// Whether a shadow is shown, and its soft edge.
struct s_ShadowGeneral {
    qint32 enable = 0; ///< 0 or 1.
    qint32 feather = 0; ///< Width of the soft edge, 0 to 65535.
    TAVORO_FIELDS(enable, feather)
};

/// Shadow of a layer.
struct s_LayerShadowBody {
    s_ShadowGeneral general; ///< Whether the shadow is shown, and its soft edge.
    Screen::s_Rect window; ///< Rectangle of the shadow.
    s_RGBA color; ///< Colour of the shadow.
    TAVORO_FIELDS(general, window, color)
};

/// Widths of a border.
struct s_BorderSize {
    qint32 hWidth = 2; ///< Horizontal width, 0 to 65535.
    qint32 vWidth = 2; ///< Vertical width, 0 to 65535.
    TAVORO_FIELDS(hWidth, vWidth)
};

/// Border of a layer.
struct s_LayerBorderBody {
    qint32 enable = 0; ///< 0 or 1.
    qint32 type = 0; ///< Kind of border, 0 to 65535.
    s_BorderSize size; ///< Widths of the border.
    s_RGBA color; ///< Colour of the border.
    TAVORO_FIELDS(enable, type, size, color)
};

/// Colours of an under-monitor display.
struct s_UMDColor {
    s_RGBA foregroundColor; ///< Colour of the text.
    s_RGBA backgroundColor; ///< Colour of the background.
    TAVORO_FIELDS(foregroundColor, backgroundColor)
};

/// One entry of the under-monitor display of a layer.
struct s_LayerUMDBody {
    qint32 index = 0; ///< Number of the entry, 0 to 65535.
    qint32 enable = 1; ///< 0 or 1. Kept: 1 if the key is missing.
    s_UMDColor color; ///< Colours of the entry.
    TAVORO_FIELDS(index, enable, color)
};

/// The whole state of a layer: one element of the answer to the read. Also written to create a
/// layer with all its settings.
struct s_LayerFullDetail {
    s_LayerIdentity layerIdenti; ///< Identity of the layer.
    s_CutFillBody cutFill; ///< Cut and fill.
    qint32 zorder = 0; ///< Position in the stack of the scene, 0 to 65535, from the bottom.
    qint32 selected = 0; ///< 1 when the layer is selected, 0 otherwise.
    s_LayerGeneralBody general; ///< Name and picture settings.
    s_LayerSourceBody source; ///< What the layer shows.
    Screen::s_Rect window; ///< Rectangle of the layer on the screen.
    s_LayerMaskBody mask; ///< Mask.
    s_LayerTestColor testColor; ///< Test colour.
    qint32 opacity = 100; ///< 0 (transparent) to 100 (opaque).
    s_ImageQualityBody imageQuality; ///< Image quality.
    s_LayerShadowBody shadow; ///< Shadow.
    s_LayerBorderBody border; ///< Border.
    std::vector<s_LayerUMDBody> UMD; ///< Entries of the under-monitor display.
    TAVORO_FIELDS(layerIdenti, cutFill, zorder, selected, general, source, window, mask, testColor,
                  opacity, imageQuality, shadow, border, UMD)
};

/// \name Write records
/// Each record consists of the layer's identity, followed by what is written. The protocol spells
/// the key "layerIdenti".
/// @{

/// Creates a layer, or changes an existing one.
struct s_LayerEnable {
    s_LayerIdentity layerIdenti; ///< Identity of the layer.
    qint32 zorder = 0; ///< Position in the stack of the scene, 0 to 65535, from the bottom.
    s_LayerGeneralBody general; ///< Name and picture settings.
    s_LayerSourceBody source; ///< What the layer shows.
    Screen::s_Rect window; ///< Rectangle of the layer on the screen.
    s_LayerBorderBody border; ///< Border.
    TAVORO_FIELDS(layerIdenti, zorder, general, source, window, border)
};

/// Moves a layer in the stack of its scene.
struct s_LayerZorder {
    s_LayerIdentity layerIdenti; ///< Identity of the layer.
    qint32 zorder = 0; ///< Position in the stack of the scene, 0 to 65535, from the bottom.
    TAVORO_FIELDS(layerIdenti, zorder)
};

/// Sets name and picture settings.
struct s_LayerGeneral {
    s_LayerIdentity layerIdenti; ///< Identity of the layer.
    s_LayerGeneralBody general; ///< Name and picture settings.
    TAVORO_FIELDS(layerIdenti, general)
};

/// Sets the source.
struct s_LayerSource {
    s_LayerIdentity layerIdenti; ///< Identity of the layer.
    s_LayerSourceBody source; ///< What the layer shows.
    TAVORO_FIELDS(layerIdenti, source)
};

/// Moves or resizes a layer.
struct s_LayerWindow {
    s_LayerIdentity layerIdenti; ///< Identity of the layer.
    Screen::s_Rect window; ///< Rectangle of the layer on the screen.
    TAVORO_FIELDS(layerIdenti, window)
};

/// Sets the mask.
struct s_LayerMask {
    s_LayerIdentity layerIdenti; ///< Identity of the layer.
    s_LayerMaskBody mask; ///< Mask.
    TAVORO_FIELDS(layerIdenti, mask)
};

/// Sets the test colour.
struct s_LayerColor {
    s_LayerIdentity layerIdenti; ///< Identity of the layer.
    s_LayerTestColor testColor; ///< Test colour.
    TAVORO_FIELDS(layerIdenti, testColor)
};

/// Sets the opacity.
struct s_LayerOpacity {
    s_LayerIdentity layerIdenti; ///< Identity of the layer.
    qint32 opacity = 100; ///< 0 (transparent) to 100 (opaque).
    TAVORO_FIELDS(layerIdenti, opacity)
};

/// Sets the image quality.
struct s_LayerImageQuality {
    s_LayerIdentity layerIdenti; ///< Identity of the layer.
    s_ImageQualityBody imageQuality; ///< Image quality.
    TAVORO_FIELDS(layerIdenti, imageQuality)
};

/// Sets the shadow.
struct s_LayerShadow {
    s_LayerIdentity layerIdenti; ///< Identity of the layer.
    s_LayerShadowBody shadow; ///< Shadow.
    TAVORO_FIELDS(layerIdenti, shadow)
};

/// Sets the border.
struct s_LayerBorder {
    s_LayerIdentity layerIdenti; ///< Identity of the layer.
    s_LayerBorderBody border; ///< Border.
    TAVORO_FIELDS(layerIdenti, border)
};

/// Selects a layer.
struct s_LayerSelected {
    s_LayerIdentity layerIdenti; ///< Identity of the layer.
    qint32 selected = 0; ///< 1 when the layer is selected, 0 otherwise.
    TAVORO_FIELDS(layerIdenti, selected)
};

/// Sets the under-monitor display.
struct s_LayerUMD {
    s_LayerIdentity layerIdenti; ///< Identity of the layer.
    std::vector<s_LayerUMDBody> UMD; ///< Entries of the under-monitor display.
    TAVORO_FIELDS(layerIdenti, UMD)
};

/// Removes a layer. The identity is the only field.
struct s_LayerRemoved {
    s_LayerIdentity layerIdenti; ///< Identity of the layer.
    TAVORO_FIELDS(layerIdenti)
};

/// Sets cut and fill.
struct s_CutFill {
    s_LayerIdentity layerIdenti; ///< Identity of the layer.
    s_CutFillBody cutFill; ///< Cut and fill.
    TAVORO_FIELDS(layerIdenti, cutFill)
};

/// @}

} // namespace Tavoro::ProtoModel::Layer
