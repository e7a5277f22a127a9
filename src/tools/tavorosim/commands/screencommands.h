#pragma once

#include "request.h"

/// The commands of screens that are more than a member put in its place.
namespace Tavoro::Sim {

/// Filters: position 34 the number, position 33 the kind of screen.
std::string readScreens(const SimState &state, const Request &request);

/// Brings screens into being, or gives those that are there another shape. An output serves one
/// screen at a time.
DeviceStatus writeScreenEnable(SimState &state, const Request &request, Reports &reports);
/// Deletes screens with their layers; their outputs are free again.
DeviceStatus writeScreenDeleted(SimState &state, const Request &request, Reports &reports);

/// Preview and programme of each screen change places. With the device's swap switched off the
/// preview goes to the programme and stays where it is.
DeviceStatus writeTake(SimState &state, const Request &request, Reports &reports);
/// Moves the T-bars. One that arrives at its end, 100 percent, does what a take does.
DeviceStatus writeTBar(SimState &state, const Request &request, Reports &reports);

/// Switches the feature of screens; its state is the device's own. Everyone is told.
DeviceStatus writeScreenZelk(SimState &state, const Request &request, Reports &reports);

/// The report that tells of every screen whether its genlock holds.
Report reportScreenGenlock(const SimState &state);

/// Whether the outputs of \a mosaic are there, and no other screen than \a screen has them.
DeviceStatus checkOutputs(const Setup &setup, const ProtoModel::s_ScreenId &screen,
                          const ProtoModel::Screen::s_Mosaic &mosaic);

} // namespace Tavoro::Sim
