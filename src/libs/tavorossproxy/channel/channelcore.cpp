#include "channelcore_p.h"

#include "commands_p.h"
#include <tavorossproxy/logging_p.h>

#include <tavorowire/checksums.h>
#include <tavorowire/frame.h>
#include <tavorowire/hostandport.h>
#include <tavorowire/linkcommands.h>

#include <algorithm>

namespace Tavoro::SSProxy::Internal {

namespace {

/// Between two lines of the log about the same thing.
constexpr std::chrono::seconds logPause(1);

/// Between two changes of control that are told: those who take them may be slower than the device.
constexpr std::chrono::milliseconds controlPause(100);

/// Requests that can be told apart.
constexpr int tagCount = 255;

/// Longest body of a frame: a QByteArray of Qt 5 holds no frame of 2 GiB.
constexpr quint32 mostBodySize = 1u << 30;

/// With values in place of those that would let nothing through or leave no pause.
ChannelOptions usable(ChannelOptions options)
{
    using Milliseconds = ChannelOptions::Milliseconds;
    for (Milliseconds ChannelOptions::*time :
         {&ChannelOptions::connectTimeout, &ChannelOptions::identityTimeout,
          &ChannelOptions::firstReconnectPause, &ChannelOptions::longestReconnectPause,
          &ChannelOptions::keepAliveInterval, &ChannelOptions::keepAliveTimeout,
          &ChannelOptions::stalledAnswerTimeout})
        options.*time = std::clamp(options.*time, Milliseconds(1), Milliseconds(longestTime));
    // One ping at the least goes ahead of giving up.
    options.keepAliveTimeout = std::max(options.keepAliveTimeout, 2 * options.keepAliveInterval);
    options.maxRequestTime = std::max(options.maxRequestTime, Milliseconds(1));
    options.maxBodySize = std::min(options.maxBodySize, mostBodySize);
    options.maxPacketCount = std::max(options.maxPacketCount, 1u);
    options.maxUnsentBytes = std::max(options.maxUnsentBytes, 1u);
    options.minTransferRate = std::max(options.minTransferRate, 1u);
    options.maxOwedAnswers = std::clamp(options.maxOwedAnswers, 1, tagCount);
    return options;
}

} // namespace

QString ChannelCore::peerNameOf(const QString &host, quint16 port)
{
    return Wire::hostAndPort(host, port);
}

ChannelCore::ChannelCore(const QString &peerName, std::shared_ptr<ChannelLoop> loop,
                         const ChannelOptions &options)
    : m_loop(std::move(loop)),
      m_options(usable(options)),
      m_exchanges(m_loop->clock()),
      m_peerName(peerName),
      m_reason(tr("no connection yet"))
{ }

ChannelCore::~ChannelCore() = default;

void ChannelCore::start(std::unique_ptr<ByteStream> stream, Handlers handlers)
{
    if (!stream)
        return leaveClosed();
    m_handlers = std::move(handlers);
    makeReportGate();
    makePacers();
    m_link = std::make_unique<ChannelLink>(std::move(stream), m_loop->clock(), m_options, *this);
    linkConnecting(); // so that a request that comes at once hears the same as a later one
    const bool isPosted = m_loop->post([core = shared_from_this()] {
        core->m_loop->attach(core);
        if (core->m_link)
            core->m_link->start();
    });
    if (!isPosted)
        shutForGood(ThreadNotRunning);
}

void ChannelCore::stop()
{
    shutForGood(Disconnected);
    m_loop->post([core = shared_from_this()] {
        core->endLink();
        core->m_loop->detach(core.get());
    });
}

void ChannelCore::reconnectNow()
{
    m_loop->post([core = shared_from_this()] {
        if (core->m_link)
            core->m_link->refresh();
    });
}

void ChannelCore::moveTo(const QString &host, quint16 port)
{
    m_loop->post([core = shared_from_this(), host, port] {
        if (!core->m_link || !core->m_link->moveTo(host, port))
            return;
        const QString before = core->peerName();
        const QString after = peerNameOf(host, port);
        {
            const std::lock_guard<std::mutex> lock(core->m_mutex);
            core->m_peerName = after;
        }
        qCInfo(channelLog) << "The device at" << before << "has moved to" << after;
    });
}

bool ChannelCore::waitUntilReady(ChannelOptions::Milliseconds timeout, QString &error)
{
    const auto deadline = m_loop->clock().now() + timeout;
    const bool canWait = !m_loop->isCurrentThread();
    std::unique_lock<std::mutex> lock(m_mutex);
    while (canWait && m_state == State::Waiting && m_loop->clock().now() < deadline)
        m_loop->clock().waitUntil(m_stateChanged, lock, deadline);
    if (m_state == State::Ready)
        return true;
    error = tr("The device at %1 cannot be reached: %2.").arg(m_peerName, m_reason);
    return false;
}

ProtoModel::DeviceBaseInfo ChannelCore::info() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_info;
}

