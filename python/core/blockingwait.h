#pragma once

#include "pending.h"

namespace Tavoro::Python {

/// Waits for \a pending at most this time, for ever if it is negative, without the interpreter's
/// lock. Returns whether it has ended. Signals such as Ctrl-C are handled within 50 ms; their
/// exception ends the wait, and nothing else. To be called with the interpreter's lock.
bool waitFor(const Pending &pending, double seconds);

/// The next event for Python; nothing when the runtime has stopped. Releases the interpreter's lock
/// while it waits.
std::optional<EventKey> nextEvent();

/// Stops the runtime, which ends every wait, and waits until the threads of Python have left them:
/// the interpreter must not end before. Releases the interpreter's lock meanwhile.
void stopRuntime();

} // namespace Tavoro::Python
