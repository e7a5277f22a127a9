#pragma once

#include "request.h"

#include <tavorowire/wirehead.h>

#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace Tavoro::Sim {

/// Turns the request frames of one connection into whole requests, and answers into packets: joins
/// split writes and cuts long answers. Contents of files, which may be longer than the memory, pass
/// packet by packet. Pure: no socket and no state of the device.
class PacketAssembler {
public:
    using CarryOut = std::function<Answer(const Request &request)>;
    struct Packet {
        SSProxy::Wire::WireHead head;
        std::string body;
        std::optional<quint32> checksum = {}; ///< Of the body, if it is known already.
    };

    /// Split exchanges that are kept per connection; the oldest goes first.
    static constexpr std::size_t mostStreams = 16;
    /// The longest body that a split write may come to: 64 MiB.
    static constexpr std::size_t longestWrite = std::size_t{64} << 20;

    /// \a packetSize is the longest body of a packet in either direction.
    PacketAssembler(quint32 packetSize, CarryOut carryOut);

    /// The one response to a request frame.
    Packet answer(const SSProxy::Wire::WireHead &head, std::string body);
    /// Reads the piece of a content that will be asked for next, while the client is busy with the
    /// one before.
    void readAhead();

private:
    /// A piece of an answer that nobody has asked for yet.
    struct Piece {
        std::string body;
        quint32 checksum = 0;
    };
    /// A write that is being collected, or an answer that is being handed out.
    struct Stream {
        SSProxy::Wire::WireHead first; ///< Head of the first packet.
        quint32 next = 1; ///< Index of the packet that is due.
        quint32 totalCount = 1;
        std::string body;
        std::shared_ptr<QIODevice> content; ///< If not null, in the place of the body.
        std::optional<Piece> ahead = {}; ///< The one that is due.
    };
    using Streams = std::deque<Stream>;

    Packet answerWhole(const SSProxy::Wire::WireHead &head, std::string body);
    Packet collect(const SSProxy::Wire::WireHead &head, std::string body);
    Packet handOut(const SSProxy::Wire::WireHead &head);
    Packet piece(const SSProxy::Wire::WireHead &request, Stream &stream, quint32 index) const;
    std::size_t lengthOf(const Stream &stream) const;
    std::string cut(const Stream &stream, std::size_t offset) const;

    const quint32 m_packetSize;
    const CarryOut m_carryOut;
    Streams m_writes;
    Streams m_answers;
    std::optional<quint16> m_handedOut; ///< Stream of the last answer that goes on.
    Uploads m_uploads;
};

} // namespace Tavoro::Sim
