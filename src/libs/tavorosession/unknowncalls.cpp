#include "unknowncalls_p.h"

#include <algorithm>
#include <utility>

namespace Tavoro::SessionInternal {

using SSProxy::RequestOutcome;
using Time = std::chrono::steady_clock;

namespace {

/// Pause between two questions about a call: a device that is still busy with it says so at once.
constexpr std::chrono::milliseconds outcomeInterval(250);

class Question : public LaneJob {
public:
    /// \a resolved is what the answer makes of the call.
    using Handler = std::function<void(const CallResult &resolved, bool mayBeAskedAgain)>;

    Question(std::shared_ptr<const CallTarget> target, CallResult unknown, Handler handler)
        : m_target(std::move(target)), m_handler(std::move(handler)), m_result(std::move(unknown))
    { }

    void run() override
    {
        RequestOutcome outcome;
        outcome.status = SSProxy::Disconnected;
        if (m_target->isConnected())
            outcome = m_target->channel->outcomeOf(*m_result.unresolved);
        m_result = resolved(m_result, outcome);
        m_isOpen = mayBeAskedAgain(outcome);
        nameHolder(*m_target, m_result);
    }
    void deliver() override { m_handler(m_result, m_isOpen); }

private:
    const std::shared_ptr<const CallTarget> m_target;
    const Handler m_handler;
    // Belong to the lane's thread until run() has ended.
    CallResult m_result;
    bool m_isOpen = false;
};

} // namespace

UnknownCalls::UnknownCalls(QThreadPool &pool, std::shared_ptr<Courier> courier,
                           std::chrono::milliseconds time, Deliver deliver)
    : m_time(time),
      m_deliver(std::move(deliver)),
      m_questions(std::make_shared<Lane>(pool, std::move(courier))),
      m_self(std::make_shared<UnknownCalls *>(this))
{
    m_timer.setInterval(outcomeInterval);
    QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { askAll(); });
}

UnknownCalls::~UnknownCalls()
{
    m_questions->removeAll();
}

void UnknownCalls::add(JobPtr job)
{
    if (!job->result.unresolved || m_time <= std::chrono::milliseconds::zero())
        return m_deliver(job, job->result);
    m_calls.push_back({std::move(job), Time::now() + m_time, false});
    ask(m_calls.back());
    if (!m_timer.isActive()) // otherwise quick additions would delay it for ever
        m_timer.start();
}

void UnknownCalls::setTarget(std::shared_ptr<const CallTarget> target)
{
    m_target = std::move(target);
    askAll();
}

void UnknownCalls::endAll()
{
    while (!m_calls.empty())
        deliver(m_calls.begin(), m_calls.front().job->result);
}

void UnknownCalls::askAll()
{
    const auto isLate = [now = Time::now()](const Entry &entry) {
        return entry.deadline <= now;
    };
    for (Entry &entry : m_calls) {
        if (!isLate(entry))
            ask(entry);
    }
    // A slot that learns of an outcome may end other calls.
    for (;;) {
        const auto late = std::find_if(m_calls.begin(), m_calls.end(), isLate);
        if (late == m_calls.end())
            return;
        deliver(late, late->job->result);
    }
}

void UnknownCalls::ask(Entry &entry)
{
    if (!m_target || std::exchange(entry.isAsked, true))
        return;
    const auto handler = [weak = std::weak_ptr<UnknownCalls *>(m_self),
                          job = entry.job](const CallResult &result, bool isOpen) {
        if (const auto self = weak.lock())
            (*self)->answered(job, result, isOpen);
    };
    m_questions->append(std::make_shared<Question>(m_target, entry.job->result, handler));
}

void UnknownCalls::answered(const JobPtr &job, const CallResult &result, bool isOpen)
{
    const auto entry = std::find_if(m_calls.begin(), m_calls.end(),
                                    [&](const Entry &each) { return each.job == job; });
    if (entry == m_calls.end())
        return; // its time was over
    entry->isAsked = false;
    if (!isOpen)
        deliver(entry, result);
}

void UnknownCalls::deliver(std::list<Entry>::iterator entry, const CallResult &result)
{
    const JobPtr job = std::move(entry->job);
    m_calls.erase(entry);
    if (m_calls.empty())
        m_timer.stop();
    m_deliver(job, result);
}

} // namespace Tavoro::SessionInternal
