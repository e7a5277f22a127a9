#include "pacer_p.h"

#include <utility>

namespace Tavoro::SSProxy::Internal {

Pacer::Pacer(ChannelLoop &loop, std::chrono::milliseconds pause, Rest rest)
    : m_loop(loop), m_state(std::make_shared<State>())
{
    m_state->pause = pause;
    m_state->rest = std::move(rest);
}

bool Pacer::passes()
{
    if (m_state->isPausing) {
        ++m_state->counted;
        return false;
    }
    beginPause(m_loop, m_state);
    return true;
}

void Pacer::count(quint64 number)
{
    m_state->counted += number;
    if (number > 0 && !m_state->isPausing)
        beginPause(m_loop, m_state);
}

void Pacer::flush()
{
    if (const quint64 counted = std::exchange(m_state->counted, 0); counted > 0)
        m_state->rest(counted);
}

/// What is told at the end of a pause begins the next one.
void Pacer::beginPause(ChannelLoop &loop, const std::shared_ptr<State> &state)
{
    state->isPausing = true;
    loop.postAt(loop.clock().now() + state->pause, [&loop, weak = std::weak_ptr<State>(state)] {
        const auto paused = weak.lock();
        if (!paused)
            return;
        paused->isPausing = false;
        const quint64 counted = std::exchange(paused->counted, 0);
        if (counted == 0)
            return;
        beginPause(loop, paused);
        paused->rest(counted);
    });
}

} // namespace Tavoro::SSProxy::Internal
