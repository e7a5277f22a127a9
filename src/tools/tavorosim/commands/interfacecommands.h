#pragma once

#include "request.h"

/// The commands of interfaces that are more than a member put in its place.
namespace Tavoro::Sim {

/// Filters: position 33 the kind of interface, position 32 the slot.
std::string readInterfaces(const SimState &state, const Request &request);

/// \name Presets
/// The interface keeps what was asked for, the signal follows, and everyone is told.
/// @{
DeviceStatus writePresetTiming(SimState &state, const Request &request, Reports &reports);
DeviceStatus writeColorDepth(SimState &state, const Request &request, Reports &reports);
DeviceStatus writeColorSpace(SimState &state, const Request &request, Reports &reports);
DeviceStatus writeColorRange(SimState &state, const Request &request, Reports &reports);
DeviceStatus writeInterfaceHDR(SimState &state, const Request &request, Reports &reports);
/// @}

/// Renames interfaces; what kind they are is not a matter of commands. Everyone is told.
DeviceStatus writeInterfaceGeneral(SimState &state, const Request &request, Reports &reports);
DeviceStatus writeHDCP(SimState &state, const Request &request, Reports &reports);

/// The report of the timing that the interface has now.
Report reportTiming(const ProtoModel::Interface::s_InterfaceDetail &interface);
/// The report of the colour depth that the interface has now.
Report reportColorDepth(const ProtoModel::Interface::s_InterfaceDetail &interface);

} // namespace Tavoro::Sim
