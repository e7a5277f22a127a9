#include "devicecalls_p.h"

#include "controljob_p.h"
#include "holderjob_p.h"
#include "logging_p.h"
#include "outcome_p.h"
#include "outcomejob_p.h"

#include <tavorossproxy/channelstatus.h>

#include <algorithm>
#include <utility>

namespace Tavoro::SessionInternal {

DeviceCalls::DeviceCalls(QThreadPool &pool, const std::shared_ptr<Courier> &courier,
                         const SessionOptions &options, Events &events)
    : m_upgradeTime(options.upgradeTime),
      m_events(events),
      m_queue(pool, courier, options.maxWaitingCalls, options.outcomeTime,
              [this](CallJob &job, const CallResult &result, bool isReplaced) {
                  deliver(job, result, isReplaced);
              }),
      m_self(std::make_shared<DeviceCalls *>(this))
{ }

void DeviceCalls::setTarget(std::shared_ptr<const CallTarget> target, const QString &reason)
{
    m_isConnected = target != nullptr;
    m_queue.setTarget(std::move(target), reason);
}

void DeviceCalls::endAll(const QString &reason)
{
    m_queue.endAll(reason);
    for (const auto &upgrade : std::exchange(m_upgrades, {}))
        upgrade->end(reason);
}

void DeviceCalls::startLatest(const std::shared_ptr<CallJob> &job, const QString &key)
{
    m_queue.start(job, key);
}

void DeviceCalls::startTracked(const std::shared_ptr<CallJob> &job, CallTracker &tracker)
{
    tracker.setCancelHandler([weak = std::weak_ptr<DeviceCalls *>(m_self), job] {
        if (const auto self = weak.lock())
            (*self)->m_queue.cancel(job);
    });
    m_queue.start(job, {});
}

std::shared_ptr<BizModel::Device> DeviceCalls::modelDevice() const
{
    return m_events.modelDevice();
}

PendingCall<Outcome> DeviceCalls::requestControl(SSProxy::ControlAction action)
{
    const auto job = std::make_shared<ControlJob>(action);
    PendingCall<Outcome> pending(job->future());
    m_queue.start(job, {});
    return pending;
}

void DeviceCalls::giveUpControl()
{
    const auto job = std::make_shared<ControlJob>(SSProxy::ControlAction::GiveUp);
    job->isQuiet = true;
    m_queue.start(job, {});
}

PendingCall<Answer<QString>> DeviceCalls::readControlHolder()
{
    const auto job = std::make_shared<HolderJob>();
    PendingCall<Answer<QString>> pending(job->future());
    m_queue.start(job, {});
    return pending;
}

PendingCall<Outcome> DeviceCalls::outcomeOf(const SSProxy::RequestIdentity &request,
                                            const QString &operation)
{
    const auto job = std::make_shared<OutcomeJob>(request, operation);
    PendingCall<Outcome> pending(job->future());
    m_queue.resolve(job);
    return pending;
}

UpgradeCall::Session DeviceCalls::upgradeSession()
{
    UpgradeCall::Session session;
    session.start = [this](const std::shared_ptr<CallJob> &job, bool isQuiet) {
        job->isQuiet = isQuiet;
        m_queue.start(job, {});
    };
    session.cancel = [this](const std::shared_ptr<CallJob> &job) {
        m_queue.cancel(job);
    };
    session.report = [this](const CallResult &result, const QString &label) {
        Outcome outcome = makeOutcome(result, label, false);
        report(outcome);
        return outcome;
    };
    session.isConnected = [this] {
        return m_isConnected;
    };
    return session;
}

TrackedCall<UpgradeCall::Result>
DeviceCalls::upgrade(const ProtoModel::Auxiliary::s_UpgradeDetail &upgrade)
{
    const auto hasEnded = [](const auto &each) {
        return each->hasEnded();
    };
    m_upgrades.erase(std::remove_if(m_upgrades.begin(), m_upgrades.end(), hasEnded),
                     m_upgrades.end());
    const auto started = std::make_shared<UpgradeCall>(upgradeSession(), m_upgradeTime);
    m_upgrades.push_back(started);
    auto pending = started->pending();
    started->start(upgrade);
    return pending;
}

/// Names the client that has control, if it is known.
QString DeviceCalls::reasonOf(const CallResult &result) const
{
    if (result.kind != Outcome::Refused || result.status != SSProxy::statusControlledByOthers)
        return result.reason;
    const QString holder = result.holder.isEmpty() ? m_events.controlHolder() : result.holder;
    return holder.isEmpty() ? result.reason : controlledBy(holder);
}

Outcome DeviceCalls::makeOutcome(const CallResult &result, const QString &label,
                                 bool isReplaced) const
{
    OutcomeData data;
    data.kind = result.kind;
    data.status = result.status;
    data.reason = reasonOf(result);
    data.operation = label;
    data.deviceName = m_events.deviceName();
    data.isReplaced = isReplaced;
    data.isCanceled = result.isCanceled;
    return SessionInternal::makeOutcome(data);
}

void DeviceCalls::report(const Outcome &outcome)
{
    qCInfo(sessionLog).noquote() << outcome.text();
    m_events.callEnded(outcome);
}

void DeviceCalls::deliver(CallJob &job, const CallResult &result, bool isReplaced)
{
    const Outcome outcome = makeOutcome(result, job.label(), isReplaced);
    noteControl(job, result);
    if (job.hasRun && (result.kind == Outcome::Done || result.kind == Outcome::Unknown))
        m_events.deviceWritten(job.operation->changes());
    if (!job.isQuiet)
        report(outcome);
    if (job.observer)
        job.observer(outcome, result);
    job.operation->finish(outcome, !job.hasRun);
}

/// A request that takes control begins the idle time after which it is given up, also if it has
/// failed: the device may have given control to this client all the same.
void DeviceCalls::noteControl(const CallJob &job, const CallResult &result)
{
    const ControlUse use = job.controlUse();
    const bool isRefused = result.kind == Outcome::Refused;
    const bool isOthers = isRefused && result.status == SSProxy::statusControlledByOthers;
    if (use == ControlUse::Takes && result.firstSent && !isOthers)
        m_events.controlUsed();
    if (use == ControlUse::GivesUp && (result.kind == Outcome::Done || isRefused))
        m_events.controlGivenUp();
    if (!result.holder.isEmpty())
        m_events.controlRefused(result.holder);
}

} // namespace Tavoro::SessionInternal
