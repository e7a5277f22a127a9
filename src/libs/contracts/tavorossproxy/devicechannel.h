#pragma once

#include <tavorocontrol/proto/devicebaseinfo.h>
#include <tavorossproxy/export.h>

#include <memory>

namespace Tavoro::SSProxy {

class DeviceRequestCommand;
class DeviceResponseCommand;

/// A channel to one device, over any transport.
///
/// All members may be called from any thread, also from several at once. None throws.
class TAVOROSSPROXY_EXPORT DeviceChannel {
public:
    virtual ~DeviceChannel() = default;

    /// Sends \a request to the device, and blocks the caller until the response arrives or the
    /// request's timeout ends. A channel over a network sets tag and stream in the request's head.
    ///
    /// Returns the response. If the network or the device failed, its \c status says why, see
    /// ChannelStatus. Null only if no response object could be created.
    virtual std::shared_ptr<DeviceResponseCommand>
    sendSyncRequest(std::shared_ptr<DeviceRequestCommand> request) = 0;

    /// Returns a copy of the identity that the device reported at the last connection. The identity
    /// is empty before the first one.
    virtual ProtoModel::DeviceBaseInfo deviceBaseInfo() const = 0;

    /// Returns true if the channel has read the device's identity and accepts requests. Users see
    /// false as "offline".
    virtual bool isHardwareReadFinished() = 0;

    /// Returns true if this client holds control of the device, or if no client does. In the second
    /// case this client gets control with its next write.
    virtual bool isMasterControl() = 0;

    /// Disconnects permanently. Requests in flight end with a status. Does not wait until the
    /// connection is closed.
    virtual void stopChannel() = 0;
};

} // namespace Tavoro::SSProxy
