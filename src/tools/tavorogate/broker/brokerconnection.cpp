#include "brokerconnection.h"

#include <QLoggingCategory>

#include <algorithm>
#include <utility>

namespace Tavoro::Gate {

namespace {

Q_LOGGING_CATEGORY(brokerLog, "tavoro.gate.broker")

constexpr int mostUnacknowledged = 100; ///< Of messages that need not be sent at once.

void report(const BrokerConnection::Delivered &delivered, Delivery delivery)
{
    if (delivered)
        delivered(delivery);
}

} // namespace

Subscription::Subscription(BrokerConnection &connection, quint32 identifier)
    : m_connection(&connection), m_identifier(identifier)
{ }

Subscription::Subscription(Subscription &&other) noexcept
    : m_connection(std::exchange(other.m_connection, nullptr)), m_identifier(other.m_identifier)
{ }

Subscription &Subscription::operator=(Subscription &&other) noexcept
{
    std::swap(m_connection, other.m_connection);
    std::swap(m_identifier, other.m_identifier);
    return *this;
}

Subscription::~Subscription()
{
    if (m_connection)
        m_connection->unsubscribe(m_identifier);
}

BrokerConnection::BrokerConnection(const BrokerOptions &options, const BrokerMessage &will,
                                   QObject *parent)
    : QObject(parent),
      m_options(options),
      m_will(will),
      m_nextPause(options.firstPause),
      m_reason(tr("not connected yet"))
{
    m_pause.setSingleShot(true);
    connect(&m_pause, &QTimer::timeout, this, &BrokerConnection::connectNow);
}

BrokerConnection::~BrokerConnection() = default;

void BrokerConnection::start()
{
    connectNow();
}

void BrokerConnection::stop()
{
    m_hasStopped = true;
    m_pause.stop();
    if (m_isConnected)
        m_client->disconnectFromBroker();
}

void BrokerConnection::publish(const BrokerMessage &message, Delivered delivered)
{
    const int messageId = m_isConnected ? m_client->publish(message) : 0;
    if (messageId == 0)
        return report(delivered, Delivery::Lost);
    m_unacknowledged.insert(messageId, {message.topic, std::move(delivered)});
    Q_EMIT messageCounted(false);
}

bool BrokerConnection::hasRoom() const
{
    return m_isConnected && m_unacknowledged.size() < mostUnacknowledged;
}

Subscription BrokerConnection::subscribe(const QString &filter, const SubscribeOptions &options,
                                         Handler handler)
{
    const quint32 identifier = ++m_lastIdentifier;
    m_subscribers.emplace(identifier, Subscriber{filter, options, std::move(handler)});
    if (m_isConnected)
        m_client->subscribe(filter, options, identifier);
    return {*this, identifier};
}

void BrokerConnection::unsubscribe(quint32 identifier)
{
    const auto found = m_subscribers.find(identifier);
    if (m_isConnected)
        m_client->unsubscribe(found->second.filter);
    m_subscribers.erase(found);
}

void BrokerConnection::connectNow()
{
    m_client = std::make_unique<MosquittoClient>(m_options, m_will);
    connect(m_client.get(), &MosquittoClient::connected, this, &BrokerConnection::setConnected);
    connect(m_client.get(), &MosquittoClient::received, this, &BrokerConnection::deliver);
    connect(m_client.get(), &MosquittoClient::acknowledged, this, &BrokerConnection::acknowledge);
    connect(m_client.get(), &MosquittoClient::ended, this, &BrokerConnection::setLost);
    connect(m_client.get(), &MosquittoClient::subscriptionRefused, this,
            [](const QString &filter, const QString &refusal) {
                qCWarning(brokerLog, "The broker refused the subscription of %s: %s.",
                          qUtf8Printable(filter), qUtf8Printable(refusal));
            });
    m_client->connectToBroker();
}

void BrokerConnection::setConnected()
{
    m_isConnected = true;
    m_reason.clear();
    m_nextPause = m_options.firstPause;
    qCInfo(brokerLog, "Connected to the broker at %s:%d.", qUtf8Printable(m_options.host),
           m_options.port);
    for (const auto &[identifier, subscriber] : m_subscribers)
        m_client->subscribe(subscriber.filter, subscriber.options, identifier);
    Q_EMIT connected();
}

void BrokerConnection::deliver(const BrokerMessage &message, quint32 identifier)
{
    Q_EMIT messageCounted(true);
    const auto found = m_subscribers.find(identifier);
    if (found == m_subscribers.end())
        return;
    const Handler handler = found->second.handler; // The handler may end its subscription.
    handler(message);
}

void BrokerConnection::acknowledge(int messageId, const QString &refusal)
{
    const bool hadRoom = hasRoom();
    const Published message = m_unacknowledged.take(messageId);
    if (!refusal.isEmpty())
        qCWarning(brokerLog, "The broker refused a message to %s: %s.",
                  qUtf8Printable(message.topic), qUtf8Printable(refusal));
    report(message.delivered, refusal.isEmpty() ? Delivery::Accepted : Delivery::Refused);
    if (!hadRoom && hasRoom())
        Q_EMIT roomAvailable();
}

void BrokerConnection::setLost(const QString &reason)
{
    const bool wasConnected = std::exchange(m_isConnected, false);
    if (reason != m_reason && !m_hasStopped)
        qCWarning(brokerLog, "No connection to the broker at %s:%d: %s.",
                  qUtf8Printable(m_options.host), m_options.port, qUtf8Printable(reason));
    m_reason = reason;
    if (!m_hasStopped)
        m_pause.start(m_nextPause);
    m_nextPause = std::min(2 * m_nextPause, m_options.longestPause);
    const auto unacknowledged = std::exchange(m_unacknowledged, {});
    for (const Published &message : unacknowledged)
        report(message.delivered, Delivery::Lost);
    if (wasConnected)
        Q_EMIT disconnected(reason);
}

} // namespace Tavoro::Gate
