#pragma once

#include <tavorossproxy/channeloptions.h>

namespace Tavoro::SSProxy::Internal {

/// \a options with values outside their ranges replaced as ChannelOptions says.
ChannelOptions usableOptions(ChannelOptions options);

} // namespace Tavoro::SSProxy::Internal