ChannelStatistics ChannelCore::statistics() const
{
    const auto counts = m_exchanges.counts();
    return {m_connections,       counts.requests, counts.timeouts,  counts.lateAnswers,
            counts.strayAnswers, m_reports,       m_droppedReports, m_protocolErrors};
}

std::shared_ptr<DeviceResponseCommand> ChannelCore::exchange(DeviceRequestCommand &request)
{
    const auto deadline = m_loop->clock().now()
        + std::min(ChannelOptions::Milliseconds(request.timeout()), m_options.maxRequestTime);
    request.head().lables = 0; // that of an exchange before would be taken for this one's
    if (m_loop->isCurrentThread())
        return makeResponse(request.head(), CalledOnChannelThread);
    const auto ticket = m_exchanges.begin(request, deadline);
    if (ticket.refusal != 0)
        return makeResponse(request.head(), ticket.refusal);

    request.head() = Wire::packetHead(ticket.head); // further packets copy the stream from here
    QByteArray frame = m_exchanges.takeStorage();
    Wire::encodeFrame(ticket.head, request.body(), Wire::crc32(request.body()), frame);
    m_exchanges.submit(ticket.head.lables, std::move(frame));
    postSending();
    auto response = m_exchanges.await(ticket.head, deadline);

    const quint64 connection = m_connections; // before the looks at it: a new one is left alone
    if (m_exchanges.owedAnswers() >= m_options.maxOwedAnswers)
        giveUpConnection(connection, tr("it owes too many answers"));
    else if ((response->status == RequestTimedOut || response->status == AnswerIncomplete)
             && hasStalled())
        giveUpConnection(connection, tr("it stopped in the middle of a frame"));
    return response;
}

bool ChannelCore::linkMayConnect()
{
    if (!m_holdsConnection && m_loop->connections < m_options.maxConnections) {
        ++m_loop->connections;
        m_holdsConnection = true;
    }
    return m_holdsConnection;
}

void ChannelCore::releaseConnection()
{
    m_loop->connections -= m_holdsConnection;
    m_holdsConnection = false;
}

void ChannelCore::linkConnecting()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (m_state != State::Stopped)
        m_exchanges.shut(Connecting, Disconnected);
}

void ChannelCore::linkIdentifying(const QString &reason)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (m_state != State::Stopped)
        m_reason = reason;
}

void ChannelCore::linkReady(ProtoModel::DeviceBaseInfo info)
{
    const QString name = QString::fromStdString(info.name);
    bool isMaster = true;
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        if (m_state == State::Stopped)
            return;
        m_exchanges.open(info.maxPacketSize, m_link->connectionId());
        isMaster = info.controlState == quint8(Wire::ControlState::Yours);
        m_info = std::move(info);
        m_state = State::Ready;
        ++m_connections;
    }
    m_stateChanged.notify_all();
    qCInfo(channelLog) << "Connected to" << peerName() << name;
    takeControl(isMaster, {});
}

void ChannelCore::linkLost(quint16 status, const QString &reason, quint32 brokenOff)
{
    releaseConnection();
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        if (m_state == State::Stopped)
            return;
        // A device that could not be used says why; one that was lost is just not there.
        m_exchanges.shut(m_state == State::Ready ? quint16(Disconnected) : status, status,
                         brokenOff);
        m_state = State::Waiting;
        m_reason = reason;
        m_lastFrameProgress = Clock::TimePoint();
    }
    qCWarning(channelLog) << "No connection to" << peerName() << reason;
}

void ChannelCore::linkWritable()
{
    sendUnsent();
}

