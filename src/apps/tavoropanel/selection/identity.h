#pragma once

#include <tavorocontrol/proto/identities.h>
#include <tavorocontrol/proto/layer.h>

namespace Tavoro::Panel {

/// The scene of a layer, as on the wire.
enum class Scene : int {
    Preview = 2, ///< What the operator prepares.
    Programme = 4, ///< What the audience sees.
};

/// True if both identify the same screen.
inline bool isSame(const ProtoModel::s_ScreenId &one, const ProtoModel::s_ScreenId &other)
{
    return one.screenId == other.screenId && one.screenType == other.screenType;
}

/// True if both identify the same layer of the same scene.
inline bool isSame(const ProtoModel::Layer::s_LayerIdentity &one,
                   const ProtoModel::Layer::s_LayerIdentity &other)
{
    return isSame(static_cast<const ProtoModel::s_ScreenId &>(one),
                  static_cast<const ProtoModel::s_ScreenId &>(other))
        && one.layerId == other.layerId && one.layerType == other.layerType
        && one.sceneType == other.sceneType;
}

} // namespace Tavoro::Panel
