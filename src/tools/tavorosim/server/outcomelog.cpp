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

void ConnectionOutcomes::arrive()
{
    m_outcomes[++m_arrived % mostRequests] = {};
}

void ConnectionOutcomes::finish(quint8 status)
{
    m_outcomes[m_arrived % mostRequests] = {OutcomeState::Done, status};
}

std::string ConnectionOutcomes::tell(quint32 ordinal) const
{
    if (ordinal > m_arrived)
        return bytes(OutcomeState::NotArrived);
    if (ordinal == 0 || m_arrived - ordinal >= mostRequests)
        return bytes(OutcomeState::Unknown);
    const Outcome &outcome = m_outcomes[ordinal % mostRequests];
    return bytes(outcome.state, outcome.status);
}

std::shared_ptr<ConnectionOutcomes> OutcomeLog::open(const ConnectionId &id)
{
    m_connections.push_back(std::make_shared<ConnectionOutcomes>(id));
    if (m_connections.size() > mostConnections)
        m_connections.pop_front();
    return m_connections.back();
}

std::string OutcomeLog::tell(const SSProxy::Wire::RequestId &request) const
{
    for (const auto &connection : m_connections) {
        if (connection->id().client == request.connection.client
            && connection->id().number == request.connection.number)
            return connection->tell(request.ordinal);
    }
    return bytes(OutcomeState::Unknown);
}

} // namespace Tavoro::Sim
