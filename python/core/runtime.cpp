#include "runtime.h"

#include <QCoreApplication>
#include <QLoggingCategory>
#include <QMetaObject>

#include <algorithm>
#include <clocale>
#include <csignal>
#include <optional>
#include <string>
#include <utility>

namespace Tavoro::Python {

namespace {

/// Blocks all signals on this thread, and so on those that it starts: Python handles signals on its
/// own threads.
class BlockedSignals {
public:
    BlockedSignals()
    {
        sigset_t blocked;
        sigfillset(&blocked);
        for (const int fault : {SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGABRT})
            sigdelset(&blocked, fault);
        pthread_sigmask(SIG_SETMASK, &blocked, &m_before);
    }
    ~BlockedSignals() { pthread_sigmask(SIG_SETMASK, &m_before, nullptr); }
    BlockedSignals(const BlockedSignals &) = delete;
    BlockedSignals &operator=(const BlockedSignals &) = delete;

private:
    sigset_t m_before{};
};

/// The application object, unless the program has one. It would change the locale of the process,
/// which belongs to Python.
class Application {
public:
    Application()
    {
        const std::string locale = std::setlocale(LC_ALL, nullptr);
        if (!QCoreApplication::instance())
            m_application.emplace(m_argumentCount, m_arguments);
        std::setlocale(LC_ALL, locale.c_str());
    }

private:
    char m_name[7] = "python";
    char *m_arguments[2] = {m_name, nullptr};
    int m_argumentCount = 1;
    std::optional<QCoreApplication> m_application;
};

} // namespace

Runtime *&Runtime::current()
{
    static auto *runtime = new Runtime;
    return runtime;
}

Runtime &Runtime::instance()
{
    return *current();
}

void Runtime::abandon()
{
    current() = new Runtime; // the former one may be locked by a thread that does not exist here
    instance().m_isStopping = true;
    instance().m_stopReason = "the process was forked";
}

bool Runtime::post(std::function<void()> function)
{
    const std::lock_guard lock(m_mutex);
    if (!start())
        return false;
    QMetaObject::invokeMethod(&m_objects->context, std::move(function), Qt::QueuedConnection);
    return true;
}

std::shared_ptr<Pending> Runtime::makePending()
{
    auto pending = std::make_shared<Pending>();
    const std::lock_guard lock(m_mutex);
    if (m_isStopping) {
        pending->finish(
            notSent(m_stopReason, std::string("The request was not sent: ") + m_stopReason + '.'));
        return pending;
    }
    if (m_pending.size() == m_pending.capacity()) {
        const auto isGone = [](const std::weak_ptr<Pending> &weak) {
            return weak.expired();
        };
        m_pending.erase(std::remove_if(m_pending.begin(), m_pending.end(), isGone),
                        m_pending.end());
    }
    m_pending.push_back(pending);
    return pending;
}

bool Runtime::start()
{
    if (m_isRunning || m_isStopping)
        return m_isRunning;
    std::promise<void> promise;
    const std::future<void> started = promise.get_future();
    {
        const BlockedSignals blocked;
        m_thread = std::thread([this, promise = std::move(promise)]() mutable { run(promise); });
    }
    started.wait();
    m_isRunning = true;
    return true;
}

void Runtime::run(std::promise<void> &started)
{
    const Application application;
    // No line per request; the variable QT_LOGGING_RULES precedes this.
    QLoggingCategory::setFilterRules(QStringLiteral("tavoro.*=false"));
    Objects objects;
    m_objects = &objects;
    started.set_value();
    objects.loop.exec();
}

void Runtime::stop()
{
    std::thread thread;
    {
        const std::lock_guard lock(m_mutex);
        m_isStopping = true;
        if (m_isRunning)
            QMetaObject::invokeMethod(&m_objects->loop, &QEventLoop::quit, Qt::QueuedConnection);
        m_isRunning = false;
        thread = std::move(m_thread);
    }
    endPending(); // before the thread has ended: nobody waits for a device
    if (thread.joinable())
        thread.join();
    m_events.close();
}

void Runtime::endPending()
{
    std::vector<std::weak_ptr<Pending>> pending;
    {
        const std::lock_guard lock(m_mutex);
        pending.swap(m_pending);
    }
    Result ended;
    ended.kind = Outcome::Unknown;
    ended.meaning = m_stopReason;
    ended.text =
        std::string("The request may or may not have been carried out: ") + m_stopReason + '.';
    for (const std::weak_ptr<Pending> &weak : pending) {
        if (const auto held = weak.lock())
            held->finish(ended);
    }
}

} // namespace Tavoro::Python
