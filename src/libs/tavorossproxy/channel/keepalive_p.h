#pragma once

#include "frameprogress_p.h"

#include <tavorossproxy/channeloptions.h>

namespace Tavoro::SSProxy::Internal {

/// Decides when a connection needs a ping and when its device counts as silent. Signs of life are
/// received frames, and frames in either direction that make progress.
class KeepAlive {
public:
    explicit KeepAlive(const ChannelOptions &options);

    /// A connection was established.
    void begin(Clock::TimePoint now);
    /// \a bytes were written to the socket.
    void noteWritten(qint64 bytes) { m_writtenSinceCheck += bytes; }
    /// \a bytes were received. \a isSameFrame says whether all of them belong to the frame that was
    /// already arriving.
    void noteReceived(qint64 bytes, bool isSameFrame, Clock::TimePoint now);
    /// When the current frame, or else the last one, made progress.
    Clock::TimePoint lastFrameProgress() const { return m_incoming.lastProgress(); }

    enum class Action {
        None,
        Ping,
        Disconnect
    };
    /// Returns what to do now. \a unsent is the number of bytes that wait in the socket.
    Action check(Clock::TimePoint now, qint64 unsent);
    /// When to check again.
    Clock::TimePoint nextCheck() const { return m_nextCheck; }

private:
    bool isTakingBytes(Clock::TimePoint now, qint64 unsent) const;

    const ChannelOptions::Milliseconds m_interval;
    const ChannelOptions::Milliseconds m_timeout;
    const quint32 m_minTransferRate;
    FrameProgress m_incoming;
    Clock::TimePoint m_lastSignOfLife;
    Clock::TimePoint m_lastCheck;
    Clock::TimePoint m_nextCheck;
    qint64 m_unsentAtCheck = 0; ///< Bytes that waited in the socket at the last check.
    qint64 m_writtenSinceCheck = 0;
};

} // namespace Tavoro::SSProxy::Internal
