#include "devicecontrol_p.h"

#include "commands_p.h"
#include <tavorossproxy/logging_p.h>

#include <tavorossproxy/channelstatus.h>
#include <tavorowire/devicestatus.h>

#include <utility>

namespace Tavoro::SSProxy::Internal {

using Milliseconds = std::chrono::milliseconds;

namespace {

/// Shortest interval between two calls of the handler: receivers may be slower than the device.
constexpr Milliseconds notificationInterval(100);

} // namespace

DeviceControl::DeviceControl(NetworkChannel &channel, EventLoop &loop,
                             std::function<QString()> peerName, Handler handler)
    : m_channel(channel),
      m_loop(loop),
      m_peerName(std::move(peerName)),
      m_handler(std::move(handler)),
      m_notifications(
          std::make_unique<RateLimiter>(loop, notificationInterval, [this](quint64) { notify(); })),
      m_lines(std::make_unique<RateLimiter>(loop, logInterval,
                                            [this](quint64 changes) { log(changes); }))
{ }

bool DeviceControl::request(ControlAction action, QString &error)
{
    const auto request = makeLinkRequest(CommandType::Write, Wire::LinkCommand::Control);
    request->head().arg2[0] = static_cast<quint8>(action);
    const auto deadline = m_loop.clock().now() + Milliseconds(request->timeout());
    const quint16 status = m_channel.sendSyncRequest(request)->status;
    // A device that does not support control lets every client write.
    if (status == quint16(Wire::DeviceStatus::Success)
        || status == quint16(Wire::DeviceStatus::UnknownCommand))
        return true;
    if (status == quint16(Wire::DeviceStatus::ControlledByOthers))
        error = tr("The device at %1 is controlled by %2.").arg(m_peerName(), holder(deadline));
    else if (m_channel.waitUntilReady(0, error))
        error = requestFailed(action, status);
    return false;
}

QString DeviceControl::requestFailed(ControlAction action, quint16 status) const
{
    const QString text = action == ControlAction::GiveUp
        ? tr("Could not give up control of the device at %1: %2 (%3).")
        : tr("Could not take control of the device at %1: %2 (%3).");
    return text.arg(m_peerName(), reasonOf(status)).arg(status);
}

QString DeviceControl::reasonOf(quint16 status)
{
    switch (status) {
    case RequestTimedOut:
    case AnswerIncomplete:
        return tr("no answer in time");
    case CalledOnChannelThread:
        return tr("called on the channels' own thread");
    case NoFreeTag:
        return tr("too many requests are in flight");
    case Disconnected:
        return tr("the connection was lost");
    default:
        return status < NotInitialized ? tr("the device refuses") : tr("its answer is not valid");
    }
}

std::shared_ptr<DeviceResponseCommand> DeviceControl::askForHolder(int milliseconds)
{
    const auto request = makeLinkRequest(CommandType::Read, Wire::LinkCommand::Control);
    request->setTimeout(milliseconds);
    return m_channel.sendSyncRequest(request);
}

bool DeviceControl::readHolder(QString &holder)
{
    const auto response = askForHolder(DeviceRequestCommand::defaultTimeout);
    const bool hasControl = response->status != quint16(Wire::DeviceStatus::UnknownCommand);
    if (hasControl && response->status != quint16(Wire::DeviceStatus::Success))
        return false;
    holder = hasControl ? QString::fromStdString(response->body()) : QString();
    return true;
}

QString DeviceControl::holder(TimePoint deadline)
{
    const auto rest = std::chrono::duration_cast<Milliseconds>(deadline - m_loop.clock().now());
    if (rest.count() < 1)
        return tr("another client");
    const auto response = askForHolder(static_cast<int>(rest.count()));
    return response->status == 0 && !response->body().empty()
        ? QString::fromStdString(response->body())
        : tr("another client");
}

/// When a request changes control, the device sends the answer before the report. The answer is
/// evaluated too, so that isMaster() is up to date when the request returns.
void DeviceControl::take(const Wire::FrameEvent &event)
{
    const quint8 argument = event.head.arg2[0];
    if (event.head.kind == quint8(Wire::FrameKind::Report))
        setMaster(argument == quint8(Wire::ControlState::Yours),
                  QString::fromStdString(event.body));
    else if (event.head.status == 0 && event.head.type == quint8(CommandType::Write)
             && argument != quint8(ControlAction::GiveUp))
        setMaster(true, {});
}

void DeviceControl::stop()
{
    m_notifications.reset();
    m_lines->flush();
}

void DeviceControl::setMaster(bool isMaster, const QString &holder)
{
    if (m_isMaster.exchange(isMaster) == isMaster)
        return;
    m_holder = holder;
    if (m_lines->passes())
        log(0);
    if (m_notifications->passes())
        notify();
}

void DeviceControl::log(quint64 changes) const
{
    if (changes > 1)
        qCWarning(channelLog) << "Control of" << m_peerName() << "has changed often, times"
                              << changes;
    if (m_isMaster)
        qCInfo(channelLog) << "Nobody else controls" << m_peerName();
    else
        qCWarning(channelLog) << "Others control" << m_peerName() << m_holder;
}

/// The handler is not called for a change that was reverted since its last call.
void DeviceControl::notify()
{
    const bool isMaster = m_isMaster;
    if (std::exchange(m_notifiedMaster, isMaster) != isMaster && m_handler)
        m_handler(isMaster);
}

} // namespace Tavoro::SSProxy::Internal
