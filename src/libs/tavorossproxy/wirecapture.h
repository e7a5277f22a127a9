#pragma once

#include <tavorossproxy/export.h>

#include <QString>

namespace Tavoro::SSProxy {

/// Starts a capture to the file \a path, which it overwrites: records all bytes that are sent and
/// received by channels that are opened from now on. The file is text; docs/wire.md describes it,
/// and "tavoroctl replay" shows it. It grows by more than two bytes for each byte on the wire. Ends
/// a running capture first.
///
/// If the environment variable TAVORO_CAPTURE names a file, the first channel that is opened starts
/// a capture to it, unless a capture is running.
///
/// Returns false if the file cannot be written; \a error then says why. Any thread.
TAVOROSSPROXY_EXPORT bool startWireCapture(const QString &path, QString &error);

/// Ends the running capture, if there is one, and closes its file. Any thread.
TAVOROSSPROXY_EXPORT void stopWireCapture();

} // namespace Tavoro::SSProxy
