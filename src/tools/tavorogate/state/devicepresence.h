#pragma once

#include <QObject>
#include <QString>

namespace Tavoro {
class DeviceSession;
}

namespace Tavoro::Gate {

class BrokerConnection;

/// Publishes whether a device is connected, with the name of the gateway that says so: if that
/// gateway is not online itself, the device's message is out of date.
class DevicePresence : public QObject {
    Q_OBJECT

public:
    DevicePresence(BrokerConnection &broker, DeviceSession &session, const QString &serial,
                   const QString &gateway);

    void setActive(bool isActive);
    /// The gateway ends: publishes that the device is not connected.
    void leave();

private:
    void publish();
    void publishOnline(bool isOnline, const QString &reason);

    BrokerConnection &m_broker;
    DeviceSession &m_session;
    const QString m_serial;
    const QString m_gateway;
    bool m_isActive = false;
};

} // namespace Tavoro::Gate
