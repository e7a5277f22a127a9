#include "streamchannel_p.h"

#include "clampedoptions_p.h"
#include "commands_p.h"
#include "leaserequests_p.h"
#include "outcomequery_p.h"
#include <tavorossproxy/io/connectedsocket_p.h>
#include <tavorossproxy/logging_p.h>

#include <tavorossproxy/requestannouncement.h>
#include <tavorowire/checksums.h>
#include <tavorowire/frame.h>
#include <tavorowire/hostandport.h>
#include <tavorowire/linkcommands.h>

#include <algorithm>
#include <utility>

namespace Tavoro::SSProxy::Internal {

namespace {

bool isReportAbove(quint64 maxElements, const Wire::FrameEvent &event)
{
    if (event.head.kind != quint8(Wire::FrameKind::Report))
        return false;
    Wire::JsonElements elements;
    elements.add(event.body);
    return elements.count() > maxElements;
}

/// The device carries a write out when it has received this packet.
bool isDecisiveWrite(const Wire::WireHead &request)
{
    const bool isWrite = request.type == quint8(CommandType::Write)
        || request.type == quint8(CommandType::BinaryWrite);
    return isWrite && quint64(request.sendCount) + 1 >= request.totalCount;
}

} // namespace

std::shared_ptr<StreamChannel>
StreamChannel::open(const QString &peerName, std::unique_ptr<ByteStream> stream,
                    std::shared_ptr<EventLoop> loop, const ChannelOptions &options,
                    ReportHandler handler, ControlHandler controlHandler)
{
    // Not make_shared: pending timers hold weak_ptrs, which would keep the whole allocation alive
    // until they fire.
    std::shared_ptr<StreamChannel> channel(new StreamChannel(peerName, std::move(loop), options));
    // The loop holds references to the channel, so callers get a handle whose last release stops
    // it.
    StreamChannel *const address = channel.get();
    std::shared_ptr<StreamChannel> handle(
        address, [channel](StreamChannel *) mutable { std::exchange(channel, {})->stopChannel(); });
    channel->start(std::move(stream), handle, std::move(handler), std::move(controlHandler));
    return handle;
}

StreamChannel::StreamChannel(const QString &peerName, std::shared_ptr<EventLoop> loop,
                             const ChannelOptions &options)
    : m_loop(std::move(loop)),
      m_options(clampedOptions(options)),
      m_invalidFrames(*m_loop, [this] { return this->peerName(); }),
      m_exchanges(m_loop->clock(), &m_reader),
      m_peerName(peerName),
      m_reason(tr("no connection yet"))
{ }

void StreamChannel::start(std::unique_ptr<ByteStream> stream,
                          const std::weak_ptr<DeviceChannel> &handle, ReportHandler handler,
                          ControlHandler controlHandler)
{
    const auto name = [this] {
        return peerName();
    };
    const auto handleControl = [handle, call = std::move(controlHandler)](bool isMaster) {
        if (call)
            call(handle, isMaster);
    };
    const auto handleReport = [handle,
                               call = std::move(handler)](std::shared_ptr<IDeviceCommand> report) {
        call(handle, std::move(report));
    };
    m_control = std::make_unique<DeviceControl>(*this, *m_loop, name, handleControl);
    m_reports = std::make_unique<ReportDelivery>(m_loop, m_options, name, handleReport);
    if (!stream)
        return stopAccepting(NotInitialized, tr("it has no address"));
    m_link = std::make_unique<ChannelLink>(std::move(stream), m_loop->clock(), m_options, *this);
    linkConnecting(); // so that a request before the link starts gets the same status
    const bool isPosted = m_loop->post([self = shared_from_this()] {
        self->m_loop->attach(self);
        if (self->m_link)
            self->m_link->start();
    });
    if (!isPosted)
        stopAccepting(ThreadNotRunning, tr("the channel is stopped"));
}

void StreamChannel::stopChannel()
{
    stopAccepting(Disconnected, tr("the channel is stopped"));
    m_loop->post([self = shared_from_this()] {
        self->endLink();
        self->m_loop->detach(self.get());
    });
}

void StreamChannel::reconnectNow()
{
    m_loop->post([self = shared_from_this()] {
        if (self->m_link)
            self->m_link->refresh();
    });
}

void StreamChannel::moveTo(const QString &host, quint16 port)
{
    m_loop->post([self = shared_from_this(), host, port] {
        if (!self->m_link || !self->m_link->moveTo(host, port))
            return;
        QString name = Wire::hostAndPort(host, port);
        qCInfo(channelLog) << "The device at" << self->peerName() << "has moved to" << name;
        const std::lock_guard<std::mutex> lock(self->m_mutex);
        self->m_peerName = std::move(name);
    });
}

bool StreamChannel::waitUntilReady(int milliseconds, QString &error)
{
    const auto deadline = m_loop->clock().now() + ChannelOptions::Milliseconds(milliseconds);
    const bool canWait = !m_loop->isCurrentThread();
    std::unique_lock<std::mutex> lock(m_mutex);
    while (canWait && m_state == State::Waiting && m_loop->clock().now() < deadline)
        m_loop->clock().waitUntil(m_stateChanged, lock, deadline);
    if (m_state == State::Ready)
        return true;
    error = tr("The device at %1 cannot be reached: %2.").arg(m_peerName, m_reason);
    return false;
}

bool StreamChannel::requestControl(ControlAction action, QString &error)
{
    return m_control->request(action, error);
}

RequestOutcome StreamChannel::requestOutcome(quint8 lables)
{
    RequestOutcome outcome;
    if (lables == 0)
        return outcome; // the packets of a split write have tags of their own
    if (const auto sent = m_exchanges.lastSent(lables))
        return queryOutcome(*this, *sent);
    outcome.state = RequestOutcome::NotArrived; // it was never sent
    return outcome;
}

RequestOutcome StreamChannel::outcomeOf(const RequestIdentity &id)
{
    return queryOutcome(*this, {{id.client, id.connection}, id.number});
}

bool StreamChannel::readControlHolder(QString &holder)
{
    return m_control->readHolder(holder);
}

DeviceLease StreamChannel::readLease()
{
    return Internal::readLease(*this, m_loop->clock());
}

DeviceLease StreamChannel::takeLease(const QString &holder, std::chrono::seconds time)
{
    return Internal::takeLease(*this, m_loop->clock(), holder, time);
}

DeviceLease StreamChannel::releaseLease()
{
    return Internal::releaseLease(*this, m_loop->clock());
}

void StreamChannel::setConnectionHandler(std::function<void(const ConnectionState &)> handler)
{
    m_loop->post([self = shared_from_this(), handler = std::move(handler)]() mutable {
        self->m_connectionHandler = std::move(handler);
        self->notifyConnection();
    });
}

ConnectionState StreamChannel::connectionState() const
{
    ConnectionState state;
    state.connections = m_connections;
    if (m_link && m_link->isReady()) {
        state.phase = ConnectionState::Phase::Ready;
        return state;
    }
    const auto pause = m_link ? m_link->timeToNextAttempt() : std::nullopt;
    state.phase = pause ? ConnectionState::Phase::Pausing
        : m_link        ? ConnectionState::Phase::Connecting
                        : ConnectionState::Phase::Stopped;
    state.pause = pause.value_or(state.pause);
    const std::lock_guard<std::mutex> lock(m_mutex);
    state.reason = m_reason;
    return state;
}

void StreamChannel::notifyConnection()
{
    if (m_connectionHandler)
        m_connectionHandler(connectionState());
}

ProtoModel::DeviceBaseInfo StreamChannel::deviceBaseInfo() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_info;
}

