#include "answerwaits_p.h"

#include "answerreader_p.h"

#include <algorithm>

namespace Tavoro::SSProxy::Internal {

bool AnswerWaits::beginReading(const Wait &wait)
{
    if (!m_reading && m_reader && m_reader->begin())
        m_reading = &wait;
    return m_reading == &wait;
}

void AnswerWaits::await(Wait &wait, std::unique_lock<std::mutex> &lock, Clock::TimePoint deadline)
{
    while (!wait.hasEnded && m_clock.now() < deadline) {
        if (beginReading(wait))
            read(wait, lock, deadline);
        else
            block(wait, lock, deadline);
    }
    endReading(wait);
    wakeNextReader();
}

void AnswerWaits::end(Wait &wait)
{
    wait.hasEnded = true;
    if (m_reading == &wait)
        m_reader->interrupt();
    else
        wait.ended.notify_one();
}

/// Receives until the answer has arrived or the connection has ended.
void AnswerWaits::read(const Wait &wait, std::unique_lock<std::mutex> &lock,
                       Clock::TimePoint deadline)
{
    bool isConnected = true;
    while (isConnected && !wait.hasEnded && m_clock.now() < deadline) {
        lock.unlock();
        isConnected = m_reader->receive(deadline);
        lock.lock();
    }
    endReading(wait);
}

/// Waits while another thread receives.
void AnswerWaits::block(Wait &wait, std::unique_lock<std::mutex> &lock, Clock::TimePoint deadline)
{
    m_blocked.push_back(&wait);
    m_clock.waitUntil(wait.ended, lock, deadline);
    m_blocked.erase(std::find(m_blocked.begin(), m_blocked.end(), &wait));
}

/// Lets the loop's thread receive, until another caller does.
void AnswerWaits::endReading(const Wait &wait)
{
    if (m_reading != &wait)
        return;
    m_reading = nullptr;
    m_reader->end();
}

/// A caller that waits receives from now on. Each caller that leaves wakes another one, even if it
/// has not received: it may have been woken for this, and have found its own answer.
void AnswerWaits::wakeNextReader()
{
    if (!m_reading && !m_blocked.empty())
        m_blocked.front()->ended.notify_one();
}

} // namespace Tavoro::SSProxy::Internal
