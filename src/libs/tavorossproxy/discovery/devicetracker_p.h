#pragma once

#include <tavorossproxy/channel/channelregistry_p.h>

#include <tavorossproxy/devicediscovery.h>
#include <tavorossproxy/networkchannel.h>

#include <functional>
#include <map>
#include <memory>
#include <string>

namespace Tavoro::SSProxy::Internal {

/// Opens a channel in the manager for each device that discovery finds, one per device, and moves a
/// channel without a connection to the address at which its device was seen. On the loop's thread.
class DeviceTracker {
public:
    using Channel = std::shared_ptr<NetworkChannel>;
    using AnyChannel = std::shared_ptr<DeviceChannel>;
    /// Opens a channel to the device.
    using Opener =
        std::function<Channel(const ProtoModel::DeviceBaseInfo &device, const ChannelOptions &)>;
    /// Called for each opened channel, after it was added to the manager.
    using OpenedHandler = std::function<void(const Channel &channel)>;

    DeviceTracker(std::shared_ptr<ChannelRegistry> channels, Opener opener, OpenedHandler handler);

    void setOptions(const DiscoveryOptions &options);
    /// The device was seen at the address \c ip.
    void noteSeen(const ProtoModel::DeviceBaseInfo &device);
    /// Lets noteSeen() open channels again for devices whose channels were removed from the
    /// manager.
    void forgetRemoved();

private:
    bool followKnown(const std::string &key, const ProtoModel::DeviceBaseInfo &device);
    AnyChannel findInManager(const std::string &key) const;
    AnyChannel findUnidentified(const ProtoModel::DeviceBaseInfo &device) const;
    void follow(const AnyChannel &channel, const ProtoModel::DeviceBaseInfo &device);
    void open(const std::string &key, const ProtoModel::DeviceBaseInfo &device);

    const std::shared_ptr<ChannelRegistry> m_channels;
    const Opener m_opener;
    const OpenedHandler m_handler;
    DiscoveryOptions m_options;
    std::map<std::string, std::weak_ptr<DeviceChannel>> m_known; ///< By identityKey().
    bool m_hasWarned = false; ///< The warning about too many devices was logged.
};

} // namespace Tavoro::SSProxy::Internal
