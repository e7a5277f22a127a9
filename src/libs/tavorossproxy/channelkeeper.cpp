#include "channelkeeper_p.h"

#include "logging_p.h"

#include <tavorossproxy/wire/identity.h>

#include <algorithm>

namespace Tavoro::SSProxy::Internal {

ChannelKeeper::ChannelKeeper(std::shared_ptr<ChannelIndex> channels, Opener opener, Handler handler)
    : m_channels(std::move(channels)), m_opener(std::move(opener)), m_handler(std::move(handler))
{ }

void ChannelKeeper::setOptions(const DiscoveryOptions &options)
{
    m_options = options;
    m_hasWarned = false;
}

void ChannelKeeper::take(const ProtoModel::DeviceBaseInfo &device)
{
    const std::string key = Wire::identityKey(device);
    if (key.empty())
        return; // it could not be told from others
    if (const auto known = m_known.find(key); known != m_known.end()) {
        const Channel channel = known->second.lock();
        if (channel && isIn(channel))
            follow(channel, device);
        return;
    }
    if (const Channel channel = findInManager(key)) {
        m_known[key] = channel;
        follow(channel, device);
        return;
    }
    open(key, device);
}

void ChannelKeeper::readmit()
{
    for (auto known = m_known.begin(); known != m_known.end();) {
        const Channel channel = known->second.lock();
        known = channel && isIn(channel) ? std::next(known) : m_known.erase(known);
    }
}

bool ChannelKeeper::isIn(const Channel &channel) const
{
    const auto channels = m_channels->all();
    return std::find(channels.begin(), channels.end(), channel) != channels.end();
}

ChannelKeeper::Channel ChannelKeeper::findInManager(const std::string &key) const
{
    for (const auto &channel : m_channels->all()) {
        if (Wire::identityKey(channel->deviceBaseInfo()) == key)
            return std::dynamic_pointer_cast<NetworkChannel>(channel);
    }
    return nullptr;
}

void ChannelKeeper::follow(const Channel &channel, const ProtoModel::DeviceBaseInfo &device)
{
    if (channel->isHardwareReadFinished())
        return; // a device with two addresses would be pulled to and fro
    m_channels->noteMove(channel);
    channel->moveTo(QString::fromStdString(device.ip), device.tcpPort);
}

void ChannelKeeper::open(const std::string &key, const ProtoModel::DeviceBaseInfo &device)
{
    if (m_channels->all().size() >= static_cast<std::size_t>(std::max(m_options.maxChannels, 0))) {
        if (!m_hasWarned)
            qCWarning(channelLog) << "There are too many devices. Left alone:" << device.ip.c_str();
        m_hasWarned = true;
        return;
    }
    ChannelOptions options = m_options.channels;
    options.identity = key;
    const Channel channel = m_opener(device, options);
    m_known[key] = channel;
    m_channels->add(channel);
    m_handler(channel);
}

} // namespace Tavoro::SSProxy::Internal
