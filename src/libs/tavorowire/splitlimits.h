#pragma once

#include <cstddef>

namespace Tavoro::SSProxy::Wire {

/// Split answers that a device keeps for each connection. Beyond them it may forget the oldest, so
/// a client asks for no more at a time.
constexpr std::size_t keptAnswers = 16;

/// Split writes that a device collects for each connection. Beyond them it refuses the first packet
/// of a further one, so a client begins no more at a time.
constexpr std::size_t collectedWrites = 16;

} // namespace Tavoro::SSProxy::Wire
