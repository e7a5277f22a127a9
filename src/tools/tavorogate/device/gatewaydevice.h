#pragma once

#include "devicecalls.h"

#include <tavorogate/state/devicepresence.h>
#include <tavorogate/state/statepublisher.h>

#include <QObject>
#include <QString>

#include <chrono>
#include <memory>

namespace Tavoro {
class DeviceSession;
}

namespace Tavoro::Gate {

class AnswerWatch;
class DeviceOwnership;

/// The gateway's work for one device, whose serial number is known.
class GatewayDevice : public QObject {
    Q_OBJECT

public:
    /// What the devices of a gateway share. All of it outlives the object.
    struct Surroundings {
        BrokerConnection &broker;
        Outbox &outbox;
        PublishTurns &turns;
        QString gateway; ///< The name of the gateway.
        CallRules rules;
        std::chrono::seconds leaseTime{0}; ///< Of the leases of devices.
        const AnswerWatch *answers = nullptr; ///< Null if this gateway always works.
    };

    GatewayDevice(const Surroundings &surroundings, DeviceSession &session, const QString &serial);
    ~GatewayDevice() override;

    QString serial() const { return m_serial; }
    bool isActive() const;
    /// True while a call is carried out.
    bool isBusy() const { return m_calls.isBusy(); }
    /// True while the session must stay open although the gateway ends.
    bool isLeaving() const;
    /// The gateway ends: publishes that the device is not connected.
    void leave();

Q_SIGNALS:
    void callEnded(const Tavoro::Gate::CallRequest &call, const Tavoro::Gate::CallAnswer &answer);
    void callRepeated();

private:
    const QString m_serial;
    const std::unique_ptr<DeviceOwnership> m_ownership;
    DevicePresence m_presence;
    StatePublisher m_state;
    DeviceCalls m_calls;
};

} // namespace Tavoro::Gate
