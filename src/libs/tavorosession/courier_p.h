#pragma once

#include <QMetaObject>
#include <QObject>

#include <functional>
#include <memory>
#include <mutex>
#include <utility>

namespace Tavoro::SessionInternal {

/// Runs functions on the thread that created it, from its event loop, until it is closed. Threads
/// in the background share it, so that they need not know whether the session still exists.
class Courier {
public:
    /// Runs \a function later, in the order of the calls. Drops it if the courier is closed. Any
    /// thread.
    void post(std::function<void()> function)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        if (m_receiver)
            QMetaObject::invokeMethod(m_receiver.get(), std::move(function), Qt::QueuedConnection);
    }

    /// Drops the functions that did not run yet, and all later ones. On the courier's thread.
    void close()
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        const auto receiver = std::exchange(m_receiver, nullptr);
        lock.unlock(); // the dropped functions may hold what posts in its destructor
    }

private:
    std::mutex m_mutex;
    std::unique_ptr<QObject> m_receiver = std::make_unique<QObject>(); // guarded by m_mutex
};

} // namespace Tavoro::SessionInternal
