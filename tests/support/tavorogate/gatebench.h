#pragma once

#include "brokerobserver.h"
#include "mosquittobroker.h"

#include <support/tavorosim/simulatedconnection.h>

#include <tavorogate/gateway.h>

#include <QMap>
#include <QString>

#include <memory>

/// A broker, a simulated device, a gateway between them, and a client of the broker.
class GateBench {
public:
    explicit GateBench(const Tavoro::Sim::SimOptions &options = smallDevice(),
                       const QByteArray &brokerLines = "allow_anonymous true\n");
    ~GateBench();

    static Tavoro::Sim::SimOptions smallDevice();
    static Tavoro::SessionOptions fastOptions();
    /// How a client connects to the broker, with the rights of \c access.
    Tavoro::Gate::BrokerOptions clientOptions(const QString &clientId) const;
    /// The gateway's configuration for the broker and the device.
    Tavoro::Gate::GateConfig config() const;

    /// Starts everything, and waits until the broker holds the state of the device.
    bool start();
    bool startBroker() { return broker.start() && observer().start(); }
    void startGateway();
    /// Destroys the gateway without its farewell, as a crash would end it, and waits until its
    /// broker has published the will.
    bool killGateway();
    /// Whether the gateway is online, as the broker says.
    bool isGatewayOnline();
    /// Stops the gateway and waits for its end.
    bool stopGateway();
    void switchDeviceOff();
    void switchDeviceOn(const Tavoro::Sim::SimOptions &options);
    void switchDeviceOn() { switchDeviceOn(deviceOptions); }

    BrokerObserver &observer();
    /// Carries out a line of the device's console.
    bool execute(const QString &line) const;

    /// The state that the broker holds: the records by the end of their topics.
    QMap<QString, QJsonValue> publishedState();
    /// The state that the device has, as it answers reads now.
    QMap<QString, QJsonValue> deviceState();
    /// Waits until gateway and device are connected, and both states are equal.
    bool waitForEqualStates();

    const QString serial = QStringLiteral("00000000000000A1");
    MosquittoBroker broker;
    /// User, password and certificates of the gateway and of observer().
    Tavoro::Gate::BrokerOptions access;
    quint16 gatewayPort = 0; ///< Where the gateway reaches the broker; 0: the broker's own port.
    int leaseSeconds = 0; ///< Of the gateway; 0: there is no other gateway.
    Tavoro::Sim::SimOptions deviceOptions;
    std::unique_ptr<RunningSimulator> device;
    std::unique_ptr<Tavoro::Gate::Gateway> gateway;

private:
    void addRead(const QString &operation, const QByteArray &arguments,
                 QMap<QString, QJsonValue> &state);

    std::unique_ptr<BrokerObserver> m_observer;
};
