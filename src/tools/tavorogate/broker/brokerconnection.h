#pragma once

#include "brokermessage.h"
#include "brokeroptions.h"
#include "mosquittoclient.h"

#include <QHash>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QTimer>

#include <functional>
#include <map>
#include <memory>

namespace Tavoro::Gate {

class BrokerConnection;

/// What became of a message that was published.
enum class Delivery : quint8 {
    Accepted, ///< The broker has it.
    Refused, ///< The broker does not permit it.
    Lost, ///< The client is not connected, or lost its connection before the broker had
          ///< acknowledged the message.
};

/// Keeps a subscription; destroying it ends the subscription. A value that moves.
class Subscription {
public:
    Subscription() = default;
    Subscription(BrokerConnection &connection, quint32 identifier);
    Subscription(Subscription &&other) noexcept;
    Subscription &operator=(Subscription &&other) noexcept;
    ~Subscription();

private:
    QPointer<BrokerConnection> m_connection;
    quint32 m_identifier = 0;
};

/// The connection to the broker, which is made again when it is lost. Its members are called on the
/// thread that created it, where its signals are emitted and its callbacks are called. None blocks,
/// except while the name of the broker is looked up.
///
/// No message outlives a connection: what was not acknowledged when the connection was lost is
/// reported as such, and not sent again.
class BrokerConnection : public QObject {
    Q_OBJECT

public:
    using SubscribeOptions = MosquittoClient::SubscribeOptions;
    using Handler = std::function<void(const BrokerMessage &message)>;
    /// Called once for each message.
    using Delivered = std::function<void(Delivery delivery)>;

    /// The broker publishes \a will, unless its topic is empty, when the connection is lost.
    BrokerConnection(const BrokerOptions &options, const BrokerMessage &will,
                     QObject *parent = nullptr);
    ~BrokerConnection() override;

    void start();
    /// Ends the connection without the will. Messages that were published before still arrive.
    void stop();

    bool isConnected() const { return m_isConnected; }
    /// Why the client is not connected; empty while it is.
    QString reason() const { return m_reason; }

    /// Publishes a message of QoS 1. Without a connection \a delivered is called at once.
    void publish(const BrokerMessage &message, Delivered delivered = {});
    /// True if few messages wait for their acknowledgement, so that bulk may be published.
    bool hasRoom() const;
    /// True if no message waits for its acknowledgement.
    bool isIdle() const { return m_unacknowledged.isEmpty(); }

    /// Calls \a handler with each message that arrives for \a filter, on this connection and on
    /// later ones. Filters must not overlap.
    Subscription subscribe(const QString &filter, const SubscribeOptions &options, Handler handler);

Q_SIGNALS:
    /// There is a connection, and the subscriptions have been requested on it.
    void connected();
    void disconnected(const QString &reason);
    /// hasRoom() has become true.
    void roomAvailable();
    /// A message was published; \a isReceived: has arrived.
    void messageCounted(bool isReceived);

private:
    friend class Subscription;
    /// A message that the broker has not acknowledged.
    struct Published {
        QString topic;
        Delivered delivered;
    };
    struct Subscriber {
        QString filter;
        SubscribeOptions options;
        Handler handler;
    };

    void connectNow();
    void setConnected();
    void deliver(const BrokerMessage &message, quint32 identifier);
    void acknowledge(int messageId, const QString &refusal);
    void setLost(const QString &reason);
    void unsubscribe(quint32 identifier);

    const BrokerOptions m_options;
    const BrokerMessage m_will;
    std::unique_ptr<MosquittoClient> m_client;
    std::map<quint32, Subscriber> m_subscribers; ///< By the identifiers of the subscriptions.
    quint32 m_lastIdentifier = 0;
    QHash<int, Published> m_unacknowledged; ///< By message ID.
    QTimer m_pause;
    BrokerOptions::Milliseconds m_nextPause;
    QString m_reason;
    bool m_isConnected = false;
    bool m_hasStopped = false; ///< The connection is not made again.
};

} // namespace Tavoro::Gate
