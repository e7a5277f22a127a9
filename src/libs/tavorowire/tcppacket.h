#pragma once

#include <QtGlobal>

#include <string>
#include <string_view>

namespace Tavoro::SSProxy::Wire {

/// One end of a TCP connection.
struct TcpEnd {
    std::string address; ///< In network order: 4 bytes for IPv4, 16 bytes for IPv6.
    quint16 port = 0;
    quint32 sequence = 0; ///< Sequence number of its next byte.
};

/// The flags of a TCP header.
enum TcpFlag : quint8 {
    TcpFin = 0x01,
    TcpSyn = 0x02,
    TcpRst = 0x04,
    TcpPsh = 0x08,
    TcpAck = 0x10,
};

/// Longest payload that fits into one packet, of IPv4 and of IPv6.
constexpr std::size_t longestTcpPayload = 65000;

/// Returns an IP packet with a TCP segment, and advances the sequence number of \a from. The packet
/// acknowledges everything that \a to has sent. A SYN allows windows of up to 1 GiB, so that
/// programs that check windows accept any amount of bytes in flight.
std::string encodeTcpPacket(TcpEnd &from, const TcpEnd &to, unsigned flags,
                            std::string_view payload = {});

} // namespace Tavoro::SSProxy::Wire
