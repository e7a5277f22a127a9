#include "eventloopthread_p.h"

#include <QCoreApplication>
#include <QTimer>

#include <algorithm>
#include <chrono>
#include <limits>
#include <utility>

namespace Tavoro::SSProxy::Internal {

namespace {

struct RunningThread {
    std::mutex mutex;
    std::shared_ptr<EventLoopThread> thread; // guarded by mutex
};

/// Never destroyed: the thread may be stopped at the very end of the process.
RunningThread &runningThread()
{
    static auto *const running = new RunningThread;
    return *running;
}

} // namespace

std::shared_ptr<EventLoopThread> EventLoopThread::instance()
{
    const std::lock_guard<std::mutex> lock(runningThread().mutex);
    if (!runningThread().thread) {
        runningThread().thread = std::make_shared<EventLoopThread>();
        qAddPostRoutine(
            &EventLoopThread::stop); // sockets should not outlive the application object
    }
    return runningThread().thread;
}

void EventLoopThread::stop()
{
    std::shared_ptr<EventLoopThread> thread;
    {
        const std::lock_guard<std::mutex> lock(runningThread().mutex);
        thread.swap(runningThread().thread);
    }
    if (!thread)
        return;
    thread->post([&thread] { thread->end(); });
    thread->m_thread.wait();
}

EventLoopThread::EventLoopThread()
{
    m_thread.setObjectName(QStringLiteral("tavoro-channels"));
    moveToThread(&m_thread);
    m_thread.start();
}

EventLoopThread::~EventLoopThread()
{
    Q_ASSERT_X(!m_thread.isRunning(), "EventLoopThread", "destroyed before it was stopped");
}

bool EventLoopThread::post(std::function<void()> call)
{
    bool mustWake = false;
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        mustWake = m_calls.isEmpty();
        if (!m_calls.add(std::move(call)))
            return false;
    }
    // Invoked by name: all data is passed under the mutex.
    if (mustWake)
        QMetaObject::invokeMethod(this, "runCalls", Qt::QueuedConnection);
    return true;
}

void EventLoopThread::postAt(Clock::TimePoint time, std::function<void()> call)
{
    using Milliseconds = std::chrono::milliseconds;
    const auto wait = std::chrono::ceil<Milliseconds>(time - m_clock.now());
    const auto longest = Milliseconds(std::numeric_limits<int>::max());
    QTimer::singleShot(static_cast<int>(std::clamp(wait, Milliseconds(0), longest).count()),
                       Qt::PreciseTimer, this, std::move(call));
}

void EventLoopThread::attach(std::shared_ptr<Client> client)
{
    m_clients.push_back(std::move(client));
}

void EventLoopThread::detach(const Client *client)
{
    m_clients.erase(
        std::remove_if(m_clients.begin(), m_clients.end(),
                       [client](const auto &attached) { return attached.get() == client; }),
        m_clients.end());
}

/// Runs the calls that were posted before, and refuses later ones.
void EventLoopThread::end()
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_calls.end();
    }
    runCalls();
    for (const auto &client : m_clients)
        client->loopEnding();
    m_clients.clear();
    m_thread.quit();
}

} // namespace Tavoro::SSProxy::Internal
