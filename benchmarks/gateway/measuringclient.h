#pragma once

#include <tavorogate/broker/brokerconnection.h>

#include <QByteArray>
#include <QHash>
#include <QSet>
#include <QString>
#include <QStringList>

#include <chrono>
#include <functional>
#include <map>
#include <vector>

namespace Bench {

/// Runs the event loop until \a isReached; ends the program with \a what if that takes too long.
void waitUntil(const std::function<bool()> &isReached, const QString &what);
/// Runs the event loop for a time.
void waitFor(int milliseconds);

/// What the broker has received and sent since it was started.
struct BrokerTotals {
    double received = 0, sent = 0; ///< Packets of all kinds, also acknowledgements.
    double bytes = 0; ///< In both directions, with everything that the protocol adds.
};

BrokerTotals operator-(const BrokerTotals &left, const BrokerTotals &right);

/// The client of the broker that sees all state and makes calls.
class MeasuringClient {
public:
    using Answered = std::function<void()>;

    explicit MeasuringClient(quint16 brokerPort);

    /// Calls Device.writeSwap. Ends the program unless the answer is that it was done.
    void callWrite(const QString &serial, Answered answered);

    /// The serial numbers of the devices that are online.
    QStringList online() const { return m_online.values(); }
    qint64 stateMessages() const { return m_stateMessages; }
    /// Contents and topics of the state messages.
    qint64 stateBytes() const { return m_stateBytes; }
    qint64 stateTopics() const { return m_topics.size(); }
    /// Waits until no state has arrived for a second. Returns when the last message did.
    std::chrono::steady_clock::time_point waitForLastState();

    /// Waits until the broker has published new totals, which takes up to two seconds.
    BrokerTotals totals();

private:
    void countState(const Tavoro::Gate::BrokerMessage &message);
    void noteOnline(const Tavoro::Gate::BrokerMessage &message);
    void endCall(const Tavoro::Gate::BrokerMessage &answer);

    Tavoro::Gate::BrokerConnection m_connection;
    std::vector<Tavoro::Gate::Subscription> m_subscriptions;
    QHash<QByteArray, Answered> m_calls; ///< By correlation data.
    QSet<QString> m_online, m_topics;
    std::map<QString, double> m_totals; ///< By the end of the topic.
    std::chrono::steady_clock::time_point m_lastState;
    qint64 m_stateMessages = 0, m_stateBytes = 0, m_updates = 0;
    int m_lastCall = 0;
};

} // namespace Bench
