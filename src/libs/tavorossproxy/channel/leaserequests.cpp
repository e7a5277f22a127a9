#include "leaserequests_p.h"

#include "commands_p.h"

#include <tavorossproxy/channelstatus.h>
#include <tavorossproxy/devicechannel.h>
#include <tavorowire/leases.h>

#include <algorithm>
#include <limits>
#include <string>
#include <utility>

namespace Tavoro::SSProxy::Internal {

namespace {

using std::chrono::seconds;

/// What the device answers to a request that was sent at \a asked.
DeviceLease leaseOf(const DeviceResponseCommand &response, Clock::TimePoint asked)
{
    DeviceLease lease;
    lease.status = response.status;
    if (lease.status != 0)
        return lease;
    const auto answer = Wire::decodeLease(response.body());
    if (!answer) {
        lease.status = WrongLength;
        return lease;
    }
    lease.state = static_cast<DeviceLease::State>(answer->state);
    lease.holder = QString::fromStdString(answer->holder);
    lease.remaining = std::chrono::milliseconds(answer->milliseconds);
    lease.end = asked + lease.remaining;
    return lease;
}

DeviceLease exchange(DeviceChannel &channel, const Clock &clock,
                     const std::shared_ptr<DeviceRequestCommand> &request)
{
    const auto asked = clock.now();
    return leaseOf(*channel.sendSyncRequest(request), asked);
}

std::shared_ptr<DeviceRequestCommand> leaseWrite(Wire::LeaseAction action)
{
    auto request = makeLinkRequest(CommandType::Write, Wire::LinkCommand::Lease);
    request->head().arg2[0] = static_cast<quint8>(action);
    return request;
}

/// The device refuses a time that is out of range.
quint16 wireSeconds(seconds time)
{
    constexpr seconds most(std::numeric_limits<quint16>::max());
    return static_cast<quint16>(std::clamp(time, seconds::zero(), most).count());
}

} // namespace

DeviceLease readLease(DeviceChannel &channel, const Clock &clock)
{
    return exchange(channel, clock, makeLinkRequest(CommandType::Read, Wire::LinkCommand::Lease));
}

DeviceLease takeLease(DeviceChannel &channel, const Clock &clock, const QString &holder,
                      std::chrono::seconds time)
{
    const auto request = leaseWrite(Wire::LeaseAction::Take);
    request->body() = Wire::encodeLeaseRequest({wireSeconds(time), holder.toStdString()});
    return exchange(channel, clock, request);
}

DeviceLease releaseLease(DeviceChannel &channel, const Clock &clock)
{
    return exchange(channel, clock, leaseWrite(Wire::LeaseAction::Release));
}

} // namespace Tavoro::SSProxy::Internal
