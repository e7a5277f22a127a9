#pragma once

#include <tavorossproxy/channeloptions.h>

namespace Tavoro::SSProxy::Internal {

/// Returns \a options with values out of range replaced as ChannelOptions documents.
ChannelOptions clampedOptions(ChannelOptions options);

} // namespace Tavoro::SSProxy::Internal