ChannelStatistics StreamChannel::statistics() const
{
    const auto counts = m_exchanges.counts();
    ChannelStatistics statistics;
    statistics.connections = m_connections;
    statistics.requests = counts.requests;
    statistics.timeouts = counts.timeouts;
    statistics.lateAnswers = counts.lateAnswers;
    statistics.strayAnswers = counts.strayAnswers;
    statistics.reports = m_reports->delivered();
    statistics.droppedReports = m_reports->dropped();
    statistics.protocolErrors = m_invalidFrames.count();
    return statistics;
}

// An operation asks this before each request. If it sends nothing because of the answer, its caller
// must not take the exchange before for the last one.
bool StreamChannel::isHardwareReadFinished()
{
    const quint16 refusal = m_exchanges.refusal();
    if (refusal == 0)
        return true;
    Exchange notSent;
    notSent.status = refusal;
    ExchangeWatch::report(std::move(notSent));
    return false;
}

bool StreamChannel::connectsTo(const QString &host, quint16 port) const
{
    return peerName() == Wire::hostAndPort(host, port);
}

QString StreamChannel::peerName() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_peerName;
}

std::shared_ptr<DeviceResponseCommand>
StreamChannel::sendSyncRequest(std::shared_ptr<DeviceRequestCommand> request)
{
    if (!request)
        return makeResponse({}, InvalidRequest);
    Exchange observed;
    auto response = exchange(*request, observed);
    const PacketHead &head = request->head();
    observed.status = response->status;
    observed.type = static_cast<CommandType>(head.type);
    observed.code = static_cast<quint16>(head.BC << 8 | head.FC);
    observed.packet = head.sendCount;
    observed.packets = std::max(quint32{head.totalCount}, 1u); // a copy: the head is packed
    ExchangeWatch::report(std::move(observed));
    return response;
}

