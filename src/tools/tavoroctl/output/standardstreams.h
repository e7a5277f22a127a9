#pragma once

#include <QString>

#include <cstddef>
#include <cstdio>

/// The standard streams of the process.
namespace Tavoro::Ctl {

/// Makes failing writes harmless and visible. Call it before anything opens a file or a connection.
///
/// A closed pipe makes a write fail instead of ending the process. A standard stream that is closed
/// stays closed: otherwise its number would go to the next descriptor, and an answer that is meant
/// for standard output would go to the device.
void protectStandardStreams();

/// Writes \a length bytes to \a stream and past its buffer. Returns false with the system's reason
/// in \a error if that fails.
bool writeBytes(FILE *stream, const char *bytes, std::size_t length, QString &error);

} // namespace Tavoro::Ctl
