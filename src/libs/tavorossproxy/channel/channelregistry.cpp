#include "channelregistry_p.h"

#include <tavorocontrol/proto/hexdigits.h>
#include <tavorossproxy/devicechannel.h>

#include <algorithm>
#include <iterator>

namespace Tavoro::SSProxy::Internal {

namespace {

bool hasIdentity(const DeviceChannel &channel, const std::string &ip, const std::string &mac,
                 const std::string &sn)
{
    const auto info = channel.deviceBaseInfo();
    return info.ip == ip && ProtoModel::isHexDigits(sn, info.sn)
        && ProtoModel::isHexDigits(mac, info.mac);
}

} // namespace

std::shared_ptr<ChannelRegistry> ChannelRegistry::ofManager()
{
    static const auto registry = std::make_shared<ChannelRegistry>();
    return registry;
}

void ChannelRegistry::add(std::shared_ptr<DeviceChannel> channel)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (!isRegistered(channel))
        m_channels.push_back(std::move(channel));
}

void ChannelRegistry::remove(const std::shared_ptr<DeviceChannel> &channel)
{
    // These may hold the last references to channels: they are destroyed after the lock was
    // released.
    decltype(m_lastFound) forgotten;
    decltype(m_moves) forgottenMoves;
    const std::lock_guard<std::mutex> lock(m_mutex);
    const auto moves = std::stable_partition(
        m_moves.begin(), m_moves.end(), [&](const Move &move) { return move.channel != channel; });
    forgottenMoves.assign(std::make_move_iterator(moves), std::make_move_iterator(m_moves.end()));
    m_moves.erase(moves, m_moves.end());
    m_channels.erase(std::remove(m_channels.begin(), m_channels.end(), channel), m_channels.end());
    forgotten.swap(m_lastFound);
}

ChannelRegistry::Channels ChannelRegistry::all() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_channels;
}

bool ChannelRegistry::contains(const std::shared_ptr<DeviceChannel> &channel) const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return isRegistered(channel);
}

std::shared_ptr<DeviceChannel> ChannelRegistry::find(const std::string &ip, const std::string &mac,
                                                     const std::string &sn) const
{
    if (auto channel = lastFound(sn); channel && hasIdentity(*channel, ip, mac, sn))
        return channel;
    for (const auto &channel : all()) {
        if (hasIdentity(*channel, ip, mac, sn)) {
            remember(sn, channel);
            return channel;
        }
    }
    return findMoved(ip, mac, sn);
}

void ChannelRegistry::noteMove(const std::shared_ptr<DeviceChannel> &channel)
{
    const std::string ip = channel->deviceBaseInfo().ip;
    const std::lock_guard<std::mutex> lock(m_mutex);
    const bool isNoted = std::any_of(m_moves.begin(), m_moves.end(), [&](const Move &move) {
        return move.channel == channel && move.formerIp == ip;
    });
    if (isRegistered(channel) && !isNoted && !ip.empty())
        m_moves.push_back({channel, ip});
}

std::shared_ptr<DeviceChannel> ChannelRegistry::findMoved(const std::string &ip,
                                                          const std::string &mac,
                                                          const std::string &sn) const
{
    Channels candidates;
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        for (const Move &move : m_moves) {
            if (move.formerIp == ip)
                candidates.push_back(move.channel);
        }
    }
    for (const auto &channel : candidates) {
        if (hasIdentity(*channel, channel->deviceBaseInfo().ip, mac, sn))
            return channel;
    }
    return nullptr;
}

std::shared_ptr<DeviceChannel> ChannelRegistry::lastFound(const std::string &sn) const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    const auto found = m_lastFound.find(sn);
    return found == m_lastFound.end() ? nullptr : found->second;
}

void ChannelRegistry::remember(const std::string &sn,
                               const std::shared_ptr<DeviceChannel> &channel) const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (isRegistered(channel))
        m_lastFound[sn] = channel;
}

/// Call it with the mutex held.
bool ChannelRegistry::isRegistered(const std::shared_ptr<DeviceChannel> &channel) const
{
    return std::find(m_channels.begin(), m_channels.end(), channel) != m_channels.end();
}

} // namespace Tavoro::SSProxy::Internal
