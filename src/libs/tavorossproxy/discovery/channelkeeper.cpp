#include "channelkeeper_p.h"

#include <tavorossproxy/channel/expecteddevice_p.h>
#include <tavorossproxy/logging_p.h>

#include <tavorocontrol/proto/deviceidentity.h>

#include <algorithm>

namespace Tavoro::SSProxy::Internal {

namespace {

/// The key of what the channel's device has told, or of what it must tell; empty while it may be
/// any.
std::string identityOf(const DeviceChannel &channel)
{
    std::string key = ProtoModel::identityKey(channel.deviceBaseInfo());
    if (!key.empty())
        return key;
    const auto *const expected = dynamic_cast<const ExpectedDevice *>(&channel);
    return expected ? expected->expectedIdentity() : std::string();
}

} // namespace

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
    const std::string key = ProtoModel::identityKey(device);
    if (key.empty() || followKnown(key, device))
        return; // without a key it could not be told from others
    if (const AnyChannel channel = findInManager(key)) {
        m_known[key] = channel;
        follow(channel, device);
    } else if (const AnyChannel stranger = findBoundFor(device)) {
        follow(stranger, device); // whose it is shows when it has connected
    } else {
        open(key, device);
    }
}

void ChannelKeeper::readmit()
{
    for (auto known = m_known.begin(); known != m_known.end();)
        known =
            m_channels->contains(known->second.lock()) ? std::next(known) : m_known.erase(known);
}

/// True when the device is known and gets no further channel.
bool ChannelKeeper::followKnown(const std::string &key, const ProtoModel::DeviceBaseInfo &device)
{
    const auto known = m_known.find(key);
    if (known == m_known.end())
        return false;
    const AnyChannel channel = known->second.lock();
    if (!m_channels->contains(channel)) {
        const AnyChannel other = findInManager(key);
        if (!other)
            return true; // it was removed
        known->second = other; // the application's own
        follow(other, device);
        return true;
    }
    if (const std::string identity = identityOf(*channel); !identity.empty() && identity != key) {
        m_known.erase(known); // the channel has another device now
        return false;
    }
    follow(channel, device);
    return true;
}

ChannelKeeper::AnyChannel ChannelKeeper::findInManager(const std::string &key) const
{
    for (const AnyChannel &channel : m_channels->all()) {
        if (identityOf(*channel) == key)
            return channel;
    }
    return nullptr;
}

/// A channel that waits for whatever device is at that place.
ChannelKeeper::AnyChannel
ChannelKeeper::findBoundFor(const ProtoModel::DeviceBaseInfo &device) const
{
    const QString host = QString::fromStdString(device.ip);
    for (const AnyChannel &channel : m_channels->all()) {
        const auto *const expected = dynamic_cast<const ExpectedDevice *>(channel.get());
        if (expected && expected->isBoundFor(host, device.tcpPort) && identityOf(*channel).empty())
            return channel;
    }
    return nullptr;
}

void ChannelKeeper::follow(const AnyChannel &channel, const ProtoModel::DeviceBaseInfo &device)
{
    const auto network = std::dynamic_pointer_cast<NetworkChannel>(channel);
    if (!network || network->isHardwareReadFinished())
        return; // a device with two addresses would be pulled to and fro
    if (network->deviceBaseInfo().ip != device.ip)
        m_channels->noteMove(network);
    network->moveTo(QString::fromStdString(device.ip), device.tcpPort);
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
