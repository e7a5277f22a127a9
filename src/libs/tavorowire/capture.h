#pragma once

#include <tavorowire/frameparser.h>

#include <QtGlobal>

#include <string>
#include <string_view>
#include <vector>

namespace Tavoro::SSProxy::Wire {

/// A capture of what channels sent and received, as text:
///
/// \code
/// # tavoro wire capture 1
/// CHANNEL SECONDS open ADDRESS      a connection stands
/// CHANNEL SECONDS > BYTES           what was sent, hexadecimal digits
/// CHANNEL SECONDS < BYTES           what was received at once: frames, parts of frames
/// CHANNEL SECONDS close             the client has ended the connection
/// CHANNEL SECONDS lost REASON       the connection has ended otherwise
/// \endcode
///
/// Channels count from 1; seconds, with six decimals, from the beginning of the capture. Other
/// lines that begin with # are comments.
enum class CaptureEvent {
    Open,
    Sent,
    Received,
    Close,
    Lost
};

/// The first line of a capture, with its end.
std::string captureHeading();
/// One line with its end. \a bytes is the address of Open, the reason of Lost, and what travelled
/// otherwise.
std::string encodeCaptureLine(int channel, qint64 microseconds, CaptureEvent event,
                              std::string_view bytes = {});

/// What a capture shows of a channel.
enum class CapturedKind {
    Opened, ///< A connection stands.
    Frame, ///< A frame, whole or wrong.
    Part, ///< The beginning of a frame whose rest never travelled.
    Closed, ///< The client has ended the connection.
    Lost ///< The connection has ended otherwise.
};

struct CapturedItem {
    int channel = 0;
    qint64 microseconds = 0; ///< When its last byte came.
    CapturedKind kind = CapturedKind::Frame;
    bool isFromClient = false; ///< Of a frame or a part.
    FrameEvent frame; ///< Of a part: its head, once that has come whole.
    std::string bytes; ///< A frame or a part as it travelled.
    std::string text; ///< The address of Opened, the reason of Lost.

    bool hasWholeHead() const { return bytes.size() >= sizeof(WireHead); }
};

/// Reads a capture and cuts it into frames. False with a sentence in \a error that names the line;
/// what stands above it is in \a items.
bool decodeCapture(const std::string &text, std::vector<CapturedItem> &items, std::string &error);

} // namespace Tavoro::SSProxy::Wire
