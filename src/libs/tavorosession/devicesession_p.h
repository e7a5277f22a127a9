#pragma once

#include "callqueue_p.h"
#include "callstarter_p.h"
#include "devicereading_p.h"
#include "modelfollower_p.h"
#include "modelupdates_p.h"
#include "shared_p.h"
#include "upgradecall_p.h"

#include <tavorosession/devicesession.h>
#include <tavorosession/sessionoptions.h>
#include <tavorossproxy/controlaction.h>

#include <QTimer>

namespace Tavoro::SessionInternal {

/// The state of one device session: follows its channel, reads the device, and passes calls on. On
/// the session's thread.
class DeviceSessionPrivate final : public CallStarter, private DeviceReading::Events {
public:
    DeviceSessionPrivate(const Shared &shared, const QString &host, quint16 port,
                         const SessionOptions &options,
                         std::shared_ptr<BizModel::Device> device = {});
    ~DeviceSessionPrivate();

    void open();
    /// Works with a channel that is already open.
    void adopt(std::shared_ptr<SSProxy::NetworkChannel> channel);
    void close(const QString &reason);
    void reconnectNow();
    void readAgain();
    void start(const std::shared_ptr<CallJob> &job, const QString &key);
    void start(const std::shared_ptr<CallJob> &job) override { start(job, {}); }
    void startTracked(const std::shared_ptr<CallJob> &job, CallTracker &tracker) override;
    std::shared_ptr<BizModel::Device> modelDevice() const override { return device; }
    TrackedCall<UpgradeCall::Result> upgrade(const ProtoModel::Auxiliary::s_UpgradeDetail &upgrade);
    PendingCall<Outcome> requestControl(SSProxy::ControlAction action);
    PendingCall<Answer<QString>> readControlHolder();
    PendingCall<bool> modelUpdate();

    QString name() const;
    QString address() const;

    DeviceSession *q = nullptr; ///< Null while no signals may be emitted.
    std::function<void()> deleted; ///< Called when the session is deleted.
    QString host; ///< Empty until a device that discovery found has been connected.
    quint16 port;
    DeviceState state;
    double readProgress = 0;
    bool isControlledByOthers = false;
    std::shared_ptr<BizModel::Device> device;
    std::shared_ptr<SSProxy::NetworkChannel> channel;

private:
    void connectionChanged(const SSProxy::ConnectionState &connection);
    void connected(quint64 connections);
    void waitForConnection(const QString &reason, std::chrono::milliseconds pause);
    void lost(DeviceState::Kind kind, const QString &reason, std::chrono::milliseconds pause);
    void takeDevice();
    void setOnline(bool isOnline);
    void followControl();
    void noteUse(const CallJob &job, const CallResult &result);
    void reportDevice();
    void followed(quint64 noted, bool isComplete);

    void readingStarted() override;
    void readingProgressed(double share) override;
    void readingFailed(const QString &reason, std::chrono::milliseconds pause) override;
    void readingEnded(const QString &failures) override;

    void setState(DeviceState::Kind kind, const QString &reason = {},
                  std::chrono::milliseconds pause = {});
    void setDetails(const QString &reason, std::chrono::milliseconds pause);
    Outcome makeOutcome(const CallResult &result, const QString &label, bool isReplaced) const;
    void report(const Outcome &outcome);
    void deliver(CallJob &job, const CallResult &result, bool isReplaced);

    const Shared m_shared;
    const SessionOptions m_options;
    CallQueue m_calls;
    const std::shared_ptr<Lane> m_reads;
    DeviceReading m_reading;
    ModelFollower m_follower;
    ModelUpdates m_updates;
    std::vector<std::shared_ptr<UpgradeCall>> m_upgrades;
    std::shared_ptr<const CallTarget> m_target; ///< Null without a connection.
    QTimer m_controlIdle; ///< Runs since the last write, if control is given up by itself.
    QString m_reportedName; ///< The name that deviceChanged() has reported.
    std::shared_ptr<DeviceSessionPrivate *> m_self; ///< For posts that may arrive too late.
};

} // namespace Tavoro::SessionInternal
