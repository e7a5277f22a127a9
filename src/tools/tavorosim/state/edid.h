#pragma once

#include <tavorocontrol/proto/interface.h>

#include <string>

namespace Tavoro::Sim {

/// The 128 bytes by which a display asks its source for the preset timing of \a interface, and for
/// no other: EDID 1.3 with one detailed timing and the name of the interface.
std::string encodeEdid(const ProtoModel::Interface::s_InterfaceDetail &interface);

} // namespace Tavoro::Sim
