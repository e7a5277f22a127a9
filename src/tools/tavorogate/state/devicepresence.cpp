#include "devicepresence.h"

#include <tavorogate/broker/brokerconnection.h>
#include <tavorogate/topics/topics.h>
#include <tavorooperations/jsontext.h>
#include <tavorosession/devicesession.h>

#include <QJsonObject>

namespace Tavoro::Gate {

DevicePresence::DevicePresence(BrokerConnection &broker, DeviceSession &session,
                               const QString &serial, const QString &gateway)
    : m_broker(broker), m_session(session), m_serial(serial), m_gateway(gateway)
{
    connect(&broker, &BrokerConnection::connected, this, &DevicePresence::publish);
    connect(&session, &DeviceSession::stateChanged, this, &DevicePresence::publish);
    connect(&session, &DeviceSession::deviceChanged, this, &DevicePresence::publish);
}

void DevicePresence::setActive(bool isActive)
{
    m_isActive = isActive;
    publish();
}

void DevicePresence::leave()
{
    if (m_isActive)
        publishOnline(false, tr("the gateway was stopped"));
    m_isActive = false;
}

void DevicePresence::publish()
{
    if (!m_isActive)
        return;
    const DeviceState state = m_session.state();
    publishOnline(state.kind == DeviceState::Reading || state.kind == DeviceState::Ready,
                  state.reason);
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
