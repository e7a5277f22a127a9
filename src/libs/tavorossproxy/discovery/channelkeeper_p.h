#pragma once

#include <tavorossproxy/channel/channelindex_p.h>

#include <tavorossproxy/devicediscovery.h>
#include <tavorossproxy/networkchannel.h>

#include <functional>
#include <map>
#include <memory>
#include <string>

namespace Tavoro::SSProxy::Internal {

/// Turns devices that are found into channels of the manager. Lives on the thread of the channels'
/// loop.
class ChannelKeeper {
public:
    using Channel = std::shared_ptr<NetworkChannel>;
    using AnyChannel = std::shared_ptr<DeviceChannel>;
    /// Opens a channel to the device.
    using Opener =
        std::function<Channel(const ProtoModel::DeviceBaseInfo &device, const ChannelOptions &)>;
    /// Told of each channel that was opened and is in the manager now.
    using Handler = std::function<void(const Channel &channel)>;

    ChannelKeeper(std::shared_ptr<ChannelIndex> channels, Opener opener, Handler handler);

    void setOptions(const DiscoveryOptions &options);
    /// The device has answered.
    void take(const ProtoModel::DeviceBaseInfo &device);
    /// Lets devices in again whose channels were removed from the manager.
    void readmit();

private:
    bool followKnown(const std::string &key, const ProtoModel::DeviceBaseInfo &device);
    AnyChannel findInManager(const std::string &key) const;
    AnyChannel findBoundFor(const ProtoModel::DeviceBaseInfo &device) const;
    void follow(const AnyChannel &channel, const ProtoModel::DeviceBaseInfo &device);
    void open(const std::string &key, const ProtoModel::DeviceBaseInfo &device);

    const std::shared_ptr<ChannelIndex> m_channels;
    const Opener m_opener;
    const Handler m_handler;
    DiscoveryOptions m_options;
    std::map<std::string, std::weak_ptr<DeviceChannel>> m_known; ///< By the keys of identities.
    bool m_hasWarned = false; ///< That there are too many devices.
};

} // namespace Tavoro::SSProxy::Internal
