#pragma once

#include <tavorogate/broker/brokerconnection.h>

#include <QByteArray>
#include <QJsonObject>
#include <QList>
#include <QMap>
#include <QString>

#include <functional>

/// A client of the broker that sees everything and makes calls. Without a broker it knows nothing.
class BrokerObserver {
public:
    using Message = Tavoro::Gate::BrokerMessage;

    explicit BrokerObserver(const Tavoro::Gate::BrokerOptions &options);

    /// Connects, and waits for that.
    bool start();
    /// Waits until the client is connected again and the broker sends it all messages.
    bool waitForConnection();
    Tavoro::Gate::BrokerConnection &connection() { return m_connection; }

    /// What the broker holds for the topics that begin with \a beginning, by the rest of the topic.
    QMap<QString, QByteArray> retained(const QString &beginning = {}) const;
    /// The object that the broker holds for a topic; empty if it holds none.
    QJsonObject object(const QString &topic) const;
    /// Messages other than retained ones that have arrived for the topic \a topic.
    QList<Message> messages(const QString &topic) const;
    /// How many messages have arrived for retained topics that begin with \a beginning.
    int count(const QString &beginning) const;
    void forgetMessages();

    /// A call of an operation, with this correlation data.
    static Message callMessage(const QString &serial, const QString &operation,
                               const QByteArray &arguments, const QByteArray &correlation);
    void publish(const Message &message) { m_connection.publish(message); }
    /// Calls an operation and waits for its answer.
    QJsonObject call(const QString &serial, const QString &operation,
                     const QByteArray &arguments = {});
    /// Waits until \a count answers with this correlation data have arrived. Returns the first.
    QJsonObject waitForAnswer(const QByteArray &correlation);
    QList<Message> answers(const QByteArray &correlation) const;
    /// The audit records of calls of this operation.
    QList<QJsonObject> audit(const QString &serial, const QString &operation) const;

private:
    Tavoro::Gate::BrokerConnection m_connection;
    Tavoro::Gate::Subscription m_subscription;
    QMap<QString, QByteArray> m_retained;
    QList<Message> m_messages;
    int m_lastCall = 0;
};

/// The topic to which the answers of BrokerObserver::callMessage() go.
inline const QString observerAnswers = QStringLiteral("tavoro/answer/observer/calls");
