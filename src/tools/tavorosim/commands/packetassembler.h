#pragma once

#include "request.h"

#include <tavorowire/wirehead.h>

#include <QByteArray>

#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace Tavoro::Sim {

/// Joins the request frames of one connection to whole requests, and cuts answers into packets.
/// Contents of files, which may be longer than the memory, pass packet by packet. Pure: no socket
/// and no state of the device.
///
/// | held per connection                    | limit                  | beyond it                  |
/// |----------------------------------------|------------------------|----------------------------|
/// | split writes that are being collected  | 16, together 64 MiB    | the packet is refused      |
/// | answers with packets still to be sent  | 16, together 64 MiB    | the oldest is forgotten    |
///
/// An answer that is longer than the limit by itself is kept alone.
class PacketAssembler {
public:
    using CarryOut = std::function<Answer(const Request &request)>;
    struct Packet {
        SSProxy::Wire::WireHead head;
        std::string body;
        /// A piece of a content, instead of the body. The room for the head precedes it.
        QByteArray frame = {};
        quint32 checksum = 0; ///< Of the piece in \c frame.

        /// The body, which a zero byte follows.
        std::string_view bytes() const;
        /// Moves a piece of a content to the body.
        void unpack();
    };

    static constexpr quint32 maxPackets = 65536; ///< A client takes no more of one answer.
    static constexpr std::size_t maxStreams = 16; ///< Split writes, and answers.
    /// Bytes of all split writes together, and so the longest body of one.
    static constexpr std::size_t maxCollectedBytes = std::size_t{64} << 20;
    static constexpr std::size_t maxKeptBytes = std::size_t{64} << 20; ///< Bytes of all answers.

    /// \a packetSize is the longest body of a packet in either direction.
    PacketAssembler(quint32 packetSize, CarryOut carryOut);

    /// The one response to a request frame.
    Packet answer(const SSProxy::Wire::WireHead &head, std::string body);
    /// Reads the next piece of the content that is being sent, while the client is busy with the
    /// one before. May take the \a storage of a frame that is not needed any more.
    void readAhead(QByteArray &storage);

private:
    /// A piece of a content.
    struct Piece {
        QByteArray frame; ///< With room for the head.
        quint32 checksum = 0; ///< Of the body.
    };
    /// A write that is being collected, or an answer that is being handed out.
    struct Stream {
        SSProxy::Wire::WireHead first; ///< Head of the first packet.
        quint32 next = 1; ///< Index of the packet that is expected.
        quint32 totalCount = 1;
        std::string body;
        std::shared_ptr<QIODevice> content; ///< If not null, used instead of the body.
        std::optional<Piece> ahead = {}; ///< The next piece, read before it is requested.
    };
    using Streams = std::deque<Stream>;

    Packet answerWhole(const SSProxy::Wire::WireHead &head, std::string body);
    Packet answerFirst(const SSProxy::Wire::WireHead &head, std::string body);
    Packet answerFurther(const SSProxy::Wire::WireHead &head, std::string body);
    bool belongsToWrite(const SSProxy::Wire::WireHead &head);
    Packet collect(const SSProxy::Wire::WireHead &head, std::string body);
    DeviceStatus checkFurther(const SSProxy::Wire::WireHead &head, const Stream &write,
                              std::size_t length) const;
    void keepAnswer(Stream answer);
    Packet answerNextPacket(const SSProxy::Wire::WireHead &head);
    Packet piece(const SSProxy::Wire::WireHead &request, Stream &stream, quint32 index) const;
    std::size_t lengthOf(const Stream &stream) const;
    /// Reads a packet of a content into \a storage.
    Piece readPiece(const Stream &stream, quint32 index, QByteArray storage) const;

    const quint32 m_packetSize;
    const CarryOut m_carryOut;
    Streams m_writes;
    Streams m_answers;
    std::optional<quint16> m_lastAnswered; ///< Stream of the unfinished answer that was sent last.
    Uploads m_uploads;
};

} // namespace Tavoro::Sim
