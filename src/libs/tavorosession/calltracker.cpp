#include "calltracker_p.h"

#include <tuple>

namespace Tavoro::SessionInternal {

namespace {

constexpr std::chrono::milliseconds lookInterval(100);
constexpr std::chrono::seconds averagedTime(2);

} // namespace

CallTracker::CallTracker() : m_timer(std::make_unique<QTimer>())
{
    m_timer->setInterval(lookInterval);
    QObject::connect(m_timer.get(), &QTimer::timeout, m_timer.get(), [this] { look(); });
    m_timer->start();
    m_samples.push_back({Clock::now(), 0});
}

CallTracker::~CallTracker() = default;

void CallTracker::setDone(qint64 done, qint64 total)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_done = done;
    m_total = total;
}

std::pair<qint64, qint64> CallTracker::doneAndTotal() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return {m_done, m_total};
}

TransferProgress CallTracker::progress() const
{
    TransferProgress now;
    std::tie(now.done, now.total) = doneAndTotal();
    const std::chrono::duration<double> time = Clock::now() - m_samples.front().time;
    if (time.count() > 0)
        now.rate = double(now.done - m_samples.front().done) / time.count();
    return now;
}

void CallTracker::follow(QObject *context, ProgressCallback callback)
{
    if (m_timer)
        m_followers.push_back({context, std::move(callback)});
}

void CallTracker::cancel()
{
    const auto self = shared_from_this(); // the handler may end the call
    m_isCanceled = true;
    if (m_cancelHandler)
        std::exchange(m_cancelHandler, {})();
}

void CallTracker::finish()
{
    const auto self = shared_from_this();
    look();
    m_timer.reset();
    m_cancelHandler = {};
    m_followers.clear();
}

void CallTracker::look()
{
    const auto self = shared_from_this(); // a callback may drop the call
    const auto now = doneAndTotal();
    takeSample(now.first);
    if (std::exchange(m_reported, now) == now)
        return;
    const TransferProgress reported = progress();
    for (const Follower &each : std::vector<Follower>(m_followers)) {
        if (each.context)
            each.callback(reported);
    }
}

void CallTracker::takeSample(qint64 done)
{
    const auto now = Clock::now();
    m_samples.push_back({now, done});
    while (m_samples.size() > 2 && now - m_samples[1].time >= averagedTime)
        m_samples.pop_front();
}

TransferProgress progressOf(const CallTracker &tracker)
{
    return tracker.progress();
}

void followProgress(CallTracker &tracker, QObject *context, ProgressCallback callback)
{
    tracker.follow(context, std::move(callback));
}

void cancelCall(CallTracker &tracker)
{
    tracker.cancel();
}

} // namespace Tavoro::SessionInternal
