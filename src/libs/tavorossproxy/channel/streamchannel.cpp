#include "streamchannel_p.h"

#include "clampedoptions_p.h"
#include "commands_p.h"
#include "leaserequests_p.h"
#include "outcomequery_p.h"
#include <tavorossproxy/logging_p.h>

#include <tavorossproxy/channelstatus.h>
#include <tavorowire/hostandport.h>
#include <tavorowire/linkcommands.h>

#include <utility>

namespace Tavoro::SSProxy::Internal {

std::shared_ptr<StreamChannel>
StreamChannel::open(const QString &peerName, std::unique_ptr<ByteStream> stream,
                    std::shared_ptr<EventLoop> loop, const ChannelOptions &options,
                    ReportHandler handler, ControlHandler controlHandler)
{
    // Not make_shared: pending timers hold weak_ptrs, which would keep the whole allocation alive
    // until they fire.
    std::shared_ptr<StreamChannel> channel(
        new StreamChannel(peerName, std::move(stream), std::move(loop), options, std::move(handler),
                          std::move(controlHandler)));
    // The loop holds references to the channel, so callers get a handle whose last release stops
    // it.
    StreamChannel *const address = channel.get();
    std::shared_ptr<StreamChannel> handle(
        address, [channel](StreamChannel *) mutable { std::exchange(channel, {})->stopChannel(); });
    channel->start(handle);
    return handle;
}

StreamChannel::StreamChannel(const QString &peerName, std::unique_ptr<ByteStream> stream,
                             std::shared_ptr<EventLoop> loop, const ChannelOptions &options,
                             ReportHandler handler, ControlHandler controlHandler)
    : m_loop(std::move(loop)),
      m_options(clampedOptions(options)),
      m_exchanges(m_loop->clock(), &m_reader),
      m_readiness(peerName, m_exchanges),
      m_sender(*m_loop, m_options, m_exchanges,
               [this] { post([](StreamChannel &self) { self.m_sender.sendPosted(); }); }),
      m_monitor(m_loop->clock(), m_options, m_exchanges, m_readiness,
                [this](quint64 connection, const QString &reason) { drop(connection, reason); }),
      m_runner(*m_loop, m_options, m_exchanges, m_sender, m_monitor, nameForLog()),
      m_control(*this, *m_loop, nameForLog(),
                [this, call = std::move(controlHandler)](bool isMaster) {
                    if (call)
                        call(m_handle, isMaster);
                }),
      m_reports(m_loop, m_options, nameForLog(),
                [this, call = std::move(handler)](std::shared_ptr<IDeviceCommand> report) {
                    call(m_handle, std::move(report));
                }),
      m_invalidFrames(*m_loop, nameForLog()),
      m_frames(m_options, {m_exchanges, m_control, m_reports, m_invalidFrames, m_monitor}),
      m_quota(*m_loop, m_options.maxConnections),
      m_notifier(m_readiness)
{
    if (!stream)
        return;
    m_link = std::make_unique<ChannelLink>(std::move(stream), m_loop->clock(), m_options, *this,
                                           m_frames);
    m_sender.setLink(m_link.get());
}

std::function<QString()> StreamChannel::nameForLog()
{
    return [this] {
        return m_readiness.peerName();
    };
}

void StreamChannel::start(const std::weak_ptr<DeviceChannel> &handle)
{
    m_handle = handle;
    if (!m_link)
        return m_readiness.stop(NotInitialized, tr("it has no address"));
    linkConnecting(); // so that a request before the link starts gets the same status
    const bool isPosted = post([](StreamChannel &self) {
        self.m_loop->attach(self.shared_from_this());
        if (self.m_link)
            self.m_link->start();
    });
    if (!isPosted)
        m_readiness.stop(ThreadNotRunning, tr("the channel is stopped"));
}

/// Runs \a call on the loop's thread, and keeps the channel until then. Returns false if that
/// thread has ended.
bool StreamChannel::post(std::function<void(StreamChannel &)> call)
{
    return m_loop->post([self = shared_from_this(), call = std::move(call)] { call(*self); });
}

void StreamChannel::stopChannel()
{
    m_readiness.stop(Disconnected, tr("the channel is stopped"));
    post([](StreamChannel &self) {
        self.endLink();
        self.m_loop->detach(&self);
    });
}

void StreamChannel::loopEnding()
{
    m_readiness.stop(ThreadNotRunning, tr("the channel is stopped"));
    endLink();
}

void StreamChannel::endLink()
{
    m_quota.release();
    if (!m_link)
        return;
    m_link->stop();
    m_reader.setSocket(nullptr);
    m_sender.setLink(nullptr);
    m_link.reset();
    m_reports.stop();
    m_invalidFrames.stop();
    m_control.stop();
    m_notifier.notify(nullptr);
    m_notifier.setHandler({});
}

void StreamChannel::reconnectNow()
{
    post([](StreamChannel &self) {
        if (self.m_link)
            self.m_link->refresh();
    });
}

void StreamChannel::moveTo(const QString &host, quint16 port)
{
    post([host, port](StreamChannel &self) {
        if (!self.m_link || !self.m_link->moveTo(host, port))
            return;
        const QString name = Wire::hostAndPort(host, port);
        qCInfo(channelLog) << "The device at" << self.m_readiness.peerName() << "has moved to"
                           << name;
        self.m_readiness.setPeerName(name);
    });
}

/// Closes the connection with the number \a connection, unless it has ended already. Any thread.
void StreamChannel::drop(quint64 connection, const QString &reason)
{
    post([connection, reason](StreamChannel &self) {
        if (self.m_link && self.m_readiness.connections() == connection)
            self.m_link->drop(Disconnected, reason);
    });
}

bool StreamChannel::waitUntilReady(int milliseconds, QString &error)
{
    auto deadline = m_loop->clock().now();
    if (!m_loop->isCurrentThread())
        deadline += ChannelOptions::Milliseconds(milliseconds);
    return m_readiness.await(m_loop->clock(), deadline, error);
}

std::shared_ptr<DeviceResponseCommand>
StreamChannel::sendSyncRequest(std::shared_ptr<DeviceRequestCommand> request)
{
    return request ? m_runner.run(*request) : makeResponse({}, InvalidRequest);
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
    post([handler = std::move(handler)](StreamChannel &self) mutable {
        self.m_notifier.setHandler(std::move(handler));
        self.m_notifier.notify(self.m_link.get());
    });
}

ChannelStatistics StreamChannel::statistics() const
{
    const auto counts = m_exchanges.counts();
    ChannelStatistics statistics;
    statistics.connections = m_readiness.connections();
    statistics.requests = counts.requests;
    statistics.timeouts = counts.timeouts;
    statistics.lateAnswers = counts.lateAnswers;
    statistics.strayAnswers = counts.strayAnswers;
    statistics.reports = m_reports.delivered();
    statistics.droppedReports = m_reports.dropped();
    statistics.protocolErrors = m_invalidFrames.count();
    return statistics;
}

bool StreamChannel::connectsTo(const QString &host, quint16 port) const
{
    return m_readiness.peerName() == Wire::hostAndPort(host, port);
}

void StreamChannel::linkConnecting()
{
    m_readiness.beginConnecting();
    m_notifier.notify(m_link.get());
}

void StreamChannel::linkReady(ProtoModel::DeviceBaseInfo info)
{
    const QString name = QString::fromStdString(info.name);
    const bool isMaster = info.controlState == quint8(Wire::ControlState::Yours);
    m_reader.setSocket(m_link->socket());
    {
        // A thread that still sends over the previous connection must not take the frame of a new
        // request.
        const auto noSending = m_sender.pause();
        if (!m_readiness.begin(std::move(info), m_link->connectionId()))
            return;
    }
    qCInfo(channelLog) << "Connected to" << m_readiness.peerName() << name;
    m_control.begin(isMaster);
    m_notifier.notify(m_link.get());
}

void StreamChannel::linkLost(quint16 status, const QString &reason, quint32 interruptedAnswer)
{
    m_quota.release();
    m_reader.setSocket(nullptr);
    m_monitor.setFrameProgress({});
    if (!m_readiness.end(status, reason, interruptedAnswer))
        return;
    qCWarning(channelLog) << "No connection to" << m_readiness.peerName() << reason;
    m_notifier.notify(m_link.get());
}

/// On its own thread the loop handles the frames without a call.
void StreamChannel::linkHasFrames()
{
    m_reader.pause();
    if (m_loop->isCurrentThread() || m_isHandlingPosted.exchange(true))
        return;
    post([](StreamChannel &self) {
        self.m_isHandlingPosted = false;
        if (self.m_link)
            self.m_link->handleFrames();
    });
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
