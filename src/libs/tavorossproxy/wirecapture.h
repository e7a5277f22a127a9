#pragma once

#include <tavorossproxy/export.h>

#include <QString>

namespace Tavoro::SSProxy {

/// Starts a capture: writes all bytes that the channels opened from now on send and receive to the
/// file \a path, which it overwrites. The file is text; docs/wire.md describes it, and "tavoroctl
/// replay" shows it. It grows by more than two bytes for each byte on the wire. A running capture
/// ends first.
///
/// If the environment variable TAVORO_CAPTURE names a file, a capture to it starts with the first
/// channel, unless one is running.
///
/// Returns false if the file cannot be written; \a error then says why. Any thread.
TAVOROSSPROXY_EXPORT bool startWireCapture(const QString &path, QString &error);

/// Ends the running capture, if there is one, and closes its file. Any thread.
TAVOROSSPROXY_EXPORT void stopWireCapture();

} // namespace Tavoro::SSProxy
