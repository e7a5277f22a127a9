#include "devicesession_p.h"

#include "controljob_p.h"
#include "holderjob_p.h"
#include "logging_p.h"
#include "outcome_p.h"

#include <tavorobizmodel/device.h>
#include <tavorobizmodel/devicelist.h>
#include <tavorossproxy/devicemanager.h>
#include <tavorossproxy/tcpdevicechannel.h>

#include <QCoreApplication>
#include <QDateTime>

#include <utility>

namespace Tavoro::SessionInternal {

using Milliseconds = std::chrono::milliseconds;
using SSProxy::ConnectionState;
using SSProxy::DeviceManager;

namespace {

// clang-format off
constexpr char closedReason[]  = QT_TRANSLATE_NOOP("Tavoro::DeviceSession", "the session is closed");
constexpr char notConnected[]  = QT_TRANSLATE_NOOP("Tavoro::DeviceSession", "there is no connection yet");
constexpr char stoppedReason[] = QT_TRANSLATE_NOOP("Tavoro::DeviceSession", "its channel was stopped");
// clang-format on

QString translated(const char *text)
{
    return QCoreApplication::translate("Tavoro::DeviceSession", text);
}

std::shared_ptr<BizModel::Device> listedDevice(const ProtoModel::DeviceBaseInfo &info)
{
    constexpr unsigned short noNumberYet = 65535;
    auto device = std::make_shared<BizModel::Device>(noNumberYet, nullptr);
    device->setIPAddress(QString::fromStdString(info.ip));
    device->updateDeviceBaseInfo(info);
    auto known = BizModel::DeviceList::instance()
                     ->findDevice(device->IPAddress(), device->MAC(), device->sn())
                     .lock();
    if (known)
        return known;
    device->setName(QString::fromStdString(info.name));
    device->setModelId(info.modelId);
    BizModel::DeviceList::instance()->append(device);
    return device;
}

} // namespace

DeviceSessionPrivate::DeviceSessionPrivate(const Shared &shared, const QString &wantedHost,
                                           quint16 wantedPort, const SessionOptions &options,
                                           std::shared_ptr<BizModel::Device> known)
    : host(wantedHost),
      port(wantedPort),
      device(std::move(known)),
      m_shared(shared),
      m_options(options),
      m_calls(shared.pool, shared.courier, options.maxWaitingCalls, options.outcomeTime,
              [this](CallJob &job, const CallResult &result, bool isReplaced) {
                  deliver(job, result, isReplaced);
              }),
      m_reads(std::make_shared<Lane>(shared.pool)),
      m_reading(shared, m_reads, options, *this),
      m_follower(m_reads, shared.courier,
                 [this](quint64 noted, bool isComplete) { followed(noted, isComplete); }),
      m_self(std::make_shared<DeviceSessionPrivate *>(this))
{
    state.since = QDateTime::currentDateTime();
    state.reason = translated(closedReason);
    m_calls.setTarget(nullptr, state.reason);
    QObject::connect(DeviceManager::instance(), &DeviceManager::masterControlChanged,
                     &m_controlIdle, [this](const std::weak_ptr<SSProxy::DeviceChannel> &changed) {
                         if (channel && changed.lock() == channel)
                             followControl();
                     });
    m_controlIdle.setSingleShot(true);
    m_controlIdle.setInterval(options.controlIdleTime);
    QObject::connect(&m_controlIdle, &QTimer::timeout, &m_controlIdle,
                     [this] { requestControl(SSProxy::ControlAction::GiveUp); });
}

DeviceSessionPrivate::~DeviceSessionPrivate()
{
    q = nullptr;
    close(translated(closedReason));
}

QString DeviceSessionPrivate::name() const
{
    const QString known = device ? device->name() : QString();
    return known.isEmpty() ? address() : known;
}

QString DeviceSessionPrivate::address() const
{
    const bool isIpv6 = host.contains(QLatin1Char(':'));
    return (isIpv6 ? QStringLiteral("[%1]:%2") : QStringLiteral("%1:%2")).arg(host).arg(port);
}

void DeviceSessionPrivate::open()
{
    if (!channel)
        adopt(SSProxy::openTcpDeviceChannel(host, port, m_options.channel));
}

void DeviceSessionPrivate::adopt(std::shared_ptr<SSProxy::NetworkChannel> opened)
{
    DeviceManager::instance()->addDeviceChannel(opened);
    m_calls.setTarget(nullptr, translated(notConnected));
    setState(DeviceState::Connecting);
    channel = std::move(opened);
    const std::weak_ptr<SSProxy::NetworkChannel> followed = channel;
    channel->setConnectionHandler([weak = std::weak_ptr<DeviceSessionPrivate *>(m_self), followed,
                                   courier = m_shared.courier](const ConnectionState &connection) {
        courier->post([weak, followed, connection] {
            const auto self = weak.lock();
            if (self && !followed.expired() && (*self)->channel == followed.lock())
                (*self)->connectionChanged(connection);
        });
    });
}

void DeviceSessionPrivate::close(const QString &reason)
{
    if (!channel)
        return;
    m_calls.endWaiting(reason); // first: the lane starts the next call when the one under way ends
    const auto closed = std::exchange(channel, nullptr);
    closed->stopChannel();
    DeviceManager::instance()->removeDeviceChannel(closed);
    lost(DeviceState::Disconnected, reason, Milliseconds::zero());
    m_calls.endAll(reason);
    m_updates.endAll();
    for (const auto &upgrade : std::exchange(m_upgrades, {}))
        upgrade->end(reason);
}

void DeviceSessionPrivate::reconnectNow()
{
    if (channel)
        channel->reconnectNow();
}

void DeviceSessionPrivate::start(const std::shared_ptr<CallJob> &job, const QString &key)
{
    m_calls.start(job, key);
}

void DeviceSessionPrivate::startTracked(const std::shared_ptr<CallJob> &job, CallTracker &tracker)
{
    tracker.setCancelHandler([weak = std::weak_ptr<DeviceSessionPrivate *>(m_self), job] {
        if (const auto self = weak.lock())
            (*self)->m_calls.cancel(job);
    });
    m_calls.start(job, {});
}

TrackedCall<UpgradeCall::Result>
DeviceSessionPrivate::upgrade(const ProtoModel::Auxiliary::s_UpgradeDetail &upgrade)
{
    UpgradeCall::Session session;
    session.start = [this](const std::shared_ptr<CallJob> &job, bool isQuiet) {
        job->isQuiet = isQuiet;
        m_calls.start(job, {});
    };
    session.report = [this](const CallResult &result, const QString &label) {
        const Outcome outcome = makeOutcome(result, label, false);
        report(outcome);
        return outcome;
    };
    session.isConnected = [this] {
        return m_target != nullptr;
    };
    const auto ended = [](const auto &each) {
        return each->hasEnded();
    };
    m_upgrades.erase(std::remove_if(m_upgrades.begin(), m_upgrades.end(), ended), m_upgrades.end());
    m_upgrades.push_back(std::make_shared<UpgradeCall>(std::move(session), m_options.upgradeTime));
    const auto started = m_upgrades.back();
    auto pending = started->pending();
    started->start(upgrade);
    return pending;
}

PendingCall<Outcome> DeviceSessionPrivate::requestControl(SSProxy::ControlAction action)
{
    const auto job = std::make_shared<ControlJob>(action);
    PendingCall<Outcome> pending(job->future());
    if (action == SSProxy::ControlAction::GiveUp)
        m_controlIdle.stop();
    m_calls.start(job, {});
    return pending;
}

PendingCall<Answer<QString>> DeviceSessionPrivate::readControlHolder()
{
    const auto job = std::make_shared<HolderJob>();
    PendingCall<Answer<QString>> pending(job->future());
    m_calls.start(job, {});
    return pending;
}

PendingCall<bool> DeviceSessionPrivate::modelUpdate()
{
    PendingCall<bool> pending = m_updates.wait(m_follower.noted());
    if (!channel)
        m_updates.endAll();
    return pending;
}

void DeviceSessionPrivate::followControl()
{
    const bool isOthers = m_target && !m_target->channel->isMasterControl();
    if (std::exchange(isControlledByOthers, isOthers) != isOthers && q)
        Q_EMIT q->controlChanged();
}

/// A write takes control, and so begins the idle time after which it is given up.
void DeviceSessionPrivate::noteUse(const CallJob &job, const CallResult &result)
{
    const auto operation = job.operation->operation();
    if (m_controlIdle.interval() > 0 && result.kind == Outcome::Done && operation
        && operation->direction() == Operations::Direction::Write)
        m_controlIdle.start();
}

void DeviceSessionPrivate::connectionChanged(const ConnectionState &connection)
{
    switch (connection.phase) {
    case ConnectionState::Phase::Ready:
        return connected(connection.connections);
    case ConnectionState::Phase::Connecting:
    case ConnectionState::Phase::Pausing:
        return waitForConnection(connection.reason, connection.pause);
    case ConnectionState::Phase::Stopped:
        return close(translated(stoppedReason));
    }
}

void DeviceSessionPrivate::waitForConnection(const QString &reason, Milliseconds pause)
{
    if (m_target)
        return lost(DeviceState::Lost, reason, pause);
    const bool hasFailed = pause > Milliseconds::zero() || !state.reason.isEmpty();
    if (!hasFailed)
        return; // during the first attempt there is no reason yet
    setDetails(reason, pause);
}

void DeviceSessionPrivate::connected(quint64 connections)
{
    takeDevice();
    CallTarget target;
    target.device = device;
    target.channel = channel;
    target.connections = connections;
    m_target = std::make_shared<const CallTarget>(std::move(target));
    setOnline(true);
    followControl();
    m_calls.setTarget(m_target, {});
    m_follower.setTarget(m_target);
    m_reading.request(m_target);
}

/// Takes the device of the channel's identity from the model, or adds it there.
void DeviceSessionPrivate::takeDevice()
{
    const ProtoModel::DeviceBaseInfo info = channel->deviceBaseInfo();
    if (host.isEmpty()) {
        host = QString::fromStdString(info.ip);
        port = info.tcpPort;
    }
    const auto connectedDevice = listedDevice(info);
    connectedDevice->setIPAddress(QString::fromStdString(info.ip));
    connectedDevice->updateDeviceBaseInfo(info);
    const bool isOther = std::exchange(device, connectedDevice) != connectedDevice;
    if (isOther)
        m_reportedName.clear();
    reportDevice();
}

void DeviceSessionPrivate::reportDevice()
{
    const QString former = std::exchange(m_reportedName, name());
    if (former != m_reportedName && q)
        Q_EMIT q->deviceChanged();
}

void DeviceSessionPrivate::lost(DeviceState::Kind kind, const QString &reason, Milliseconds pause)
{
    m_target = nullptr;
    m_reading.stop();
    m_follower.setTarget(nullptr);
    m_updates.lost(m_follower.noted());
    m_controlIdle.stop();
    followControl();
    setOnline(false);
    m_calls.setTarget(nullptr, reason);
    setState(kind, reason, pause);
}

void DeviceSessionPrivate::setOnline(bool isOnline)
{
    if (device && device->isOnline() != isOnline)
        device->setDeviceOnlineFlag(isOnline);
}

void DeviceSessionPrivate::readAgain()
{
    if (m_target)
        m_reading.request(m_target);
}

/// A write may have renamed the device.
void DeviceSessionPrivate::followed(quint64 noted, bool isComplete)
{
    m_updates.followed(noted, isComplete);
    reportDevice();
    if (!isComplete)
        readAgain();
}

void DeviceSessionPrivate::readingStarted()
{
    m_updates.readingStarted(m_follower.noted());
    readProgress = 0;
    setState(DeviceState::Reading);
}

void DeviceSessionPrivate::readingProgressed(double share)
{
    readProgress = share;
    if (q)
        Q_EMIT q->readProgressChanged(share);
}

void DeviceSessionPrivate::readingFailed(const QString &reason, Milliseconds pause)
{
    reportDevice();
    setDetails(reason, pause);
}

void DeviceSessionPrivate::readingEnded(const QString &failures)
{
    reportDevice();
    setState(DeviceState::Ready, failures);
    m_updates.readingEnded(failures.isEmpty());
}

void DeviceSessionPrivate::setState(DeviceState::Kind kind, const QString &reason,
                                    Milliseconds pause)
{
    if (kind == state.kind)
        return setDetails(reason, pause);
    const QDateTime now = QDateTime::currentDateTime();
    state = {kind, reason, now,
             pause > Milliseconds::zero() ? now.addMSecs(pause.count()) : QDateTime()};
    qCInfo(sessionLog) << name() << "is now" << kind << reason;
    if (q)
        Q_EMIT q->stateChanged();
}

void DeviceSessionPrivate::setDetails(const QString &reason, Milliseconds pause)
{
    const QDateTime next = pause > Milliseconds::zero()
        ? QDateTime::currentDateTime().addMSecs(pause.count())
        : QDateTime();
    if (reason == state.reason && next == state.nextAttempt)
        return;
    state.reason = reason;
    state.nextAttempt = next;
    if (!m_target)
        m_calls.setTarget(nullptr, reason);
    if (q)
        Q_EMIT q->stateDetailsChanged();
}

Outcome DeviceSessionPrivate::makeOutcome(const CallResult &result, const QString &label,
                                          bool isReplaced) const
{
    OutcomeData data;
    data.kind = result.kind;
    data.status = result.status;
    data.reason = result.reason;
    data.operation = label;
    data.deviceName = name();
    data.isReplaced = isReplaced;
    data.isCanceled = result.isCanceled;
    return SessionInternal::makeOutcome(data);
}

void DeviceSessionPrivate::report(const Outcome &outcome)
{
    qCInfo(sessionLog).noquote() << outcome.text();
    if (q)
        Q_EMIT q->callFinished(outcome);
}

void DeviceSessionPrivate::deliver(CallJob &job, const CallResult &result, bool isReplaced)
{
    const Outcome outcome = makeOutcome(result, job.label(), isReplaced);
    noteUse(job, result);
    if (job.hasRun && (result.kind == Outcome::Done || result.kind == Outcome::Unknown))
        m_follower.note(job.operation->changes());
    if (!job.isQuiet)
        report(outcome);
    if (job.observer)
        job.observer(outcome, result);
    job.operation->finish(outcome, !job.hasRun);
}

} // namespace Tavoro::SessionInternal
