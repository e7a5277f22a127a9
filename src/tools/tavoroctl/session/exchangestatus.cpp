#include "exchangestatus.h"

#include <tavoroctl/output/statusmeaning.h>

#include <tavorossproxy/channelstatus.h>
#include <tavorossproxy/commandcodes.h>

namespace Tavoro::Ctl {

namespace {

bool isWrite(const SSProxy::Exchange &exchange)
{
    return exchange.type == SSProxy::CommandType::Write
        || exchange.type == SSProxy::CommandType::BinaryWrite;
}

/// The exit status of a read that was sent and not answered as it should be.
ExitStatus exitStatusOfRead(quint16 status)
{
    switch (status) {
    case SSProxy::RequestTimedOut:
    case SSProxy::DeviceSilent:
    case SSProxy::AnswerIncomplete:
        return TimedOut;
    case SSProxy::Disconnected:
    case SSProxy::AnswerTooShort:
        return Unreachable;
    default:
        return Failed;
    }
}

} // namespace

int statusOf(const std::optional<SSProxy::Exchange> &exchange)
{
    return exchange ? exchange->status : 0;
}

ExitStatus exitStatusOf(const std::optional<SSProxy::Exchange> &exchange)
{
    const int status = statusOf(exchange);
    if (status == 0)
        return Failed;
    if (isDeviceStatus(status))
        return Refused;
    if (!exchange->sent)
        return exchange->status == SSProxy::RequestTimedOut ? TimedOut : Unreachable;
    return isWrite(*exchange) ? UnknownOutcome : exitStatusOfRead(exchange->status);
}

} // namespace Tavoro::Ctl
