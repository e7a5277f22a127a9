#pragma once

#include <deque>
#include <functional>
#include <mutex>
#include <utility>

namespace Tavoro::SSProxy::Internal {

/// The calls that wait for a thread, in their order.
class PostedCalls {
public:
    /// \a mutex, which is the owner's, guards the calls.
    explicit PostedCalls(std::mutex &mutex) : m_mutex(mutex) { }

    // With the mutex held.
    bool isEmpty() const { return m_calls.empty(); }
    /// False when they have ended.
    bool add(std::function<void()> call)
    {
        if (!m_haveEnded)
            m_calls.push_back(std::move(call));
        return !m_haveEnded;
    }
    /// No further calls are taken.
    void end() { m_haveEnded = true; }

    // On the thread, without the mutex: it is not held while a call runs.
    /// Runs the calls, those too that are added meanwhile, until none is left.
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
    bool m_haveEnded = false;
};

} // namespace Tavoro::SSProxy::Internal
