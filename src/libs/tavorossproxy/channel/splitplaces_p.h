#pragma once

#include <tavorossproxy/io/clock_p.h>

#include <QtGlobal>

#include <condition_variable>
#include <deque>
#include <mutex>
#include <optional>
#include <thread>
#include <vector>

namespace Tavoro::SSProxy::Internal {

/// The places that a device has for the split exchanges of one kind on a connection, and the
/// callers that wait for one. Each exchange in a place is known by its stream. The owner's mutex
/// guards all of it.
///
/// An exchange whose next packet does not follow for a time counts as abandoned: its place goes to
/// the caller that waits first.
class SplitPlaces {
public:
    using TimePoint = Clock::TimePoint;

    explicit SplitPlaces(std::size_t count) : m_places(count) { }

    /// \a stream has a place.
    bool holds(quint16 stream) const { return find(stream) != nullptr; }
    /// The stream on which the calling thread has a place; 0: none.
    quint16 streamOfThisThread() const;
    /// The index of the place that take() gives next; nothing when none is free.
    std::optional<std::size_t> freePlace(TimePoint now) const;
    /// Gives a free place to \a stream and to the calling thread.
    void take(std::size_t place, quint16 stream);
    /// A packet of the exchange is under way.
    void resume(quint16 stream);
    /// The next packet is expected from the caller.
    void pause(quint16 stream, TimePoint now);
    /// The exchange has ended.
    void release(quint16 stream);
    /// The connection has ended: frees all places, and ends all waits with \a refusal.
    void shut(quint16 refusal);

    /// Blocks the caller, who holds the mutex by \a lock, until it is the first that waits and a
    /// place is free: 0. When \a deadline passes first, RequestTimedOut; or the refusal of shut().
    quint16 await(Clock &clock, std::unique_lock<std::mutex> &lock, TimePoint deadline);

private:
    struct Place {
        quint16 stream = 0; ///< 0: the place is free.
        std::thread::id caller;
        TimePoint paused = TimePoint::max(); ///< When the next packet became the caller's turn.
    };
    struct Waiting {
        std::condition_variable wake;
        quint16 refusal = 0; ///< 0: it still waits.
    };

    const Place *find(quint16 stream) const;
    Place *find(quint16 stream);
    static TimePoint abandonedAt(const Place &place);
    void wakeFirst();

    std::vector<Place> m_places;
    std::deque<Waiting *> m_waiting;
};

} // namespace Tavoro::SSProxy::Internal
