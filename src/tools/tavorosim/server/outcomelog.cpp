#include "outcomelog.h"

namespace Tavoro::Sim {

using SSProxy::Wire::ConnectionId;
using SSProxy::Wire::OutcomeState;

namespace {

std::string bytes(OutcomeState state, quint8 status = 0)
{
    return {static_cast<char>(state), static_cast<char>(status)};
}

} // namespace

void ConnectionOutcomes::arrive(quint32 number)
{
    if (number == 0)
        return;
    m_lastArrived = number;
    m_outcomes[number % maxRequests] = {number, OutcomeState::UnderWay, 0};
}

void ConnectionOutcomes::finish(quint32 number, quint8 status)
{
    Outcome &outcome = m_outcomes[number % maxRequests];
    if (number != 0 && outcome.number == number)
        outcome = {number, OutcomeState::Done, status};
}

/// A client numbers its requests in the order in which it sends them: one that is not remembered
/// has been forgotten if it is much older than the last one, and has not arrived otherwise.
std::string ConnectionOutcomes::read(quint32 number) const
{
    const Outcome &outcome = m_outcomes[number % maxRequests];
    if (number == 0)
        return bytes(OutcomeState::Unknown);
    if (outcome.number == number)
        return bytes(outcome.state, outcome.status);
    const bool isForgotten = m_lastArrived > number && m_lastArrived - number >= maxRequests;
    return bytes(isForgotten ? OutcomeState::Unknown : OutcomeState::NotArrived);
}

std::shared_ptr<ConnectionOutcomes> OutcomeLog::open(const ConnectionId &id)
{
    m_connections.push_back(std::make_shared<ConnectionOutcomes>(id));
    if (m_connections.size() > maxConnections)
        m_connections.pop_front();
    return m_connections.back();
}

std::string OutcomeLog::read(const SSProxy::Wire::RequestId &request) const
{
    for (const auto &connection : m_connections) {
        if (connection->id().client == request.connection.client
            && connection->id().number == request.connection.number)
            return connection->read(request.number);
    }
    return bytes(OutcomeState::Unknown);
}

} // namespace Tavoro::Sim
