// The file is a section header, the description of one interface, and a block for each packet:
//
//   block      u32 type, u32 length of the block, content, u32 length of the block
//   section    u32 byte order 0x1A2B3C4D, u16 version 1, u16 0, i64 length of the section or -1
//   interface  u16 link type, u16 0, u32 limit of a packet's length, 0 for none, options
//   packet     u32 interface, u32 and u32 time in microseconds, high word first, u32 length in the
//              file, u32 length on the wire, bytes, options
//   option     u16 code, u16 length, bytes; the option 0 ends the list
//
// Numbers are little-endian. Bytes of packets and options are filled with zeros to four bytes.

#include <tavorowire/pcapng.h>

#include <QHostAddress>
#include <QtEndian>

#include <utility>

namespace Tavoro::SSProxy::Wire {

namespace {

constexpr quint32 sectionBlock = 0x0A0D0D0A;
constexpr quint32 interfaceBlock = 1;
constexpr quint32 packetBlock = 6;
constexpr quint32 byteOrder = 0x1A2B3C4D;
constexpr quint16 linkTypeIp = 101; ///< Packets begin with the header of IPv4 or IPv6.
constexpr quint16 endOfOptions = 0;
constexpr quint16 commentOption = 1;
constexpr quint16 interfaceNameOption = 2;

constexpr quint16 devicePort = 6630;
constexpr quint16 firstClientPort = 49152; ///< The first port that no service has.
constexpr unsigned clientPorts = 0x10000 - firstClientPort;
constexpr char clientIpv4[] = "192.0.2.1"; // reserved for documentation, as the following
constexpr char clientIpv6[] = "2001:db8::1";

template <class Number>
void append(std::string &bytes, Number number)
{
    const Number little = qToLittleEndian(number);
    bytes.append(reinterpret_cast<const char *>(&little), sizeof little);
}

void appendFilled(std::string &bytes, std::string_view content)
{
    bytes.append(content).append((4 - content.size() % 4) % 4, '\0');
}

/// Appends the only option of a block.
void appendOption(std::string &bytes, quint16 code, std::string_view text)
{
    text = text.substr(0, 0xFFFF);
    append(bytes, code);
    append(bytes, static_cast<quint16>(text.size()));
    appendFilled(bytes, text);
    append(bytes, endOfOptions);
    append(bytes, quint16(0));
}

std::string block(quint32 type, const std::string &content)
{
    const auto length = static_cast<quint32>(12 + content.size());
    std::string bytes;
    append(bytes, type);
    append(bytes, length);
    bytes += content;
    append(bytes, length);
    return bytes;
}

std::string packet(qint64 time, const std::string &bytes, std::string_view comment = {})
{
    const auto length = static_cast<quint32>(bytes.size());
    std::string content;
    append(content, quint32(0));
    append(content, static_cast<quint32>(time >> 32));
    append(content, static_cast<quint32>(time));
    append(content, length);
    append(content, length);
    appendFilled(content, bytes);
    if (!comment.empty())
        appendOption(content, commentOption, comment);
    return block(packetBlock, content);
}

/// The bytes of an address in network order; those of 0.0.0.0 if \a text is not an address.
std::string addressBytes(const QString &text)
{
    const QHostAddress address(text);
    if (address.protocol() == QAbstractSocket::IPv6Protocol) {
        const Q_IPV6ADDR bytes = address.toIPv6Address();
        return {reinterpret_cast<const char *>(bytes.c), sizeof bytes.c};
    }
    const quint32 bytes = qToBigEndian(address.toIPv4Address());
    return {reinterpret_cast<const char *>(&bytes), sizeof bytes};
}

} // namespace

std::string PcapngEncoder::heading() const
{
    std::string section;
    append(section, byteOrder);
    append(section, quint16(1));
    append(section, quint16(0));
    append(section, qint64(-1));
    std::string description;
    append(description, linkTypeIp);
    append(description, quint16(0));
    append(description, quint32(0));
    appendOption(description, interfaceNameOption, "channels");
    return block(sectionBlock, section) + block(interfaceBlock, description);
}

std::string PcapngEncoder::encode(int channel, qint64 microseconds, CaptureEvent event,
                                  std::string_view bytes)
{
    const qint64 time = m_startTime + microseconds;
    if (event == CaptureEvent::Open)
        return open(channel, time, bytes);
    const auto found = m_connections.find(channel);
    if (found == m_connections.end())
        return {};
    Connection &connection = found->second;
    switch (event) {
    case CaptureEvent::Sent:
        return transfer(connection.client, connection.device, time, bytes);
    case CaptureEvent::Received:
        return transfer(connection.device, connection.client, time, bytes);
    case CaptureEvent::Close:
        return close(channel, time);
    case CaptureEvent::Lost:
        return lose(channel, time, bytes);
    case CaptureEvent::Open:
        break;
    }
    return {};
}

std::string PcapngEncoder::open(int channel, qint64 time, std::string_view address)
{
    Connection connection;
    TcpEnd &client = connection.client;
    TcpEnd &device = connection.device;
    device.address =
        addressBytes(QString::fromUtf8(address.data(), static_cast<int>(address.size())));
    device.port = devicePort;
    client.address =
        addressBytes(QLatin1String(device.address.size() == 4 ? clientIpv4 : clientIpv6));
    client.port = static_cast<quint16>(firstClientPort + m_connectionCount++ % clientPorts);
    std::string packets =
        packet(time, encodeTcpPacket(client, device, TcpSyn), "channel " + std::to_string(channel));
    packets += packet(time, encodeTcpPacket(device, client, TcpSyn | TcpAck));
    packets += packet(time, encodeTcpPacket(client, device, TcpAck));
    m_connections[channel] = std::move(connection);
    return packets;
}

std::string PcapngEncoder::transfer(TcpEnd &from, const TcpEnd &to, qint64 time,
                                    std::string_view bytes)
{
    std::string packets;
    while (!bytes.empty()) {
        const std::string_view payload = bytes.substr(0, longestTcpPayload);
        packets += packet(time, encodeTcpPacket(from, to, TcpPsh | TcpAck, payload));
        bytes.remove_prefix(payload.size());
    }
    return packets;
}

std::string PcapngEncoder::close(int channel, qint64 time)
{
    Connection connection = m_connections.extract(channel).mapped();
    TcpEnd &client = connection.client;
    TcpEnd &device = connection.device;
    std::string packets = packet(time, encodeTcpPacket(client, device, TcpFin | TcpAck));
    packets += packet(time, encodeTcpPacket(device, client, TcpFin | TcpAck));
    packets += packet(time, encodeTcpPacket(client, device, TcpAck));
    return packets;
}

std::string PcapngEncoder::lose(int channel, qint64 time, std::string_view reason)
{
    Connection connection = m_connections.extract(channel).mapped();
    return packet(time, encodeTcpPacket(connection.device, connection.client, TcpRst | TcpAck),
                  reason);
}

} // namespace Tavoro::SSProxy::Wire
