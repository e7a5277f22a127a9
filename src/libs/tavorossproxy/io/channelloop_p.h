#pragma once

#include "eventloop_p.h"

namespace Tavoro::SSProxy::Internal {

using ChannelLoop = EventLoop;

} // namespace Tavoro::SSProxy::Internal
