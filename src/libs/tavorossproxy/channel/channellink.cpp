#include "channellink_p.h"

#include <tavorossproxy/io/connectedsocket_p.h>

#include <tavorocontrol/proto/deviceidentity.h>
#include <tavorossproxy/channelstatus.h>
#include <tavorowire/frame.h>

#include <QRandomGenerator>

#include <algorithm>
#include <cstring>

namespace Tavoro::SSProxy::Internal {

using Wire::FrameKind;

namespace {

/// Returns a number by which devices distinguish this channel from all others.
std::string makeClientId()
{
    const quint64 number = QRandomGenerator::system()->generate64();
    std::string id(sizeof number, '\0');
    std::memcpy(id.data(), &number, sizeof number);
    return id;
}

} // namespace

ChannelLink::ChannelLink(std::unique_ptr<ByteStream> stream, Clock &clock,
                         const ChannelOptions &options, Events &events, FrameHandler &frames)
    : m_stream(std::move(stream)),
      m_clock(clock),
      m_options(options),
      m_events(events),
      m_frames(frames),
      m_incoming(options.maxBodySize,
                 [this](Wire::FrameEvent &&answer) {
                     m_hasAnswered = m_hasRequested.load();
                     m_frames.answerReceived(std::move(answer));
                 }),
      m_pause(options.firstReconnectPause),
      m_keepAlive(options)
{
    m_connection.client = makeClientId();
}

void ChannelLink::start()
{
    if (m_phase == Phase::Idle)
        connect();
}

void ChannelLink::stop()
{
    m_phase = Phase::Stopped;
    setSocket(nullptr);
    m_stream->close();
}

void ChannelLink::refresh()
{
    if (m_phase == Phase::Pausing)
        connect();
}

bool ChannelLink::moveTo(const QString &host, quint16 port)
{
    if (m_phase == Phase::Ready || m_phase == Phase::Stopped)
        return false;
    if (!m_stream->setPeer(host, port)) {
        refresh();
        return false;
    }
    m_stream->close();
    m_incoming.clear();
    m_pause = m_options.firstReconnectPause;
    connect();
    return true;
}

void ChannelLink::tick(Clock::TimePoint time)
{
    if (time != m_tick)
        return;
    m_tick = Clock::TimePoint::max();
    if (m_clock.now() < m_due)
        return wantTick(m_due);
    switch (m_phase) {
    case Phase::Connecting:
        return drop(Disconnected, tr("no connection in time"));
    case Phase::Identifying:
        return drop(Disconnected, notIdentifiedReason());
    case Phase::Ready:
        return keepAlive();
    case Phase::Pausing:
        return connect();
    case Phase::Idle:
    case Phase::Stopped:
        break;
    }
}

void ChannelLink::drop(quint16 status, const QString &reason)
{
    if (m_phase == Phase::Idle || m_phase == Phase::Pausing || m_phase == Phase::Stopped)
        return;
    setSocket(nullptr);
    m_stream->close(); // no other thread receives after this
    const auto unfinished = m_incoming.unfinishedHead();
    const bool isBrokenOff =
        status == Disconnected && unfinished && unfinished->kind == quint8(FrameKind::Response);
    if (m_phase == Phase::Ready && isStable())
        m_pause = m_options.firstReconnectPause;
    m_incoming.clear();
    enter(Phase::Pausing, m_pause);
    m_pause = std::min(2 * m_pause, m_options.longestReconnectPause);
    m_events.linkLost(status, reason, isBrokenOff ? unfinished->number : 0u);
}

/// Whether the next pause is the shortest one. A device that identifies itself and then closes the
/// connection must not be reconnected after the shortest pause forever.
bool ChannelLink::isStable() const
{
    return m_hasAnswered || m_clock.now() - m_readySince >= m_options.longestReconnectPause;
}

std::shared_ptr<ConnectedSocket> ChannelLink::socket() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_socket;
}

void ChannelLink::setSocket(std::shared_ptr<ConnectedSocket> socket)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_socket = std::move(socket);
}

std::optional<ChannelOptions::Milliseconds> ChannelLink::timeToNextAttempt() const
{
    if (m_phase != Phase::Pausing)
        return std::nullopt;
    const auto rest = m_due - m_clock.now();
    return std::max(std::chrono::duration_cast<ChannelOptions::Milliseconds>(rest),
                    ChannelOptions::Milliseconds::zero());
}

bool ChannelLink::canSend() const
{
    return m_phase == Phase::Ready && m_stream->unsentBytes() < m_options.maxUnsentBytes;
}

void ChannelLink::send(const QByteArray &frame)
{
    m_hasRequested = true;
    write(frame);
}

void ChannelLink::send(const QByteArray &frame, ConnectedSocket &socket)
{
    m_hasRequested = true;
    noteWritten(frame.size());
    socket.send(frame);
}

void ChannelLink::write(const QByteArray &frame)
{
    noteWritten(frame.size());
    m_stream->write(frame);
}

void ChannelLink::noteWritten(qint64 bytes)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_keepAlive.noteWritten(bytes);
}

void ChannelLink::connect()
{
    enter(Phase::Connecting, m_options.connectTimeout);
    if (!m_events.linkMayConnect())
        return drop(Disconnected, tr("there are too many connections"));
    m_events.linkConnecting();
    m_stream->open(*this);
}

void ChannelLink::enter(Phase phase, ChannelOptions::Milliseconds due)
{
    m_phase = phase;
    m_due = m_clock.now() + due;
    wantTick(m_due);
}

