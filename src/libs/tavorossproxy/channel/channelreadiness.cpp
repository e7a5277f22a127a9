#include "channelreadiness_p.h"

#include "exchangetable_p.h"

#include <tavorossproxy/channelstatus.h>

#include <utility>

namespace Tavoro::SSProxy::Internal {

ChannelReadiness::ChannelReadiness(const QString &peerName, ExchangeTable &exchanges)
    : m_exchanges(exchanges), m_peerName(peerName), m_reason(tr("no connection yet"))
{ }

QString ChannelReadiness::peerName() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_peerName;
}

void ChannelReadiness::setPeerName(const QString &name)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_peerName = name;
}

ProtoModel::DeviceBaseInfo ChannelReadiness::deviceInfo() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_info;
}

QString ChannelReadiness::reason() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_reason;
}

bool ChannelReadiness::await(Clock &clock, Clock::TimePoint deadline, QString &error)
{
    std::unique_lock<std::mutex> lock(m_mutex);
    while (m_state == State::Waiting && clock.now() < deadline)
        clock.waitUntil(m_changed, lock, deadline);
    if (m_state == State::Ready)
        return true;
    error = tr("The device at %1 cannot be reached: %2.").arg(m_peerName, m_reason);
    return false;
}

void ChannelReadiness::beginConnecting()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (m_state != State::Stopped)
        m_exchanges.close(Connecting, Disconnected);
}

void ChannelReadiness::setReason(const QString &reason)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (m_state != State::Stopped)
        m_reason = reason;
}

bool ChannelReadiness::begin(ProtoModel::DeviceBaseInfo info, const Wire::ConnectionId &connection)
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        if (m_state == State::Stopped)
            return false;
        // First, so that a caller who finds the table open gets the number of its connection.
        ++m_connections;
        m_exchanges.open(info.maxPacketSize, connection);
        m_info = std::move(info);
        m_state = State::Ready;
    }
    m_changed.notify_all();
    return true;
}

/// After a loss the refusal is always Disconnected; after a failed attempt it is the cause.
bool ChannelReadiness::end(quint16 status, const QString &reason, quint32 interruptedAnswer)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (m_state == State::Stopped)
        return false;
    m_exchanges.close(m_state == State::Ready ? quint16(Disconnected) : status, status,
                      interruptedAnswer);
    m_state = State::Waiting;
    m_reason = reason;
    return true;
}

/// Makes the channel not ready at once, so that await() waits for the next connection.
bool ChannelReadiness::endConnection(quint64 connection, const QString &reason)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (m_state != State::Ready || m_connections != connection)
        return false;
    m_state = State::Waiting;
    m_reason = reason;
    m_exchanges.close(Disconnected, Disconnected);
    return true;
}

void ChannelReadiness::stop(quint16 refusal, const QString &reason)
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        if (m_state == State::Stopped)
            return;
        m_state = State::Stopped;
        m_reason = reason;
        m_exchanges.close(refusal, refusal);
    }
    m_changed.notify_all();
}

} // namespace Tavoro::SSProxy::Internal
