#pragma once

#include "request.h"

/// The commands of layers that are more than a member put in its place, and what screens do with
/// their layers.
namespace Tavoro::Sim {

/// Filters: position 34 the screen, position 33 its kind, position 32 the scene, position 31 the
/// kind of layer.
std::string readLayers(const SimState &state, const Request &request);

/// Enables layers with all that they have.
DeviceStatus writeLayerEnableAll(SimState &state, const Request &request, Reports &reports);
/// Enables layers, or changes what an enabling record holds of those that are there.
DeviceStatus writeLayerEnable(SimState &state, const Request &request, Reports &reports);
/// Moves layers in the stack of their scene. A layer takes the place that is written; one that
/// stood there moves up by one, and so on.
DeviceStatus writeLayerZOrder(SimState &state, const Request &request, Reports &reports);
DeviceStatus writeLayerSource(SimState &state, const Request &request, Reports &reports);
/// Removes the layers of the body, or, with 0xFF at the positions 31 and 32, all layers of the
/// screen at the positions 33 (kind) and 34 (number).
DeviceStatus writeLayerRemoved(SimState &state, const Request &request, Reports &reports);

/// Removes all layers of a screen.
void removeLayers(Setup &setup, const ProtoModel::s_ScreenId &screen);
/// Preview and programme change places.
void swapScenes(SimState &state, const ProtoModel::s_ScreenId &screen);
/// The programme becomes what the preview is, and the preview stays.
void copyPreviewToProgramme(SimState &state, const ProtoModel::s_ScreenId &screen);

} // namespace Tavoro::Sim
