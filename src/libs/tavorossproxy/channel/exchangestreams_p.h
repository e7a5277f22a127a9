#pragma once

#include "splitslots_p.h"
#include <tavorossproxy/io/clock_p.h>

#include <tavorowire/splitlimits.h>
#include <tavorowire/wirehead.h>

#include <mutex>

namespace Tavoro::SSProxy::Internal {

/// Assigns streams to the requests of a connection, and to those that may begin a split exchange
/// one of the device's slots. The owner's mutex guards the object.
class ExchangeStreams {
public:
    explicit ExchangeStreams(Clock &clock) : m_clock(clock) { }

    /// Blocks a request that needs a slot until one is free. Returns 0 then, RequestTimedOut if
    /// \a deadline has passed, or the refusal of close(). The caller holds the mutex by \a lock.
    quint16 awaitSlot(const Wire::WireHead &request, std::unique_lock<std::mutex> &lock,
                      Clock::TimePoint deadline);
    /// Gives \a request a stream, if it has none, and the free slot that awaitSlot() has found.
    void assign(Wire::WireHead &request);
    /// \a request was answered.
    void answered(const Wire::WireHead &request, const Wire::WireHead &answer);
    /// The split exchange of \a request ends with it.
    void failed(const Wire::WireHead &request);
    /// The caller does not request a further packet of a split read.
    void endSplitRead(quint16 stream) { m_splitReads.release(stream); }
    /// The connection has ended: frees all slots, and ends all waits with \a refusal.
    void close(quint16 refusal);

private:
    SplitSlots *slotsFor(const Wire::WireHead &request);
    SplitSlots &slotsOf(const Wire::WireHead &request);
    quint16 freshStream();

    Clock &m_clock;
    quint16 m_lastStream = 0;
    SplitSlots m_splitReads{Wire::splitReadLimit};
    SplitSlots m_splitWrites{Wire::splitWriteLimit};
};

} // namespace Tavoro::SSProxy::Internal
