#pragma once

#include <condition_variable>
#include <functional>
#include <mutex>

/// Holds another thread at a place until the test lets it pass.
class Gate {
public:
    ~Gate() { open(); }

    /// What the other thread does at the place.
    std::function<void()> passage()
    {
        return [this] {
            pass();
        };
    }

    /// Waits until the other thread stands there.
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
    bool m_isReached = false; // guarded by m_mutex, as the next
    bool m_isOpen = false;
};
