#pragma once

#include <tavorocontrol/proto/deviceidentity.h>

namespace Tavoro::SSProxy::Wire {

using ProtoModel::decodeIdentity;
using ProtoModel::encodeIdentity;

} // namespace Tavoro::SSProxy::Wire
