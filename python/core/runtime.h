#pragma once

#include "eventqueue.h"
#include "pending.h"

#include <tavorosession/session.h>

#include <QEventLoop>
#include <QObject>
#include <QThreadPool>

#include <atomic>
#include <functional>
#include <future>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

namespace Tavoro::Python {

/// The one thread with an event loop on which the sessions of all devices live. It starts with the
/// first use and ends with stop(), before the interpreter does. It never calls Python.
///
/// | members                                               | thread        |
/// |-------------------------------------------------------|---------------|
/// | instance, post, makePending, events, stop, isStopping | any           |
/// | session, context, workers                             | the runtime's |
class Runtime {
public:
    /// The runtime. Never destroyed: threads of Python may use it until the process ends.
    static Runtime &instance();

    /// Runs \a function on the runtime's thread, later. Returns false after stop().
    bool post(std::function<void()> function);
    /// A Pending that stop() ends. If the runtime has stopped, it has ended already.
    std::shared_ptr<Pending> makePending();
    /// What Python is notified of.
    EventQueue &events() { return m_events; }

    /// Ends all calls and closes all devices. Takes less than two seconds whatever the devices do.
    /// Later calls end at once as NotSent.
    void stop();

    /// Whether stop() was called. Work in the background ends early then.
    bool isStopping() const { return m_isStopping; }

    /// The sessions of all devices.
    Session &session() { return m_objects->session; }
    /// Lives as long as the sessions do: the context of callbacks.
    QObject *context() { return &m_objects->context; }
    /// Threads for work that blocks. stop() waits for them.
    QThreadPool &workers() { return m_objects->workers; }

private:
    /// What lives on the thread.
    struct Objects {
        QObject context;
        QThreadPool workers;
        Session session;
        QEventLoop loop;
    };

    Runtime() = default;
    bool start();
    void run(std::promise<void> &started);
    void endPending();

    std::mutex m_mutex;
    bool m_isRunning = false; ///< Guarded by m_mutex.
    std::vector<std::weak_ptr<Pending>> m_pending; ///< Guarded by m_mutex.
    std::thread m_thread; ///< Guarded by m_mutex.
    Objects *m_objects = nullptr; ///< Constant while m_isRunning.
    std::atomic<bool> m_isStopping{false};
    EventQueue m_events;
};

} // namespace Tavoro::Python
