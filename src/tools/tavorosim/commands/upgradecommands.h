#pragma once

#include "request.h"

/// The commands of versions and firmware upgrades.
///
/// The device as a whole is a unit of the kind 1 in slot 0, each card one of the kind 2 in its
/// slot. Each unit has the sections 0x0101 (program) and 0x0102 (logic).
namespace Tavoro::Sim {

std::string readVersion(const SimState &state, const Request &request);
/// Starts an upgrade of the named sections, or of all if no parts are named.
DeviceStatus writeUpgrade(SimState &state, const Request &request, Reports &reports);
std::string readUpgrade(const SimState &state, const Request &request);

} // namespace Tavoro::Sim
