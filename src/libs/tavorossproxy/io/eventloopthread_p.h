#pragma once

#include "callqueue_p.h"
#include "eventloop_p.h"

#include <QObject>
#include <QThread>

#include <mutex>
#include <vector>

namespace Tavoro::SSProxy::Internal {

/// The one thread of all channels over a network, with a Qt event loop. The object lives on that
/// thread too.
///
/// | member              | thread                           |
/// |---------------------|----------------------------------|
/// | instance, stop      | any but the thread itself        |
/// | post                | any                              |
/// | m_calls, m_spinWait | any, guarded by m_mutex          |
/// | m_clients           | the thread itself                |
class EventLoopThread final : public QObject, public EventLoop {
    Q_OBJECT

public:
    /// Returns the thread of this process, and starts it if it is not running. It ends with the
    /// application object, or at the latest with the manager.
    static std::shared_ptr<EventLoopThread> instance();
    /// Ends the running thread, if there is one, and waits until it has ended.
    static void stop();

    EventLoopThread();
    ~EventLoopThread() override;

    Clock &clock() override { return m_clock; }
    bool isCurrentThread() const override { return QThread::currentThread() == &m_thread; }
    bool post(std::function<void()> call) override;
    void announceCall() override;
    void postAt(Clock::TimePoint time, std::function<void()> call) override;
    void attach(std::shared_ptr<Client> client) override;
    void detach(const Client *client) override;

private:
    /// State of spinning: the thread spins for an expected call before it blocks, since waking it
    /// takes about as long as a typical caller needs between two requests.
    struct SpinWait {
        bool isActive = false; ///< The thread spins, so post() need not wake it.
        bool isWorthwhile = true; ///< The last expected call came in time.
        Clock::TimePoint since; ///< When a call was last expected.
    };

    Q_INVOKABLE void runCalls() { m_calls.run(); }
    Q_INVOKABLE void spin();
    void end();

    SteadyClock m_clock;
    QThread m_thread;
    std::mutex m_mutex; // never held while a call runs
    CallQueue m_calls{m_mutex};
    SpinWait m_spinWait; // guarded by m_mutex
    std::vector<std::shared_ptr<Client>> m_clients;
};

} // namespace Tavoro::SSProxy::Internal
