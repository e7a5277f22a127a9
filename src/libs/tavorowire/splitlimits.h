#pragma once

#include <cstddef>

namespace Tavoro::SSProxy::Wire {

/// Number of split answers that a device keeps for each connection, at least. It may discard the
/// oldest when there are more, so a client has at most this many unfinished split reads.
constexpr std::size_t splitReadLimit = 16;

/// Number of split writes that a device collects for each connection, at least. It refuses the
/// first packet of a further one, so a client has at most this many unfinished split writes.
constexpr std::size_t splitWriteLimit = 16;

} // namespace Tavoro::SSProxy::Wire
