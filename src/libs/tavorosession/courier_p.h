#pragma once

#include <QCoreApplication>
#include <QEvent>
#include <QObject>

#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <utility>

namespace Tavoro::SessionInternal {

/// Runs functions on the thread that created it, from its event loop, until it is closed. Threads
/// in the background share it, so that they need not know whether the session still exists.
class Courier {
public:
    using Function = std::function<void()>;

    /// Runs \a function later, in the order of the calls, and destroys it on the courier's thread.
    /// Drops it if the courier is closed. Any thread.
    void post(Function function)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        if (!m_receiver)
            return;
        m_functions.emplace_back().swap(function); // so that nothing remains on this thread
        QCoreApplication::postEvent(m_receiver.get(), new QEvent(QEvent::User));
    }

    /// Drops the functions that did not run yet, and all later ones. On the courier's thread.
    void close()
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        const auto receiver = std::exchange(m_receiver, nullptr);
        const auto dropped = std::exchange(m_functions, {});
        lock.unlock(); // the dropped functions may hold what posts in its destructor
    }

private:
    /// Gets an event for each function. The function may delete it.
    class Receiver : public QObject {
    public:
        explicit Receiver(Courier &courier) : m_courier(courier) { }

        bool event(QEvent *event) override
        {
            if (event->type() != QEvent::User)
                return QObject::event(event);
            m_courier.runNext();
            return true;
        }

    private:
        Courier &m_courier;
    };

    void runNext()
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        if (m_functions.empty())
            return;
        const Function function = std::move(m_functions.front());
        m_functions.pop_front();
        lock.unlock();
        function();
    }

    std::mutex m_mutex;
    std::deque<Function> m_functions; // guarded by m_mutex
    std::unique_ptr<Receiver> m_receiver = std::make_unique<Receiver>(*this); // guarded by m_mutex
};

} // namespace Tavoro::SessionInternal
