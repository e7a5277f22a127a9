#pragma once

#include <tavorowire/frameparser.h>

#include <deque>
#include <functional>
#include <mutex>
#include <optional>
#include <string_view>

namespace Tavoro::SSProxy::Internal {

/// Cuts the bytes of a connection into frames, and keeps their order although two threads may take
/// part: a caller that waits for its answer may receive by itself. It completes answers at once.
/// All other frames wait for the loop's thread, and so do the answers that arrive while one waits
/// or is being handled.
///
/// | member                     | thread                                    |
/// |----------------------------|-------------------------------------------|
/// | receive                    | any, one at a time, while connected       |
/// | next, handled              | the loop's                                |
/// | unfinishedHead, clear      | the loop's, while no thread receives      |
class IncomingFrames {
public:
    using AnswerHandler = std::function<void(Wire::FrameEvent &&answer)>;

    /// \a complete gets the answers that need not wait, on the thread that receives them. It must
    /// not call back.
    IncomingFrames(quint32 maxBodySize, AnswerHandler complete);

    /// What the bytes of one call were.
    struct Batch {
        bool isSameFrame = false; ///< All of them belong to the frame that was already arriving.
        bool hasWaiting = false; ///< Frames wait for next().
        std::optional<Wire::WireHead> unfinished; ///< Head of the frame whose body is incomplete.
        bool isWithinFrame = false; ///< A part of a frame has arrived and its rest is expected.
    };
    Batch receive(std::string_view bytes);

    /// Whether answers may be completed at once; otherwise every frame waits.
    void setCompletesAnswers(bool completes);
    /// Returns the next waiting frame; handled() must follow.
    std::optional<Wire::FrameEvent> next();
    void handled();

    std::optional<Wire::WireHead> unfinishedHead() const { return m_parser.unfinishedHead(); }
    /// Discards everything, for a new connection.
    void clear();

private:
    bool mayComplete(const Wire::FrameEvent &event) const;

    const AnswerHandler m_complete;
    Wire::FrameParser m_parser; ///< Used by the thread that receives.

    std::mutex m_mutex; // guards what follows
    std::deque<Wire::FrameEvent> m_waiting;
    bool m_isHandling = false; ///< A frame from next() is being handled.
    bool m_completesAnswers = false;
};

} // namespace Tavoro::SSProxy::Internal