/// A tick cannot be cancelled. If an earlier one is pending, that one requests the next tick.
void ChannelLink::wantTick(Clock::TimePoint time)
{
    if (time >= m_tick)
        return;
    m_tick = time;
    m_events.linkWantsTick(time);
}

void ChannelLink::keepAlive()
{
    KeepAlive::Action action{};
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        action = m_keepAlive.check(m_clock.now(), m_stream->unsentBytes());
        m_due = m_keepAlive.nextCheck();
    }
    switch (action) {
    case KeepAlive::Action::Disconnect:
        return drop(DeviceSilent, tr("it stopped answering"));
    case KeepAlive::Action::Ping:
        write(Wire::encodeLinkFrame(FrameKind::Ping));
        break;
    case KeepAlive::Action::None:
        break;
    }
    wantTick(m_due);
}

void ChannelLink::streamOpened(const std::string &peerAddress)
{
    m_peerAddress = peerAddress;
    enter(Phase::Identifying, m_options.identityTimeout);
    m_events.linkIdentifying(notIdentifiedReason());
    ++m_connection.number;
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_keepAlive.begin(m_clock.now());
    }
    Wire::WireHead head;
    head.kind = static_cast<quint8>(FrameKind::IdentityRequest);
    write(Wire::encodeFrame(head, Wire::encodeConnectionId(m_connection)));
}

void ChannelLink::streamReceived(std::string_view bytes)
{
    const auto count = static_cast<qint64>(bytes.size());
    const IncomingFrames::Batch batch = m_incoming.receive(bytes);
    if (batch.hasWaiting)
        m_events.linkHasFrames();
    if (batch.unfinished && m_phase == Phase::Ready)
        m_frames.frameStarted(*batch.unfinished);
    Clock::TimePoint progress;
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_keepAlive.noteReceived(count, batch.isSameFrame, m_clock.now());
        if (batch.isWithinFrame)
            progress = m_keepAlive.lastFrameProgress();
    }
    m_frames.frameProgressed(progress);
}

/// A frame that ends the connection discards those after it.
void ChannelLink::handleFrames()
{
    while (auto frame = m_incoming.next()) {
        handle(std::move(*frame));
        m_incoming.handled();
    }
    m_events.linkHandledFrames();
}

void ChannelLink::streamDrained()
{
    if (m_phase == Phase::Ready)
        m_events.linkWritable();
}

void ChannelLink::streamClosed(const QString &reason)
{
    handleFrames();
    drop(Disconnected, reason);
}

void ChannelLink::handle(Wire::FrameEvent &&event)
{
    if (event.status != 0)
        return refuse(std::move(event));
    switch (static_cast<FrameKind>(event.head.kind)) {
    case FrameKind::IdentityAnswer:
        if (m_phase == Phase::Identifying)
            takeIdentity(event.body);
        return;
    case FrameKind::Ping:
        return answerPing(event.head.lables);
    case FrameKind::Pong:
        return;
    case FrameKind::Response:
        m_hasAnswered = m_hasRequested.load();
        [[fallthrough]];
    case FrameKind::Report:
        if (m_phase == Phase::Ready)
            m_frames.frameReceived(std::move(event));
        return;
    case FrameKind::Request:
    case FrameKind::IdentityRequest:
        event.status = WrongType; // only clients send these
        return refuse(std::move(event));
    }
}

/// Pongs to a device that sends pings but does not read must not fill the socket's buffer without
/// limit.
void ChannelLink::answerPing(quint8 lables)
{
    if (m_stream->unsentBytes() < m_options.maxUnsentBytes)
        write(Wire::encodeLinkFrame(FrameKind::Pong, lables));
}

void ChannelLink::refuse(Wire::FrameEvent &&event)
{
    const quint16 status = event.status;
    const bool isIdentity = event.head.kind == quint8(FrameKind::IdentityAnswer);
    const bool endsTheConnection = event.fatal || (m_phase == Phase::Identifying && isIdentity);
    m_frames.frameReceived(std::move(event));
    if (endsTheConnection)
        drop(status, tr("it sent an invalid frame (%1)").arg(status));
}

QString ChannelLink::notIdentifiedReason()
{
    return tr("it did not identify itself in time");
}

void ChannelLink::takeIdentity(const std::string &body)
{
    ProtoModel::DeviceBaseInfo info;
    std::string error;
    if (!ProtoModel::decodeIdentity(body, info, error))
        return drop(WrongType,
                    tr("its identity cannot be read: %1")
                        .arg(QCoreApplication::translate("Tavoro::ProtoModel", error.c_str())));
    if (info.protocolVersion != Wire::protocolVersion)
        return drop(WrongFlag,
                    tr("it speaks protocol version %1, and only version %2 is supported")
                        .arg(info.protocolVersion)
                        .arg(Wire::protocolVersion));
    if (info.maxPacketSize == 0)
        return drop(WrongLength, tr("it takes packets of 0 bytes"));
    if (!m_options.identity.empty() && ProtoModel::identityKey(info) != m_options.identity)
        return drop(Disconnected, tr("another device is there"));
    if (!m_peerAddress.empty())
        info.ip = m_peerAddress; // with address translation the device reports another one
    info.maxPacketSize = std::min(info.maxPacketSize, m_options.maxBodySize);
    m_readySince = m_clock.now();
    m_hasRequested = false;
    m_hasAnswered = false;
    enter(Phase::Ready, m_options.keepAliveInterval);
    setSocket(m_stream->socket());
    m_incoming.setCompletesAnswers(true);
    m_events.linkReady(std::move(info));
}

} // namespace Tavoro::SSProxy::Internal
