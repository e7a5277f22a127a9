#pragma once

#include <memory>
#include <mutex>
#include <string>
#include <unordered_map>
#include <vector>

namespace Tavoro::SSProxy {
class DeviceChannel;
}

namespace Tavoro::SSProxy::Internal {

/// The channels of a manager, found by the identities that they tell. Any thread.
///
/// A channel may get its identity, or another one, at any time and does not say so. Hence the index
/// is only a guess at where to look first; whoever is found there is asked again, and when it is
/// somebody else all are asked. No channel is called under the lock.
class ChannelIndex {
public:
    /// That of the one manager.
    static std::shared_ptr<ChannelIndex> ofManager();

    void add(std::shared_ptr<DeviceChannel> channel);
    void remove(const std::shared_ptr<DeviceChannel> &channel);
    std::vector<std::shared_ptr<DeviceChannel>> all() const;
    bool contains(const std::shared_ptr<DeviceChannel> &channel) const;
    /// The device of \a channel is about to be looked for elsewhere: from now on the channel is
    /// found by the address of its connection before, too, unless another channel has it.
    void noteMove(const std::shared_ptr<DeviceChannel> &channel);

    std::shared_ptr<DeviceChannel> find(const std::string &ip, const std::string &mac,
                                        const std::string &sn) const;

private:
    using Channels = std::vector<std::shared_ptr<DeviceChannel>>;
    struct Move {
        std::shared_ptr<DeviceChannel> channel;
        std::string formerIp;
    };

    std::shared_ptr<DeviceChannel> findMoved(const std::string &ip, const std::string &mac,
                                             const std::string &sn) const;
    std::shared_ptr<DeviceChannel> guess(const std::string &sn) const;
    void remember(const std::string &sn, const std::shared_ptr<DeviceChannel> &channel) const;
    bool isIn(const std::shared_ptr<DeviceChannel> &channel) const;

    mutable std::mutex m_mutex;
    Channels m_channels; // guarded by m_mutex
    std::vector<Move> m_moves; // guarded by m_mutex
    /// Who was last found by a serial number; guarded by m_mutex.
    mutable std::unordered_map<std::string, std::shared_ptr<DeviceChannel>> m_lastFound;
};

} // namespace Tavoro::SSProxy::Internal
