#pragma once

#include <tavorossproxy/io/clock_p.h>

#include <QtGlobal>

#include <algorithm>
#include <chrono>

namespace Tavoro::SSProxy::Internal {

/// Measures the rate at which a frame arrives. The frame makes progress each time that
/// \c minimumRate bytes per second have arrived for one interval; fewer bytes do not count, so a
/// device that sends single bytes does not make progress.
class FrameProgress {
public:
    /// \a minimumRate is in bytes per second.
    FrameProgress(quint32 minimumRate, std::chrono::milliseconds interval)
        : m_bytesPerInterval(std::max<qint64>(qint64(minimumRate) * interval.count() / 1000, 1))
    { }

    /// The first bytes of a frame have arrived.
    void begin(Clock::TimePoint now)
    {
        m_lastProgress = now;
        m_bytes = 0;
    }
    /// Further \a bytes of the same frame have arrived.
    void add(qint64 bytes, Clock::TimePoint now)
    {
        m_bytes += bytes;
        if (m_bytes >= m_bytesPerInterval)
            begin(now);
    }
    Clock::TimePoint lastProgress() const { return m_lastProgress; }

private:
    const qint64 m_bytesPerInterval;
    qint64 m_bytes = 0; ///< Bytes since the last progress.
    Clock::TimePoint m_lastProgress;
};

} // namespace Tavoro::SSProxy::Internal
