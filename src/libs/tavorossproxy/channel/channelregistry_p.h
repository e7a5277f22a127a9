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

/// The channels of a manager, found by their identities. Any thread.
///
/// The identity of a channel may change at any time without notice. So the registry only caches the
/// channel that was last found for a serial number: find() checks the identity of that channel, and
/// searches all channels if it does not match. No channel is called while the mutex is held.
class ChannelRegistry {
public:
    /// The registry of the one manager.
    static std::shared_ptr<ChannelRegistry> ofManager();

    void add(std::shared_ptr<DeviceChannel> channel);
    void remove(const std::shared_ptr<DeviceChannel> &channel);
    std::vector<std::shared_ptr<DeviceChannel>> all() const;
    bool contains(const std::shared_ptr<DeviceChannel> &channel) const;
    /// The channel is about to connect to its device at another address. From now on find() also
    /// finds it by its former address, if no channel has that address and the same MAC address and
    /// serial number.
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
    std::shared_ptr<DeviceChannel> lastFound(const std::string &sn) const;
    void remember(const std::string &sn, const std::shared_ptr<DeviceChannel> &channel) const;
    bool isRegistered(const std::shared_ptr<DeviceChannel> &channel) const;

    mutable std::mutex m_mutex;
    Channels m_channels; // guarded by m_mutex
    std::vector<Move> m_moves; // guarded by m_mutex
    /// The channel that was last found for each serial number; guarded by m_mutex.
    mutable std::unordered_map<std::string, std::shared_ptr<DeviceChannel>> m_lastFound;
};

} // namespace Tavoro::SSProxy::Internal
