#include "channelthread_p.h"

#include <QCoreApplication>
#include <QTimer>

#include <algorithm>
#include <chrono>
#include <limits>
#include <thread>
#include <utility>

namespace Tavoro::SSProxy::Internal {

namespace {

/// How long the thread looks out for a call that it expects.
constexpr std::chrono::microseconds lookoutTime(50);

struct RunningThread {
    std::mutex mutex;
    std::shared_ptr<ChannelThread> thread; // guarded by mutex
};

/// Never destroyed: whoever stops the thread at the end of the process finds it in order.
RunningThread &running()
{
    static auto *const running = new RunningThread;
    return *running;
}

} // namespace

std::shared_ptr<ChannelThread> ChannelThread::instance()
{
    const std::lock_guard<std::mutex> lock(running().mutex);
    if (!running().thread) {
        running().thread = std::make_shared<ChannelThread>();
        qAddPostRoutine(&ChannelThread::stop); // sockets should not outlive the application object
    }
    return running().thread;
}

void ChannelThread::stop()
{
    std::shared_ptr<ChannelThread> thread;
    {
        const std::lock_guard<std::mutex> lock(running().mutex);
        thread.swap(running().thread);
    }
    if (!thread)
        return;
    thread->post([&thread] { thread->end(); });
    thread->m_thread.wait();
}

ChannelThread::ChannelThread()
{
    m_thread.setObjectName(QStringLiteral("tavoro-channels"));
    moveToThread(&m_thread);
    m_thread.start();
}

ChannelThread::~ChannelThread()
{
    Q_ASSERT_X(!m_thread.isRunning(), "ChannelThread", "destroyed before it was stopped");
}

bool ChannelThread::post(std::function<void()> call)
{
    bool mustWake = false;
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        mustWake = m_calls.isEmpty() && !m_lookout.isOn;
        if (!m_calls.add(std::move(call)))
            return false;
        m_lookout.isWorthwhile = m_clock.now() - m_lookout.since < lookoutTime;
    }
    // By name: the call carries no data past the mutex.
    if (mustWake)
        QMetaObject::invokeMethod(this, "runCalls", Qt::QueuedConnection);
    return true;
}

void ChannelThread::expectCall()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_lookout.since = m_clock.now();
    if (m_lookout.isWorthwhile && !std::exchange(m_lookout.isOn, true))
        QMetaObject::invokeMethod(this, "lookOut", Qt::QueuedConnection);
}

void ChannelThread::lookOut()
{
    const auto end = m_clock.now() + lookoutTime;
    std::unique_lock<std::mutex> lock(m_mutex);
    while (m_calls.isEmpty() && m_clock.now() < end) {
        lock.unlock();
        std::this_thread::yield();
        lock.lock();
    }
    m_lookout.isOn = false;
    m_lookout.isWorthwhile = !m_calls.isEmpty();
    lock.unlock();
    runCalls();
}

void ChannelThread::postAt(Clock::TimePoint time, std::function<void()> call)
{
    using Milliseconds = std::chrono::milliseconds;
    const auto wait = std::chrono::ceil<Milliseconds>(time - m_clock.now());
    const auto longest = Milliseconds(std::numeric_limits<int>::max());
    QTimer::singleShot(static_cast<int>(std::clamp(wait, Milliseconds(0), longest).count()),
                       Qt::PreciseTimer, this, std::move(call));
}

void ChannelThread::attach(std::shared_ptr<User> user)
{
    m_users.push_back(std::move(user));
}

void ChannelThread::detach(const User *user)
{
    m_users.erase(std::remove_if(m_users.begin(), m_users.end(),
                                 [user](const auto &attached) { return attached.get() == user; }),
                  m_users.end());
}

/// Whatever was posted before has an effect, and nothing is taken after.
void ChannelThread::end()
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_calls.end();
    }
    runCalls();
    for (const auto &user : m_users)
        user->loopEnding();
    m_users.clear();
    m_thread.quit();
}

} // namespace Tavoro::SSProxy::Internal
