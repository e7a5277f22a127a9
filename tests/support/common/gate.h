#pragma once

#include <condition_variable>
#include <functional>
#include <mutex>

/// Blocks another thread at a certain call until the test opens the gate.
class Gate {
public:
    ~Gate() { open(); }

    /// The function that the other thread has to call.
    std::function<void()> passage()
    {
        return [this] {
            pass();
        };
    }

    /// Waits until the other thread has reached the gate.
    void awaitArrival()
    {
        std::unique_lock lock(m_mutex);
        m_changed.wait(lock, [this] { return m_isReached; });
    }

    void open()
    {
        const std::lock_guard lock(m_mutex);
        m_isOpen = true;
        m_changed.notify_all();
    }

private:
    void pass()
    {
        std::unique_lock lock(m_mutex);
        m_isReached = true;
        m_changed.notify_all();
        m_changed.wait(lock, [this] { return m_isOpen; });
    }

    std::mutex m_mutex;
    std::condition_variable m_changed;
    bool m_isReached = false; // guarded by m_mutex
    bool m_isOpen = false; // guarded by m_mutex
};
