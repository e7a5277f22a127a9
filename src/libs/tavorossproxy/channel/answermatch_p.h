#pragma once

#include <tavorowire/wirehead.h>

namespace Tavoro::SSProxy::Internal {

/// Returns true if \a answer belongs to \a request, which has the same tag.
bool isAnswerTo(const Wire::WireHead &request, const Wire::WireHead &answer);

/// A device may send the count 0 for an answer of one packet: returns \a answer as packet 1 of 1
/// then, and unchanged otherwise.
Wire::WireHead asSinglePacket(Wire::WireHead answer);

/// Returns the status with which a request ends whose answer does not echo it, or has more than
/// \a maxPacketCount packets; 0 if \a answer matches.
quint16 mismatch(const Wire::WireHead &request, const Wire::WireHead &answer,
                 quint32 maxPacketCount);

} // namespace Tavoro::SSProxy::Internal
