#pragma once

#include <tavorowire/outcomes.h>

#include <array>
#include <deque>
#include <memory>
#include <optional>
#include <string>

namespace Tavoro::Sim {

/// The outcomes of the last requests of one connection, by the numbers that the client gave them.
class ConnectionOutcomes {
public:
    static constexpr quint32 maxRequests = 256;

    explicit ConnectionOutcomes(SSProxy::Wire::ConnectionId id) : m_id(std::move(id)) { }

    const SSProxy::Wire::ConnectionId &id() const { return m_id; }
    /// A request has arrived. Without a number (0) nothing is remembered.
    void arrive(quint32 number);
    /// It was answered.
    void finish(quint32 number, quint8 status);
    /// State and status of a request, as on the wire.
    std::string read(quint32 number) const;

private:
    struct Outcome {
        quint32 number = 0;
        SSProxy::Wire::OutcomeState state = SSProxy::Wire::OutcomeState::UnderWay;
        quint8 status = 0;
    };

    std::optional<std::size_t> find(quint32 number) const;

    const SSProxy::Wire::ConnectionId m_id;
    std::array<Outcome, maxRequests> m_outcomes; ///< A ring, in the order of arrival.
    std::size_t m_arrived = 0; ///< Number of requests that have arrived.
    quint32 m_lastForgotten = 0; ///< The highest number that was replaced in the ring; 0: none.
};

/// The outcomes of the last connections of all clients.
class OutcomeLog {
public:
    static constexpr std::size_t maxConnections = 64;

    std::shared_ptr<ConnectionOutcomes> open(const SSProxy::Wire::ConnectionId &id);
    void forgetAll() { m_connections.clear(); }
    /// State and status of a request, as on the wire.
    std::string read(const SSProxy::Wire::RequestId &request) const;

private:
    std::deque<std::shared_ptr<ConnectionOutcomes>> m_connections;
};

} // namespace Tavoro::Sim
