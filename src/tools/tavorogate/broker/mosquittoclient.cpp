#include "mosquittoclient.h"

#include "mosquittoproperties.h"

#include <cerrno>
#include <cstring>

namespace Tavoro::Gate {

namespace {

/// Initialises the library once for the process.
struct Library {
    Library() { mosquitto_lib_init(); }
    ~Library() { mosquitto_lib_cleanup(); }
};

mosquitto *makeClient(const QString &clientId, void *owner)
{
    static const Library library;
    return mosquitto_new(clientId.toUtf8().constData(), true, owner);
}

/// Words for the end of a sentence.
QString textOf(int result)
{
    QString text = QString::fromLocal8Bit(result == MOSQ_ERR_ERRNO ? std::strerror(errno)
                                                                   : mosquitto_strerror(result));
    if (text.endsWith(QLatin1Char('.')))
        text.chop(1);
    return text;
}

/// A null pointer for an empty text, as the library expects.
const char *orNull(const QByteArray &text)
{
    return text.isEmpty() ? nullptr : text.constData();
}

constexpr int firstRefusal = 0x80; ///< Reason codes from here on are refusals.
constexpr int mostInFlight = 1000; ///< Unacknowledged messages in each direction.

} // namespace

/// What the library calls, always from a call of this class.
struct MosquittoClient::Callbacks {
    static MosquittoClient &of(void *owner) { return *static_cast<MosquittoClient *>(owner); }

    static void connected(mosquitto * /*client*/, void *owner, int reason, int /*flags*/,
                          const mosquitto_property * /*properties*/)
    {
        MosquittoClient &self = of(owner);
        self.m_connectTime.stop();
        if (reason == 0)
            Q_EMIT self.connected();
        else
            self.m_refusal = QString::fromUtf8(mosquitto_reason_string(reason));
    }

    /// The library reports what OpenSSL says only here.
    static void logged(mosquitto * /*client*/, void *owner, int level, const char *text)
    {
        if (level == MOSQ_LOG_ERR)
            of(owner).m_error = QString::fromUtf8(text);
    }

    static void received(mosquitto * /*client*/, void *owner, const mosquitto_message *message,
                         const mosquitto_property *properties)
    {
        BrokerMessage copy;
        copy.topic = QString::fromUtf8(message->topic);
        copy.payload = QByteArray(static_cast<const char *>(message->payload), message->payloadlen);
        copy.qos = message->qos;
        copy.isRetained = message->retain;
        readProperties(properties, copy);
        Q_EMIT of(owner).received(copy, subscriptionIdentifier(properties));
    }

    static void published(mosquitto * /*client*/, void *owner, int messageId, int reason,
                          const mosquitto_property * /*properties*/)
    {
        const bool isRefused = reason >= firstRefusal;
        Q_EMIT of(owner).acknowledged(
            messageId, isRefused ? QString::fromUtf8(mosquitto_reason_string(reason)) : QString());
    }

