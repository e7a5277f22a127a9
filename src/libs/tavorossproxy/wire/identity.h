#pragma once

#include <tavorocontrol/proto/devicebaseinfo.h>

#include <string>

namespace Tavoro::SSProxy::Wire {

/// The body of an identity answer.
std::string encodeIdentity(const ProtoModel::DeviceBaseInfo &info);

/// Reads the body of an identity answer. False with the reason in \a error, and \a info is left
/// alone.
bool decodeIdentity(const std::string &body, ProtoModel::DeviceBaseInfo &info, std::string &error);

} // namespace Tavoro::SSProxy::Wire
