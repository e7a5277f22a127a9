#pragma once

#include "request.h"

/// The commands of the device as a whole that are more than a member put in its place.
namespace Tavoro::Sim {

std::string readDevice(const SimState &state, const Request &request);
std::string readMapping(const SimState &state, const Request &request);
std::string readGroups(const SimState &state, const Request &request);

/// Renames the device; its status is its own.
DeviceStatus writeDeviceGeneral(SimState &state, const Request &request, Reports &reports);
/// Changes the modes of connectors; what card is in a slot is not a matter of commands.
DeviceStatus writeCardModes(SimState &state, const Request &request, Reports &reports);
DeviceStatus writeGenlock(SimState &state, const Request &request, Reports &reports);
/// Changes network ports; their MAC is their own.
DeviceStatus writeNetworks(SimState &state, const Request &request, Reports &reports);
DeviceStatus writeGroups(SimState &state, const Request &request, Reports &reports);
DeviceStatus writeRelation(SimState &state, const Request &request, Reports &reports);

/// \name Reports
/// What the device tells of its present state.
/// @{
Report reportCards(std::vector<ProtoModel::Device::s_subcardBody> cards);
Report reportPowers(const SimState &state);
Report reportGenlock(const SimState &state);
Report reportGroups(const SimState &state);
Report reportRelation(const SimState &state);
/// @}

} // namespace Tavoro::Sim
