#pragma once

#include "request.h"

/// The commands of maintenance, and what happens as time passes.
namespace Tavoro::Sim {

/// Restarts the device (type 0) or switches it off (1), after the answer.
DeviceStatus writePower(SimState &state, const Request &request, Reports &reports);
/// Brings back the setup of the factory (type 0), or that and an empty store of files (1).
DeviceStatus writeFactoryReset(SimState &state, const Request &request, Reports &reports);
/// Keeps the setup as what a restart comes back with.
DeviceStatus writeSave(SimState &state, const Request &request, Reports &reports);
/// Stops (type 0), starts (1) or clears (2) the count of lost sources.
DeviceStatus writeLossCount(SimState &state, const Request &request, Reports &reports);
/// The counts of all inputs.
std::string readLosses(const SimState &state, const Request &request);
/// Reports the colour at a point of an input (type 1) or of a screen (3) to everyone.
DeviceStatus writeCutoutPosition(SimState &state, const Request &request, Reports &reports);
std::string readSelfCheck(const SimState &state, const Request &request);
DeviceStatus writeDeviceTime(SimState &state, const Request &request, Reports &reports);
std::string readLoad(const SimState &state, const Request &request);

/// What the device's clock shows, in milliseconds since 1970.
qint64 timeOfDay(const Maintenance &maintenance);
/// An input loses its source.
void countLoss(SimState &state, const ProtoModel::s_InterfaceID &input);
/// The device goes off, and comes back by itself if \a power says so.
void switchOff(SimState &state, Power power);
/// Switches a device that is off on again: it has what was saved, and loads its files.
void switchOn(SimState &state);
/// Whether something goes on that takes time.
bool isAtWork(const SimState &state);
/// Lets time pass on the device's clock.
void pass(SimState &state, qint64 milliseconds, Reports &reports);

} // namespace Tavoro::Sim
