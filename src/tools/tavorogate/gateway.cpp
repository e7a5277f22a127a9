#include "gateway.h"

#include <tavorobizmodel/device.h>
#include <tavorogate/topics/topics.h>
#include <tavorooperations/jsontext.h>

#include <QCoreApplication>
#include <QJsonObject>
#include <QLoggingCategory>

namespace Tavoro::Gate {

namespace {

Q_LOGGING_CATEGORY(gatewayLog, "tavoro.gate")

constexpr int longestStop = 2000; ///< Milliseconds.

BrokerMessage onlineMessage(const QString &gateway, bool isOnline)
{
    const QJsonObject object{{QStringLiteral("online"), isOnline},
                             {QStringLiteral("version"), QCoreApplication::applicationVersion()}};
    BrokerMessage message;
    message.topic = Topics::gatewayOnline(gateway);
    message.payload = Operations::jsonText(object).toUtf8();
    message.isRetained = true;
    return message;
}

SessionOptions sessionOptions(SessionOptions options, const GateConfig &config)
{
    options.controlIdleTime = std::chrono::seconds(config.controlIdleSeconds);
    options.readsFileContents = false;
    return options;
}

/// The serial number of the session's device; empty while it is not known.
QString serialOf(const DeviceSession &session)
{
    const auto device = session.device();
    const QString serial = device ? device->sn() : QString();
    return serial.count(QLatin1Char('0')) == serial.size() ? QString() : serial;
}

} // namespace

Gateway::Gateway(const GateConfig &config, const SessionOptions &options)
    : m_config(config),
      m_broker(config.broker, onlineMessage(config.name, false)),
      m_outbox(m_broker),
      m_answers(config.leaseSeconds > 0 ? std::make_unique<AnswerWatch>(m_broker) : nullptr),
      m_turns(m_broker),
      m_metrics(config.metricsFile, [this] { return counters().text(); }),
      m_session(sessionOptions(options, config))
{
    connect(&m_broker, &BrokerConnection::connected, this, [this] {
        ++m_counters.brokerConnections;
        announce(true);
        reportStatus();
    });
    connect(&m_broker, &BrokerConnection::disconnected, this, &Gateway::reportStatus);
    connect(&m_broker, &BrokerConnection::messageCounted, this, [this](bool isReceived) {
        ++(isReceived ? m_counters.receivedMessages : m_counters.sentMessages);
    });
    connect(&m_session, &Session::deviceAdded, this, &Gateway::follow);
    connect(&m_session, &Session::deviceRemoved, this,
            [this](DeviceSession *session) { m_devices.erase(session); });
    m_stopping.setInterval(20);
    connect(&m_stopping, &QTimer::timeout, this, &Gateway::continueStopping);
}

Gateway::~Gateway() = default;

void Gateway::start()
{
    m_broker.start();
    for (const auto &[host, port] : m_config.devices)
        m_session.open(host, port);
    if (m_config.usesDiscovery)
        m_session.startDiscovery();
    m_metrics.write();
    m_service.reportReady();
    reportStatus();
}

void Gateway::stop()
{
    if (m_stopping.isActive())
        return;
    m_service.reportStopping();
    m_session.stopDiscovery();
    for (const auto &entry : m_devices)
        entry.second->leave();
    const auto sessions = m_session.devices();
    for (DeviceSession *const session : sessions) {
        const auto found = m_devices.find(session);
        if (found == m_devices.end() || !found->second->isLeaving())
            session->close();
    }
    announce(false);
    m_stopTime.start();
    m_stopping.start();
}

void Gateway::continueStopping()
{
    bool isBusy = m_outbox.size() > 0 || !m_broker.isIdle();
    for (const auto &entry : m_devices)
        isBusy = isBusy || entry.second->isBusy() || entry.second->isLeaving();
    if (isBusy && m_stopTime.elapsed() < longestStop && m_broker.isConnected())
        return;
    m_stopping.stop();
    m_broker.stop();
    m_metrics.write();
    Q_EMIT stopped();
}

void Gateway::announce(bool isOnline)
{
    m_broker.publish(onlineMessage(m_config.name, isOnline));
}

void Gateway::follow(DeviceSession *session)
{
    connect(session, &DeviceSession::deviceChanged, this, [this, session] { update(*session); });
    connect(session, &DeviceSession::stateChanged, this, &Gateway::reportStatus);
    update(*session);
}

void Gateway::update(DeviceSession &session)
{
    const QString serial = serialOf(session);
    const auto found = m_devices.find(&session);
    if (serial.isEmpty() || (found != m_devices.end() && found->second->serial() == serial))
        return;
    if (found != m_devices.end()) {
        found->second->leave();
        m_devices.erase(found);
    }
    addDevice(session, serial);
}

void Gateway::addDevice(DeviceSession &session, const QString &serial)
{
    qCInfo(gatewayLog, "The device at %s has the serial number %s.",
           qUtf8Printable(session.address()), qUtf8Printable(serial));
    const GatewayDevice::Surroundings surroundings{
        m_broker,       m_outbox,       m_turns,
        m_config.name,  m_config.calls, std::chrono::seconds(m_config.leaseSeconds),
        m_answers.get()};
    auto device = std::make_unique<GatewayDevice>(surroundings, session, serial);
    connect(device.get(), &GatewayDevice::callRepeated, this,
            [this] { ++m_counters.repeatedCalls; });
    connect(device.get(), &GatewayDevice::callEnded, this,
            [this](const CallRequest & /*call*/, const CallAnswer &answer) {
                ++m_counters.calls.at(answer.kind);
            });
    m_devices.emplace(&session, std::move(device));
}

Counters Gateway::counters() const
{
    Counters counters = m_counters;
    counters.isBrokerConnected = m_broker.isConnected();
    counters.unansweredMessages = m_outbox.size();
    const auto sessions = m_session.devices();
    counters.devices = static_cast<quint64>(sessions.size());
    for (const DeviceSession *const session : sessions)
        counters.readyDevices += session->isReady();
    for (const auto &entry : m_devices)
        counters.activeDevices += entry.second->isActive();
    return counters;
}

void Gateway::reportStatus()
{
    const Counters now = counters();
    m_service.reportStatus(QStringLiteral("%1 of %2 devices ready; %3")
                               .arg(now.readyDevices)
                               .arg(now.devices)
                               .arg(now.isBrokerConnected
                                        ? QStringLiteral("connected to the broker")
                                        : QStringLiteral("no broker: ") + m_broker.reason()));
}

} // namespace Tavoro::Gate
