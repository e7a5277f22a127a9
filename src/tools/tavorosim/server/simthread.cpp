#include "simthread.h"

namespace Tavoro::Sim {

SimThread::SimThread()
{
    m_thread.setObjectName(QStringLiteral("tavorosim"));
    moveToThread(&m_thread);
    m_thread.start();
}

SimThread::~SimThread()
{
    m_thread.quit();
    m_thread.wait();
}

void SimThread::run(std::function<void()> call)
{
    std::unique_lock<std::mutex> lock(m_mutex);
    m_call = std::move(call);
    m_isDone = false;
    // By name: the call itself is handed over under the mutex.
    QMetaObject::invokeMethod(this, "makeCall", Qt::QueuedConnection);
    m_wakeUp.wait(lock, [this] { return m_isDone; });
}

void SimThread::makeCall()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_call();
    m_isDone = true;
    m_wakeUp.notify_one();
}

} // namespace Tavoro::Sim
