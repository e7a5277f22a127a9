#include "simserver.h"

#include "scenariorunner.h"
#include "simclient.h"

#include <tavorocontrol/proto/deviceidentity.h>
#include <tavorosim/commands/commandtable.h>
#include <tavorosim/commands/devicecommands.h>
#include <tavorosim/commands/maintenancecommands.h>
#include <tavorosim/state/factorysetup.h>
#include <tavorosim/state/setupstore.h>
#include <tavorosim/state/simlog.h>
#include <tavorosim/state/texts.h>
#include <tavorowire/hostandport.h>
#include <tavorowire/linkcommands.h>

#include <QDateTime>
#include <QTcpSocket>
#include <QTimer>

#include <algorithm>
#include <optional>
#include <utility>

namespace Tavoro::Sim {

using SSProxy::Wire::ControlState;
using SSProxy::Wire::LinkCommand;

namespace {

constexpr int tick = 50; ///< Milliseconds between two readings of the clock.
constexpr qint64 maxLineLength = 64 << 10; ///< Bytes of a line on the control port.

/// True for writes, except of the clock: each client sets it when it synchronises.
bool needsControl(const Request &request)
{
    return (request.type == CommandType::Write || request.type == CommandType::BinaryWrite)
        && request.command != Command::AuxiliaryDeviceTime;
}

/// True for the lines of the console after which no fault holds up what has begun.
bool endsPauses(const QString &line)
{
    return line == QLatin1String("fault clear") || line == QLatin1String("fault release");
}

} // namespace

SimServer::SimServer(SimOptions options, QObject *parent)
    : QObject(parent),
      m_options(std::move(options)),
      m_tick(this),
      m_listener(this),
      m_consoleListener(this),
      m_discovery([this] { return identity(); }, this)
{
    m_faults.seed(m_options.seed);
    for (const FaultRule &rule : m_options.faults)
        m_faults.add(rule);
    m_state.factory = makeFactorySetup(m_options);
    m_state.saved = m_state.factory;
    static_cast<Setup &>(m_state) = m_state.factory;
    // Every stored content can be read back: clients accept a limited number of packets.
    const qint64 maxLength = qint64{m_options.packetSize} * PacketAssembler::maxPackets;
    m_state.files.setMaxContentLength(std::min(maxLength, m_state.files.maxContentLength()));
    m_state.maintenance.clockAtStart = QDateTime::currentMSecsSinceEpoch();
    m_elapsed.start();
    m_tick.setInterval(tick);
    connect(&m_tick, &QTimer::timeout, this, &SimServer::catchUp);
    connect(&m_listener, &Listener::connected, this, &SimServer::acceptClient);
    connect(&m_consoleListener, &Listener::connected, this, &SimServer::acceptConsole);
}

SimServer::~SimServer() = default;

bool SimServer::openFolder(QString &error)
{
    if (!m_state.files.open(m_options.filesFolder, error)
        || !readSetup(m_state.files, m_state.saved, error))
        return false;
    static_cast<Setup &>(m_state) = m_state.saved;
    return true;
}

bool SimServer::listen(QString &error)
{
    std::optional<Scenario> scenario;
    if (!m_options.scenario.isEmpty()) {
        scenario = readScenario(m_options.scenario, error);
        if (!scenario) {
            error =
                Texts::tr("the scenario \"%1\" is not valid: %2").arg(m_options.scenario, error);
            return false;
        }
    }
    if (!m_options.filesFolder.isEmpty() && !openFolder(error))
        return false;
    if (!openPorts(error))
        return false;
    if (scenario)
        new ScenarioRunner(
            *scenario, [this](const QString &line) { return execute(line); }, this);
    return true;
}

bool SimServer::openPorts(QString &error)
{
    if (!m_listener.open(m_options.address, m_options.port, error))
        return false;
    m_port = m_listener.port();
    if (m_options.discoveryPort >= 0
        && !m_discovery.listen(m_options.address, static_cast<quint16>(m_options.discoveryPort),
                               error))
        return false;
    // The control port has no access control: it serves this machine only.
    return m_options.controlPort < 0
        || m_consoleListener.open(QHostAddress::LocalHost,
                                  static_cast<quint16>(m_options.controlPort), error);
}

ConsoleAnswer SimServer::execute(const QString &line)
{
    catchUp();
    Reports reports;
    ConsoleAnswer answer = executeConsole(m_state, m_faults, line, reports);
    if (endsPauses(line.simplified()))
        endPauses();
    sendReports(reports);
    followPower();
    return answer;
}

void SimServer::acceptClient(QTcpSocket *socket)
{
    auto *const client = new SimClient(socket, m_options, m_faults, servicesForClients(), this);
    m_clients.push_back(client);
    connect(client, &SimClient::restartRequested, this, &SimServer::restart);
    connect(client, &SimClient::reportsRequested, this,
            [this, client](quint32 count) { flood(*client, count); });
    connect(client, &SimClient::disconnected, this, [this, client] {
        m_clients.erase(std::remove(m_clients.begin(), m_clients.end(), client), m_clients.end());
        client->deleteLater();
        m_arbiter.leave(*client);
        reportControl();
    });
}

SimClient::Services SimServer::servicesForClients()
{
    SimClient::Services services;
    services.carryOut = [this](const SimClient &client, const Request &request) {
        return carryOut(client, request);
    };
    services.identity = [this](const SimClient &client) {
        return identityFor(client);
    };
    services.introduce = [this](const SimClient &client, const SimClient::ConnectionId &id) {
        abandonConnections(id.client, &client);
        return m_outcomes.open(id);
    };
    return services;
}

/// Requests of these connections are no longer carried out.
void SimServer::abandonConnections(const std::string &clientId, const SimClient *except)
{
    const std::vector<SimClient *> clients = m_clients; // Each removes itself.
    for (SimClient *const client : clients) {
        if (client != except && client->clientId() == clientId)
            client->abandon();
    }
}

void SimServer::acceptConsole(QTcpSocket *socket)
{
    socket->setParent(this);
    socket->setReadBufferSize(maxLineLength);
    connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
    connect(socket, &QTcpSocket::readyRead, this, [this, socket] { serveConsole(*socket); });
    connect(socket, &QTcpSocket::bytesWritten, this, [this, socket] { serveConsole(*socket); });
}

/// Serves the lines that have arrived, as long as their answers are read.
void SimServer::serveConsole(QTcpSocket &socket)
{
    while (socket.isOpen() && socket.bytesToWrite() < maxLineLength && socket.canReadLine()) {
        const ConsoleAnswer answer = execute(QString::fromUtf8(socket.readLine()));
        socket.write(answer.line().toUtf8() + '\n');
    }
    if (socket.bytesAvailable() < maxLineLength || socket.canReadLine())
        return;
    qCWarning(simLog, "a console line is longer than %lld bytes", maxLineLength);
    socket.abort();
}

Answer SimServer::carryOut(const SimClient &client, const Request &request)
{
    catchUp();
    if (m_state.maintenance.power != Power::On)
        return {DeviceStatus::Busy, {}, nullptr};
    if (static_cast<LinkCommand>(request.command) == LinkCommand::Control)
        return carryOutControl(client, request);
    if (static_cast<LinkCommand>(request.command) == LinkCommand::Outcome)
        return answerOutcome(request);
    if (static_cast<LinkCommand>(request.command) == LinkCommand::Lease)
        return carryOutLease(client, request);
    if (needsControl(request) && m_arbiter.isHeldByOthers(client))
        return {DeviceStatus::ControlledByOthers, {}, nullptr};
    Reports reports;
    Answer answer = Sim::carryOut(m_state, request, reports);
    if (needsControl(request) && answer.status == DeviceStatus::Success) {
        m_arbiter.take(client);
        reportControlLater();
    }
    // The client that asked gets its answer before the reports.
    if (!reports.empty())
        QTimer::singleShot(0, this, [this, reports = std::move(reports)] { sendReports(reports); });
    if (m_state.maintenance.power != Power::On)
        leave();
    followPower();
    return answer;
}

Answer SimServer::carryOutControl(const SimClient &client, const Request &request)
{
    Answer answer;
    if (request.type == CommandType::Read)
        answer.body = holderName().toStdString();
    else if (request.type == CommandType::Write)
        answer.status = m_arbiter.carryOut(client, request.arg2[0]);
    else
        answer.status = DeviceStatus::UnknownCommand;
    reportControlLater();
    return answer;
}

/// When another client gets the lease, the outcomes of the last holder are final.
Answer SimServer::carryOutLease(const SimClient &client, const Request &request)
{
    Answer answer = m_lease.carryOut(client.clientId(), request, m_state.maintenance.uptime);
    if (const std::string displaced = m_lease.takeDisplaced(); !displaced.empty())
        abandonConnections(displaced);
    return answer;
}

Answer SimServer::answerOutcome(const Request &request) const
{
    Answer answer;
    const auto id = SSProxy::Wire::decodeRequestId(request.body);
    if (request.type != CommandType::Read)
        answer.status = DeviceStatus::UnknownCommand;
    else if (!id)
        answer.status = DeviceStatus::MalformedBody;
    else
        answer.body = m_outcomes.read(*id);
    return answer;
}

/// After the answer, like reports.
void SimServer::reportControlLater()
{
    if (m_arbiter.holder() != m_reportedHolder)
        QTimer::singleShot(0, this, &SimServer::reportControl);
}

/// Reports to the clients whose own right to write has changed.
void SimServer::reportControl()
{
    const SimClient *const before = std::exchange(m_reportedHolder, m_arbiter.holder());
    const QString holder = holderName();
    for (SimClient *const client : m_clients) {
        const bool wasHeldByOthers = before && before != client;
        if (m_arbiter.isHeldByOthers(*client) != wasHeldByOthers)
            client->sendControl(!wasHeldByOthers, holder);
    }
}

QString SimServer::holderName() const
{
    return m_arbiter.holder() ? m_arbiter.holder()->peer() : QString();
}

void SimServer::leave()
{
    // The client that switches the device off gets its answer first.
    const int latency = m_options.latencyMilliseconds;
    m_isLeaving = true;
    QTimer::singleShot(latency == 0 ? 0 : latency + tick, this, [this] {
        m_isLeaving = false;
        drop();
        followPower();
    });
}

void SimServer::drop()
{
    m_listener.close();
    m_outcomes.forgetAll();
    m_lease.reset();
    const std::vector<SimClient *> clients = m_clients; // Each removes itself.
    for (SimClient *const client : clients)
        client->close();
}

void SimServer::endPauses()
{
    const std::vector<SimClient *> clients = m_clients; // A frame may end its client.
    for (SimClient *const client : clients) {
        client->sendHeldAnswers();
        client->resumeReading();
    }
}

void SimServer::restart()
{
    switchOff(m_state, Power::Restarting);
    followPower();
}

void SimServer::flood(SimClient &client, quint32 count) const
{
    const Report report = reportPowers(m_state);
    for (quint32 i = 0; i < count; ++i)
        client.send(report);
}

void SimServer::catchUp()
{
    const qint64 due = m_elapsed.elapsed() * m_options.clockSpeed / 100;
    Reports reports;
    advanceTime(m_state, due - std::exchange(m_passed, due), reports);
    sendReports(reports);
    followPower();
}

void SimServer::followPower()
{
    if (m_options.clockSpeed == 0 || !hasTimedWork(m_state))
        m_tick.stop();
    else if (!m_tick.isActive())
        m_tick.start();
    if (m_isLeaving || m_port == 0)
        return;
    QString error;
    if (m_state.maintenance.power != Power::On)
        drop();
    else if (!m_listener.isOpen() && !m_listener.open(m_options.address, m_port, error))
        qCWarning(simLog, "%s", qUtf8Printable(error));
}

void SimServer::sendReports(const Reports &reports)
{
    for (const Report &report : reports) {
        for (SimClient *const client : m_clients)
            client->send(report);
    }
}

std::string SimServer::identityFor(const SimClient &client) const
{
    ProtoModel::DeviceBaseInfo info = identity();
    const auto state =
        m_arbiter.isHeldByOthers(client) ? ControlState::Others : ControlState::Yours;
    info.controlState = static_cast<quint8>(state);
    return ProtoModel::encodeIdentity(info);
}

ProtoModel::DeviceBaseInfo SimServer::identity() const
{
    ProtoModel::DeviceBaseInfo info;
    info.protocolVersion = 1;
    info.modelId = m_options.modelId;
    info.sn = m_options.sn;
    info.mac = m_options.mac;
    info.hardwareVersion = 1;
    info.firmwareVersion = 1;
    info.tcpPort = m_listener.port(); // 0 while the device is off
    const Maintenance &maintenance = m_state.maintenance;
    info.startTime = static_cast<quint64>(maintenance.clockAtStart + maintenance.switchedOn);
    info.slotCount = static_cast<quint16>(m_state.device.subcards.size());
    info.maxPacketSize = m_options.packetSize;
    info.name = m_state.device.general.name;
    for (const ProtoModel::Device::s_subcardBody &card : m_state.device.subcards)
        info.slotModels.push_back(static_cast<quint16>(card.modelId));
    info.ip = m_listener.address().toString().toStdString();
    info.hostName = "tavorosim";
    return info;
}

} // namespace Tavoro::Sim
