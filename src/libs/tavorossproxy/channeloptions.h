#pragma once

#include <QtGlobal>

#include <chrono>
#include <string>

namespace Tavoro::SSProxy {

/// TCP port on which a device listens by default.
constexpr quint16 defaultTcpPort = 6630;

/// The limits of a channel over a network. The defaults suit a device on a local network.
///
/// Values out of range count as the nearest valid value:
/// - times are 1 ms to 24 h, except \c maxRequestTime, which is at least 1 ms;
/// - \c minTransferRate, \c maxPacketCount, \c maxUnsentBytes and \c maxOwedAnswers are at least 1.
struct ChannelOptions {
    /// The unit of all times.
    using Milliseconds = std::chrono::milliseconds;

    /// Longest time of one attempt to connect.
    Milliseconds connectTimeout{5000};
    /// Longest time between the connection and the device's identity answer.
    Milliseconds identityTimeout{5000};
    /// Pause before the first attempt to reconnect after a loss or a failure. Each further pause is
    /// twice as long as the one before, up to the longest. The first pause applies again after a
    /// connection that answered a request or that lasted for the longest pause.
    Milliseconds firstReconnectPause{250};
    /// Longest pause between two attempts to reconnect.
    Milliseconds longestReconnectPause{10000};
    /// The client pings the device after this time without a sign of life ...
    Milliseconds keepAliveInterval{5000};
    /// ... and closes the connection after this one. At least twice the interval. Signs of life are
    /// a received frame, the first byte of one, and a frame in either direction that progresses at
    /// \c minTransferRate.
    Milliseconds keepAliveTimeout{15000};

    /// Upper limit for the timeout of a request. The further packets of a split exchange ask for
    /// DeviceRequestCommand::defaultTimeout.
    Milliseconds maxRequestTime = Milliseconds::max();
    /// How long a frame may arrive without progress. If a request times out while a frame has been
    /// stalled for this time, the channel reconnects: the following frames would be taken for the
    /// rest of that one.
    Milliseconds stalledAnswerTimeout{2000};
    /// Slowest rate at which a long frame may arrive or leave, in bytes per second. An arriving
    /// frame makes progress each time that this rate times \c stalledAnswerTimeout bytes have
    /// arrived (2048 by default); fewer bytes do not count.
    quint32 minTransferRate = 1024;

    /// Longest body of a frame, in bytes, at most 1 GiB. A device that sends a longer one is
    /// disconnected; a device that accepts longer ones gets packets of this size. The limit holds
    /// for the device's identity too.
    quint32 maxBodySize = 64u << 20;
    /// Most packets that an answer may announce. One that announces more is refused.
    quint32 maxPacketCount = 65536;
    /// Bytes that may wait in the socket. Beyond that, further requests wait in the channel, and
    /// the device's pings get no pong.
    quint32 maxUnsentBytes = 4u << 20;
    /// Reports that may be with their receivers, and as many again that may wait in the channel.
    /// Beyond that, the channel drops the oldest report that is followed by one of the same code.
    int maxPendingReports = 1024;
    /// Bytes of the bodies of these reports, limited in the same way.
    qint64 maxPendingReportBytes = 16 << 20;
    /// Channels of this process that may have a connection at the same time. A further channel
    /// tries again later, as after a failure; with 0 no channel connects.
    int maxConnections = 1024;
    /// Serial number of the only device that the channel accepts, 16 upper-case hexadecimal digits;
    /// for a device whose serial number is all zeros, the 12 digits of its MAC address. Empty: any
    /// device.
    std::string identity;
    /// A request that timed out keeps its tag, so that its late answer cannot reach another
    /// request. When this many answers are outstanding, the channel reconnects, which frees their
    /// tags. At most 255, the number of tags.
    int maxOwedAnswers = 128;
};

} // namespace Tavoro::SSProxy
