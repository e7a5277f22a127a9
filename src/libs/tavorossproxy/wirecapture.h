#pragma once

#include <tavorossproxy/export.h>

#include <QString>

namespace Tavoro::SSProxy {

/// Starts a capture to the file \a path, which it overwrites: records all bytes that are sent and
/// received by channels that are opened from now on. Ends a running capture first.
///
/// If the name of the file ends with ".pcapng", it is a capture for Wireshark, as docs/wireshark.md
/// describes: each call that sent or received bytes is a TCP segment in it. The address and the
/// ports of the client are made up, since a channel does not know them. Otherwise the file is text;
/// docs/wire.md describes it, and "tavoroctl replay" shows it. Text grows by more than two bytes
/// for each byte on the wire.
///
/// If the environment variable TAVORO_CAPTURE names a file, the first channel that is opened starts
/// a capture to it, unless a capture is running.
///
/// Returns false if the file cannot be written; \a error then says why. Any thread.
TAVOROSSPROXY_EXPORT bool startWireCapture(const QString &path, QString &error);

/// Ends the running capture, if there is one, and closes its file. Any thread.
TAVOROSSPROXY_EXPORT void stopWireCapture();

} // namespace Tavoro::SSProxy
