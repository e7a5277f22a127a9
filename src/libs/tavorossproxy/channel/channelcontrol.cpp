// Who holds control of the device: the part of ChannelCore that asks for it and follows it.

#include "channelcore_p.h"
#include "commands_p.h"
#include <tavorossproxy/logging_p.h>

#include <tavorowire/devicestatus.h>

namespace Tavoro::SSProxy::Internal {

bool ChannelCore::requestControl(ControlAction action, QString &error)
{
    auto request = makeLinkRequest(CommandType::Write, Wire::LinkCommand::Control);
    request.head().arg2[0] = static_cast<quint8>(action);
    const auto deadline = m_loop->clock().now() + ChannelOptions::Milliseconds(request.timeout());
    const quint16 status = exchange(request)->status;
    // A device that does not hand out control lets everybody write.
    if (status == quint16(Wire::DeviceStatus::Success)
        || status == quint16(Wire::DeviceStatus::UnknownCommand))
        return true;
    if (status == quint16(Wire::DeviceStatus::ControlledByOthers))
        error =
            tr("The device at %1 is controlled by %2.").arg(peerName(), holderOfControl(deadline));
    else if (waitUntilReady(ChannelOptions::Milliseconds(0), error))
        error = tr("The device at %1 does not answer for its control: %2 (%3).")
                    .arg(peerName(), reasonOf(status))
                    .arg(status);
    return false;
}

QString ChannelCore::reasonOf(quint16 status)
{
    switch (status) {
    case RequestTimedOut:
    case AnswerIncomplete:
        return tr("no answer in time");
    case CalledOnChannelThread:
        return tr("the thread that receives cannot ask");
    case NoFreeTag:
        return tr("too many requests are under way");
    case Disconnected:
        return tr("the connection was lost");
    default:
        return status < NotInitialized ? tr("it refuses") : tr("its answer is not valid");
    }
}

QString ChannelCore::holderOfControl(Clock::TimePoint deadline)
{
    auto request = makeLinkRequest(CommandType::Read, Wire::LinkCommand::Control);
    const auto rest =
        std::chrono::duration_cast<ChannelOptions::Milliseconds>(deadline - m_loop->clock().now());
    if (rest.count() < 1)
        return tr("another client");
    request.setTimeout(static_cast<int>(rest.count()));
    const auto response = exchange(request);
    return response->status == 0 && !response->body().empty()
        ? QString::fromStdString(response->body())
        : tr("another client");
}

/// A report tells what has changed; the answer to a request, which comes before that, what the
/// caller relies on when it has returned. Both on the loop's thread, in the order of the device.
void ChannelCore::noteControl(const Wire::FrameEvent &event)
{
    const quint8 argument = event.head.arg2[0];
    if (event.head.kind == quint8(Wire::FrameKind::Report))
        takeControl(argument == quint8(Wire::ControlState::Yours),
                    QString::fromStdString(event.body));
    else if (event.head.status == 0 && event.head.type == quint8(CommandType::Write)
             && argument != quint8(ControlAction::GiveUp))
        takeControl(true, {});
}

/// A device may let control change as often as it likes, faster than anybody takes it.
void ChannelCore::takeControl(bool isMaster, const QString &holder)
{
    if (m_isMaster.exchange(isMaster) == isMaster)
        return;
    m_holderOfControl = holder;
    if (m_controlLines->passes())
        logControl(0);
    if (m_controlChanges->passes())
        tellControl(0);
}

void ChannelCore::logControl(quint64 changes)
{
    if (changes > 1)
        qCWarning(channelLog) << "Control of" << peerName() << "has changed often, times"
                              << changes;
    if (m_isMaster)
        qCInfo(channelLog) << "Nobody else controls" << peerName();
    else
        qCWarning(channelLog) << "Others control" << peerName() << m_holderOfControl;
}

/// What has changed and changed back meanwhile is no change.
void ChannelCore::tellControl(quint64 /*changes*/)
{
    const bool isMaster = m_isMaster;
    if (m_toldMaster == isMaster)
        return;
    m_toldMaster = isMaster;
    if (m_handlers.control)
        m_handlers.control(isMaster);
}

} // namespace Tavoro::SSProxy::Internal
