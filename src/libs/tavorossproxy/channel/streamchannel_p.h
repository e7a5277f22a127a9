#pragma once

#include "answerelements_p.h"
#include "answerreader_p.h"
#include "channellink_p.h"
#include "devicecontrol_p.h"
#include "exchangetable_p.h"
#include "expecteddevice_p.h"
#include "invalidframes_p.h"
#include "reportdelivery_p.h"
#include <tavorossproxy/io/eventloop_p.h>

#include <tavorossproxy/networkchannel.h>

#include <atomic>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>

namespace Tavoro::SSProxy::Internal {

/// A channel over a stream of bytes.
///
/// | member                                    | thread                                     |
/// |-------------------------------------------|--------------------------------------------|
/// | the public functions                      | any                                        |
/// | m_link, its events, m_invalidFrames       | that of the loop, except that sendUnsent() |
/// |                                           | uses m_link on any, and the events say so  |
/// | m_connectionHandler                       | that of the loop                           |
/// | m_control, m_reports                      | as each says                               |
/// | m_exchanges, m_reader                     | as each says                               |
/// | m_answerElements                          | any                                        |
/// | m_state, m_peerName, m_reason, m_info     | any, guarded by m_mutex                    |
/// | m_connections, m_lastFrameProgress        | written by the loop's thread, read by any  |
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
    ProtoModel::DeviceBaseInfo deviceBaseInfo() const override;
    bool isHardwareReadFinished() override;
    bool isMasterControl() override { return m_control->isMaster(); }
    void stopChannel() override;
    bool waitUntilReady(int milliseconds, QString &error) override;
    void reconnectNow() override;
    void moveTo(const QString &host, quint16 port) override;
    bool requestControl(ControlAction action, QString &error) override;
    RequestOutcome requestOutcome(quint8 lables) override;
    RequestOutcome outcomeOf(const RequestIdentity &id) override;
    bool readControlHolder(QString &holder) override;
    DeviceLease readLease() override;
    DeviceLease takeLease(const QString &holder, std::chrono::seconds time) override;
    DeviceLease releaseLease() override;
    void setConnectionHandler(std::function<void(const ConnectionState &)> handler) override;
    ChannelStatistics statistics() const override;
    std::string expectedIdentity() const override { return m_options.identity; }
    bool connectsTo(const QString &host, quint16 port) const override;

private:
    enum class State {
        Waiting,
        Ready,
        Stopped
    };

    StreamChannel(const QString &peerName, std::shared_ptr<EventLoop> loop,
                  const ChannelOptions &options);

    void start(std::unique_ptr<ByteStream> stream, const std::weak_ptr<DeviceChannel> &handle,
               ReportHandler handler, ControlHandler controlHandler);

    bool linkMayConnect() override;
    void linkConnecting() override;
    void linkIdentifying(const QString &reason) override;
    void linkReady(ProtoModel::DeviceBaseInfo info) override;
    void linkLost(quint16 status, const QString &reason, quint32 interruptedAnswer) override;
    void linkWritable() override { sendUnsent(); }
    void linkReceived(Wire::FrameEvent &&event) override;
    void linkAnswered(Wire::FrameEvent &&answer) override;
    void linkHasFrames() override;
    void linkHandledFrames() override { m_reader.resume(); }
    void linkReceiving(const Wire::WireHead &head) override;
    void linkProgressed(Clock::TimePoint lastProgress) override;
    void linkWantsTick(Clock::TimePoint time) override;
    void loopEnding() override;

    std::shared_ptr<DeviceResponseCommand> exchange(DeviceRequestCommand &request,
                                                    Exchange &observed);
    bool maySend(const Wire::WireHead &request, Clock::TimePoint deadline);
    std::shared_ptr<DeviceResponseCommand> refuseAnswer(const Wire::WireHead &request,
                                                        quint64 elements);
    ConnectionState connectionState() const;
    void notifyConnection();
    void sendUnsent();
    void sendOver(ConnectedSocket &socket);
    void sendOnLoop();
    void postSending();
    bool hasStalled() const;
    void closeConnection(quint64 connection, const QString &reason);
    void releaseConnection();
    void stopAccepting(quint16 refusal, const QString &reason);
    void endLink();
    QString peerName() const;

    const std::shared_ptr<EventLoop> m_loop;
    const ChannelOptions m_options;
    std::unique_ptr<DeviceControl> m_control; ///< Set before the channel is used.
    std::unique_ptr<ReportDelivery> m_reports; ///< Set before the channel is used.
    std::unique_ptr<ChannelLink> m_link;
    InvalidFrames m_invalidFrames;
    bool m_holdsConnection = false; ///< This channel is counted in EventLoop::connections.
    std::function<void(const ConnectionState &)> m_connectionHandler; ///< May be empty.
    AnswerReader m_reader;
    ExchangeTable m_exchanges;
    AnswerElements m_answerElements;
    std::mutex m_sendMutex; // held while a thread sends, so that requests keep their order
    std::atomic<bool> m_isSendingPosted{false};
    std::atomic<bool> m_isHandlingPosted{false};
    std::atomic<quint64> m_connections{0};
    /// When the unfinished incoming frame last made progress; the epoch if there is none.
    std::atomic<Clock::TimePoint> m_lastFrameProgress{Clock::TimePoint()};

    mutable std::mutex m_mutex; // only m_exchanges is called while it is held
    std::condition_variable m_stateChanged;
    State m_state = State::Waiting; // guarded by m_mutex
    QString m_peerName; // guarded by m_mutex
    QString m_reason; // guarded by m_mutex: why the channel is not ready
    ProtoModel::DeviceBaseInfo m_info; // guarded by m_mutex
};

} // namespace Tavoro::SSProxy::Internal
