#pragma once

#include "request.h"

/// The commands that create files from the state of the device. A file of the same type and number
/// is replaced.
namespace Tavoro::Sim {

/// Captures the pictures of inputs (source type 1) and screens (3), every \c zoomRatio -th pixel.
DeviceStatus writeCreateImage(SimState &state, const Request &request, Reports &reports);
/// Logs the time and the cards of the named slots; slot 0 is the device as a whole.
DeviceStatus writeCreateLog(SimState &state, const Request &request, Reports &reports);
/// Creates the EDID with which an interface requests its preset timing.
DeviceStatus writeCreateEdid(SimState &state, const Request &request, Reports &reports);

} // namespace Tavoro::Sim
