#pragma once

#include <tavorogate/broker/brokerconnection.h>
#include <tavorogate/broker/outbox.h>
#include <tavorogate/config/gateconfig.h>
#include <tavorogate/device/gatewaydevice.h>
#include <tavorogate/metrics/counters.h>
#include <tavorogate/metrics/metricsfile.h>
#include <tavorogate/ownership/answerwatch.h>
#include <tavorogate/service/servicemanager.h>
#include <tavorogate/state/publishturns.h>
#include <tavorosession/session.h>

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

#include <map>
#include <memory>

namespace Tavoro::Gate {

/// The whole gateway: a session with its devices and a connection to its broker. It belongs to the
/// thread that created it, which needs an event loop. No member blocks, except as BrokerConnection
/// does.
class Gateway : public QObject {
    Q_OBJECT

public:
    /// \a options apply to all devices, except the time after which control is given up.
    explicit Gateway(const GateConfig &config, const SessionOptions &options = {});
    ~Gateway() override;

    void start();
    /// Ends calls, publishes that gateway and devices are offline, and disconnects. stopped()
    /// follows, after at most two seconds.
    void stop();

    /// The counters at this moment.
    Counters counters() const;

Q_SIGNALS:
    void stopped();

private:
    void announce(bool isOnline);
    void follow(DeviceSession *session);
    void update(DeviceSession &session);
    void addDevice(DeviceSession &session, const QString &serial);
    void reportStatus();
    void continueStopping();

    const GateConfig m_config;
    Counters m_counters; ///< Those that only grow.
    BrokerConnection m_broker;
    Outbox m_outbox;
    const std::unique_ptr<AnswerWatch> m_answers; ///< Null if there is no other gateway.
    PublishTurns m_turns;
    MetricsFile m_metrics;
    ServiceManager m_service;
    std::map<DeviceSession *, std::unique_ptr<GatewayDevice>> m_devices;
    Session m_session; ///< Removes its devices from \c m_devices when it is destroyed.
    QTimer m_stopping; ///< Looks whether everything has been published.
    QElapsedTimer m_stopTime;
};

} // namespace Tavoro::Gate
