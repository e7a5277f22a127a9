#pragma once

#include <tavorossproxy/devicecommand.h>
#include <tavorowire/linkcommands.h>

#include <memory>

namespace Tavoro::SSProxy::Internal {

/// Returns a response without a body, with which the channel itself answers the request with
/// \a head.
inline std::shared_ptr<DeviceResponseCommand> makeResponse(const PacketHead &head, quint16 status)
{
    auto response = std::make_shared<DeviceResponseCommand>();
    response->head() = head;
    response->status = status;
    return response;
}

/// Returns a request that the channel itself sends to the device.
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
