#pragma once

#include <tavorocontrol/proto/interface.h>

#include <string>

namespace Tavoro::Sim {

/// The 128 bytes with which a display requests only the preset timing of \a interface from its
/// source: EDID 1.3 with one detailed timing and the name of the interface.
std::string encodeEdid(const ProtoModel::Interface::s_InterfaceDetail &interface);

} // namespace Tavoro::Sim