    static void subscribed(mosquitto * /*client*/, void *owner, int messageId, int count,
                           const int *granted, const mosquitto_property * /*properties*/)
    {
        const QString filter = of(owner).m_requestedFilters.take(messageId);
        if (count > 0 && granted[0] >= firstRefusal)
            Q_EMIT of(owner).subscriptionRefused(
                filter, QString::fromUtf8(mosquitto_reason_string(granted[0])));
    }
};

MosquittoClient::MosquittoClient(const BrokerOptions &options, const BrokerMessage &will)
    : m_options(options), m_client(makeClient(options.clientId, this))
{
    setUp(will);
    m_maintenance.setInterval(1000);
    connect(&m_maintenance, &QTimer::timeout, this,
            [this] { check(mosquitto_loop_misc(m_client)); });
    m_connectTime.setSingleShot(true);
    m_connectTime.setInterval(options.connectTime);
    connect(&m_connectTime, &QTimer::timeout, this,
            [this] { end(tr("the broker does not answer")); });
}

MosquittoClient::~MosquittoClient()
{
    mosquitto_destroy(m_client);
}

void MosquittoClient::setUp(const BrokerMessage &will)
{
    mosquitto_connect_v5_callback_set(m_client, &Callbacks::connected);
    mosquitto_log_callback_set(m_client, &Callbacks::logged);
    mosquitto_message_v5_callback_set(m_client, &Callbacks::received);
    mosquitto_publish_v5_callback_set(m_client, &Callbacks::published);
    mosquitto_subscribe_v5_callback_set(m_client, &Callbacks::subscribed);
    mosquitto_int_option(m_client, MOSQ_OPT_PROTOCOL_VERSION, MQTT_PROTOCOL_V5);
    mosquitto_int_option(m_client, MOSQ_OPT_TCP_NODELAY, 1);
    mosquitto_int_option(m_client, MOSQ_OPT_RECEIVE_MAXIMUM, mostInFlight);
    mosquitto_int_option(m_client, MOSQ_OPT_SEND_MAXIMUM, mostInFlight);
    if (!will.topic.isEmpty())
        mosquitto_will_set_v5(m_client, will.topic.toUtf8().constData(),
                              static_cast<int>(will.payload.size()), will.payload.constData(),
                              will.qos, will.isRetained, nullptr);
    if (!m_options.user.isEmpty())
        mosquitto_username_pw_set(m_client, m_options.user.toUtf8().constData(),
                                  orNull(m_options.password));
    if (m_options.tls.isEnabled())
        setUpTls();
}

void MosquittoClient::setUpTls()
{
    const QByteArray authorities = m_options.tls.authorities.toLocal8Bit();
    const QByteArray certificate = m_options.tls.certificate.toLocal8Bit();
    const QByteArray key = m_options.tls.key.toLocal8Bit();
    if (authorities.isEmpty())
        mosquitto_int_option(m_client, MOSQ_OPT_TLS_USE_OS_CERTS, 1);
    const int result = mosquitto_tls_set(m_client, orNull(authorities), nullptr,
                                         orNull(certificate), orNull(key), nullptr);
    if (result != MOSQ_ERR_SUCCESS)
        m_fault = tr("the certificates cannot be used: %1").arg(textOf(result));
}

void MosquittoClient::connectToBroker()
{
    // From the event loop, as all later news of the connection.
    QTimer::singleShot(0, this, [this] {
        if (!m_fault.isEmpty())
            return end(m_fault);
        m_connectTime.start();
        const int result =
            mosquitto_connect_bind_async(m_client, m_options.host.toUtf8().constData(),
                                         m_options.port, m_options.keepAliveSeconds, nullptr);
        if (result != MOSQ_ERR_SUCCESS)
            return end(withError(textOf(result)));
        watchSocket();
    });
}

void MosquittoClient::disconnectFromBroker()
{
    mosquitto_disconnect_v5(m_client, 0, nullptr);
    end(tr("the gateway stops"));
}

int MosquittoClient::publish(const BrokerMessage &message)
{
    const MosquittoProperties properties(message);
    int messageId = 0;
    const int result =
        mosquitto_publish_v5(m_client, &messageId, message.topic.toUtf8().constData(),
                             static_cast<int>(message.payload.size()), message.payload.constData(),
                             message.qos, message.isRetained, properties.list());
    watchWriting();
    return result == MOSQ_ERR_SUCCESS ? messageId : 0;
}

void MosquittoClient::subscribe(const QString &filter, const SubscribeOptions &options,
                                quint32 identifier)
{
    const int flags = (options.receivesOwn ? 0 : MQTT_SUB_OPT_NO_LOCAL)
        | (options.receivesRetained ? 0 : MQTT_SUB_OPT_SEND_RETAIN_NEVER);
    MosquittoProperties properties;
    properties.addSubscriptionIdentifier(identifier);
    int messageId = 0;
    mosquitto_subscribe_v5(m_client, &messageId, filter.toUtf8().constData(), options.qos, flags,
                           properties.list());
    m_requestedFilters.insert(messageId, filter);
    watchWriting();
}

void MosquittoClient::unsubscribe(const QString &filter)
{
    mosquitto_unsubscribe_v5(m_client, nullptr, filter.toUtf8().constData(), nullptr);
    watchWriting();
}

QString MosquittoClient::withError(const QString &text) const
{
    return m_error.isEmpty() ? text : QStringLiteral("%1 (%2)").arg(text, m_error);
}

void MosquittoClient::check(int result)
{
    if (result == MOSQ_ERR_SUCCESS)
        return watchWriting();
    end(m_refusal.isEmpty() ? withError(textOf(result)) : m_refusal);
}

void MosquittoClient::end(const QString &reason)
{
    if (m_hasEnded)
        return;
    m_hasEnded = true;
    m_maintenance.stop();
    m_connectTime.stop();
    if (m_readable) {
        m_readable->setEnabled(false);
        m_writable->setEnabled(false);
    }
    Q_EMIT ended(reason);
}

void MosquittoClient::watchSocket()
{
    const int socket = mosquitto_socket(m_client);
    m_readable = std::make_unique<QSocketNotifier>(socket, QSocketNotifier::Read);
    connect(m_readable.get(), &QSocketNotifier::activated, this,
            [this] { check(mosquitto_loop_read(m_client, 1)); });
    m_writable = std::make_unique<QSocketNotifier>(socket, QSocketNotifier::Write);
    connect(m_writable.get(), &QSocketNotifier::activated, this,
            [this] { check(mosquitto_loop_write(m_client, 1)); });
    m_maintenance.start();
}

void MosquittoClient::watchWriting()
{
    if (m_writable && !m_hasEnded)
        m_writable->setEnabled(mosquitto_want_write(m_client));
}

} // namespace Tavoro::Gate
