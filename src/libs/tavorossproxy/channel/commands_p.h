#pragma once

#include <tavorossproxy/devicecommand.h>
#include <tavorowire/linkcommands.h>

#include <memory>

namespace Tavoro::SSProxy::Internal {

/// A response without a body to the request with \a head, as the channel itself gives it.
inline std::shared_ptr<DeviceResponseCommand> makeResponse(const PacketHead &head, quint16 status)
{
    auto response = std::make_shared<DeviceResponseCommand>();
    response->head() = head;
    response->status = status;
    return response;
}

/// A request that is between the channel and the device alone.
inline DeviceRequestCommand makeLinkRequest(CommandType type, Wire::LinkCommand command)
{
    Wire::WireHead head;
    head.type = static_cast<quint8>(type);
    setCode(head, command);
    DeviceRequestCommand request;
    request.head() = Wire::packetHead(head);
    return request;
}

} // namespace Tavoro::SSProxy::Internal
