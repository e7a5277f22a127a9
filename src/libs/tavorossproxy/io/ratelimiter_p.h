#pragma once

#include "eventloop_p.h"

#include <QtGlobal>

#include <chrono>
#include <functional>
#include <memory>

namespace Tavoro::SSProxy::Internal {

/// Rate limiter for events that a peer can trigger at will: lets the first one through, counts the
/// rest, and reports the count when the interval ends. On the loop's thread.
class RateLimiter {
public:
    /// Called with the number of events that were not let through, which is never 0.
    using CountHandler = std::function<void(quint64 count)>;

    /// The limiter does not call \a handler after its destruction.
    RateLimiter(EventLoop &loop, std::chrono::milliseconds interval, CountHandler handler);

    /// Returns true if the event may happen now; otherwise counts it.
    bool passes();
    /// Counts \a number events without letting one through.
    void count(quint64 number);
    /// Reports the count at once instead of at the end of the interval.
    void flush();

private:
    /// Shared with the timer, which may run after the limiter was destroyed.
    struct State {
        std::chrono::milliseconds interval;
        CountHandler handler;
        quint64 counted = 0;
        bool isWithinInterval = false;
    };

    static void beginInterval(EventLoop &loop, const std::shared_ptr<State> &state);

    EventLoop &m_loop;
    const std::shared_ptr<State> m_state;
};

} // namespace Tavoro::SSProxy::Internal
