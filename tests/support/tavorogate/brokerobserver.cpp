#include "brokerobserver.h"

#include <QJsonDocument>
#include <QTest>

using namespace Tavoro::Gate;

namespace {

constexpr int patience = 60000; ///< Milliseconds.

QJsonObject objectOf(const QByteArray &payload)
{
    return QJsonDocument::fromJson(payload).object();
}

bool isRetainedTopic(const QString &topic)
{
    return topic.contains(QLatin1String("/state/")) || topic.endsWith(QLatin1String("/online"));
}

} // namespace

BrokerObserver::BrokerObserver(const BrokerOptions &options) : m_connection(options, {})
{
    QObject::connect(&m_connection, &BrokerConnection::disconnected, &m_connection,
                     [this] { m_retained.clear(); });
    BrokerConnection::SubscribeOptions everything;
    everything.qos = 0;
    m_subscription = m_connection.subscribe(
        QStringLiteral("tavoro/#"), everything, [this](const BrokerMessage &message) {
            m_messages.append(message);
            if (!isRetainedTopic(message.topic))
                return;
            if (message.payload.isEmpty())
                m_retained.remove(message.topic);
            else
                m_retained.insert(message.topic, message.payload);
        });
}

bool BrokerObserver::start()
{
    m_connection.start();
    return QTest::qWaitFor([this] { return m_connection.isConnected(); }, patience);
}

bool BrokerObserver::waitForConnection()
{
    BrokerMessage probe;
    probe.topic = QStringLiteral("tavoro/probe");
    const auto before = messages(probe.topic).size();
    if (!QTest::qWaitFor([this] { return m_connection.isConnected(); }, patience))
        return false;
    publish(probe); // The broker handles the subscription before it.
    return QTest::qWaitFor([&] { return messages(probe.topic).size() > before; }, patience);
}

QMap<QString, QByteArray> BrokerObserver::retained(const QString &beginning) const
{
    QMap<QString, QByteArray> found;
    for (auto each = m_retained.constBegin(); each != m_retained.constEnd(); ++each) {
        if (each.key().startsWith(beginning))
            found.insert(each.key().mid(beginning.size()), each.value());
    }
    return found;
}

QJsonObject BrokerObserver::object(const QString &topic) const
{
    return objectOf(m_retained.value(topic));
}

QList<BrokerMessage> BrokerObserver::messages(const QString &topic) const
{
    QList<BrokerMessage> found;
    for (const BrokerMessage &message : m_messages) {
        if (message.topic == topic)
            found.append(message);
    }
    return found;
}

int BrokerObserver::count(const QString &beginning) const
{
    int number = 0;
    for (const BrokerMessage &message : m_messages)
        number += message.topic.startsWith(beginning);
    return number;
}

void BrokerObserver::forgetMessages()
{
    m_messages.clear();
}

BrokerMessage BrokerObserver::callMessage(const QString &serial, const QString &operation,
                                          const QByteArray &arguments,
                                          const QByteArray &correlation)
{
    BrokerMessage message;
    message.topic = QStringLiteral("tavoro/%1/call/%2").arg(serial, operation);
    message.payload = arguments;
    message.responseTopic = observerAnswers;
    message.correlation = correlation;
    return message;
}

QJsonObject BrokerObserver::call(const QString &serial, const QString &operation,
                                 const QByteArray &arguments)
{
    const QByteArray correlation = "call " + QByteArray::number(++m_lastCall);
    publish(callMessage(serial, operation, arguments, correlation));
    return waitForAnswer(correlation);
}

QJsonObject BrokerObserver::waitForAnswer(const QByteArray &correlation)
{
    if (!QTest::qWaitFor([&] { return !answers(correlation).isEmpty(); }, patience))
        return {};
    return objectOf(answers(correlation).first().payload);
}

QList<BrokerMessage> BrokerObserver::answers(const QByteArray &correlation) const
{
    QList<BrokerMessage> found;
    for (const BrokerMessage &message : m_messages) {
        if (message.topic.startsWith(QLatin1String("tavoro/answer/"))
            && message.correlation == correlation)
            found.append(message);
    }
    return found;
}

QList<QJsonObject> BrokerObserver::audit(const QString &serial, const QString &operation) const
{
    QList<QJsonObject> records;
    const auto found = messages(QStringLiteral("tavoro/%1/audit").arg(serial));
    for (const BrokerMessage &message : found) {
        const QJsonObject record = objectOf(message.payload);
        if (record.value(QStringLiteral("operation")).toString() == operation)
            records.append(record);
    }
    return records;
}
