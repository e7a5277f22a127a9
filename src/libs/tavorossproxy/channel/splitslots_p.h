#pragma once

#include <tavorossproxy/io/clock_p.h>

#include <QtGlobal>

#include <condition_variable>
#include <deque>
#include <mutex>
#include <thread>
#include <vector>

namespace Tavoro::SSProxy::Internal {

/// The slots that a device has for the split exchanges of one kind on a connection, and the
/// callers that wait for a slot. A slot is identified by the stream of its exchange. The owner's
/// mutex guards the object.
///
/// An exchange without a further packet for 10 s counts as abandoned: the caller that has waited
/// longest gets its slot.
class SplitSlots {
public:
    using TimePoint = Clock::TimePoint;

    explicit SplitSlots(std::size_t count) : m_slots(count) { }

    /// \a stream has a slot.
    bool holds(quint16 stream) const { return find(stream) != nullptr; }
    /// The stream of the slot that the calling thread has; 0 if it has none.
    quint16 streamOfThisThread() const;
    /// The index of a free slot for assign(); -1 if none is free.
    int freeSlot(TimePoint now) const;
    /// Gives a free slot to \a stream and to the calling thread.
    void assign(int slot, quint16 stream);
    /// A packet of the exchange was sent, or is about to be.
    void packetSent(quint16 stream);
    /// A packet of the exchange was answered; the caller is expected to send the next one.
    void packetAnswered(quint16 stream, TimePoint now);
    /// The exchange has ended.
    void release(quint16 stream);
    /// The connection has ended: frees all slots, and ends all waits with \a refusal.
    void close(quint16 refusal);

    /// Blocks the caller, which holds the mutex by \a lock, until it is first in the queue and a
    /// slot is free. Returns 0 then, RequestTimedOut if \a deadline has passed, or the refusal of
    /// close().
    quint16 await(Clock &clock, std::unique_lock<std::mutex> &lock, TimePoint deadline);

private:
    struct Slot {
        quint16 stream = 0; ///< 0 if the slot is free.
        std::thread::id caller;
        TimePoint answered = TimePoint::max(); ///< When the last packet was answered.
    };
    struct Waiting {
        std::condition_variable wake;
        quint16 refusal = 0; ///< 0 while the caller waits.
    };

    const Slot *find(quint16 stream) const;
    Slot *find(quint16 stream);
    static TimePoint abandonedAt(const Slot &slot);
    void wakeFirst();

    std::vector<Slot> m_slots;
    std::deque<Waiting *> m_waiting;
};

} // namespace Tavoro::SSProxy::Internal
