#pragma once

#include "controlarbiter.h"
#include "discoveryresponder.h"
#include "leasearbiter.h"
#include "listener.h"
#include "outcomelog.h"
#include "simclient.h"
#include "simoptions.h"

#include <tavorosim/commands/request.h>
#include <tavorosim/console/console.h>

#include <QElapsedTimer>
#include <QObject>
#include <QString>
#include <QTimer>

#include <vector>

QT_BEGIN_NAMESPACE
class QTcpSocket;
QT_END_NAMESPACE

namespace Tavoro::Sim {

/// The simulated device on its sockets: serves any number of clients with one state, and console
/// commands from a control port.
///
/// Lives on one thread with an event loop; all members are called there.
class SimServer : public QObject {
    Q_OBJECT

public:
    explicit SimServer(SimOptions options, QObject *parent = nullptr);
    ~SimServer() override;

    /// Opens the folder of the files, if there is one, and the ports, and starts the scenario. On
    /// failure \a error holds a sentence.
    bool listen(QString &error);
    quint16 port() const { return m_port; }
    quint16 discoveryPort() const { return m_discovery.port(); }
    quint16 controlPort() const { return m_consoleListener.port(); }

    /// Carries out a line of the console. The resulting reports go to all clients.
    ConsoleAnswer execute(const QString &line);

private:
    bool openFolder(QString &error);
    bool openPorts(QString &error);
    void acceptClient(QTcpSocket *socket);
    void acceptConsole(QTcpSocket *socket);
    void serveConsole(QTcpSocket &socket);
    Answer carryOut(const SimClient &client, const Request &request);
    Answer carryOutControl(const SimClient &client, const Request &request);
    Answer carryOutLease(const SimClient &client, const Request &request);
    Answer answerOutcome(const Request &request) const;
    void abandonConnections(const std::string &clientId, const SimClient *except = nullptr);
    SimClient::Services servicesForClients();
    void reportControlLater();
    void reportControl();
    QString holderName() const;
    void sendReports(const Reports &reports);
    void catchUp();
    void followPower();
    void leave();
    void drop();
    void endPauses();
    void restart();
    void flood(SimClient &client, quint32 count) const;
    std::string identityFor(const SimClient &client) const;
    ProtoModel::DeviceBaseInfo identity() const;

    const SimOptions m_options;
    SimState m_state;
    FaultRules m_faults; ///< The faults that it injects.
    QElapsedTimer m_elapsed; ///< Time since the program started, by this machine's clock.
    qint64 m_passed = 0; ///< The part of m_elapsed that the device's clock has followed.
    QTimer m_tick; ///< Runs while something runs that takes time.
    Listener m_listener;
    quint16 m_port = 0; ///< Kept while the device is off.
    bool m_isLeaving = false; ///< The device is off, but still sends answers.
    Listener m_consoleListener;
    DiscoveryResponder m_discovery;
    ControlArbiter m_arbiter;
    LeaseArbiter m_lease;
    OutcomeLog m_outcomes;
    const SimClient *m_reportedHolder = nullptr; ///< The holder that the clients know.
    std::vector<SimClient *> m_clients; ///< Owned as children.
};

} // namespace Tavoro::Sim
