#pragma once

#include <tavorowire/wirehead.h>

#include <optional>
#include <string>
#include <string_view>

namespace Tavoro::SSProxy::Wire {

/// Largest body that a parser accepts by default: 64 MiB.
constexpr quint32 defaultMaxBodySize = 64u << 20;

/// What the parser found: a complete frame, or a fault.
struct FrameEvent {
    quint16 status = 0; ///< 0, or a status between 357 and 365 for the fault.
    bool fatal = false; ///< The end of the frame is unknown, so the connection is unusable.
    WireHead head; ///< As received. Unreliable if the event is fatal.
    std::string body; ///< Empty if \c status is not 0.
};

/// Cuts a stream of bytes into frames and checks them. Uses no socket, clock or thread.
///
/// \code
/// while (auto event = parser.next(bytes))
///     handle(std::move(*event));
/// \endcode
///
/// An invalid frame whose end is known is reported and skipped. If the end cannot be known, the
/// event is fatal, and the parser ignores all further bytes until reset().
///
/// | found                                   | status | fatal |
/// |-----------------------------------------|--------|-------|
/// | flag or version                         | 359    | yes   |
/// | checksum of the head                    | 361    | yes   |
/// | body longer than the limit              | 363    | yes   |
/// | unknown checksum index                  | 360    | no    |
/// | unknown kind                            | 362    | no    |
/// | checksum of the body                    | 361    | no    |
class FrameParser {
public:
    explicit FrameParser(quint32 maxBodySize = defaultMaxBodySize) : m_maxBodySize(maxBodySize) { }

    /// Removes the bytes of the current frame from the front of \a bytes. Returns an event if the
    /// frame is complete or invalid; otherwise all bytes were consumed.
    std::optional<FrameEvent> next(std::string_view &bytes);

    /// Discards an incomplete frame and a fatal fault, for a new connection.
    void reset() { *this = FrameParser(m_maxBodySize); }

    /// Returns true if a part of a frame was consumed and its rest is expected.
    bool isWithinFrame() const { return !m_dead && m_headTaken > 0; }

    /// Returns the head of the frame whose body is incomplete, if there is one.
    std::optional<WireHead> unfinishedHead() const;

private:
    void takeHead(std::string_view &bytes);
    quint16 fatalFault() const;
    void beginBody();
    void takeBody(std::string_view &bytes);
    FrameEvent finish();

    quint32 m_maxBodySize;
    bool m_dead = false; ///< A fatal fault was reported.
    std::size_t m_headTaken = 0; ///< Bytes of the head that were consumed.
    WireHead m_head;
    quint32 m_bodyLeft = 0; ///< Bytes of the body that are missing.
    quint32 m_bodyChecksum = 0; ///< Checksum of the consumed bytes of the body.
    quint16 m_fault = 0; ///< Why the body is skipped; 0 if it is not.
    std::string m_body;
};

} // namespace Tavoro::SSProxy::Wire
