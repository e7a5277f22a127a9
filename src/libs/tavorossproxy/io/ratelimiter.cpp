#include "ratelimiter_p.h"

#include <utility>

namespace Tavoro::SSProxy::Internal {

RateLimiter::RateLimiter(EventLoop &loop, std::chrono::milliseconds interval, CountHandler handler)
    : m_loop(loop), m_state(std::make_shared<State>())
{
    m_state->interval = interval;
    m_state->handler = std::move(handler);
}

bool RateLimiter::passes()
{
    if (m_state->isWithinInterval) {
        ++m_state->counted;
        return false;
    }
    beginInterval(m_loop, m_state);
    return true;
}

void RateLimiter::count(quint64 number)
{
    m_state->counted += number;
    if (number > 0 && !m_state->isWithinInterval)
        beginInterval(m_loop, m_state);
}

void RateLimiter::flush()
{
    if (const quint64 counted = std::exchange(m_state->counted, 0); counted > 0)
        m_state->handler(counted);
}

/// Reporting a count at the end of an interval begins the next interval.
void RateLimiter::beginInterval(EventLoop &loop, const std::shared_ptr<State> &state)
{
    state->isWithinInterval = true;
    loop.postAt(loop.clock().now() + state->interval, [&loop, weak = std::weak_ptr<State>(state)] {
        const auto ended = weak.lock();
        if (!ended)
            return;
        ended->isWithinInterval = false;
        const quint64 counted = std::exchange(ended->counted, 0);
        if (counted == 0)
            return;
        beginInterval(loop, ended);
        ended->handler(counted);
    });
}

} // namespace Tavoro::SSProxy::Internal
