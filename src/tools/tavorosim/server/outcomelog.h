#pragma once

#include <tavorowire/outcomes.h>

#include <array>
#include <deque>
#include <memory>
#include <string>

namespace Tavoro::Sim {

/// What became of the requests of one connection: of the last ones, by their numbers from 1.
class ConnectionOutcomes {
public:
    static constexpr quint32 mostRequests = 256;

    explicit ConnectionOutcomes(SSProxy::Wire::ConnectionId id) : m_id(std::move(id)) { }

    const SSProxy::Wire::ConnectionId &id() const { return m_id; }
    /// A request has come.
    void arrive();
    /// The one that came last was answered.
    void finish(quint8 status);
    /// State and status of a request, as they travel.
    std::string tell(quint32 ordinal) const;

private:
    struct Outcome {
        SSProxy::Wire::OutcomeState state = SSProxy::Wire::OutcomeState::UnderWay;
        quint8 status = 0;
    };

    const SSProxy::Wire::ConnectionId m_id;
    quint32 m_arrived = 0;
    std::array<Outcome, mostRequests> m_outcomes;
};

/// The outcomes of the last connections of all clients.
class OutcomeLog {
public:
    static constexpr std::size_t mostConnections = 64;

    std::shared_ptr<ConnectionOutcomes> open(const SSProxy::Wire::ConnectionId &id);
    void forgetAll() { m_connections.clear(); }
    /// State and status of a request, as they travel.
    std::string tell(const SSProxy::Wire::RequestId &request) const;

private:
    std::deque<std::shared_ptr<ConnectionOutcomes>> m_connections;
};

} // namespace Tavoro::Sim
