#pragma once

#include <cstddef>

namespace Tavoro::SSProxy::Wire {

/// Split answers that a device keeps at least for each connection. It may forget the oldest beyond
/// that, so a client has no more unfinished split reads at a time.
constexpr std::size_t keptAnswers = 16;

/// Split writes that a device collects at least for each connection. It refuses the first packet of
/// a further one, so a client has no more unfinished split writes at a time.
constexpr std::size_t collectedWrites = 16;

} // namespace Tavoro::SSProxy::Wire
