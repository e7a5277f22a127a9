#include "framedispatcher_p.h"

#include "devicecontrol_p.h"
#include "exchangetable_p.h"
#include "invalidframes_p.h"
#include "reportdelivery_p.h"
#include "responsemonitor_p.h"

#include <tavorossproxy/channelstatus.h>
#include <tavorowire/jsonelements.h>
#include <tavorowire/linkcommands.h>

#include <utility>

namespace Tavoro::SSProxy::Internal {

namespace {

bool isReportAbove(quint64 maxElements, const Wire::FrameEvent &event)
{
    if (event.head.kind != quint8(Wire::FrameKind::Report))
        return false;
    Wire::JsonElements elements;
    elements.add(event.body);
    return elements.count() > maxElements;
}

} // namespace

void FrameDispatcher::frameReceived(Wire::FrameEvent &&event)
{
    if (event.status == 0 && isReportAbove(m_options.maxElements, event))
        event.status = WrongLength;
    if (event.status != 0)
        m_receivers.invalidFrames.add(event.status);
    if (event.fatal)
        return;
    const bool isAboutControl =
        event.status == 0 && hasCode(event.head, Wire::LinkCommand::Control);
    if (isAboutControl)
        m_receivers.control.take(event);
    // A frame of a kind that devices do not send is probably meant as an answer.
    if (event.head.kind == quint8(Wire::FrameKind::Response) || event.status == WrongType)
        m_receivers.exchanges.complete(std::move(event), m_options.maxPacketCount);
    else if (event.status == 0 && !isAboutControl)
        m_receivers.reports.take(std::move(event));
}

void FrameDispatcher::answerReceived(Wire::FrameEvent &&answer)
{
    m_receivers.exchanges.complete(std::move(answer), m_options.maxPacketCount);
}

void FrameDispatcher::frameStarted(const Wire::WireHead &head)
{
    if (head.kind == quint8(Wire::FrameKind::Response))
        m_receivers.exchanges.answerStarted(head);
}

void FrameDispatcher::frameProgressed(Clock::TimePoint lastProgress)
{
    m_receivers.monitor.setFrameProgress(lastProgress);
}

} // namespace Tavoro::SSProxy::Internal
