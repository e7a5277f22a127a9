#pragma once

#include <condition_variable>
#include <cstdint>
#include <deque>
#include <mutex>
#include <optional>

namespace Tavoro::Python {

/// Identifies what Python waits for: the handler of a Pending or of a subscription.
using EventKey = std::uint64_t;

/// What the runtime reports to Python. One thread of Python takes the events and calls the
/// handlers, so that the runtime's threads never need the interpreter's lock. All members: any
/// thread.
class EventQueue {
public:
    /// Adds an event. Has no effect after close().
    void push(EventKey key);
    /// Waits for the next event. Nothing after close().
    std::optional<EventKey> take();
    /// Ends every take().
    void close();

private:
    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::deque<EventKey> m_events; ///< Guarded by m_mutex.
    bool m_isClosed = false; ///< Guarded by m_mutex.
};

} // namespace Tavoro::Python
