#pragma once

#include <tavorossproxy/io/ratelimiter_p.h>

#include <QString>

#include <atomic>
#include <functional>

namespace Tavoro::SSProxy::Internal {

/// Counts and logs invalid frames that a device sends. On the loop's thread, except count(), which
/// any thread may call.
class InvalidFrames {
public:
    /// \a peerName returns the device's name for the log.
    InvalidFrames(EventLoop &loop, std::function<QString()> peerName);

    /// A frame was refused with \a status.
    void add(quint16 status);
    /// Logs the frames that were not logged yet. Do not call add() afterwards.
    void stop() { m_lines.flush(); }

    quint64 count() const { return m_count; }

private:
    void logFurther(quint64 count) const;

    const std::function<QString()> m_peerName;
    RateLimiter m_lines; ///< Limits how often refused frames are logged.
    quint16 m_lastStatus = 0;
    std::atomic<quint64> m_count{0};
};

} // namespace Tavoro::SSProxy::Internal
