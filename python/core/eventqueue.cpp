#include "eventqueue.h"

namespace Tavoro::Python {

void EventQueue::push(EventKey key)
{
    {
        const std::lock_guard lock(m_mutex);
        if (m_isClosed)
            return;
        m_events.push_back(key);
    }
    m_changed.notify_one();
}

std::optional<EventKey> EventQueue::take()
{
    std::unique_lock lock(m_mutex);
    m_changed.wait(lock, [this] { return m_isClosed || !m_events.empty(); });
    if (m_isClosed)
        return std::nullopt;
    const EventKey key = m_events.front();
    m_events.pop_front();
    return key;
}

void EventQueue::close()
{
    {
        const std::lock_guard lock(m_mutex);
        m_isClosed = true;
    }
    m_changed.notify_all();
}

} // namespace Tavoro::Python
