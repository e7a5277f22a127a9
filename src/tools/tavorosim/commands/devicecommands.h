#pragma once

#include "request.h"

/// The commands of the device as a whole that do more than copy a member.
namespace Tavoro::Sim {

std::string readDevice(const SimState &state, const Request &request);
std::string readMapping(const SimState &state, const Request &request);
std::string readGroups(const SimState &state, const Request &request);

/// Renames the device; its status cannot be written.
DeviceStatus writeDeviceGeneral(SimState &state, const Request &request, Reports &reports);
/// Changes the modes of connectors; the cards in the slots cannot be written.
DeviceStatus writeCardModes(SimState &state, const Request &request, Reports &reports);
DeviceStatus writeGenlock(SimState &state, const Request &request, Reports &reports);
/// Changes network ports; their MAC address cannot be written.
DeviceStatus writeNetworks(SimState &state, const Request &request, Reports &reports);
DeviceStatus writeGroups(SimState &state, const Request &request, Reports &reports);
DeviceStatus writeRelation(SimState &state, const Request &request, Reports &reports);

/// \name Reports
/// Reports of the present state.
/// @{
Report reportCards(std::vector<ProtoModel::Device::s_subcardBody> cards);
Report reportPowers(const SimState &state);
Report reportGenlock(const SimState &state);
Report reportGroups(const SimState &state);
Report reportRelation(const SimState &state);
/// @}

} // namespace Tavoro::Sim
