#pragma once

#include "brokermessage.h"

#include <QObject>

#include <map>

namespace Tavoro::Gate {

class BrokerConnection;

/// Publishes messages that must outlive a connection to the broker: keeps each until the broker has
/// acknowledged it, and publishes it again on the next connection. So a message may arrive twice.
class Outbox : public QObject {
    Q_OBJECT

public:
    /// Beyond this number the oldest message is dropped.
    static constexpr std::size_t mostMessages = 10000;

    explicit Outbox(BrokerConnection &broker);

    void send(const BrokerMessage &message);
    /// Messages that the broker has not acknowledged yet.
    std::size_t size() const { return m_messages.size(); }

Q_SIGNALS:
    /// The last message was acknowledged.
    void emptied();

private:
    void publish(quint64 number);
    void publishAll();
    void remove(quint64 number);

    BrokerConnection &m_broker;
    std::map<quint64, BrokerMessage> m_messages; ///< By number, in the order of sending.
    quint64 m_lastNumber = 0;
};

} // namespace Tavoro::Gate
