#pragma once

#include "faultrules.h"
#include "faulttable.h"

namespace Tavoro::Sim {

/// Makes the answers on one connection of a device with faults. Pure: no socket, no clock.
class FaultyAnswers {
public:
    explicit FaultyAnswers(FaultRules &rules) : m_rules(rules) { }

    /// True while no fault can apply on this connection: answers may be sent unchanged.
    bool isIdle() const { return m_rules.isEmpty() && m_history.heldBack.empty(); }

    /// Answers \a request. \a code is its code, or that of the identity.
    Delivery deliver(const SSProxy::Wire::WireHead &request, quint16 code,
                     const MakeAnswer &makeAnswer);

private:
    bool takeHeldBack(const SSProxy::Wire::WireHead &request, Delivery &delivery);

    FaultRules &m_rules;
    ConnectionHistory m_history;
};

} // namespace Tavoro::Sim