/// Sets the members of \a observed that say whether and when the request was sent.
std::shared_ptr<DeviceResponseCommand> StreamChannel::exchange(DeviceRequestCommand &request,
                                                               Exchange &observed)
{
    const auto deadline = m_loop->clock().now()
        + std::min(ChannelOptions::Milliseconds(request.timeout()), m_options.maxRequestTime);
    request.head().lables = 0; // a refused request must not show the tag of an earlier exchange
    if (m_loop->isCurrentThread())
        return makeResponse(request.head(), CalledOnChannelThread);
    const auto ticket = m_exchanges.begin(request, deadline);
    if (ticket.refusal != 0)
        return makeResponse(request.head(), ticket.refusal);

    if (!maySend(ticket.head, deadline)) {
        m_exchanges.withdraw(ticket.head.lables);
        return makeResponse(request.head(), InvalidRequest);
    }
    request.head() = Wire::packetHead(ticket.head); // further packets copy the stream from here
    QByteArray frame = m_exchanges.takeStorage();
    Wire::encodeFrame(ticket.head, request.body(), Wire::crc32(request.body()), frame);
    m_exchanges.submit(ticket.head.lables, std::move(frame));
    observed.time = std::chrono::steady_clock::now();
    sendUnsent();
    std::optional<Wire::RequestId> sent;
    auto response = m_exchanges.await(ticket.head, deadline, &sent);
    if (sent)
        observed.sent = {sent->connection.client, sent->connection.number, sent->number};
    const quint64 elements = m_answerElements.add(ticket.head, *response);
    if (elements > m_options.maxElements)
        return refuseAnswer(ticket.head, elements);

    const quint64 connection = m_connections; // read first: a newer one must not be closed
    if (m_exchanges.timedOutRequests() >= m_options.maxTimedOutRequests)
        closeConnection(connection, tr("it left too many requests unanswered"));
    else if ((response->status == RequestTimedOut || response->status == AnswerIncomplete)
             && hasStalled())
        closeConnection(connection, tr("it stopped in the middle of a frame"));
    return response;
}

/// Announces the request, if the caller wants that. A request without a connection need not be
/// announced: it ends when it is submitted.
bool StreamChannel::maySend(const Wire::WireHead &request, Clock::TimePoint deadline)
{
    if (!RequestAnnouncement::isWanted() || !isDecisiveWrite(request))
        return true;
    const auto id = m_exchanges.reserveNumber(request.lables);
    const auto time =
        std::chrono::duration_cast<ChannelOptions::Milliseconds>(deadline - m_loop->clock().now());
    return !id
        || RequestAnnouncement::announce({id->connection.client, id->connection.number, id->number},
                                         time);
}

