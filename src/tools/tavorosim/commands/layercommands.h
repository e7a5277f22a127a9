#pragma once

#include "request.h"

/// The commands of layers that do more than copy a member, and the changes that screens make to
/// their layers.
namespace Tavoro::Sim {

/// Filters: position 34 the screen, position 33 its kind, position 32 the scene, position 31 the
/// kind of layer.
std::string readLayers(const SimState &state, const Request &request);

/// Enables layers with all their settings.
DeviceStatus writeLayerEnableAll(SimState &state, const Request &request, Reports &reports);
/// Enables layers. For a layer that exists, changes the members of the record.
DeviceStatus writeLayerEnable(SimState &state, const Request &request, Reports &reports);
/// Moves layers in the stack of their scene. A layer moves to the written position; a layer at that
/// position moves up by one, and so on.
DeviceStatus writeLayerZOrder(SimState &state, const Request &request, Reports &reports);
DeviceStatus writeLayerSource(SimState &state, const Request &request, Reports &reports);
/// Removes the layers of the body, or, with 0xFF at the positions 31 and 32, all layers of the
/// screen at the positions 33 (kind) and 34 (number).
DeviceStatus writeLayerRemoved(SimState &state, const Request &request, Reports &reports);

/// Removes all layers of a screen.
void removeLayers(Setup &setup, const ProtoModel::s_ScreenId &screen);
/// Swaps preview and programme.
void swapScenes(SimState &state, const ProtoModel::s_ScreenId &screen);
/// Copies the preview to the programme.
void copyPreviewToProgramme(SimState &state, const ProtoModel::s_ScreenId &screen);

} // namespace Tavoro::Sim
