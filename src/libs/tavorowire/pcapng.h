#pragma once

#include <tavorowire/captureencoder.h>
#include <tavorowire/tcppacket.h>

#include <QtGlobal>

#include <map>
#include <string>
#include <string_view>

namespace Tavoro::SSProxy::Wire {

/// Writes a capture as pcapng, the format of Wireshark.
///
/// A channel knows bytes and no packets, so the packets are made up: each call that sent or
/// received bytes becomes one TCP segment, or several if it is long. The sequence numbers, the
/// opening and the end of the connections are such that programs can follow the streams. These are
/// always the same, since a channel does not know the real ones:
///
/// | end    | address                  | port                                  |
/// |--------|--------------------------|---------------------------------------|
/// | client | 192.0.2.1 or 2001:db8::1 | 49152 and up, another per connection  |
/// | device | that of the connection   | 6630                                  |
///
/// The first packet of a connection has the number of its channel as a comment, and the last one
/// of a lost connection has the reason.
class PcapngEncoder final : public CaptureEncoder {
public:
    /// \a startTime is the start of the capture in microseconds since 1970.
    explicit PcapngEncoder(qint64 startTime) : m_startTime(startTime) { }

    std::string heading() const override;
    std::string encode(int channel, qint64 microseconds, CaptureEvent event,
                       std::string_view bytes) override;

private:
    struct Connection {
        TcpEnd client;
        TcpEnd device;
    };

    std::string open(int channel, qint64 time, std::string_view address);
    static std::string transfer(TcpEnd &from, const TcpEnd &to, qint64 time,
                                std::string_view bytes);
    std::string close(int channel, qint64 time);
    std::string lose(int channel, qint64 time, std::string_view reason);

    const qint64 m_startTime;
    unsigned m_connectionCount = 0;
    std::map<int, Connection> m_connections; ///< By channel.
};

} // namespace Tavoro::SSProxy::Wire
