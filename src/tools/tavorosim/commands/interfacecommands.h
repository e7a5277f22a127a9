#pragma once

#include "request.h"

/// The commands of interfaces that do more than copy a member.
namespace Tavoro::Sim {

/// Filters: position 33 the kind of interface, position 32 the slot.
std::string readInterfaces(const SimState &state, const Request &request);

/// \name Presets
/// Sets the preset of the interface; the signal follows, and the change is reported.
/// @{
DeviceStatus writePresetTiming(SimState &state, const Request &request, Reports &reports);
DeviceStatus writeColorDepth(SimState &state, const Request &request, Reports &reports);
DeviceStatus writeColorSpace(SimState &state, const Request &request, Reports &reports);
DeviceStatus writeColorRange(SimState &state, const Request &request, Reports &reports);
DeviceStatus writeInterfaceHDR(SimState &state, const Request &request, Reports &reports);
/// @}

/// Renames interfaces and reports the change; their kind cannot be written.
DeviceStatus writeInterfaceGeneral(SimState &state, const Request &request, Reports &reports);
DeviceStatus writeHDCP(SimState &state, const Request &request, Reports &reports);

/// The report of the actual timing of the interface.
Report reportTiming(const ProtoModel::Interface::s_InterfaceDetail &interface);
/// The report of the actual colour depth of the interface.
Report reportColorDepth(const ProtoModel::Interface::s_InterfaceDetail &interface);

} // namespace Tavoro::Sim
