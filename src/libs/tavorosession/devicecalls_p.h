#pragma once

#include "callqueue_p.h"
#include "callstarter_p.h"
#include "upgradecall_p.h"

#include <tavorosession/sessionoptions.h>
#include <tavorossproxy/controlaction.h>

#include <memory>
#include <vector>

namespace Tavoro::SessionInternal {

/// The calls of one device: starts them, and makes and delivers their outcomes. On the session's
/// thread.
class DeviceCalls final : public CallStarter {
public:
    /// What the owner learns, and what it knows.
    class Events {
    public:
        /// A call of the application has ended.
        virtual void callEnded(const Outcome &outcome) = 0;
        /// The device has changed \a scopes, or may have.
        virtual void deviceWritten(const std::vector<Operations::Scope> &scopes) = 0;
        /// A call that takes control was sent, and this client may have control.
        virtual void controlUsed() = 0;
        /// This client does not have control any more.
        virtual void controlGivenUp() = 0;
        /// The device has refused a call, since the client \a holder controls it.
        virtual void controlRefused(const QString &holder) = 0;
        /// The other client that controls the device; empty if there is none.
        virtual QString controlHolder() const = 0;
        /// The name of the device for outcomes.
        virtual QString deviceName() const = 0;
        virtual std::shared_ptr<BizModel::Device> modelDevice() const = 0;

    protected:
        ~Events() = default;
    };

    DeviceCalls(QThreadPool &pool, const std::shared_ptr<Courier> &courier,
                const SessionOptions &options, Events &events);

    /// See CallQueue.
    void setTarget(std::shared_ptr<const CallTarget> target, const QString &reason);
    void endWaiting(const QString &reason) { m_queue.endWaiting(reason); }
    /// Ends all calls, the upgrades included.
    void endAll(const QString &reason);
    bool isBusy() const { return m_queue.isBusy(); }

    void start(const std::shared_ptr<CallJob> &job) override { m_queue.start(job, {}); }
    /// Replaces a waiting call with the same \a key, unless it is empty.
    void startLatest(const std::shared_ptr<CallJob> &job, const QString &key);
    void startTracked(const std::shared_ptr<CallJob> &job, CallTracker &tracker) override;
    std::shared_ptr<BizModel::Device> modelDevice() const override;
    PendingCall<Outcome> requestControl(SSProxy::ControlAction action);
    /// Gives control up without a report to the application.
    void giveUpControl();
    PendingCall<Answer<QString>> readControlHolder();
    PendingCall<Outcome> outcomeOf(const SSProxy::RequestIdentity &request,
                                   const QString &operation);
    TrackedCall<UpgradeCall::Result> upgrade(const ProtoModel::Auxiliary::s_UpgradeDetail &upgrade);

private:
    QString reasonOf(const CallResult &result) const;
    Outcome makeOutcome(const CallResult &result, const QString &label, bool isReplaced) const;
    void report(const Outcome &outcome);
    void deliver(CallJob &job, const CallResult &result, bool isReplaced);
    void noteControl(const CallJob &job, const CallResult &result);
    UpgradeCall::Session upgradeSession();

    const std::chrono::milliseconds m_upgradeTime;
    Events &m_events;
    CallQueue m_queue;
    bool m_isConnected = false;
    std::vector<std::shared_ptr<UpgradeCall>> m_upgrades;
    std::shared_ptr<DeviceCalls *> m_self; ///< For trackers that live longer.
};

} // namespace Tavoro::SessionInternal
