#pragma once

#include "answerreader_p.h"
#include "channellink_p.h"
#include "channelreadiness_p.h"
#include "connectionnotifier_p.h"
#include "connectionquota_p.h"
#include "devicecontrol_p.h"
#include "exchangerunner_p.h"
#include "exchangetable_p.h"
#include "expecteddevice_p.h"
#include "framedispatcher_p.h"
#include "invalidframes_p.h"
#include "reportdelivery_p.h"
#include "requestsender_p.h"
#include "responsemonitor_p.h"
#include <tavorossproxy/io/eventloop_p.h>

#include <tavorossproxy/networkchannel.h>

#include <QCoreApplication>
#include <QString>

#include <atomic>
#include <functional>
#include <memory>

namespace Tavoro::SSProxy::Internal {

/// A channel over a stream of bytes: joins the parts that are its members.
///
/// | member                               | thread                                       |
/// |--------------------------------------|----------------------------------------------|
/// | the public functions                 | any                                          |
/// | m_link and its events                | that of the loop, except that m_sender uses  |
/// |                                      | m_link on any, and linkHasFrames() says so   |
/// | the others                           | as each says                                 |
class StreamChannel final : public NetworkChannel,
                            public ExpectedDevice,
                            public std::enable_shared_from_this<StreamChannel>,
                            public EventLoop::Client,
                            public ChannelLink::Events {
    Q_DECLARE_TR_FUNCTIONS(Tavoro::SSProxy::Internal::StreamChannel)

public:
    using ReportHandler =
        std::function<void(std::weak_ptr<DeviceChannel>, std::shared_ptr<IDeviceCommand>)>;
    using ControlHandler = std::function<void(std::weak_ptr<DeviceChannel>, bool isMaster)>;

    /// Begins to connect and returns at once. If \a stream is null, the channel never connects.
    /// \a peerName is the device's name for users. \a handler gets reports, and \a controlHandler,
    /// which may be empty, the changed isMasterControl(); both are called on the thread of \a loop.
    /// The channel stops when the last reference to it is released.
    static std::shared_ptr<StreamChannel> open(const QString &peerName,
                                               std::unique_ptr<ByteStream> stream,
                                               std::shared_ptr<EventLoop> loop,
                                               const ChannelOptions &options, ReportHandler handler,
                                               ControlHandler controlHandler = {});

    std::shared_ptr<DeviceResponseCommand>
    sendSyncRequest(std::shared_ptr<DeviceRequestCommand> request) override;
    ProtoModel::DeviceBaseInfo deviceBaseInfo() const override { return m_readiness.deviceInfo(); }
    bool isHardwareReadFinished() override { return m_runner.acceptsRequests(); }
    bool isMasterControl() override { return m_control.isMaster(); }
    void stopChannel() override;
    bool waitUntilReady(int milliseconds, QString &error) override;
    void reconnectNow() override;
    void moveTo(const QString &host, quint16 port) override;
    bool requestControl(ControlAction action, QString &error) override
    {
        return m_control.request(action, error);
    }
    RequestOutcome requestOutcome(quint8 lables) override;
    RequestOutcome outcomeOf(const RequestIdentity &id) override;
    bool readControlHolder(QString &holder) override { return m_control.readHolder(holder); }
    DeviceLease readLease() override;
    DeviceLease takeLease(const QString &holder, std::chrono::seconds time) override;
    DeviceLease releaseLease() override;
    void setConnectionHandler(std::function<void(const ConnectionState &)> handler) override;
    ChannelStatistics statistics() const override;
    std::string expectedIdentity() const override { return m_options.identity; }
    bool connectsTo(const QString &host, quint16 port) const override;

private:
    StreamChannel(const QString &peerName, std::unique_ptr<ByteStream> stream,
                  std::shared_ptr<EventLoop> loop, const ChannelOptions &options,
                  ReportHandler handler, ControlHandler controlHandler);

    bool linkMayConnect() override { return m_quota.acquire(); }
    void linkConnecting() override;
    void linkIdentifying(const QString &reason) override { m_readiness.setReason(reason); }
    void linkReady(ProtoModel::DeviceBaseInfo info) override;
    void linkLost(quint16 status, const QString &reason, quint32 interruptedAnswer) override;
    void linkWritable() override { m_sender.sendUnsent(); }
    void linkHasFrames() override;
    void linkHandledFrames() override { m_reader.resume(); }
    void linkWantsTick(Clock::TimePoint time) override;
    void loopEnding() override;

    void start(const std::weak_ptr<DeviceChannel> &handle);
    bool post(std::function<void(StreamChannel &)> call);
    std::function<QString()> nameForLog();
    void drop(quint64 connection, const QString &reason);
    void endLink();

    const std::shared_ptr<EventLoop> m_loop;
    const ChannelOptions m_options;
    std::weak_ptr<DeviceChannel> m_handle; ///< For the handlers. Set before the channel is used.
    AnswerReader m_reader;
    ExchangeTable m_exchanges;
    ChannelReadiness m_readiness;
    RequestSender m_sender;
    ResponseMonitor m_monitor;
    ExchangeRunner m_runner;
    DeviceControl m_control;
    ReportDelivery m_reports;
    InvalidFrames m_invalidFrames;
    FrameDispatcher m_frames;
    ConnectionQuota m_quota;
    ConnectionNotifier m_notifier;
    std::unique_ptr<ChannelLink> m_link; ///< Null if there is no address, and after the end.
    std::atomic<bool> m_isHandlingPosted{false};
};

} // namespace Tavoro::SSProxy::Internal
