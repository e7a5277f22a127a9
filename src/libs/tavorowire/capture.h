#pragma once

#include <tavorowire/frameparser.h>

#include <QtGlobal>

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace Tavoro::SSProxy::Wire {

/// An event of a capture. A capture is a text file with the bytes that channels sent and received:
///
/// \code
/// # tavoro wire capture 1
/// CHANNEL SECONDS open ADDRESS      the connection is established
/// CHANNEL SECONDS > BYTES           bytes sent, in hexadecimal digits
/// CHANNEL SECONDS < BYTES           bytes received by one call: frames, parts of frames
/// CHANNEL SECONDS close             the client has closed the connection
/// CHANNEL SECONDS lost REASON       the connection has ended otherwise
/// \endcode
///
/// Channels are numbered from 1. SECONDS is the time since the start of the capture, with six
/// decimals. Other lines that begin with # are comments.
enum class CaptureEvent {
    Open,
    Sent,
    Received,
    Close,
    Lost
};

/// Returns the first line of a capture, with its line end.
std::string captureHeading();
/// Returns one line with its line end. \a bytes is the address for Open, the reason for Lost, and
/// the bytes for Sent and Received.
std::string encodeCaptureLine(int channel, qint64 microseconds, CaptureEvent event,
                              std::string_view bytes = {});

/// An event as a line of a capture gives it.
struct CaptureLine {
    int channel = 0;
    qint64 microseconds = 0; ///< Time since the start of the capture.
    CaptureEvent event = CaptureEvent::Open;
    /// The address for Open, the reason for Lost, and the bytes for Sent and Received.
    std::string bytes;
};

/// Calls \a take for each event of a capture. Returns false, with a sentence in \a error that names
/// the line, if a line is invalid, after the events of the lines before it.
bool readCapture(const std::string &text, const std::function<void(const CaptureLine &)> &take,
                 std::string &error);

/// Kind of an item that decodeCapture() finds.
enum class CapturedKind {
    Opened, ///< The connection is established.
    Frame, ///< A complete frame, valid or not.
    Incomplete, ///< The beginning of a frame whose rest never arrived.
    Closed, ///< The client has closed the connection.
    Lost ///< The connection has ended otherwise.
};

/// A frame or an event of a connection, as decodeCapture() finds it.
struct CapturedItem {
    int channel = 0;
    /// Time since the start of the capture; for a frame, that of its last byte.
    qint64 microseconds = 0;
    CapturedKind kind = CapturedKind::Frame;
    bool isFromClient = false; ///< Direction of a frame or a part.
    FrameEvent frame; ///< For a part, only its head, if that is complete.
    std::string bytes; ///< The unchanged bytes of a frame or a part.
    std::string text; ///< The address for Opened, the reason for Lost.

    bool hasWholeHead() const { return bytes.size() >= sizeof(WireHead); }
};

/// Reads a capture and cuts it into frames. Returns false, with a sentence in \a error that names
/// the line, if a line is invalid; \a items then holds the items of the lines before it.
bool decodeCapture(const std::string &text, std::vector<CapturedItem> &items, std::string &error);

} // namespace Tavoro::SSProxy::Wire
