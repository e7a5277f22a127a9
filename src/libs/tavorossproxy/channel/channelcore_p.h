#pragma once

#include "channellink_p.h"
#include "exchangetable_p.h"
#include "reportgate_p.h"
#include <tavorossproxy/io/channelloop_p.h>
#include <tavorossproxy/io/pacer_p.h>

#include <tavorossproxy/networkchannel.h>

#include <atomic>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>

namespace Tavoro::SSProxy::Internal {

/// The part of a channel that outlives its owner for as long as the loop is busy with it.
///
/// | member                         | thread                                     |
/// |--------------------------------|--------------------------------------------|
/// | the public ones                | any                                        |
/// | m_link, m_reportGate, events,  | that of the loop                           |
/// | the pacers and what they tell  | that of the loop                           |
/// | m_exchanges                    | any, guards itself                         |
/// | m_state, m_info and the names  | any, guarded by m_mutex                    |
/// | the counters                   | written by the loop's thread, read by any  |
class ChannelCore final : public std::enable_shared_from_this<ChannelCore>,
                          public ChannelLoop::User,
                          public ChannelLink::Events {
    Q_DECLARE_TR_FUNCTIONS(Tavoro::SSProxy::Internal::ChannelCore)

public:
    /// Called on the loop's thread.
    struct Handlers {
        std::function<void(std::shared_ptr<IDeviceCommand>)> report;
        std::function<void(bool isMaster)> control; ///< May be empty.
    };

    /// What users call the device at \a host.
    static QString peerNameOf(const QString &host, quint16 port);

    /// \a peerName is what users call the other end.
    ChannelCore(const QString &peerName, std::shared_ptr<ChannelLoop> loop,
                const ChannelOptions &options);
    ~ChannelCore();

    /// Without a stream the channel is never opened.
    void start(std::unique_ptr<ByteStream> stream, Handlers handlers);
    void stop();
    void reconnectNow();
    void moveTo(const QString &host, quint16 port);
    bool waitUntilReady(ChannelOptions::Milliseconds timeout, QString &error);
    bool isReady() const { return m_exchanges.refusal() == 0; }
    bool isMaster() const { return m_isMaster; }
    RequestOutcome requestOutcome(quint8 lables);
    bool requestControl(ControlAction action, QString &error);
    ProtoModel::DeviceBaseInfo info() const;
    ChannelStatistics statistics() const;
    QString peerName() const;
    const std::string &expectedIdentity() const { return m_options.identity; }

    std::shared_ptr<DeviceResponseCommand> exchange(DeviceRequestCommand &request);

private:
    enum class State {
        Waiting,
        Ready,
        Stopped
    };

    bool linkMayConnect() override;
    void linkConnecting() override;
    void linkIdentifying(const QString &reason) override;
    void linkReady(ProtoModel::DeviceBaseInfo info) override;
    void linkLost(quint16 status, const QString &reason, quint32 brokenOff) override;
    void linkWritable() override;
    void linkReceived(Wire::FrameEvent &&event) override;
    void linkReceiving(const Wire::WireHead &head) override;
    void linkProgressed(Clock::TimePoint lastProgress) override;
    void linkWantsTick(Clock::TimePoint time) override;
    void loopEnding() override;

    void postSending();
    void sendUnsent();
    void noteControl(const Wire::FrameEvent &event);
    void takeControl(bool isMaster, const QString &holder);
    void tellControl(quint64 changes);
    void logControl(quint64 changes);
    QString holderOfControl(Clock::TimePoint deadline);
    static QString reasonOf(quint16 status);
    void makeReportGate();
    void takeReport(Wire::FrameEvent &&report);
    void makePacers();
    void noteRefused(quint16 status);
    void tellRefused(quint64 count);
    void tellDropped(quint64 count);
    void releaseConnection();
    void leaveClosed();
    bool hasStalled() const;
    void giveUpConnection(quint64 connection, const QString &reason);
    void shutForGood(quint16 refusal);
    void endLink();

    const std::shared_ptr<ChannelLoop> m_loop;
    const ChannelOptions m_options;
    Handlers m_handlers;
    std::unique_ptr<ChannelLink> m_link;
    std::unique_ptr<ReportGate> m_reportGate;
    std::unique_ptr<Pacer> m_drops; ///< Of reports, in the log.
    std::unique_ptr<Pacer> m_refusals; ///< Of frames, in the log.
    quint16 m_lastRefusal = 0; ///< Of a frame.
    std::unique_ptr<Pacer> m_controlChanges; ///< For those who are told of them.
    std::unique_ptr<Pacer> m_controlLines; ///< In the log.
    QString m_holderOfControl; ///< As the device told it last.
    bool m_toldMaster = true; ///< What m_handlers.control has heard last.
    bool m_holdsConnection = false; ///< Counts among those of the loop.
    ExchangeTable m_exchanges;
    std::atomic<bool> m_isSendingPosted{false};
    std::atomic<bool> m_isMaster{true};

    mutable std::mutex m_mutex; // never held while anything but m_exchanges is called
    std::condition_variable m_stateChanged;
    State m_state = State::Waiting; // guarded by m_mutex
    QString m_peerName; // guarded by m_mutex
    QString m_reason; // guarded by m_mutex: why the channel is not ready
    ProtoModel::DeviceBaseInfo m_info; // guarded by m_mutex

    /// When the frame that is arriving last made progress; the epoch when none is arriving.
    std::atomic<Clock::TimePoint> m_lastFrameProgress{Clock::TimePoint()};
    std::atomic<quint64> m_connections{0};
    std::atomic<quint64> m_reports{0};
    std::atomic<quint64> m_droppedReports{0};
    std::atomic<quint64> m_protocolErrors{0};
};

} // namespace Tavoro::SSProxy::Internal
