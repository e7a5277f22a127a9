#include "keepalive_p.h"

#include <algorithm>

namespace Tavoro::SSProxy::Internal {

KeepAlive::KeepAlive(const ChannelOptions &options)
    : m_interval(options.keepAliveInterval),
      m_timeout(options.keepAliveTimeout),
      m_minTransferRate(options.minTransferRate),
      m_incoming(options.minTransferRate, options.stalledAnswerTimeout)
{ }

void KeepAlive::begin(Clock::TimePoint now)
{
    m_lastSignOfLife = now;
    m_lastCheck = now;
    m_nextCheck = now + m_interval;
    m_unsentAtCheck = 0;
    m_writtenSinceCheck = 0;
}

void KeepAlive::noteReceived(qint64 bytes, bool isSameFrame, Clock::TimePoint now)
{
    if (isSameFrame)
        m_incoming.add(bytes, now);
    else
        m_incoming.begin(now);
    m_lastSignOfLife = std::max(m_lastSignOfLife, m_incoming.lastProgress());
}

KeepAlive::Action KeepAlive::check(Clock::TimePoint now, qint64 unsent)
{
    if (isTakingBytes(now, unsent))
        m_lastSignOfLife = now;
    m_lastCheck = now;
    m_unsentAtCheck = unsent;
    m_writtenSinceCheck = 0;
    if (now >= m_lastSignOfLife + m_timeout)
        return Action::Disconnect;
    if (now < m_lastSignOfLife + m_interval) {
        m_nextCheck = m_lastSignOfLife + m_interval;
        return Action::None;
    }
    m_nextCheck = std::min(now + m_interval, m_lastSignOfLife + m_timeout);
    return Action::Ping;
}

/// While a long frame is being sent, pings wait until it was sent, so the device has nothing to
/// answer. Therefore it is also a sign of life that the device takes bytes at the minimum rate.
bool KeepAlive::isTakingBytes(Clock::TimePoint now, qint64 unsent) const
{
    if (m_unsentAtCheck == 0)
        return false;
    const qint64 taken = m_unsentAtCheck + m_writtenSinceCheck - unsent;
    const std::chrono::duration<double> elapsed = now - m_lastCheck;
    return unsent == 0 || double(taken) >= m_minTransferRate * elapsed.count();
}

} // namespace Tavoro::SSProxy::Internal
