#include "leasearbiter.h"

#include <utility>

namespace Tavoro::Sim {

using SSProxy::Wire::LeaseAction;
using SSProxy::Wire::LeaseState;

namespace {

constexpr qint64 millisecondsPerSecond = 1000;

} // namespace

Answer LeaseArbiter::carryOut(const std::string &client, const Request &request, qint64 now)
{
    Answer answer;
    if (request.type == CommandType::Write)
        answer.status = write(client, request, now);
    else if (request.type != CommandType::Read)
        answer.status = DeviceStatus::UnknownCommand;
    else if (!request.body.empty())
        answer.status = DeviceStatus::MalformedBody;
    if (answer.status == DeviceStatus::Success)
        answer.body = stateFor(client, now);
    return answer;
}

DeviceStatus LeaseArbiter::write(const std::string &client, const Request &request, qint64 now)
{
    if (client.empty())
        return DeviceStatus::Busy;
    switch (static_cast<LeaseAction>(request.arg2[0])) {
    case LeaseAction::Take:
        return take(client, request.body, now);
    case LeaseAction::Release:
        return release(client, request.body);
    }
    return DeviceStatus::ValueOutOfRange;
}

DeviceStatus LeaseArbiter::take(const std::string &client, const std::string &body, qint64 now)
{
    const auto wanted = SSProxy::Wire::decodeLeaseRequest(body);
    if (!wanted)
        return DeviceStatus::MalformedBody;
    if (wanted->seconds == 0 || wanted->seconds > SSProxy::Wire::longestLease)
        return DeviceStatus::ValueOutOfRange;
    if (m_client != client) {
        if (now < m_end)
            return DeviceStatus::Success; // the answer names the holder
        m_displaced = std::exchange(m_client, client);
    }
    m_holder = wanted->holder;
    m_end = now + wanted->seconds * millisecondsPerSecond;
    return DeviceStatus::Success;
}

DeviceStatus LeaseArbiter::release(const std::string &client, const std::string &body)
{
    if (!body.empty())
        return DeviceStatus::MalformedBody;
    if (m_client == client)
        reset();
    return DeviceStatus::Success;
}

std::string LeaseArbiter::takeDisplaced()
{
    return std::exchange(m_displaced, {});
}

std::string LeaseArbiter::stateFor(const std::string &client, qint64 now) const
{
    SSProxy::Wire::Lease lease;
    if (now < m_end) {
        lease.state = client == m_client ? LeaseState::Yours : LeaseState::Others;
        lease.milliseconds = static_cast<quint32>(m_end - now);
        lease.holder = m_holder;
    }
    return SSProxy::Wire::encodeLease(lease);
}

} // namespace Tavoro::Sim
