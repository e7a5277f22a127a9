#pragma once

#include <tavorowire/capture.h>

#include <QtGlobal>

#include <string>
#include <string_view>

namespace Tavoro::SSProxy::Wire {

/// Writes the events of a capture in the format of its file.
class CaptureEncoder {
public:
    virtual ~CaptureEncoder() = default;

    /// Returns the beginning of the file.
    virtual std::string heading() const = 0;
    /// Returns what an event adds to the file. \a microseconds is the time since the start of the
    /// capture. \a bytes is the address for Open, the reason for Lost, and the bytes for Sent and
    /// Received.
    virtual std::string encode(int channel, qint64 microseconds, CaptureEvent event,
                               std::string_view bytes) = 0;
};

} // namespace Tavoro::SSProxy::Wire
