#include "packet_p.h"

#include <cstring>

namespace Tavoro::Control::Internal {

namespace {

constexpr std::size_t firstRepeated = 18;
constexpr std::size_t repeatedSize = 18; // positions 18 to 35

} // namespace

std::shared_ptr<SSProxy::DeviceRequestCommand> packetRequest(const SSProxy::PacketHead &head,
                                                             quint32 totalCount, quint32 sendCount)
{
    auto request = std::make_shared<SSProxy::DeviceRequestCommand>();
    SSProxy::PacketHead &copy = request->head();
    std::memcpy(reinterpret_cast<char *>(&copy) + firstRepeated,
                reinterpret_cast<const char *>(&head) + firstRepeated, repeatedSize);
    copy.totalCount = totalCount;
    copy.sendCount = sendCount;
    return request;
}

Reply classify(std::shared_ptr<SSProxy::DeviceResponseCommand> response)
{
    if (!response)
        return {Failure::NullResponse, 0, nullptr};
    const quint16 status = response->status;
    return {status == 0 ? Failure::None : Failure::Status, status, std::move(response)};
}

Reply sendPacket(SSProxy::DeviceChannel &channel,
                 std::shared_ptr<SSProxy::DeviceRequestCommand> request)
{
    if (!channel.isHardwareReadFinished())
        return {Failure::Offline, 0, nullptr};
    return classify(channel.sendSyncRequest(std::move(request)));
}

std::string takeBody(const Reply &reply)
{
    std::string &body = reply.response->body();
    return reply.response.use_count() == 1 ? std::move(body) : body;
}

} // namespace Tavoro::Control::Internal
