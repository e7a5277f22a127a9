#pragma once

#include <tavorossproxy/devicecommand.h>
#include <tavorowire/linkcommands.h>

#include <memory>

namespace Tavoro::SSProxy::Internal {

/// A response without a body that the channel itself gives to the request with \a head.
inline std::shared_ptr<DeviceResponseCommand> makeResponse(const PacketHead &head, quint16 status)
{
    auto response = std::make_shared<DeviceResponseCommand>();
    response->head() = head;
    response->status = status;
    return response;
}

/// A request of the channel itself to the device.
inline std::shared_ptr<DeviceRequestCommand> makeLinkRequest(CommandType type,
                                                             Wire::LinkCommand command)
{
    Wire::WireHead head;
    head.type = static_cast<quint8>(type);
    setCode(head, command);
    auto request = std::make_shared<DeviceRequestCommand>();
    request->head() = Wire::packetHead(head);
    return request;
}

} // namespace Tavoro::SSProxy::Internal
