#include "devicesession_p.h"

#include "listeddevice_p.h"
#include "logging_p.h"
#include "texts_p.h"

#include <tavorobizmodel/device.h>
#include <tavorossproxy/devicemanager.h>
#include <tavorossproxy/tcpdevicechannel.h>

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
constexpr char openAlready[]   = QT_TRANSLATE_NOOP("Tavoro::DeviceSession", "the device is open already, at %1");
constexpr char stoppedReason[] = QT_TRANSLATE_NOOP("Tavoro::DeviceSession", "its channel was stopped");
// clang-format on

} // namespace

DeviceSessionPrivate::DeviceSessionPrivate(const Shared &shared, const QString &wantedHost,
                                           quint16 wantedPort, const SessionOptions &options,
                                           std::shared_ptr<BizModel::Device> known)
    : host(wantedHost),
      port(wantedPort),
      m_shared(shared),
      m_options(options),
      m_device(shared.owners, this, options.logsBodies),
      m_control(shared.pool, shared.courier, options.controlIdleTime, *this),
      m_calls(shared.pool, shared.courier, options, *this),
      m_lease(
          [this](const std::shared_ptr<LeaseJob> &job, bool isQuiet) {
              job->isQuiet = isQuiet;
              m_calls.start(job);
          },
          [this] { emitIfAlive(&DeviceSession::leaseChanged); }),
      m_reads(std::make_shared<Lane>(shared.pool, shared.courier)),
      m_reading(shared, m_reads, options, *this),
      m_follower(m_reads, [this](quint64 noted, bool isComplete) { followed(noted, isComplete); }),
      m_poll(options.poll,
             [this](const Operations::Scope &scope, std::function<void()> ended) {
                 m_follower.poll(scope, std::move(ended));
             }),
      m_self(std::make_shared<DeviceSessionPrivate *>(this))
{
    if (known)
        m_device.set(std::move(known));
    state.since = QDateTime::currentDateTime();
    state.reason = SessionTexts::tr(closedReason);
    m_calls.setTarget(nullptr, state.reason);
}

DeviceSessionPrivate::~DeviceSessionPrivate()
{
    q = nullptr;
    close(SessionTexts::tr(closedReason));
}

QString DeviceSessionPrivate::name() const
{
    const QString known = m_device.get() ? m_device.get()->name() : QString();
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
    m_calls.setTarget(nullptr, SessionTexts::tr(notConnected));
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
    setState(DeviceState::Connecting); // last: a slot may close the session
}

void DeviceSessionPrivate::close(const QString &reason)
{
    if (!channel)
        return;
    const auto closed = channel;
    m_lease.stop();
    m_calls.endWaiting(reason); // first: the lane starts the next call when the one under way ends
    if (channel != closed)
        return; // a slot has closed the session
    channel = nullptr;
    closed->stopChannel();
    DeviceManager::instance()->removeDeviceChannel(closed);
    lost(DeviceState::Disconnected, reason, Milliseconds::zero());
    if (m_target)
        return; // a slot has opened the session and waited until it was connected
    m_calls.endAll(reason);
    m_updates.endAll();
}

