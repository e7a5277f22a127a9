#pragma once

#include "exchange_p.h"

#include <tavorossproxy/devicechannel.h>

#include <memory>
#include <string>

namespace Tavoro::Control::Internal {

/// What became of one packet.
struct Reply {
    Failure failure = Failure::None;
    quint16 status = 0;
    std::shared_ptr<SSProxy::DeviceResponseCommand> response;
};

/// The body of an answer: taken out of it, or a copy if the channel keeps the answer.
std::string takeBody(const Reply &reply);

/// Where an exchange goes. Holds the device for as long as the exchange lasts.
struct Route {
    std::shared_ptr<BizModel::Device> device;
    std::shared_ptr<SSProxy::DeviceChannel>
        channel; ///< Null for a device that exists only in the model.
};

/// The channel of a device, null when there is none.
std::shared_ptr<SSProxy::DeviceChannel> channelOf(const BizModel::Device &device);

/// What every exchange begins with: finds the device, logs the request, gives it the time that the
/// device's table has for its codes, and finds the channel. False if the device is gone; that has
/// then been told.
bool openRoute(Exchange &exchange, const std::weak_ptr<BizModel::Device> &device,
               SSProxy::DeviceRequestCommand &request, QString &error, Route &route);

/// A further packet of a read, or any packet of a split write. It repeats bytes 18 to 35 of the
/// head of the caller's request.
///
/// Kept: its timeout is that of a fresh request, not the one of the device's table.
std::shared_ptr<SSProxy::DeviceRequestCommand> packetRequest(const SSProxy::PacketHead &first,
                                                             quint32 totalCount, quint32 sendCount);

/// Judges what a channel gave back.
Reply judge(std::shared_ptr<SSProxy::DeviceResponseCommand> response);

/// Sends one packet and waits, unless the channel is not ready.
Reply exchangePacket(SSProxy::DeviceChannel &channel,
                     std::shared_ptr<SSProxy::DeviceRequestCommand> request);

} // namespace Tavoro::Control::Internal
