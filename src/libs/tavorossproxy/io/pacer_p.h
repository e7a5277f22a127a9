#pragma once

#include "ratelimiter_p.h"

namespace Tavoro::SSProxy::Internal {

using Pacer = RateLimiter;

} // namespace Tavoro::SSProxy::Internal
