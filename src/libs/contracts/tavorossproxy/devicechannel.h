#pragma once

#include <tavorocontrol/proto/devicebaseinfo.h>
#include <tavorossproxy/export.h>

#include <memory>

namespace Tavoro::SSProxy {

class DeviceRequestCommand;
class DeviceResponseCommand;

/// One connection to one device. Any transport, and any test, can stand behind it.
///
/// All members may be called from any thread, several at once. None throws.
class TAVOROSSPROXY_EXPORT DeviceChannel {
public:
    virtual ~DeviceChannel() = default;

    /// Sends and blocks the caller until the response arrives or the request's timeout ends.
    ///
    /// Failures of the network come back as a response with a non-zero status. Null means that no
    /// response object could be made at all.
    virtual std::shared_ptr<DeviceResponseCommand>
    sendSyncRequest(std::shared_ptr<DeviceRequestCommand> request) = 0;

    /// A copy of the identity that the channel found at connection.
    virtual ProtoModel::DeviceBaseInfo deviceBaseInfo() const = 0;

    /// True when the start-up read of the device has ended and the channel may be used. False reads
    /// as "offline" to the user.
    virtual bool isHardwareReadFinished() = 0;

    /// True while this client holds control of the device, or no client does: it would get it by
    /// its first write.
    virtual bool isMasterControl() = 0;

    /// Stops the channel and disconnects.
    virtual void stopChannel() = 0;
};

} // namespace Tavoro::SSProxy
