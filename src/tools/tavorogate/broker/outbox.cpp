#include "outbox.h"

#include "brokerconnection.h"

#include <QLoggingCategory>

#include <vector>

namespace Tavoro::Gate {

namespace {

Q_LOGGING_CATEGORY(outboxLog, "tavoro.gate.outbox")

} // namespace

Outbox::Outbox(BrokerConnection &broker) : m_broker(broker)
{
    connect(&broker, &BrokerConnection::connected, this, &Outbox::publishAll);
}

void Outbox::send(const BrokerMessage &message)
{
    if (m_messages.size() == mostMessages) {
        qCWarning(outboxLog, "Dropped a message to %s: too many wait for the broker.",
                  qUtf8Printable(m_messages.begin()->second.topic));
        m_messages.erase(m_messages.begin());
    }
    m_messages.emplace(++m_lastNumber, message);
    publish(m_lastNumber);
}

void Outbox::publish(quint64 number)
{
    if (!m_broker.isConnected())
        return;
    m_broker.publish(m_messages.at(number), [this, number](Delivery delivery) {
        if (delivery != Delivery::Lost)
            remove(number);
    });
}

void Outbox::publishAll()
{
    std::vector<quint64> numbers; // Publishing may remove messages.
    for (const auto &entry : m_messages)
        numbers.push_back(entry.first);
    for (const quint64 number : numbers)
        publish(number);
}

void Outbox::remove(quint64 number)
{
    if (m_messages.erase(number) > 0 && m_messages.empty())
        Q_EMIT emptied();
}

} // namespace Tavoro::Gate
