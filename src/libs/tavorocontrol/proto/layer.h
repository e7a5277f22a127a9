#pragma once

#include <tavorocontrol/proto/fields.h>
#include <tavorocontrol/proto/geometry.h>
#include <tavorocontrol/proto/identities.h>
#include <tavorocontrol/proto/signalbodies.h>

#include <QtGlobal>

#include <string>
#include <vector>

/// Records of the layers, the windows of video on a screen. Unlike the records of screens and
/// interfaces, each nests its identity. Numbers such as \c layerType, \c sceneType and \c flipType
/// are the device's own codes and pass through unchanged.
namespace Tavoro::ProtoModel::Layer {

/// Identity of a layer: its screen, its number and kind there, and the scene that it belongs to.
struct s_LayerIdentity : s_ScreenId {
    quint8 layerId = 0;
    qint32 layerType = 0;
    qint32 sceneType = 0;
    TAVORO_FIELDS(screenId, screenType, layerId, layerType, sceneType)
};

struct s_CutFillBody {
    bool enable = false;
    bool isBinding = false; ///< Bound to its partner.
    TAVORO_FIELDS(enable, isBinding)
};

struct s_LayerGeneralBody {
    std::string name = "N/A";
    qint32 isBackground = 0;
    qint32 isFreeze = 0;
    qint32 isMonochrome = 0;
    qint32 isInverse = 0;
    qint32 flipType = 0;
    TAVORO_FIELDS(name, isBackground, isFreeze, isMonochrome, isInverse, flipType)
};

struct s_SourceGeneral {
    qint32 type = 0;
    quint32 id = 0;
    TAVORO_FIELDS(type, id)
};

/// What a layer shows. Unlike an interface, a source may have several crops.
struct s_LayerSourceBody {
    s_SourceGeneral general;
    std::vector<s_CropBody> crop;
    TAVORO_FIELDS(general, crop)
};

struct s_LayerMaskBody {
    qint32 enable = 0;
    qint32 left = 0;
    qint32 right = 0;
    qint32 top = 0;
    qint32 bottom = 0;
    TAVORO_FIELDS(enable, left, right, top, bottom)
};

/// A colour shown in place of the source. On the wire the switch comes first, in memory last.
struct s_LayerTestColor {
    qint32 R = 50;
    qint32 G = 50;
    qint32 B = 50;
    qint32 enable = 0;
    TAVORO_FIELDS(enable, R, G, B)
};

struct s_RGBA {
    qint32 R = 50;
    qint32 G = 50;
    qint32 B = 50;
    qint32 opacity = 100;
    TAVORO_FIELDS(R, G, B, opacity)
};

struct s_ShadowGeneral {
    qint32 enable = 0;
    qint32 feather = 0;
    TAVORO_FIELDS(enable, feather)
};

struct s_LayerShadowBody {
    s_ShadowGeneral general;
    Screen::s_Rect window;
    s_RGBA color;
    TAVORO_FIELDS(general, window, color)
};

struct s_BorderSize {
    qint32 hWidth = 2;
    qint32 vWidth = 2;
    TAVORO_FIELDS(hWidth, vWidth)
};

struct s_LayerBorderBody {
    qint32 enable = 0;
    qint32 type = 0;
    s_BorderSize size;
    s_RGBA color;
    TAVORO_FIELDS(enable, type, size, color)
};

struct s_UMDColor {
    s_RGBA foregroundColor;
    s_RGBA backgroundColor;
    TAVORO_FIELDS(foregroundColor, backgroundColor)
};

/// One under-monitor display of a layer. Kept: it counts as enabled until told otherwise.
struct s_LayerUMDBody {
    qint32 index = 0;
    qint32 enable = 1;
    s_UMDColor color;
    TAVORO_FIELDS(index, enable, color)
};

/// The whole state of a layer: one element of the answer to the read, and what is written to
/// enable a layer with all that it has.
struct s_LayerFullDetail {
    s_LayerIdentity layerIdenti;
    s_CutFillBody cutFill;
    qint32 zorder = 0; ///< Stacking order.
    qint32 selected = 0;
    s_LayerGeneralBody general;
    s_LayerSourceBody source;
    Screen::s_Rect window; ///< Where on the screen.
    s_LayerMaskBody mask;
    s_LayerTestColor testColor;
    qint32 opacity = 100;
    s_ImageQualityBody imageQuality;
    s_LayerShadowBody shadow;
    s_LayerBorderBody border;
    std::vector<s_LayerUMDBody> UMD;
    TAVORO_FIELDS(layerIdenti, cutFill, zorder, selected, general, source, window, mask, testColor,
                  opacity, imageQuality, shadow, border, UMD)
};

/// \name Write records
/// The identity of the layer and what is written. "layerIdenti": the protocol spells it so.
/// @{

struct s_LayerEnable {
    s_LayerIdentity layerIdenti;
    qint32 zorder = 0;
    s_LayerGeneralBody general;
    s_LayerSourceBody source;
    Screen::s_Rect window;
    s_LayerBorderBody border;
    TAVORO_FIELDS(layerIdenti, zorder, general, source, window, border)
};

struct s_LayerZorder {
    s_LayerIdentity layerIdenti;
    qint32 zorder = 0;
    TAVORO_FIELDS(layerIdenti, zorder)
};

struct s_LayerGeneral {
    s_LayerIdentity layerIdenti;
    s_LayerGeneralBody general;
    TAVORO_FIELDS(layerIdenti, general)
};

struct s_LayerSource {
    s_LayerIdentity layerIdenti;
    s_LayerSourceBody source;
    TAVORO_FIELDS(layerIdenti, source)
};

struct s_LayerWindow {
    s_LayerIdentity layerIdenti;
    Screen::s_Rect window;
    TAVORO_FIELDS(layerIdenti, window)
};

struct s_LayerMask {
    s_LayerIdentity layerIdenti;
    s_LayerMaskBody mask;
    TAVORO_FIELDS(layerIdenti, mask)
};

struct s_LayerColor {
    s_LayerIdentity layerIdenti;
    s_LayerTestColor testColor;
    TAVORO_FIELDS(layerIdenti, testColor)
};

struct s_LayerOpacity {
    s_LayerIdentity layerIdenti;
    qint32 opacity = 100;
    TAVORO_FIELDS(layerIdenti, opacity)
};

struct s_LayerImageQuality {
    s_LayerIdentity layerIdenti;
    s_ImageQualityBody imageQuality;
    TAVORO_FIELDS(layerIdenti, imageQuality)
};

struct s_LayerShadow {
    s_LayerIdentity layerIdenti;
    s_LayerShadowBody shadow;
    TAVORO_FIELDS(layerIdenti, shadow)
};

struct s_LayerBorder {
    s_LayerIdentity layerIdenti;
    s_LayerBorderBody border;
    TAVORO_FIELDS(layerIdenti, border)
};

struct s_LayerSelected {
    s_LayerIdentity layerIdenti;
    qint32 selected = 0;
    TAVORO_FIELDS(layerIdenti, selected)
};

struct s_LayerUMD {
    s_LayerIdentity layerIdenti;
    std::vector<s_LayerUMDBody> UMD;
    TAVORO_FIELDS(layerIdenti, UMD)
};

/// Removes a layer. Its identity is nested here too, under the only key.
struct s_LayerRemoved {
    s_LayerIdentity layerIdenti;
    TAVORO_FIELDS(layerIdenti)
};

struct s_CutFill {
    s_LayerIdentity layerIdenti;
    s_CutFillBody cutFill;
    TAVORO_FIELDS(layerIdenti, cutFill)
};

/// @}

} // namespace Tavoro::ProtoModel::Layer
