#pragma once

#include <tavorocontrol/proto/devicebaseinfo.h>
#include <tavorossproxy/channeloptions.h>
#include <tavorossproxy/export.h>

#include <QString>

#include <vector>

namespace Tavoro::SSProxy {

/// UDP port on which a device listens for discovery requests by default.
constexpr quint16 defaultDiscoveryPort = 6631;

/// Where discovery requests are sent.
struct DiscoveryTarget {
    QString address; ///< IPv4 address of a device, or a broadcast address; other addresses get no
                     ///< request.
    quint16 port = defaultDiscoveryPort; ///< UDP port, 1 to 65535.
};

/// How to search for devices on the network.
struct DiscoveryOptions {
    /// Where to send requests. Empty: to the broadcast address of each network to which this
    /// machine is connected at the time, and to 127.255.255.255, which simulated devices on this
    /// machine answer.
    std::vector<DiscoveryTarget> targets;
    /// Pause between two requests, at most a day. 0: requests are sent only at the start and when
    /// the manager is refreshed.
    std::chrono::milliseconds interval{5000};
    /// Discovery opens no further channels when the manager has this many.
    int maxChannels = 256;
    /// Options of the channels that discovery opens. Discovery sets their \c identity to that of
    /// the found device.
    ChannelOptions channels;
};

/// Starts discovery: searches for devices, and opens a channel in the manager for each device that
/// answers. A \c QCoreApplication must exist. The manager's signal \c deviceChannelFound reports
/// each channel.
///
/// A second call continues with other \a options. If no request can be sent, the reason is logged,
/// and discovery continues with the options of the previous call, if there was one.
///
/// A device is recognised by its serial number, or by its MAC address if the serial number is all
/// zeros:
/// - A device that has a channel in the manager gets no second one, even if the application opened
///   the channel. A channel whose device has not identified itself yet belongs to the device that
///   ChannelOptions::identity names or, without such a name, to the device that was seen at the
///   address with which the channel was opened (host names are not resolved).
/// - A \c NetworkChannel without a connection connects to the address where its device was seen, so
///   a device that gets another address keeps its channel. The manager also finds the channel by
///   the former address, if no channel has that address and the same MAC address and serial number.
/// - A device whose channel was removed gets no new one until the manager is refreshed.
///
/// Any thread; does not block.
TAVOROSSPROXY_EXPORT void startDeviceDiscovery(const DiscoveryOptions &options = {});

/// Stops discovery. The channels that it opened stay in the manager. Any thread; does not block.
TAVOROSSPROXY_EXPORT void stopDeviceDiscovery();

/// Sends requests every 250 ms for \a milliseconds, and returns the identities of the devices that
/// have answered, each once and at most 1024. Their \c ip and \c tcpPort are those of the first
/// answer. Opens no channels. Returns early when \a enough devices have answered; if \a enough is
/// 0, waits the whole time. A \c QCoreApplication must exist. Blocks, so it must not be called by a
/// slot on the channels' thread.
TAVOROSSPROXY_EXPORT std::vector<ProtoModel::DeviceBaseInfo>
findDevices(int milliseconds, int enough = 0, const std::vector<DiscoveryTarget> &targets = {});
/// Does the same. If no request can be sent, for example because the process has no free file
/// descriptor, returns at once, with a sentence in \a error.
TAVOROSSPROXY_EXPORT std::vector<ProtoModel::DeviceBaseInfo>
findDevices(int milliseconds, int enough, const std::vector<DiscoveryTarget> &targets,
            QString &error);

} // namespace Tavoro::SSProxy
