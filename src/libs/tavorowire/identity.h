#pragma once

#include <tavorocontrol/proto/devicebaseinfo.h>

#include <string>

namespace Tavoro::SSProxy::Wire {

/// The version of the protocol that docs/wire.md describes: \c protocolVersion of an identity.
constexpr quint16 protocolVersion = 1;

/// The body of an identity answer.
std::string encodeIdentity(const ProtoModel::DeviceBaseInfo &info);

/// Reads the body of an identity answer. False with the reason in \a error, and \a info is left
/// alone.
bool decodeIdentity(const std::string &body, ProtoModel::DeviceBaseInfo &info, std::string &error);

/// What tells a device from all others, wherever it is: the digits of its serial number, or of its
/// MAC where that is all zeros; empty when both are.
std::string identityKey(const ProtoModel::DeviceBaseInfo &info);

} // namespace Tavoro::SSProxy::Wire
