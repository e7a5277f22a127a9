#pragma once

#include <tavorowire/wirehead.h>

#include <optional>
#include <string>
#include <string_view>

namespace Tavoro::SSProxy::Wire {

/// Largest body that a parser accepts unless it is told otherwise: 64 MiB.
constexpr quint32 defaultMaxBodySize = 64u << 20;

/// What the parser found at the front of the bytes: a whole frame, or why there is none.
struct FrameEvent {
    quint16 status = 0; ///< 0, or a status between 357 and 365 that tells what is wrong.
    bool fatal = false; ///< The end of the frame is not known: the connection is of no more use.
    WireHead head; ///< As it arrived; in a fatal event not to be trusted.
    std::string body; ///< Empty when \c status is not 0.
};

/// Cuts a stream of bytes into frames and checks them. Pure: no socket, no clock, no thread.
///
/// \code
/// while (auto event = parser.next(bytes))
///     handle(std::move(*event));
/// \endcode
///
/// A frame that is wrong in itself but whose end is known is told and skipped. When its end cannot
/// be known, the event is fatal, and from then on all bytes are swallowed until reset().
///
/// | found                                   | status | fatal |
/// |-----------------------------------------|--------|-------|
/// | flag or version                         | 359    | yes   |
/// | checksum of the head                    | 361    | yes   |
/// | body longer than the limit              | 363    | yes   |
/// | checksum index that nobody defined      | 360    | no    |
/// | kind that nobody defined                | 362    | no    |
/// | checksum of the body                    | 361    | no    |
class FrameParser {
public:
    explicit FrameParser(quint32 maxBodySize = defaultMaxBodySize) : m_maxBodySize(maxBodySize) { }

    /// Takes from the front of \a bytes what belongs to the current frame. Returns an event when
    /// one is complete, nothing when all bytes are used up.
    std::optional<FrameEvent> next(std::string_view &bytes);

    /// Forgets everything that was fed: for a new connection.
    void reset() { *this = FrameParser(m_maxBodySize); }

    /// A part of a frame has been fed, and the rest is due.
    bool isWithinFrame() const { return !m_dead && m_headTaken > 0; }

    /// The head of the frame whose body is still arriving, if there is one.
    std::optional<WireHead> unfinishedHead() const;

private:
    void takeHead(std::string_view &bytes);
    quint16 fatalFault() const;
    void beginBody();
    void takeBody(std::string_view &bytes);
    FrameEvent finish();

    quint32 m_maxBodySize;
    bool m_dead = false; ///< A fatal fault was told.
    std::size_t m_headTaken = 0; ///< Bytes of the head that have arrived.
    WireHead m_head;
    quint32 m_bodyLeft = 0; ///< Bytes of the body that have not arrived.
    quint32 m_bodyChecksum = 0; ///< Of the bytes of the body that have arrived.
    quint16 m_fault = 0; ///< Why the body is only skipped.
    std::string m_body;
};

} // namespace Tavoro::SSProxy::Wire
