#include "devicetracker_p.h"

#include <tavorossproxy/channel/expecteddevice_p.h>
#include <tavorossproxy/logging_p.h>

#include <tavorocontrol/proto/deviceidentity.h>

#include <algorithm>

namespace Tavoro::SSProxy::Internal {

namespace {

/// The key of the channel's device, or of the only device that the channel accepts. Empty if the
/// channel has not connected yet and accepts any device.
std::string identityOf(const DeviceChannel &channel)
{
    std::string key = ProtoModel::identityKey(channel.deviceBaseInfo());
    if (!key.empty())
        return key;
    const auto *const expected = dynamic_cast<const ExpectedDevice *>(&channel);
    return expected ? expected->expectedIdentity() : std::string();
}

} // namespace

DeviceTracker::DeviceTracker(std::shared_ptr<ChannelRegistry> channels, Opener opener,
                             OpenedHandler handler)
    : m_channels(std::move(channels)), m_opener(std::move(opener)), m_handler(std::move(handler))
{ }

void DeviceTracker::setOptions(const DiscoveryOptions &options)
{
    m_options = options;
    m_hasWarned = false;
}

void DeviceTracker::noteSeen(const ProtoModel::DeviceBaseInfo &device)
{
    const std::string key = ProtoModel::identityKey(device);
    if (key.empty() || followKnown(key, device))
        return; // known, or without a key that distinguishes it from other devices
    if (const AnyChannel channel = findInManager(key)) {
        m_known[key] = channel;
        follow(channel, device);
    } else if (const AnyChannel unidentified = findUnidentified(device)) {
        follow(unidentified, device); // its device is known once it has connected
    } else {
        open(key, device);
    }
}

void DeviceTracker::forgetRemoved()
{
    for (auto known = m_known.begin(); known != m_known.end();)
        known =
            m_channels->contains(known->second.lock()) ? std::next(known) : m_known.erase(known);
}

/// Returns true if the device is known and gets no further channel.
bool DeviceTracker::followKnown(const std::string &key, const ProtoModel::DeviceBaseInfo &device)
{
    const auto known = m_known.find(key);
    if (known == m_known.end())
        return false;
    const AnyChannel channel = known->second.lock();
    if (!m_channels->contains(channel)) {
        const AnyChannel other = findInManager(key);
        if (!other)
            return true; // the channel was removed, and the device gets no new one
        known->second = other; // the application has opened another channel
        follow(other, device);
        return true;
    }
    if (const std::string identity = identityOf(*channel); !identity.empty() && identity != key) {
        m_known.erase(known); // the channel is connected to another device now
        return false;
    }
    follow(channel, device);
    return true;
}

DeviceTracker::AnyChannel DeviceTracker::findInManager(const std::string &key) const
{
    for (const AnyChannel &channel : m_channels->all()) {
        if (identityOf(*channel) == key)
            return channel;
    }
    return nullptr;
}

/// Returns a channel that connects to the device's address and accepts any device there.
DeviceTracker::AnyChannel
DeviceTracker::findUnidentified(const ProtoModel::DeviceBaseInfo &device) const
{
    const QString host = QString::fromStdString(device.ip);
    for (const AnyChannel &channel : m_channels->all()) {
        const auto *const expected = dynamic_cast<const ExpectedDevice *>(channel.get());
        if (expected && expected->connectsTo(host, device.tcpPort) && identityOf(*channel).empty())
            return channel;
    }
    return nullptr;
}

void DeviceTracker::follow(const AnyChannel &channel, const ProtoModel::DeviceBaseInfo &device)
{
    const auto network = std::dynamic_pointer_cast<NetworkChannel>(channel);
    if (!network || network->isHardwareReadFinished())
        return; // otherwise a device with two addresses would switch between them
    if (network->deviceBaseInfo().ip != device.ip)
        m_channels->noteMove(network);
    network->moveTo(QString::fromStdString(device.ip), device.tcpPort);
}

void DeviceTracker::open(const std::string &key, const ProtoModel::DeviceBaseInfo &device)
{
    if (m_channels->all().size() >= static_cast<std::size_t>(std::max(m_options.maxChannels, 0))) {
        if (!m_hasWarned)
            qCWarning(channelLog) << "Too many channels. Ignored the device at"
                                  << device.ip.c_str();
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
