#include "simclient.h"

#include "simoptions.h"

#include <tavorosim/commands/commandnames.h>
#include <tavorosim/state/simlog.h>
#include <tavorowire/checksums.h>
#include <tavorowire/frame.h>
#include <tavorowire/hostandport.h>
#include <tavorowire/linkcommands.h>

#include <QTcpSocket>
#include <QTimer>

#include <algorithm>
#include <utility>

namespace Tavoro::Sim {

using SSProxy::Wire::ControlState;
using SSProxy::Wire::FrameEvent;
using SSProxy::Wire::FrameKind;
using SSProxy::Wire::WireHead;

namespace {

/// The longest frame body that is skipped to be refused; a longer one ends the connection.
constexpr quint32 maxBodySize = SSProxy::Wire::defaultMaxBodySize;

const char *typeName(quint8 type)
{
    switch (static_cast<CommandType>(type)) {
    case CommandType::Read:
        return "read";
    case CommandType::Write:
        return "write";
    case CommandType::BinaryRead:
        return "binary read";
    case CommandType::BinaryWrite:
        return "binary write";
    }
    return "unknown type";
}

/// The head of a report whose code is still to be set.
WireHead reportHead()
{
    WireHead head;
    head.kind = static_cast<quint8>(FrameKind::Report);
    head.type = static_cast<quint8>(CommandType::Read);
    head.totalCount = 1;
    return head;
}

} // namespace

SimClient::SimClient(QTcpSocket *socket, const SimOptions &options, FaultRules &faults,
                     Services services, QObject *parent)
    : QObject(parent),
      m_socket(socket),
      m_peer(SSProxy::Wire::hostAndPort(socket->peerAddress().toString(), socket->peerPort())),
      m_latency(options.latencyMilliseconds),
      m_services(std::move(services)),
      m_sender(*socket),
      m_received(readSize),
      m_parser(maxBodySize),
      m_assembler(options.packetSize,
                  [this](const Request &request) { return m_services.carryOut(*this, request); }),
      m_faults(faults),
      m_pause(this)
{
    m_pause.setSingleShot(true);
    m_pause.setTimerType(Qt::PreciseTimer);
    connect(&m_pause, &QTimer::timeout, this, &SimClient::resumeReading);
    socket->setParent(this);
    socket->setSocketOption(QAbstractSocket::LowDelayOption, 1);
    // Bytes beyond the limit stay in the network's buffers, which slows the sender down.
    socket->setReadBufferSize(maxReceivedBytes);
    connect(socket, &QTcpSocket::readyRead, this, &SimClient::readFrames);
    connect(socket, &QTcpSocket::bytesWritten, this, &SimClient::readFrames);
    connect(socket, &QTcpSocket::disconnected, this, &SimClient::disconnected);
    qCInfo(simLog, "%s connected", qUtf8Printable(m_peer));
}

SimClient::~SimClient()
{
    qCInfo(simLog, "%s gone", qUtf8Printable(m_peer));
}

void SimClient::send(const Report &report)
{
    if (!m_isIntroduced || !hasRoomForReport())
        return;
    WireHead head = reportHead();
    head.BC = SSProxy::baseCode(report.command);
    head.FC = SSProxy::functionCode(report.command);
    m_sender.send(SSProxy::Wire::encodeFrame(head, report.body));
    qCInfo(simLog, "%s report 0x%04X", qUtf8Printable(m_peer), head.code());
    qCDebug(simLog, "%s", report.body.c_str());
}

bool SimClient::hasRoomForReport()
{
    if (m_sender.isDrained())
        m_dropsReports = false;
    if (m_sender.hasRoomForReport())
        return true;
    if (!std::exchange(m_dropsReports, true))
        qCWarning(simLog, "%s does not read: reports are dropped", qUtf8Printable(m_peer));
    return false;
}

void SimClient::sendControl(bool isHeldByOthers, const QString &holder)
{
    if (!m_isIntroduced)
        return;
    const auto state = isHeldByOthers ? ControlState::Others : ControlState::Yours;
    WireHead head = reportHead();
    setCode(head, SSProxy::Wire::LinkCommand::Control);
    head.arg2[0] = static_cast<quint8>(state);
    m_sender.sendControlReport(SSProxy::Wire::encodeFrame(head, holder.toStdString()));
}

std::string SimClient::clientId() const
{
    return m_outcomes ? m_outcomes->id().client : std::string();
}

void SimClient::abandon()
{
    m_isEnding = true;
    m_socket->abort();
}

void SimClient::close()
{
    m_isEnding = true;
    m_socket->disconnectFromHost();
}

void SimClient::resumeReading()
{
    if (m_isReading)
        return;
    m_pause.stop(); // or it would end a later pause
    m_isReading = true;
    readFrames();
}

void SimClient::sendHeldAnswers()
{
    m_sender.sendHeld();
    readFrames(); // there may be room for answers again
}

void SimClient::readFrames()
{
    // flush() may make room without another bytesWritten(), so look again after it.
    do {
        while (mayRead() && (!m_rest.empty() || receive())) {
            if (auto event = m_parser.next(m_rest))
                take(std::move(*event));
        }
        m_socket->flush(); // now, not when the event loop does it
        m_sender.sendWaitingReport();
    } while (mayRead() && (!m_rest.empty() || m_socket->bytesAvailable() > 0));
    m_assembler.readAhead(m_frame);
}

bool SimClient::mayRead() const
{
    return m_isReading && !m_isEnding && m_socket->isOpen() && m_sender.hasRoomForAnswer();
}

bool SimClient::receive()
{
    const qint64 count = m_socket->read(m_received.data(), readSize);
    m_rest = {m_received.data(), static_cast<std::size_t>(std::max(count, qint64{0}))};
    return !m_rest.empty();
}

void SimClient::take(FrameEvent event)
{
    if (event.fatal) {
        qCWarning(simLog, "%s sent an invalid frame: status %d", qUtf8Printable(m_peer),
                  event.status);
        return abandon();
    }
    switch (static_cast<FrameKind>(event.head.kind)) {
    case FrameKind::Request:
        return answerRequest(std::move(event));
    case FrameKind::IdentityRequest:
        return answerIdentity(event.body);
    case FrameKind::Ping:
        return m_sender.send(SSProxy::Wire::encodeLinkFrame(FrameKind::Pong, event.head.lables));
    case FrameKind::Response:
    case FrameKind::Report:
    case FrameKind::IdentityAnswer:
    case FrameKind::Pong:
        return; // A client does not send these to a device, or they need no answer.
    }
}

void SimClient::answerRequest(FrameEvent event)
{
    if (m_outcomes)
        m_outcomes->arrive(event.head.number);
    if (m_faults.isIdle()) {
        encode(makeAnswer(std::move(event)));
        return m_sender.sendLater(m_frame, m_latency);
    }
    const WireHead request = event.head;
    const auto answerTo = [&](const WireHead &head) {
        event.head = head;
        PacketAssembler::Packet answer = makeAnswer(std::move(event));
        answer.unpack();
        return answer;
    };
    const Delivery delivery = m_faults.deliver(request, request.code(), answerTo);
    if (delivery.preparedAnswer)
        note(request, {}, *delivery.preparedAnswer);
    carryOut(delivery);
}

void SimClient::encode(PacketAssembler::Packet answer)
{
    if (answer.frame.isEmpty())
        return SSProxy::Wire::encodeFrame(answer.head, answer.body,
                                          SSProxy::Wire::crc32(answer.body), m_frame);
    m_frame = std::move(answer.frame);
    SSProxy::Wire::writeHead(answer.head, answer.checksum, m_frame);
}

PacketAssembler::Packet SimClient::makeAnswer(FrameEvent event)
{
    PacketAssembler::Packet answer;
    if (event.status == 0) {
        const std::string body = simLog().isDebugEnabled() ? event.body : std::string();
        answer = m_assembler.answer(event.head, std::move(event.body));
        note(event.head, body, answer);
    } else {
        answer.head = SSProxy::Wire::responseHead(event.head);
        answer.head.status = static_cast<quint8>(DeviceStatus::MalformedBody);
        note(event.head, {}, answer);
    }
    return answer;
}

void SimClient::answerIdentity(const std::string &connection)
{
    if (const auto id = SSProxy::Wire::decodeConnectionId(connection); id && !m_outcomes)
        m_outcomes = m_services.introduce(*this, *id);
    WireHead head;
    head.kind = static_cast<quint8>(FrameKind::IdentityAnswer);
    m_isIntroduced = true;
    const auto answer = [&](const WireHead & /*request*/) {
        return PacketAssembler::Packet{head, m_services.identity(*this)};
    };
    carryOut(m_faults.deliver(head, identityCode, answer));
}

void SimClient::carryOut(const Delivery &delivery)
{
    if (delivery.reports > 0)
        Q_EMIT reportsRequested(delivery.reports);
    if (delivery.isHeld)
        m_sender.hold(delivery.bytes);
    else if (!delivery.bytes.isEmpty())
        m_sender.sendLater(delivery.bytes, m_latency + delivery.delay);
    if (delivery.stopsReading)
        stopReading(delivery.readingPause);
    if (delivery.endsConnection)
        endLater(m_latency + delivery.delay);
    if (delivery.restarts)
        Q_EMIT restartRequested();
}

void SimClient::endLater(int delay)
{
    m_isEnding = true;
    if (delay == 0)
        return close();
    QTimer::singleShot(delay, Qt::PreciseTimer, this, &SimClient::close);
}

void SimClient::stopReading(int milliseconds)
{
    m_isReading = false;
    if (milliseconds > 0)
        m_pause.start(milliseconds);
}

void SimClient::note(const WireHead &request, const std::string &body,
                     const PacketAssembler::Packet &answer)
{
    if (m_outcomes)
        m_outcomes->finish(request.number, answer.head.status);
    qCInfo(simLog, "%s %s 0x%04X [%d %d %d %d] packet %u/%u -> status %d, packet %u/%u, %zu bytes",
           qUtf8Printable(m_peer), typeName(request.type), request.code(), request.arg2[3],
           request.arg2[2], request.arg2[1], request.arg2[0], request.sendCount, request.totalCount,
           answer.head.status, answer.head.sendCount, answer.head.totalCount,
           answer.bytes().size());
    qCDebug(simLog, "> %s", body.c_str());
    qCDebug(simLog, "< %s", answer.bytes().data());
}

} // namespace Tavoro::Sim
