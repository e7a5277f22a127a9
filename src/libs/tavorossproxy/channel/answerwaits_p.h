#pragma once

#include <tavorossproxy/io/clock_p.h>

#include <condition_variable>
#include <deque>
#include <mutex>

namespace Tavoro::SSProxy::Internal {

class AnswerReader;

/// The callers that wait for their answers. With a reader, one of them receives for all of them.
/// The owner's mutex guards the object.
class AnswerWaits {
public:
    /// The wait of one caller.
    struct Wait {
        bool hasEnded = false; ///< Set by end(). Reset it before the next wait.
        std::condition_variable ended;
    };

    /// \a reader may be null.
    AnswerWaits(Clock &clock, AnswerReader *reader) : m_clock(clock), m_reader(reader) { }

    /// Returns true if the caller of \a wait receives from now on, or does so already. Call it
    /// before the request is sent: otherwise the answer could wake the loop's thread as well.
    bool beginReading(const Wait &wait);
    /// Blocks until \a wait has ended or \a deadline has passed. The caller holds the mutex by
    /// \a lock.
    void await(Wait &wait, std::unique_lock<std::mutex> &lock, Clock::TimePoint deadline);
    /// Ends \a wait. Any thread that holds the mutex.
    void end(Wait &wait);

private:
    void read(const Wait &wait, std::unique_lock<std::mutex> &lock, Clock::TimePoint deadline);
    void block(Wait &wait, std::unique_lock<std::mutex> &lock, Clock::TimePoint deadline);
    void endReading(const Wait &wait);
    void wakeNextReader();

    Clock &m_clock;
    AnswerReader *const m_reader;
    std::deque<Wait *> m_blocked; ///< Waits of callers that do not receive.
    const Wait *m_reading = nullptr; ///< The wait of the caller that receives; null if none does.
};

} // namespace Tavoro::SSProxy::Internal
