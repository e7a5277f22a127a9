#include "responsemonitor_p.h"

#include "channelreadiness_p.h"
#include "exchangetable_p.h"

#include <tavorossproxy/channelstatus.h>

#include <utility>

namespace Tavoro::SSProxy::Internal {

ResponseMonitor::ResponseMonitor(const Clock &clock, const ChannelOptions &options,
                                 const ExchangeTable &exchanges, ChannelReadiness &readiness,
                                 Close close)
    : m_clock(clock),
      m_options(options),
      m_exchanges(exchanges),
      m_readiness(readiness),
      m_close(std::move(close))
{ }

void ResponseMonitor::check(quint16 status)
{
    const quint64 connection = m_readiness.connections(); // first: a newer one must not be closed
    if (m_exchanges.timedOutRequests() >= m_options.maxTimedOutRequests)
        closeConnection(connection, tr("it left too many requests unanswered"));
    else if ((status == RequestTimedOut || status == AnswerIncomplete) && hasStalled())
        closeConnection(connection, tr("it stopped in the middle of a frame"));
}

bool ResponseMonitor::hasStalled() const
{
    const Clock::TimePoint progress = m_lastFrameProgress;
    return progress != Clock::TimePoint()
        && m_clock.now() - progress >= m_options.stalledAnswerTimeout;
}

void ResponseMonitor::closeConnection(quint64 connection, const QString &reason)
{
    if (m_readiness.endConnection(connection, reason))
        m_close(connection, reason);
}

} // namespace Tavoro::SSProxy::Internal
