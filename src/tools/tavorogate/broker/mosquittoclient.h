#pragma once

#include "brokermessage.h"
#include "brokeroptions.h"

#include <QHash>
#include <QObject>
#include <QSocketNotifier>
#include <QString>
#include <QTimer>

#include <memory>

struct mosquitto;

namespace Tavoro::Gate {

/// One connection to a broker, from the attempt to connect until it is lost. libmosquitto works in
/// the event loop of the thread that created the object; only the lookup of the broker's name
/// blocks.
class MosquittoClient : public QObject {
    Q_OBJECT

public:
    /// How to subscribe.
    struct SubscribeOptions {
        int qos = 1;
        bool receivesOwn = true; ///< Also what this connection publishes.
        bool receivesRetained = true; ///< Also what was retained before the subscription.
    };

    /// The broker publishes \a will, unless its topic is empty, when the connection is lost.
    MosquittoClient(const BrokerOptions &options, const BrokerMessage &will);
    ~MosquittoClient() override;

    /// Begins to connect. connected() or ended() follows from the event loop.
    void connectToBroker();
    /// Ends the connection without the will, after what was published before.
    void disconnectFromBroker();

    /// Publishes a message of QoS 1. Returns the ID by which acknowledged() names it; 0 if the
    /// connection is lost.
    int publish(const BrokerMessage &message);
    /// Messages of the subscription arrive with \a identifier.
    void subscribe(const QString &filter, const SubscribeOptions &options, quint32 identifier);
    void unsubscribe(const QString &filter);

Q_SIGNALS:
    void connected();
    /// The connection is lost, or could not be made. The last signal.
    void ended(const QString &reason);
    void received(const Tavoro::Gate::BrokerMessage &message, quint32 identifier);
    /// The broker has the message, or refused it if \a refusal is not empty.
    void acknowledged(int messageId, const QString &refusal);
    /// The broker refused the subscription of this filter.
    void subscriptionRefused(const QString &filter, const QString &refusal);

private:
    struct Callbacks;

    void setUp(const BrokerMessage &will);
    void setUpTls();
    /// Ends the connection if \a result of the library is an error.
    void check(int result);
    QString withError(const QString &text) const;
    void end(const QString &reason);
    void watchSocket();
    void watchWriting();

    const BrokerOptions m_options;
    mosquitto *const m_client;
    QString m_fault; ///< Why the options cannot be used.
    QString m_refusal; ///< Why the broker refused the connection.
    QString m_error; ///< The last error that the library has logged.
    QHash<int, QString> m_requestedFilters; ///< By message ID, until the broker has answered.
    std::unique_ptr<QSocketNotifier> m_readable;
    std::unique_ptr<QSocketNotifier> m_writable;
    QTimer m_maintenance; ///< Sends and checks keep-alives.
    QTimer m_connectTime;
    bool m_hasEnded = false;
};

} // namespace Tavoro::Gate
