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
/// - \c minTransferRate, \c maxPacketCount, \c maxElements, \c maxUnsentBytes and
/// \c maxTimedOutRequests are at least 1.
struct ChannelOptions {
    /// The unit of all times.
    using Milliseconds = std::chrono::milliseconds;

    /// Longest time of one attempt to connect.
    Milliseconds connectTimeout{5000};
    /// Longest time from the connection to the device's identity answer.
    Milliseconds identityTimeout{5000};
    /// Pause before the first attempt to reconnect after a loss or a failure. Each further pause is
    /// twice as long as the one before, up to \c longestReconnectPause. A connection that answered
    /// a request, or that lasted for \c longestReconnectPause, resets the pause to this value.
    Milliseconds firstReconnectPause{250};
    /// Longest pause between two attempts to reconnect.
    Milliseconds longestReconnectPause{10000};
    /// The client pings the device after this time without a sign of life. Signs of life are a
    /// received frame, the first byte of one, and a frame in either direction that progresses at
    /// \c minTransferRate.
    Milliseconds keepAliveInterval{5000};
    /// The client closes the connection after this time without a sign of life. At least twice
    /// \c keepAliveInterval.
    Milliseconds keepAliveTimeout{15000};

    /// Upper limit for the timeout of a request. It also limits the further packets of a split
    /// exchange, whose timeout is DeviceRequestCommand::defaultTimeout.
    Milliseconds maxRequestTime = Milliseconds::max();
    /// How long an arriving frame may make no progress. If a request times out when a frame has
    /// been stalled for this time, the channel reconnects: it would otherwise take the following
    /// frames for the rest of the stalled one.
    Milliseconds stalledAnswerTimeout{2000};
    /// Slowest rate at which a long frame may be received or sent, in bytes per second. An arriving
    /// frame makes progress each time that as many bytes have arrived as this rate gives for
    /// \c stalledAnswerTimeout (2048 by default); fewer bytes do not count.
    quint32 minTransferRate = 1024;

    /// Longest body of a frame, in bytes, at most 1 GiB. If a device sends a longer body, the
    /// channel reconnects; a device that accepts longer bodies gets packets of this size. The limit
    /// also applies to the body of the device's identity answer.
    quint32 maxBodySize = 64u << 20;
    /// Most packets that an answer may announce. An answer that announces more is refused.
    quint32 maxPacketCount = 65536;
    /// Most elements of a JSON answer, over all its packets: the commas and opening brackets
    /// outside strings. An answer with more is refused. This limits the memory of decoded answers,
    /// since a few bytes of JSON can become a record of some hundred bytes: an answer at the
    /// default limit takes at most about 2 GiB. The same limit applies to each report. The layers
    /// of a device, for comparison, have 83 elements each.
    quint32 maxElements = 8u << 20;
    /// Bytes that may wait in the socket. While more wait, further requests wait in the channel,
    /// and the device's pings are not answered.
    quint32 maxUnsentBytes = 4u << 20;
    /// Reports that receivers may hold at the same time; as many more may wait in the channel. When
    /// further ones arrive, the channel drops the oldest waiting report that is followed by one of
    /// the same code, or else the oldest.
    int maxPendingReports = 1024;
    /// Bytes of the bodies of these reports, limited in the same way.
    qint64 maxPendingReportBytes = 16 << 20;
    /// Channels of this process that may have a connection at the same time. A further channel
    /// retries later, as after a failure; with 0 no channel connects.
    int maxConnections = 1024;
    /// Serial number of the only device that the channel accepts, 16 upper-case hexadecimal digits;
    /// for a device whose serial number is all zeros, the 12 digits of its MAC address. Empty: any
    /// device.
    std::string identity;
    /// Answers to timed-out requests that may be outstanding, at most 255 (the number of tags). A
    /// request that timed out keeps its tag, so that its late answer cannot reach another request.
    /// When this number is reached, the channel reconnects, which frees the tags.
    int maxTimedOutRequests = 128;
};

} // namespace Tavoro::SSProxy