/// Ends the exchange. The caller requests no further packet of the answer.
std::shared_ptr<DeviceResponseCommand> StreamChannel::refuseAnswer(const Wire::WireHead &request,
                                                                   quint64 elements)
{
    qCWarning(channelLog) << "Answer refused from" << peerName() << "elements" << elements
                          << "limit" << m_options.maxElements;
    m_exchanges.endSplitRead(request.stream);
    return makeResponse(Wire::packetHead(request), WrongLength);
}

/// Any thread. What cannot be sent now is sent when the stream has been drained, or after the next
/// connection was established.
void StreamChannel::sendUnsent()
{
    const std::lock_guard<std::mutex> lock(m_sendMutex);
    if (const auto socket = m_link ? m_link->socket() : nullptr)
        sendOver(*socket);
    else if (m_loop->isCurrentThread())
        sendOnLoop();
    else
        postSending();
}

/// A content is sent only if nothing else waits, so that a later request for records waits for one
/// packet at most.
void StreamChannel::sendOver(ConnectedSocket &socket)
{
    while (socket.unsentBytes() < m_options.maxUnsentBytes) {
        auto frame = m_exchanges.takeUnsent(socket.unsentBytes() == 0);
        if (!frame)
            return;
        m_link->send(*frame, socket);
        m_exchanges.recycle(std::move(*frame));
    }
}

void StreamChannel::sendOnLoop()
{
    while (m_link && m_link->canSend()) {
        auto frame = m_exchanges.takeUnsent();
        if (!frame)
            return;
        m_link->send(*frame);
        m_exchanges.recycle(std::move(*frame));
    }
}

void StreamChannel::postSending()
{
    if (m_isSendingPosted.exchange(true))
        return;
    m_loop->post([self = shared_from_this()] {
        self->m_isSendingPosted = false;
        self->sendUnsent();
    });
}

bool StreamChannel::hasStalled() const
{
    const Clock::TimePoint progress = m_lastFrameProgress;
    return progress != Clock::TimePoint()
        && m_loop->clock().now() - progress >= m_options.stalledAnswerTimeout;
}

/// Called on a caller's thread. Makes the channel not ready at once, so that waitUntilReady() waits
/// for the next connection.
void StreamChannel::closeConnection(quint64 connection, const QString &reason)
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        if (m_state != State::Ready || m_connections != connection)
            return;
        m_state = State::Waiting;
        m_reason = reason;
        m_exchanges.close(Disconnected, Disconnected);
    }
    m_loop->post([self = shared_from_this(), connection, reason] {
        if (self->m_link && self->m_connections == connection)
            self->m_link->drop(Disconnected, reason);
    });
}

/// Stops permanently. Requests in flight and all later ones end with \a refusal.
void StreamChannel::stopAccepting(quint16 refusal, const QString &reason)
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        if (m_state == State::Stopped)
            return;
        m_state = State::Stopped;
        m_reason = reason;
        m_exchanges.close(refusal, refusal);
    }
    m_stateChanged.notify_all();
}

void StreamChannel::loopEnding()
{
    stopAccepting(ThreadNotRunning, tr("the channel is stopped"));
    endLink();
}

void StreamChannel::endLink()
{
    releaseConnection();
    if (!m_link)
        return;
    m_link->stop();
    m_reader.setSocket(nullptr);
    {
        const std::lock_guard<std::mutex> lock(m_sendMutex);
        m_link.reset();
    }
    m_reports->stop();
    m_invalidFrames.stop();
    m_control->stop();
    notifyConnection();
    m_connectionHandler = {};
}

bool StreamChannel::linkMayConnect()
{
    if (!m_holdsConnection && m_loop->connections < m_options.maxConnections) {
        ++m_loop->connections;
        m_holdsConnection = true;
    }
    return m_holdsConnection;
}

