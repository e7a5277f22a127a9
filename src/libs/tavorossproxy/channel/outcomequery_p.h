#pragma once

#include <tavorossproxy/networkchannel.h>
#include <tavorowire/outcomes.h>

namespace Tavoro::SSProxy::Internal {

/// Asks the device of \a channel for the outcome of the request \a id. Blocks until the device
/// answers, at most 10 s.
RequestOutcome queryOutcome(DeviceChannel &channel, const Wire::RequestId &id);

} // namespace Tavoro::SSProxy::Internal
