#pragma once

#include <tavorocontrol/proto/deviceidentity.h>

namespace Tavoro::SSProxy::Wire {

using ProtoModel::decodeIdentity;
using ProtoModel::encodeIdentity;

/// The version of the protocol that docs/wire.md describes: \c protocolVersion of an identity.
constexpr quint16 protocolVersion = 1;

} // namespace Tavoro::SSProxy::Wire
