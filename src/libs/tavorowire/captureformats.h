#pragma once

#include <tavorowire/captureencoder.h>

#include <QString>
#include <QtGlobal>

#include <memory>

namespace Tavoro::SSProxy::Wire {

/// Returns the encoder for the file \a path: that of pcapng, for Wireshark, if the name ends with
/// ".pcapng", else that of lines of text. \a startTime is the start of the capture in microseconds
/// since 1970; text does not contain it.
std::unique_ptr<CaptureEncoder> captureEncoderFor(const QString &path, qint64 startTime);

} // namespace Tavoro::SSProxy::Wire
