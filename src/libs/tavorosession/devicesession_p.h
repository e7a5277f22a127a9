#pragma once

#include "backgroundpoll_p.h"
#include "controlwatch_p.h"
#include "devicecalls_p.h"
#include "devicereading_p.h"
#include "leasekeeper_p.h"
#include "modelfollower_p.h"
#include "modelupdates_p.h"
#include "sessiondevice_p.h"
#include "shared_p.h"

#include <tavorosession/devicesession.h>
#include <tavorosession/sessionoptions.h>

namespace Tavoro::SessionInternal {

/// The state of one device session: follows its channel, reads the device, and passes calls on. On
/// the session's thread.
class DeviceSessionPrivate final : private DeviceReading::Events,
                                   private DeviceCalls::Events,
                                   private ControlWatch::Events {
public:
    DeviceSessionPrivate(const Shared &shared, const QString &host, quint16 port,
                         const SessionOptions &options,
                         std::shared_ptr<BizModel::Device> device = {});
    ~DeviceSessionPrivate();

    void open();
    /// Works with a channel that is already open.
    void adopt(std::shared_ptr<SSProxy::NetworkChannel> channel);
    void close(const QString &reason);
    void reconnectNow()
    {
        if (channel)
            channel->reconnectNow();
    }
    void readAgain()
    {
        if (m_target)
            m_reading.request(m_target);
    }
    DeviceCalls &calls() { return m_calls; }
    const ControlWatch &control() const { return m_control; }
    LeaseKeeper &lease() { return m_lease; }
    const std::shared_ptr<Courier> &courier() const { return m_shared.courier; }
    PendingCall<bool> modelUpdate();
    void setBodiesLogged(bool areLogged) { m_device.setBodiesLogged(areLogged); }

    std::shared_ptr<BizModel::Device> modelDevice() const override { return m_device.get(); }
    QString name() const;
    QString address() const;

    DeviceSession *q = nullptr; ///< Null while no signals may be emitted.
    std::function<void()> deleted; ///< Called when the session is deleted.
    QString host; ///< Empty until a device that discovery found has been connected.
    quint16 port;
    DeviceState state;
    double readProgress = 0;
    std::shared_ptr<SSProxy::NetworkChannel> channel;

private:
    void connectionChanged(const SSProxy::ConnectionState &connection);
    void connected(quint64 connections);
    void waitForConnection(const QString &reason, std::chrono::milliseconds pause);
    void lost(DeviceState::Kind kind, const QString &reason, std::chrono::milliseconds pause);
    void setDevice(const std::shared_ptr<BizModel::Device> &device);
    void takeDevice(const std::shared_ptr<BizModel::Device> &found);
    void closeInFavourOf(DeviceSessionPrivate &other);
    void moveTo(const QString &newHost, quint16 newPort);
    void reportDevice();
    void followed(quint64 noted, bool isComplete);

    void readingStarted() override;
    void readingProgressed(double share) override;
    void readingOutdated(const std::vector<Operations::Scope> &scopes) override
    {
        m_follower.note(scopes);
        m_updates.readingOutdated(m_follower.noted());
    }
    void readingFailed(const QString &reason, std::chrono::milliseconds pause) override;
    void readingEnded(const QString &failures) override;

    void setState(DeviceState::Kind kind, const QString &reason = {},
                  std::chrono::milliseconds pause = {});
    void setDetails(const QString &reason, std::chrono::milliseconds pause);

    void callEnded(const Outcome &outcome) override
    {
        emitIfAlive(&DeviceSession::callFinished, outcome);
    }
    void deviceWritten(const std::vector<Operations::Scope> &scopes) override
    {
        m_follower.note(scopes);
    }
    void controlUsed() override { m_control.noteUse(); }
    void controlGivenUp() override { m_control.noteRelease(); }
    void controlRefused(const QString &holder) override { m_control.noteHolder(holder); }
    QString controlHolder() const override { return m_control.holder(); }
    QString deviceName() const override { return name(); }

    void controlChanged() override { emitIfAlive(&DeviceSession::controlChanged); }
    void controlHolderChanged() override { emitIfAlive(&DeviceSession::controlHolderChanged); }
    void controlIsIdle() override;

    /// Emits a signal, except while the session is being deleted.
    template <class Signal, class... Values>
    void emitIfAlive(Signal signal, const Values &...values)
    {
        if (q)
            Q_EMIT(q->*signal)(values...);
    }

    const Shared m_shared;
    const SessionOptions m_options;
    SessionDevice m_device;
    ControlWatch m_control;
    DeviceCalls m_calls;
    LeaseKeeper m_lease;
    const std::shared_ptr<Lane> m_reads;
    DeviceReading m_reading;
    ModelFollower m_follower;
    ModelUpdates m_updates;
    BackgroundPoll m_poll;
    std::shared_ptr<const CallTarget> m_target; ///< Null without a connection.
    QString m_reportedName; ///< The name that deviceChanged() has reported.
    std::shared_ptr<DeviceSessionPrivate *> m_self; ///< For posts that may arrive too late.
};

} // namespace Tavoro::SessionInternal
