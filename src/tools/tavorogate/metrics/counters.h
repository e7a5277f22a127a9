#pragma once

#include <tavorosession/outcome.h>

#include <QByteArray>
#include <QtGlobal>

#include <array>

namespace Tavoro::Gate {

/// What the gateway counts.
struct Counters {
    bool isBrokerConnected = false;
    int devices = 0; ///< That the gateway works for, or would if it were active.
    int readyDevices = 0;
    int activeDevices = 0;
    int unansweredMessages = 0; ///< Answers and audit records that the broker does not have yet.
    quint64 sentMessages = 0;
    quint64 receivedMessages = 0;
    quint64 repeatedCalls = 0;
    quint64 brokerConnections = 0;
    std::array<quint64, 4> calls{}; ///< Calls that have ended, by Outcome::Kind.

    /// The counters in Prometheus' text form.
    QByteArray text() const;
};

} // namespace Tavoro::Gate
