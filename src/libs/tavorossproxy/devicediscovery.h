#pragma once

#include <tavorocontrol/proto/devicebaseinfo.h>
#include <tavorossproxy/channeloptions.h>
#include <tavorossproxy/export.h>

#include <QString>

#include <vector>

namespace Tavoro::SSProxy {

/// Port on which a device listens for those who look for it, by UDP.
constexpr quint16 defaultDiscoveryPort = 6631;

/// Somewhere to look for devices.
struct DiscoveryTarget {
    QString address; ///< IPv4, of one device or of a broadcast; anything else is not asked.
    quint16 port = defaultDiscoveryPort;
};

/// How to look for devices on the network.
struct DiscoveryOptions {
    /// Where to ask. Empty: every network that this machine has at the time, by broadcast.
    std::vector<DiscoveryTarget> targets;
    /// Pause between two requests. 0: only at the start and when the manager is refreshed. More
    /// than a day counts as a day.
    std::chrono::milliseconds interval{5000};
    /// Devices that are found beyond so many channels in the manager are left alone.
    int maxChannels = 256;
    /// Of the channels that are opened; \c identity is that of the found device.
    ChannelOptions channels;
};

/// Looks for devices from now on, and opens a channel in the manager for each that it finds. A
/// \c QCoreApplication must exist. A second call goes on with \a options in place of those before;
/// when nothing can be asked, the log tells why, and a search from before goes on.
///
/// Nothing is looked for until this is called. Each channel that is opened is told by the manager's
/// \c deviceChannelFound. A device is known by its serial number, or where that is all zeros by its
/// MAC:
/// - One that has a channel in the manager, whoever opened it, gets no second one. A channel that
///   has not told an identity yet is that of the device which ChannelOptions::identity names, or
///   which was seen at the address that it was opened with (a name of a host is not looked up).
///   When a \c NetworkChannel has no connection, it tries where the device was seen; so a device
///   that moves to another address keeps its channel. The manager finds it by the former address
///   too, for as long as no other device is there.
/// - One whose channel was removed from the manager stays away until the manager is refreshed.
///
/// Any thread; returns at once.
TAVOROSSPROXY_EXPORT void startDeviceDiscovery(const DiscoveryOptions &options = {});

/// Looks for devices no more. Channels that were opened stay. Any thread.
TAVOROSSPROXY_EXPORT void stopDeviceDiscovery();

/// Asks every 250 ms for \a milliseconds, and returns the devices that have answered, each once:
/// where it was first seen (\c ip and \c tcpPort) and who it is. No channel is opened. Returns
/// early when \a enough devices have answered; 0: never. At most 1024 devices. Blocks; not for
/// slots on the channels' thread. A \c QCoreApplication must exist.
TAVOROSSPROXY_EXPORT std::vector<ProtoModel::DeviceBaseInfo>
findDevices(int milliseconds, int enough = 0, const std::vector<DiscoveryTarget> &targets = {});
/// The same. When nothing can be asked, as there are no more sockets, returns at once, with a
/// sentence in \a error.
TAVOROSSPROXY_EXPORT std::vector<ProtoModel::DeviceBaseInfo>
findDevices(int milliseconds, int enough, const std::vector<DiscoveryTarget> &targets,
            QString &error);

} // namespace Tavoro::SSProxy
