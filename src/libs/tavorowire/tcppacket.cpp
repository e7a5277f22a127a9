// An IP header without options, a TCP header, and the payload. All numbers are big-endian.

#include <tavorowire/tcppacket.h>

namespace Tavoro::SSProxy::Wire {

namespace {

constexpr quint8 tcpProtocol = 6;
constexpr quint8 timeToLive = 64;
constexpr quint16 window = 0xFFFF;
/// Segments of up to 65000 bytes, window scale 14, and an option without meaning that fills the
/// word.
constexpr std::string_view synOptions("\x02\x04\xFD\xE8\x03\x03\x0E\x01", 8);
static_assert(longestTcpPayload == 0xFDE8);
constexpr std::size_t ipv4ChecksumAt = 10;
constexpr std::size_t tcpChecksumAt = 16;

void append8(std::string &bytes, unsigned number)
{
    bytes += static_cast<char>(number & 0xFF);
}

void append16(std::string &bytes, unsigned number)
{
    append8(bytes, number >> 8);
    append8(bytes, number);
}

void append32(std::string &bytes, quint32 number)
{
    append16(bytes, number >> 16);
    append16(bytes, number);
}

/// The sum of the 16-bit words of \a bytes; an odd byte is the high one of its word.
quint64 sumOfWords(std::string_view bytes)
{
    quint64 sum = 0;
    for (std::size_t i = 0; i < bytes.size(); ++i)
        sum += static_cast<quint64>(static_cast<quint8>(bytes[i])) << (i % 2 == 0 ? 8 : 0);
    return sum;
}

/// Writes the checksum of the internet protocols, made of \a sum, into \a header.
void setChecksum(std::string &header, std::size_t position, quint64 sum)
{
    while (sum > 0xFFFF)
        sum = (sum & 0xFFFF) + (sum >> 16);
    const auto checksum = static_cast<quint16>(~sum);
    header[position] = static_cast<char>(checksum >> 8);
    header[position + 1] = static_cast<char>(checksum & 0xFF);
}

std::string ipv4Header(const std::string &from, const std::string &to, std::size_t length)
{
    std::string header("\x45\x00", 2); // version 4, five words, no class of traffic
    append16(header, static_cast<unsigned>(20 + length));
    append32(header, 0x4000); // identification 0, not a fragment
    append8(header, timeToLive);
    append8(header, tcpProtocol);
    append16(header, 0);
    header += from + to;
    setChecksum(header, ipv4ChecksumAt, sumOfWords(header));
    return header;
}

std::string ipv6Header(const std::string &from, const std::string &to, std::size_t length)
{
    std::string header("\x60\x00\x00\x00", 4); // version 6, no class of traffic, no flow
    append16(header, static_cast<unsigned>(length));
    append8(header, tcpProtocol);
    append8(header, timeToLive);
    return header + from + to;
}

std::string tcpHeader(const TcpEnd &from, const TcpEnd &to, unsigned flags)
{
    const std::string_view options = (flags & TcpSyn) != 0 ? synOptions : std::string_view();
    std::string header;
    append16(header, from.port);
    append16(header, to.port);
    append32(header, from.sequence);
    append32(header, (flags & TcpAck) != 0 ? to.sequence : 0);
    append8(header, static_cast<unsigned>((20 + options.size()) / 4 << 4));
    append8(header, flags);
    append16(header, window);
    append32(header, 0); // checksum, no urgent bytes
    return header.append(options);
}

} // namespace

std::string encodeTcpPacket(TcpEnd &from, const TcpEnd &to, unsigned flags,
                            std::string_view payload)
{
    std::string segment = tcpHeader(from, to, flags).append(payload);
    setChecksum(segment, tcpChecksumAt,
                sumOfWords(from.address) + sumOfWords(to.address) + tcpProtocol + segment.size()
                    + sumOfWords(segment));
    from.sequence += static_cast<quint32>(payload.size());
    if ((flags & (TcpSyn | TcpFin)) != 0)
        ++from.sequence;
    const auto ipHeader = from.address.size() == 4 ? ipv4Header : ipv6Header;
    return ipHeader(from.address, to.address, segment.size()) + segment;
}

} // namespace Tavoro::SSProxy::Wire
