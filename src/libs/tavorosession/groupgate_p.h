#pragma once

#include <chrono>
#include <condition_variable>
#include <mutex>

namespace Tavoro::SessionInternal {

/// Lets the calls of a group be sent together: each waits here until the others have arrived, or
/// until one of them has waited for too long. Any thread.
class GroupGate {
public:
    /// For \a expected calls; no call waits longer than \a patience.
    GroupGate(int expected, std::chrono::milliseconds patience)
        : m_missing(expected), m_patience(patience)
    { }

    /// A call is ready to be sent. Blocks until all are, or leave() was called for the others.
    void arrive()
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        countDown();
        const auto isComplete = [this] {
            return m_missing <= 0;
        };
        if (!m_complete.wait_for(lock, m_patience, isComplete)) {
            m_missing = 0; // the calls that arrive later do not wait
            m_complete.notify_all();
        }
    }

    /// A call will not be sent.
    void leave()
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        countDown();
    }

private:
    void countDown()
    {
        if (--m_missing <= 0)
            m_complete.notify_all();
    }

    std::mutex m_mutex;
    std::condition_variable m_complete;
    int m_missing; // guarded by m_mutex
    const std::chrono::milliseconds m_patience;
};

} // namespace Tavoro::SessionInternal
