#pragma once

#include <QtGlobal>

#include <chrono>
#include <string>

namespace Tavoro::SSProxy {

/// Port on which a device listens unless it is told otherwise.
constexpr quint16 defaultTcpPort = 6630;

/// The limits of a channel over a network. The defaults suit a device on a local network. Times of
/// less than 1 ms, and \c maxPacketCount, \c maxUnsentBytes and \c maxOwedAnswers of less than 1,
/// count as 1; times of more than a day, but \c maxRequestTime, count as a day.
struct ChannelOptions {
    using Milliseconds = std::chrono::milliseconds;

    /// How long one attempt to connect may take.
    Milliseconds connectTimeout{5000};
    /// How long the device may take to tell its identity after that.
    Milliseconds identityTimeout{5000};
    /// Pause before the first attempt to reconnect after a loss or a failure. Each further pause is
    /// twice as long as the one before, up to the longest. The first pause applies again after a
    /// connection that answered a request or that lasted for the longest pause.
    Milliseconds firstReconnectPause{250};
    Milliseconds longestReconnectPause{10000};
    /// The device is pinged when nothing came from it for so long ...
    Milliseconds keepAliveInterval{5000};
    /// ... and the connection is given up when nothing came for so long, and nothing went to the
    /// system of what waits in the socket. At least twice the interval.
    Milliseconds keepAliveTimeout{15000};

    /// Longest time that a request may take, whatever it asks for. The further packets of a split
    /// exchange ask for DeviceRequestCommand::defaultTimeout.
    Milliseconds maxRequestTime = Milliseconds::max();
    /// When the time of a request ends, and the device stopped so long ago in the middle of a
    /// frame, the connection is made anew: the next frames would be taken for the rest of that one.
    Milliseconds stalledAnswerTimeout{2000};

    /// Longest body of a frame, in bytes. A longer one from the device ends the connection, and a
    /// device that would take longer ones is sent packets of this size. At most 1 GiB. The identity
    /// of a device has to fit as well.
    quint32 maxBodySize = 64u << 20;
    /// Most packets that an answer may claim to have. One that claims more is refused.
    quint32 maxPacketCount = 65536;
    /// Bytes that may wait in the socket before further requests are held back, in full, in the
    /// channel, and pings of the device get no pong.
    quint32 maxUnsentBytes = 4u << 20;
    /// Reports that may be on their way to those who take them, and as many that wait for that;
    /// beyond it the oldest are dropped that have a newer one of the same code behind them.
    int maxPendingReports = 1024;
    /// Bytes of the bodies of such reports, in the same way.
    qint64 maxPendingReportBytes = 16 << 20;
    /// Channels of this process that may have a connection. One beyond them tries again later, as
    /// after a failure; with 0 none ever connects.
    int maxConnections = 1024;
    /// Serial number of the only device that is taken at the other end, 16 upper-case hexadecimal
    /// digits; of a device whose serial number is all zeros the 12 digits of its MAC. Empty: any.
    std::string identity;
    /// The tag of a request that timed out stays taken, lest its late answer reach another request.
    /// When so many answers are owed, the connection is made anew, which frees their tags. At most
    /// 255, that is all.
    int maxOwedAnswers = 128;
};

} // namespace Tavoro::SSProxy
