#pragma once

#include <tavorossproxy/wire/frameparser.h>

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
/// CHANNEL SECONDS close             the connection has ended
/// \endcode
///
/// Channels count from 1; seconds, with six decimals, from the beginning of the capture. Other
/// lines that begin with # are comments.
enum class CaptureEvent {
    Open,
    Sent,
    Received,
    Close
};

/// The first line of a capture, with its end.
std::string captureHeading();
/// One line with its end. \a bytes is the address of Open and what travelled otherwise.
std::string encodeCaptureLine(int channel, qint64 microseconds, CaptureEvent event,
                              std::string_view bytes = {});

/// A frame of a capture, whole or wrong.
struct CapturedFrame {
    int channel = 0;
    qint64 microseconds = 0; ///< When its last byte came.
    bool isFromClient = false;
    FrameEvent frame;
};

/// Reads a capture and cuts it into frames. False with a sentence in \a error that names the line.
bool decodeCapture(const std::string &text, std::vector<CapturedFrame> &frames, std::string &error);

} // namespace Tavoro::SSProxy::Wire