void StreamChannel::releaseConnection()
{
    m_loop->connections -= m_holdsConnection;
    m_holdsConnection = false;
}

void StreamChannel::linkConnecting()
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        if (m_state != State::Stopped)
            m_exchanges.close(Connecting, Disconnected);
    }
    notifyConnection();
}

void StreamChannel::linkIdentifying(const QString &reason)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (m_state != State::Stopped)
        m_reason = reason;
}

void StreamChannel::linkReady(ProtoModel::DeviceBaseInfo info)
{
    const QString name = QString::fromStdString(info.name);
    const bool isMaster = info.controlState == quint8(Wire::ControlState::Yours);
    m_reader.setSocket(m_link->socket());
    {
        // A thread that still sends over the previous connection must not take the frame of a new
        // request.
        const std::lock_guard<std::mutex> sendLock(m_sendMutex);
        const std::lock_guard<std::mutex> lock(m_mutex);
        if (m_state == State::Stopped)
            return;
        ++m_connections; // first, so that isHardwareReadFinished() never belongs to an older count
        m_exchanges.open(info.maxPacketSize, m_link->connectionId());
        m_info = std::move(info);
        m_state = State::Ready;
    }
    m_stateChanged.notify_all();
    qCInfo(channelLog) << "Connected to" << peerName() << name;
    m_control->begin(isMaster);
    notifyConnection();
}

void StreamChannel::linkLost(quint16 status, const QString &reason, quint32 interruptedAnswer)
{
    releaseConnection();
    m_reader.setSocket(nullptr);
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        if (m_state == State::Stopped)
            return;
        // After a loss the refusal is always Disconnected; after a failed attempt it is the cause.
        m_exchanges.close(m_state == State::Ready ? quint16(Disconnected) : status, status,
                          interruptedAnswer);
        m_state = State::Waiting;
        m_reason = reason;
        m_lastFrameProgress = Clock::TimePoint();
    }
    qCWarning(channelLog) << "No connection to" << peerName() << reason;
    notifyConnection();
}

void StreamChannel::linkReceived(Wire::FrameEvent &&event)
{
    if (event.status == 0 && isReportAbove(m_options.maxElements, event))
        event.status = WrongLength;
    if (event.status != 0)
        m_invalidFrames.add(event.status);
    if (event.fatal)
        return;
    const bool isAboutControl =
        event.status == 0 && hasCode(event.head, Wire::LinkCommand::Control);
    if (isAboutControl)
        m_control->take(event);
    // A frame of a kind that devices do not send is probably meant as an answer.
    if (event.head.kind == quint8(Wire::FrameKind::Response) || event.status == WrongType)
        m_exchanges.complete(std::move(event), m_options.maxPacketCount);
    else if (event.status == 0 && !isAboutControl)
        m_reports->take(std::move(event));
}

void StreamChannel::linkAnswered(Wire::FrameEvent &&answer)
{
    m_exchanges.complete(std::move(answer), m_options.maxPacketCount);
}

/// On its own thread the loop handles the frames without a call.
void StreamChannel::linkHasFrames()
{
    m_reader.pause();
    if (m_loop->isCurrentThread() || m_isHandlingPosted.exchange(true))
        return;
    m_loop->post([self = shared_from_this()] {
        self->m_isHandlingPosted = false;
        if (self->m_link)
            self->m_link->handleFrames();
    });
}

void StreamChannel::linkReceiving(const Wire::WireHead &head)
{
    if (head.kind == quint8(Wire::FrameKind::Response))
        m_exchanges.answerStarted(head);
}

void StreamChannel::linkProgressed(Clock::TimePoint lastProgress)
{
    m_lastFrameProgress = lastProgress;
}

void StreamChannel::linkWantsTick(Clock::TimePoint time)
{
    m_loop->postAt(time, [weak = weak_from_this(), time] {
        const auto self = weak.lock();
        if (self && self->m_link)
            self->m_link->tick(time);
    });
}

} // namespace Tavoro::SSProxy::Internal
