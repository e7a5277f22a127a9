#pragma once

#include <tavorossproxy/export.h>
#include <tavorossproxy/packethead.h>

#include <chrono>
#include <optional>
#include <string>

namespace Tavoro::SSProxy {

/// Identifies a request to the device that received it, for NetworkChannel::outcomeOf(). Stays
/// valid when the channel reconnects.
struct RequestIdentity {
    std::string client; ///< 8 bytes that identify the channel.
    quint32 connection = 0; ///< Number of the connection of this channel.
    quint32 number = 0; ///< Number of the request, counted over all connections of the channel.
};

/// One request to a device, and what the channel returned for it.
struct Exchange {
    quint16 status = 0; ///< The status of the response, see DeviceResponseCommand::status.
    CommandType type = CommandType::Read; ///< Kind of the exchange.
    quint16 code = 0; ///< The command code: base code in the high byte, function code in the low.
    quint32 packet = 0; ///< Index of the packet in a split exchange, from 0.
    quint32 packets = 1; ///< Number of packets of a split exchange, or 1.
    /// Identifies the request at the device. Empty if the channel did not send the request.
    std::optional<RequestIdentity> sent;
    /// When the request was passed to the thread that sends it.
    std::chrono::steady_clock::time_point time;
};

/// Observes the exchanges of the thread that creates it, until it is destroyed. It shows a
/// caller of an operation what became of the request: the error text of the operation does not say
/// whether the device received it.
///
/// \code
/// ExchangeWatch watch;
/// const bool ok = screen.writeTake({effect}, error);
/// if (!ok && watch.last() && watch.last()->sent)
///     // the device may have carried the take out
/// \endcode
///
/// Channels over a network report to it, also each packet of a split exchange. An operation sends
/// nothing if the device is offline; then last() holds the status with which the channel refuses
/// requests, without a code. If a thread has several watches, the newest one observes. Belongs to
/// one thread.
class TAVOROSSPROXY_EXPORT ExchangeWatch {
public:
    ExchangeWatch();
    ~ExchangeWatch();
    ExchangeWatch(const ExchangeWatch &) = delete;
    ExchangeWatch &operator=(const ExchangeWatch &) = delete;

    /// The last exchange since the watch was created; nothing if there was none.
    const std::optional<Exchange> &last() const { return m_last; }
    /// When the first exchange since the watch was created was sent; nothing if none was.
    const std::optional<std::chrono::steady_clock::time_point> &firstSent() const
    {
        return m_firstSent;
    }

    /// For channels: reports an exchange of the calling thread to its newest watch.
    static void report(Exchange exchange);

private:
    ExchangeWatch *const m_outer;
    std::optional<Exchange> m_last;
    std::optional<std::chrono::steady_clock::time_point> m_firstSent;
};

} // namespace Tavoro::SSProxy
