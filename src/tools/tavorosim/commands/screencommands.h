#pragma once

#include "request.h"

/// The commands of screens that do more than copy a member.
namespace Tavoro::Sim {

/// Filters: position 34 the number, position 33 the kind of screen.
std::string readScreens(const SimState &state, const Request &request);

/// Creates screens, or changes the shape of existing ones. An output serves one screen at a time.
DeviceStatus writeScreenEnable(SimState &state, const Request &request, Reports &reports);
/// Deletes screens with their layers; their outputs are free again.
DeviceStatus writeScreenDeleted(SimState &state, const Request &request, Reports &reports);

/// Swaps preview and programme of each screen. With the device's swap switched off, copies the
/// preview to the programme.
DeviceStatus writeTake(SimState &state, const Request &request, Reports &reports);
/// Moves the T-bars. One that reaches 100 percent takes.
DeviceStatus writeTBar(SimState &state, const Request &request, Reports &reports);

/// Switches the feature of screens and reports it; its state cannot be written.
DeviceStatus writeScreenZelk(SimState &state, const Request &request, Reports &reports);

/// The report of the genlock state of all screens.
Report reportScreenGenlock(const SimState &state);

/// Checks that the outputs of \a mosaic exist and that no screen but \a screen uses them.
DeviceStatus checkOutputs(const Setup &setup, const ProtoModel::s_ScreenId &screen,
                          const ProtoModel::Screen::s_Mosaic &mosaic);

} // namespace Tavoro::Sim
