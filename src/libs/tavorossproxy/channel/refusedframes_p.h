#pragma once

#include <tavorossproxy/io/ratelimiter_p.h>

#include <QString>

#include <atomic>
#include <functional>

namespace Tavoro::SSProxy::Internal {

/// Counts and logs the frames of a device that are not valid. On the loop's thread; the count on
/// any.
class RefusedFrames {
public:
    /// \a peerName is called for lines of the log.
    RefusedFrames(EventLoop &loop, std::function<QString()> peerName);

    /// A frame was refused with \a status.
    void add(quint16 status);
    /// Logs what was not logged yet. Nothing may be added after.
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
