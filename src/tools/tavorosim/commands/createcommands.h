#pragma once

#include "request.h"

/// The commands by which the device makes files of what it has. A file of the same type and number
/// is replaced.
namespace Tavoro::Sim {

/// Captures what inputs (source type 1) and screens (3) show, every \c zoomRatio -th pixel of it.
DeviceStatus writeCreateImage(SimState &state, const Request &request, Reports &reports);
/// Writes down what the clock shows and the cards of the named slots; slot 0 is the device as a
/// whole.
DeviceStatus writeCreateLog(SimState &state, const Request &request, Reports &reports);
/// Makes the identification by which an interface asks for its preset timing.
DeviceStatus writeCreateEdid(SimState &state, const Request &request, Reports &reports);

} // namespace Tavoro::Sim
