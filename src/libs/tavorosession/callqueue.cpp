#include "callqueue_p.h"

#include <algorithm>
#include <utility>

namespace Tavoro::SessionInternal {

CallQueue::CallQueue(QThreadPool &pool, const std::shared_ptr<Courier> &courier, int limit,
                     std::chrono::milliseconds outcomeTime, Deliver deliver)
    : m_limit(static_cast<std::size_t>(std::max(limit, 1))),
      m_deliver(std::move(deliver)),
      m_commands(std::make_shared<Lane>(pool, courier)),
      m_transfers(std::make_shared<Lane>(pool, courier)),
      m_lease(std::make_shared<Lane>(pool, courier)),
      m_unknown(pool, courier, outcomeTime,
                [this](const JobPtr &job, const CallResult &result) { end(job, result); }),
      m_self(std::make_shared<CallQueue *>(this))
{ }

CallQueue::~CallQueue()
{
    endAll({});
}

void CallQueue::setTarget(std::shared_ptr<const CallTarget> target, const QString &reason)
{
    m_target = std::move(target); // first: slots may make calls
    m_reason = reason;
    endWaiting(reasonText(NotSentReason::ConnectionLost));
    m_unknown.setTarget(m_target);
}

void CallQueue::start(JobPtr job, const QString &key)
{
    job->key = key;
    job->target = m_target;
    job->finished = [weak = std::weak_ptr<CallQueue *>(m_self)](const JobPtr &ended) {
        if (const auto self = weak.lock())
            (*self)->finished(ended);
    };
    if (!m_target)
        return endUnsent(job, m_reason);
    if (!key.isEmpty())
        dropReplaced(key);
    Lane &lane = laneOf(*job);
    if (lane.waiting() >= m_limit)
        return endUnsent(job, reasonText(NotSentReason::QueueFull));
    if (!key.isEmpty())
        m_latest.insert(key, job);
    m_calls.push_back(job);
    lane.append(std::move(job));
}

void CallQueue::resolve(const JobPtr &job)
{
    job->hasRun = true;
    m_calls.push_back(job);
    m_unknown.add(job);
}

Lane &CallQueue::laneOf(const CallJob &job) const
{
    switch (job.lane()) {
    case CallLane::Transfers:
        return *m_transfers;
    case CallLane::Lease:
        return *m_lease;
    case CallLane::Commands:
        break;
    }
    return *m_commands;
}

void CallQueue::dropReplaced(const QString &key)
{
    const JobPtr former = m_latest.take(key).lock();
    if (former && !former->hasEnded && laneOf(*former).remove(former))
        endUnsent(former, reasonText(NotSentReason::Replaced), true);
}

void CallQueue::cancel(const JobPtr &job)
{
    if (job->hasEnded || !laneOf(*job).remove(job))
        return;
    job->hasRun = true;
    end(job, notSent(NotSentReason::Canceled));
}

void CallQueue::finished(const JobPtr &job)
{
    job->hasRun = true;
    if (job->hasEnded)
        return;
    if (job->result.kind == Outcome::Unknown)
        m_unknown.add(job);
    else
        end(job, job->result);
}

void CallQueue::end(const JobPtr &job, const CallResult &result, bool isReplaced)
{
    if (std::exchange(job->hasEnded, true))
        return;
    if (job->gate && result.kind == Outcome::NotSent)
        job->gate->leave();
    job->abandon();
    m_calls.erase(std::remove(m_calls.begin(), m_calls.end(), job), m_calls.end());
    if (!job->key.isEmpty() && m_latest.value(job->key).lock() == job)
        m_latest.remove(job->key);
    m_deliver(*job, result, isReplaced);
}

void CallQueue::endUnsent(const JobPtr &job, const QString &reason, bool isReplaced)
{
    job->hasRun = true;
    end(job, notSent(reason), isReplaced);
}

void CallQueue::endWaiting(const QString &reason)
{
    std::vector<JobPtr> removed;
    for (const auto &lane : {m_commands, m_transfers, m_lease}) {
        for (const auto &waiting : lane->removeAll())
            removed.push_back(std::static_pointer_cast<CallJob>(waiting));
    }
    for (const JobPtr &job : removed) {
        job->hasRun = true; // first: a slot may end all calls
        job->result = notSent(reason);
    }
    for (const JobPtr &job : removed)
        end(job, job->result);
}

void CallQueue::endAll(const QString &reason)
{
    endWaiting(reason);
    m_unknown.endAll();
    CallResult unknown;
    unknown.kind = Outcome::Unknown;
    unknown.reason = reason;
    while (!m_calls.empty()) {
        const JobPtr job = m_calls.front();
        end(job, job->hasRun ? job->result : unknown);
    }
}

} // namespace Tavoro::SessionInternal
