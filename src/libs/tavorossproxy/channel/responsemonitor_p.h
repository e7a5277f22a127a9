#pragma once

#include <tavorossproxy/io/clock_p.h>

#include <tavorossproxy/channeloptions.h>

#include <QCoreApplication>
#include <QString>

#include <atomic>
#include <functional>

namespace Tavoro::SSProxy::Internal {

class ChannelReadiness;
class ExchangeTable;

/// Ends the connection to a device that leaves too many requests unanswered, or that stops in the
/// middle of an answer. Any thread.
class ResponseMonitor {
    Q_DECLARE_TR_FUNCTIONS(Tavoro::SSProxy::Internal::ResponseMonitor)

public:
    /// Closes the connection with the number \a connection, which has ended for callers.
    using Close = std::function<void(quint64 connection, const QString &reason)>;

    ResponseMonitor(const Clock &clock, const ChannelOptions &options,
                    const ExchangeTable &exchanges, ChannelReadiness &readiness, Close close);

    /// \a lastProgress is the time at which the unfinished incoming frame last made progress, or
    /// the clock's epoch if no frame is unfinished.
    void setFrameProgress(Clock::TimePoint lastProgress) { m_lastFrameProgress = lastProgress; }
    /// An exchange has ended with \a status.
    void check(quint16 status);

private:
    bool hasStalled() const;
    void closeConnection(quint64 connection, const QString &reason);

    const Clock &m_clock;
    const ChannelOptions &m_options;
    const ExchangeTable &m_exchanges;
    ChannelReadiness &m_readiness;
    const Close m_close;
    std::atomic<Clock::TimePoint> m_lastFrameProgress{Clock::TimePoint()};
};

} // namespace Tavoro::SSProxy::Internal
