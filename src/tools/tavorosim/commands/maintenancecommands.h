#pragma once

#include "request.h"

/// The commands of maintenance, and the changes that time causes.
namespace Tavoro::Sim {

/// Restarts the device (type 0) or switches it off (1), after the answer.
DeviceStatus writePower(SimState &state, const Request &request, Reports &reports);
/// Restores the factory setup (type 0), and also removes all files (1).
DeviceStatus writeFactoryReset(SimState &state, const Request &request, Reports &reports);
/// Saves the setup that a restart restores.
DeviceStatus writeSave(SimState &state, const Request &request, Reports &reports);
/// Stops (type 0), starts (1) or clears (2) the count of lost sources.
DeviceStatus writeLossCount(SimState &state, const Request &request, Reports &reports);
/// The counts of all inputs.
std::string readLosses(const SimState &state, const Request &request);
/// Reports the colour at a point of an input (type 1) or of a screen (3) to all clients.
DeviceStatus writeCutoutPosition(SimState &state, const Request &request, Reports &reports);
std::string readSelfCheck(const SimState &state, const Request &request);
DeviceStatus writeDeviceTime(SimState &state, const Request &request, Reports &reports);
std::string readLoad(const SimState &state, const Request &request);

/// The time of the device's clock, in milliseconds since 1970.
qint64 timeOfDay(const Maintenance &maintenance);
/// Counts that an input loses its source.
void countLoss(SimState &state, const ProtoModel::s_InterfaceID &input);
/// Switches the device off; it restarts by itself if \a power is Restarting.
void switchOff(SimState &state, Power power);
/// Switches the device on again, with the saved setup; it loads its files.
void switchOn(SimState &state);
/// True while something runs that takes time.
bool hasTimedWork(const SimState &state);
/// Advances the device's clock.
void advanceTime(SimState &state, qint64 milliseconds, Reports &reports);

} // namespace Tavoro::Sim