void ChannelCore::linkReceived(Wire::FrameEvent &&event)
{
    if (event.status != 0) {
        noteRefused(event.status);
        if (event.fatal)
            return;
    }
    if (event.status == 0 && hasCode(event.head, Wire::LinkCommand::Control))
        noteControl(event);
    // What comes with a kind that a device does not send was probably meant as an answer.
    if (event.head.kind == quint8(Wire::FrameKind::Response) || event.status == WrongType) {
        m_exchanges.settle(std::move(event), m_options.maxPacketCount);
        m_loop->expectCall();
    } else if (event.status == 0 && !hasCode(event.head, Wire::LinkCommand::Control)) {
        takeReport(std::move(event));
    }
}

void ChannelCore::linkReceiving(const Wire::WireHead &head)
{
    if (head.kind == quint8(Wire::FrameKind::Response))
        m_exchanges.noteBegun(head);
}

void ChannelCore::linkProgressed(Clock::TimePoint lastProgress)
{
    m_lastFrameProgress = lastProgress;
}

void ChannelCore::linkWantsTick(Clock::TimePoint time)
{
    m_loop->postAt(time, [weak = weak_from_this(), time] {
        const auto core = weak.lock();
        if (core && core->m_link)
            core->m_link->tick(time);
    });
}

void ChannelCore::loopEnding()
{
    shutForGood(ThreadNotRunning);
    endLink();
}

QString ChannelCore::peerName() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_peerName;
}

void ChannelCore::postSending()
{
    if (m_isSendingPosted.exchange(true))
        return;
    m_loop->post([core = shared_from_this()] {
        core->m_isSendingPosted = false;
        core->sendUnsent();
    });
}

void ChannelCore::sendUnsent()
{
    while (m_link && m_link->canSend()) {
        auto frame = m_exchanges.takeUnsent();
        if (!frame)
            return;
        m_link->send(*frame);
        m_exchanges.giveBack(std::move(*frame));
    }
}

void ChannelCore::makePacers()
{
    const auto make = [this](std::chrono::milliseconds pause,
                             void (ChannelCore::*tell)(quint64 count)) {
        const auto rest = [weak = weak_from_this(), tell](quint64 count) {
            if (const auto core = weak.lock())
                (core.get()->*tell)(count);
        };
        return std::make_unique<Pacer>(*m_loop, pause, rest);
    };
    m_drops = make(logPause, &ChannelCore::tellDropped);
    m_refusals = make(logPause, &ChannelCore::tellRefused);
    m_controlLines = make(logPause, &ChannelCore::logControl);
    m_controlChanges = make(controlPause, &ChannelCore::tellControl);
}

void ChannelCore::noteRefused(quint16 status)
{
    ++m_protocolErrors;
    m_lastRefusal = status;
    if (m_refusals->passes())
        qCWarning(channelLog) << "Frame refused from" << peerName() << "status" << status;
}

void ChannelCore::tellRefused(quint64 count)
{
    qCWarning(channelLog) << "Further frames refused from" << peerName() << "number" << count
                          << "last status" << m_lastRefusal;
}

void ChannelCore::leaveClosed()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_state = State::Stopped;
    m_reason = tr("it has no address");
}

bool ChannelCore::hasStalled() const
{
    const Clock::TimePoint progress = m_lastFrameProgress;
    return progress != Clock::TimePoint()
        && m_loop->clock().now() - progress >= m_options.stalledAnswerTimeout;
}

/// Called on the thread of a caller. The channel is not ready from here on, so that whoever waits
/// until it is waits for the new connection.
void ChannelCore::giveUpConnection(quint64 connection, const QString &reason)
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        if (m_state != State::Ready || m_connections != connection)
            return;
        m_state = State::Waiting;
        m_reason = reason;
        m_exchanges.shut(Disconnected, Disconnected);
    }
    m_loop->post([core = shared_from_this(), connection, reason] {
        if (core->m_link && core->m_connections == connection)
            core->m_link->drop(Disconnected, reason);
    });
}

void ChannelCore::shutForGood(quint16 refusal)
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        if (m_state == State::Stopped)
            return;
        m_state = State::Stopped;
        m_reason = tr("the channel is stopped");
        m_exchanges.shut(refusal, refusal);
    }
    m_stateChanged.notify_all();
}

void ChannelCore::endLink()
{
    releaseConnection();
    if (!m_link)
        return;
    m_reportGate->forgetWaiting();
    m_link->stop();
    m_link.reset();
    for (Pacer *lines : {m_drops.get(), m_refusals.get(), m_controlLines.get()})
        lines->flush();
}

} // namespace Tavoro::SSProxy::Internal
