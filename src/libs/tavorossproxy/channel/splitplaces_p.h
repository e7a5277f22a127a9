#pragma once

#include <tavorossproxy/io/clock_p.h>

#include <QtGlobal>

#include <condition_variable>
#include <deque>
#include <mutex>
#include <thread>
#include <vector>

namespace Tavoro::SSProxy::Internal {

/// The places that a device has for the split exchanges of one kind on a connection, and the
/// callers that wait for a place. A place is identified by the stream of its exchange. The owner's
/// mutex guards the object.
///
/// An exchange without a further packet for 10 s counts as abandoned: the caller that has waited
/// longest gets its place.
class SplitPlaces {
public:
    using TimePoint = Clock::TimePoint;

    explicit SplitPlaces(std::size_t count) : m_places(count) { }

    /// \a stream has a place.
    bool holds(quint16 stream) const { return find(stream) != nullptr; }
    /// The stream of the place that the calling thread has; 0 if it has none.
    quint16 streamOfThisThread() const;
    /// The index of a free place for take(); -1 if none is free.
    int freePlace(TimePoint now) const;
    /// Gives a free place to \a stream and to the calling thread.
    void take(int place, quint16 stream);
    /// A packet of the exchange was sent, or is about to be.
    void resume(quint16 stream);
    /// A packet of the exchange was answered; the caller is expected to send the next one.
    void pause(quint16 stream, TimePoint now);
    /// The exchange has ended.
    void release(quint16 stream);
    /// The connection has ended: frees all places, and ends all waits with \a refusal.
    void shut(quint16 refusal);

    /// Blocks the caller, which holds the mutex by \a lock, until it is first in the queue and a
    /// place is free. Returns 0 then, RequestTimedOut if \a deadline has passed, or the refusal of
    /// shut().
    quint16 await(Clock &clock, std::unique_lock<std::mutex> &lock, TimePoint deadline);

private:
    struct Place {
        quint16 stream = 0; ///< 0 if the place is free.
        std::thread::id caller;
        TimePoint paused = TimePoint::max(); ///< When the last packet was answered.
    };
    struct Waiting {
        std::condition_variable wake;
        quint16 refusal = 0; ///< 0 while the caller waits.
    };

    const Place *find(quint16 stream) const;
    Place *find(quint16 stream);
    static TimePoint abandonedAt(const Place &place);
    void wakeFirst();

    std::vector<Place> m_places;
    std::deque<Waiting *> m_waiting;
};

} // namespace Tavoro::SSProxy::Internal
