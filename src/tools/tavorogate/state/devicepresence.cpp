#include "devicepresence.h"

#include <tavorogate/topics/topics.h>
#include <tavorooperations/jsontext.h>
#include <tavorosession/devicesession.h>

#include <QJsonDocument>
#include <QJsonObject>

namespace Tavoro::Gate {

DevicePresence::DevicePresence(BrokerConnection &broker, DeviceSession &session,
                               const QString &serial, const QString &gateway)
    : m_broker(broker), m_session(session), m_serial(serial), m_gateway(gateway)
{
    connect(&broker, &BrokerConnection::connected, this, &DevicePresence::publish);
    connect(&session, &DeviceSession::stateChanged, this, &DevicePresence::publish);
    connect(&session, &DeviceSession::deviceChanged, this, &DevicePresence::publish);
    m_subscription = broker.subscribe(Topics::deviceOnline(serial), {},
                                      [this](const BrokerMessage &message) { receive(message); });
}

void DevicePresence::setActive(bool isActive)
{
    m_isActive = isActive;
    publish();
}

void DevicePresence::leave()
{
    m_subscription = {};
    m_isLast = false;
    if (m_isActive)
        publishOnline(false, tr("the gateway was stopped"));
    m_isActive = false;
}

void DevicePresence::receive(const BrokerMessage &message)
{
    const QJsonObject object = QJsonDocument::fromJson(message.payload).object();
    m_isLast = object.value(QStringLiteral("gateway")).toString() == m_gateway;
    if (m_isLast && !m_isActive && object.value(QStringLiteral("online")).toBool())
        publish();
}

/// A gateway that loses its device is not active any more, but still takes its own word back. It
/// does not contradict another one that is connected.
void DevicePresence::publish()
{
    const DeviceState state = m_session.state();
    const bool isConnected = state.kind == DeviceState::Reading || state.kind == DeviceState::Ready;
    if (m_isActive || (m_isLast && !isConnected))
        publishOnline(isConnected, state.reason);
}

void DevicePresence::publishOnline(bool isOnline, const QString &reason)
{
    const QJsonObject object{{QStringLiteral("online"), isOnline},
                             {QStringLiteral("reason"), reason},
                             {QStringLiteral("name"), m_session.name()},
                             {QStringLiteral("address"), m_session.address()},
                             {QStringLiteral("gateway"), m_gateway}};
    BrokerMessage message;
    message.topic = Topics::deviceOnline(m_serial);
    message.payload = Operations::jsonText(object).toUtf8();
    message.isRetained = true;
    m_broker.publish(message);
}

} // namespace Tavoro::Gate
