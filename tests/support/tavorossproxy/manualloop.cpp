#include "manualloop.h"

namespace {
constexpr std::chrono::seconds tooLong{60};
}

bool ManualLoop::post(std::function<void()> call)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (!m_calls.add(std::move(call)))
        return false;
    m_changed.notify_all();
    return true;
}

void ManualLoop::postAt(TimePoint time, std::function<void()> call)
{
    m_timed.emplace(time, std::move(call));
}

void ManualLoop::detach(const Client *client)
{
    for (auto it = m_clients.begin(); it != m_clients.end();)
        it = it->get() == client ? m_clients.erase(it) : std::next(it);
}

ManualLoop::TimePoint ManualLoop::now() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_now;
}

void ManualLoop::waitUntil(std::condition_variable &condition, std::unique_lock<std::mutex> &lock,
                           TimePoint deadline)
{
    {
        const std::lock_guard<std::mutex> own(m_mutex);
        if (m_now >= deadline)
            return;
        m_waiting.emplace(std::this_thread::get_id(), Waiter{&condition, lock.mutex()});
        m_changed.notify_all();
    }
    condition.wait(lock);
    const std::lock_guard<std::mutex> own(m_mutex);
    m_waiting.erase(std::this_thread::get_id());
}

void ManualLoop::wake()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_isWoken = true;
    m_changed.notify_all();
}

void ManualLoop::advance(std::chrono::milliseconds time)
{
    const TimePoint end = now() + time;
    run();
    while (!m_timed.empty() && m_timed.begin()->first <= end) {
        auto next = m_timed.extract(m_timed.begin());
        setTime(std::max(next.key(), now()));
        next.mapped()();
        run();
    }
    setTime(end);
}

void ManualLoop::awaitWaiting(std::size_t count)
{
    std::unique_lock<std::mutex> lock(m_mutex);
    m_changed.wait_for(lock, tooLong, [&] { return m_waiting.size() >= count; });
}

void ManualLoop::end()
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_calls.end();
    }
    run();
    for (const auto &client : m_clients)
        client->loopEnding();
    m_clients.clear();
}

bool ManualLoop::waitForCalls()
{
    std::unique_lock<std::mutex> lock(m_mutex);
    const bool isInTime =
        m_changed.wait_for(lock, tooLong, [this] { return m_isWoken || !m_calls.isEmpty(); });
    m_isWoken = false;
    return isInTime;
}

/// A waiter holds its own mutex from the moment it reads the time until it sleeps. Locking that
/// mutex here therefore means that the waiter has seen the new time or gets the notification.
void ManualLoop::setTime(TimePoint time)
{
    std::multimap<std::thread::id, Waiter> waiting;
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_now = time;
        waiting = m_waiting;
    }
    for (const auto &[thread, waiter] : waiting) {
        const std::lock_guard<std::mutex> lock(*waiter.mutex);
        waiter.condition->notify_all();
    }
}
