#pragma once

#include <tavorossproxy/export.h>

#include <QString>

namespace Tavoro::SSProxy {

/// Writes what the channels that are opened from now on send and receive to the file \a path, which
/// is begun anew: text, told in docs/wire.md, shown by "tavoroctl replay". A capture that runs ends
/// first. It holds everything that travels, so it grows by more than twice of that.
///
/// Where the environment variable TAVORO_CAPTURE names a file, a capture into it starts with the
/// first channel, unless one runs already. False with a sentence in \a error when the file cannot
/// be written. Any thread.
TAVOROSSPROXY_EXPORT bool startWireCapture(const QString &path, QString &error);

/// Ends the capture, if one runs, and closes its file. Any thread.
TAVOROSSPROXY_EXPORT void stopWireCapture();

} // namespace Tavoro::SSProxy
