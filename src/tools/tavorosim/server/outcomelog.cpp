#include "outcomelog.h"

#include <algorithm>

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
    Outcome &oldest = m_outcomes[m_arrived++ % maxRequests];
    m_lastForgotten = std::max(m_lastForgotten, oldest.number);
    oldest = {number, OutcomeState::UnderWay, 0};
}

void ConnectionOutcomes::finish(quint32 number, quint8 status)
{
    if (const auto position = find(number))
        m_outcomes[*position] = {number, OutcomeState::Done, status};
}

/// The position of a request; the last one if several have the number.
std::optional<std::size_t> ConnectionOutcomes::find(quint32 number) const
{
    const std::size_t remembered = std::min<std::size_t>(m_arrived, maxRequests);
    for (std::size_t back = 1; number != 0 && back <= remembered; ++back) {
        const std::size_t position = (m_arrived - back) % maxRequests;
        if (m_outcomes[position].number == number)
            return position;
    }
    return std::nullopt;
}

/// A client sends its requests roughly in the order of their numbers: one that is not remembered
/// may have been forgotten if a later one has been, and has not arrived otherwise.
std::string ConnectionOutcomes::read(quint32 number) const
{
    if (const auto position = find(number))
        return bytes(m_outcomes[*position].state, m_outcomes[*position].status);
    const bool mayBeForgotten = number <= m_lastForgotten;
    return bytes(mayBeForgotten ? OutcomeState::Unknown : OutcomeState::NotArrived);
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