PendingCall<bool> DeviceSessionPrivate::modelUpdate()
{
    PendingCall<bool> pending = m_updates.wait(m_follower.noted());
    if (!channel)
        m_updates.endAll();
    return pending;
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
        return close(SessionTexts::tr(stoppedReason));
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

/// Slots may close the session, or run an event loop in which the connection is lost.
void DeviceSessionPrivate::connected(quint64 connections)
{
    CallTarget opened;
    opened.channel = channel;
    opened.connections = connections;
    opened.reports = std::make_shared<ReportCounts>(channel);
    const auto isCurrent = [&] {
        return channel == opened.channel && opened.isConnected();
    };
    // Slots that see the new device in the list find its session.
    opened.device = listedDevice(channel->deviceBaseInfo(),
                                 [this](const auto &created) { setDevice(created); });
    if (!isCurrent())
        return;
    DeviceSessionPrivate *const other = m_shared.owners.of(opened.device.get());
    if (other && other != this && other->channel)
        return closeInFavourOf(*other);
    takeDevice(opened.device);
    if (!isCurrent())
        return;
    const auto target = std::make_shared<const CallTarget>(opened);
    m_target = target;
    m_calls.setTarget(target, {});
    m_follower.setTarget(target);
    m_device.setOnline(true);
    if (m_target == target)
        m_control.setTarget(target);
    if (m_target == target)
        m_lease.connected();
    if (m_target == target)
        m_reading.request(target);
}

/// One device has one session: calls and readings of two would disturb each other.
void DeviceSessionPrivate::closeInFavourOf(DeviceSessionPrivate &other)
{
    const ProtoModel::DeviceBaseInfo info = channel->deviceBaseInfo();
    other.moveTo(host.isEmpty() ? QString::fromStdString(info.ip) : host,
                 host.isEmpty() ? info.tcpPort : port);
    close(SessionTexts::tr(openAlready).arg(other.address()));
}

/// The device was seen at another address. A session that is connected stays where it is.
void DeviceSessionPrivate::moveTo(const QString &newHost, quint16 newPort)
{
    if (m_target)
        return;
    host = newHost;
    port = newPort;
    channel->moveTo(host, port);
    reportDevice();
}

void DeviceSessionPrivate::takeDevice(const std::shared_ptr<BizModel::Device> &found)
{
    const ProtoModel::DeviceBaseInfo info = channel->deviceBaseInfo();
    if (host.isEmpty()) {
        host = QString::fromStdString(info.ip);
        port = info.tcpPort;
    }
    found->setIPAddress(QString::fromStdString(info.ip));
    found->updateDeviceBaseInfo(info);
    setDevice(found);
    reportDevice();
}

void DeviceSessionPrivate::setDevice(const std::shared_ptr<BizModel::Device> &device)
{
    if (m_device.get() != device)
        m_reportedName.clear();
    m_device.set(device);
}

void DeviceSessionPrivate::reportDevice()
{
    const QString former = std::exchange(m_reportedName, name());
    if (former != m_reportedName)
        emitIfAlive(&DeviceSession::deviceChanged);
}

void DeviceSessionPrivate::lost(DeviceState::Kind kind, const QString &reason, Milliseconds pause)
{
    m_target = nullptr;
    m_reading.stop();
    m_follower.setTarget(nullptr);
    m_updates.lost(m_follower.noted());
    // Slots may open or close the session, or run an event loop until it is connected again.
    const auto isCurrent = [this, former = channel] {
        return channel == former && !m_target;
    };
    m_calls.setTarget(nullptr, reason);
    if (isCurrent())
        m_control.setTarget(nullptr);
    if (isCurrent())
        m_lease.lost();
    if (isCurrent())
        m_device.setOnline(false);
    if (isCurrent())
        setState(kind, reason, pause);
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
    emitIfAlive(&DeviceSession::readProgressChanged, share);
}

void DeviceSessionPrivate::readingFailed(const QString &reason, Milliseconds pause)
{
    const auto target = m_target;
    reportDevice();
    if (m_target == target) // a slot may have closed the session
        setDetails(reason, pause);
}

void DeviceSessionPrivate::readingEnded(const QString &failures)
{
    m_updates.readingEnded(failures.isEmpty());
    const auto target = m_target;
    reportDevice();
    if (m_target == target) // a slot may have closed the session
        setState(DeviceState::Ready, failures);
}

void DeviceSessionPrivate::setState(DeviceState::Kind kind, const QString &reason,
                                    Milliseconds pause)
{
    if (kind == state.kind)
        return setDetails(reason, pause);
    m_poll.setActive(kind == DeviceState::Ready);
    const QDateTime now = QDateTime::currentDateTime();
    state = {kind, reason, now,
             pause > Milliseconds::zero() ? now.addMSecs(pause.count()) : QDateTime()};
    qCInfo(sessionLog) << name() << "is now" << kind << reason;
    emitIfAlive(&DeviceSession::stateChanged);
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
    emitIfAlive(&DeviceSession::stateDetailsChanged);
}

/// A call under way, such as a transfer, may need control until its end. If the request fails, it
/// is repeated after the idle time.
void DeviceSessionPrivate::controlIsIdle()
{
    m_control.noteUse(); // first: the request may end at once
    if (!m_calls.isBusy())
        m_calls.giveUpControl();
}

} // namespace Tavoro::SessionInternal
