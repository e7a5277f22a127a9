#pragma once

#include <tavorossproxy/devicechannel.h>
#include <tavorossproxy/devicecommand.h>

#include <memory>
#include <string>

namespace Tavoro::Control::Internal {

/// Why an exchange failed.
enum class Failure {
    None,
    NoDevice,
    Offline,
    NullResponse,
    Status,
};

/// Outcome of one packet.
struct Reply {
    Failure failure = Failure::None;
    quint16 status = 0;
    std::shared_ptr<SSProxy::DeviceResponseCommand> response;
};

/// Position of a packet in a split exchange, for the log; a \c total of 0 is not logged.
///
/// Kept: reads count packets from 0, writes from 1.
struct PacketCount {
    quint32 packet = 0;
    quint32 total = 0;
};

/// Makes the request for a further packet of a read, or for any packet of a split write. It repeats
/// bytes 18 to 35 of \a head, the head of the caller's request.
///
/// Kept: its timeout is the default of a new request, not that of the device's table.
std::shared_ptr<SSProxy::DeviceRequestCommand> packetRequest(const SSProxy::PacketHead &head,
                                                             quint32 totalCount, quint32 sendCount);

/// Classifies the response that a channel returned.
Reply classify(std::shared_ptr<SSProxy::DeviceResponseCommand> response);

/// Sends one packet and waits for its response. Does not send if the channel is not ready.
Reply sendPacket(SSProxy::DeviceChannel &channel,
                 std::shared_ptr<SSProxy::DeviceRequestCommand> request);

/// Moves the body out of a response; copies it if the channel keeps the response.
std::string takeBody(const Reply &reply);

} // namespace Tavoro::Control::Internal
