#pragma once

#include <deque>
#include <functional>
#include <mutex>
#include <utility>

namespace Tavoro::SSProxy::Internal {

/// Calls that wait to run on a thread, in the order in which they were added.
///
/// | member             | thread                                                |
/// |--------------------|-------------------------------------------------------|
/// | isEmpty, add, end  | any, with the mutex held                              |
/// | run                | the one that runs the calls, without the mutex        |
class CallQueue {
public:
    /// \a mutex belongs to the owner and guards the queue.
    explicit CallQueue(std::mutex &mutex) : m_mutex(mutex) { }

    bool isEmpty() const { return m_calls.empty(); }
    /// Returns false, and does not add \a call, after end().
    bool add(std::function<void()> call)
    {
        if (!m_hasEnded)
            m_calls.push_back(std::move(call));
        return !m_hasEnded;
    }
    /// Accepts no further calls.
    void end() { m_hasEnded = true; }

    /// Runs the calls until none is left, including those that are added meanwhile. The mutex is
    /// not held while a call runs.
    void run()
    {
        while (true) {
            std::unique_lock<std::mutex> lock(m_mutex);
            if (m_calls.empty())
                return;
            const auto call = std::move(m_calls.front());
            m_calls.pop_front();
            lock.unlock();
            call();
        }
    }

private:
    std::mutex &m_mutex;
    std::deque<std::function<void()>> m_calls;
    bool m_hasEnded = false;
};

} // namespace Tavoro::SSProxy::Internal
