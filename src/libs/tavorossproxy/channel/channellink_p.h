#pragma once

#include "incomingframes_p.h"
#include "keepalive_p.h"
#include <tavorossproxy/io/bytestream_p.h>
#include <tavorossproxy/io/clock_p.h>

#include <tavorocontrol/proto/devicebaseinfo.h>
#include <tavorossproxy/channeloptions.h>
#include <tavorowire/frameparser.h>
#include <tavorowire/outcomes.h>

#include <QCoreApplication>
#include <QString>

#include <atomic>
#include <memory>
#include <mutex>
#include <optional>

namespace Tavoro::SSProxy::Internal {

/// Maintains the connection to a device: connects, reads the identity, pings, and reconnects after
/// a loss.
///
/// | member                      | thread                                                        |
/// |-----------------------------|---------------------------------------------------------------|
/// | socket, send with a socket  | any                                                           |
/// | streamReceived, m_incoming  | the one that receives, see ByteStream::socket()               |
/// | m_socket, m_keepAlive       | any, guarded by m_mutex                                       |
/// | everything else             | the loop's                                                    |
///
/// \code
/// Idle --start--> Connecting --opened--> Identifying --identity--> Ready
///                   ^   |                    |                       |
///                   |   +-----failed---------+---------lost----------+--> Pausing
///                   +-------------------- pause over, or refresh ------------+
/// \endcode
/// stop() leads from every state to Stopped, which is final.
class ChannelLink final : private ByteStream::Events {
    Q_DECLARE_TR_FUNCTIONS(Tavoro::SSProxy::Internal::ChannelLink)

public:
    class Events {
    public:
        /// Returns false if the process has too many connections.
        virtual bool linkMayConnect() = 0;
        /// An attempt to connect begins.
        virtual void linkConnecting() = 0;
        /// The connection is established. \a reason says why the channel is not ready until
        /// linkReady() or linkLost().
        virtual void linkIdentifying(const QString &reason) = 0;
        /// The device has identified itself, and requests may be sent.
        virtual void linkReady(ProtoModel::DeviceBaseInfo info) = 0;
        /// The connection or the attempt has failed. \a interruptedAnswer is the number of the
        /// answer that was being received, or 0.
        virtual void linkLost(quint16 status, const QString &reason, quint32 interruptedAnswer) = 0;
        /// The system has taken all written bytes.
        virtual void linkWritable() = 0;
        /// The loop's thread must call handleFrames(). Called on the thread that receives.
        virtual void linkHasFrames() = 0;
        /// No frame waits any more.
        virtual void linkHandledFrames() = 0;
        /// Requests a call of tick(\a time) at \a time.
        virtual void linkWantsTick(Clock::TimePoint time) = 0;

    protected:
        ~Events() = default;
    };

    /// Gets the frames of the device. All functions but frameReceived() are called on the thread
    /// that receives.
    class FrameHandler {
    public:
        /// A response or a report was received, or an invalid frame.
        virtual void frameReceived(Wire::FrameEvent &&event) = 0;
        /// An answer was received that need not wait for the loop's thread.
        virtual void answerReceived(Wire::FrameEvent &&answer) = 0;
        /// The head of a frame was received, and its body is incomplete.
        virtual void frameStarted(const Wire::WireHead &head) = 0;
        /// Bytes have arrived. \a lastProgress is the time at which the unfinished frame last made
        /// progress, or the clock's epoch if no frame is unfinished.
        virtual void frameProgressed(Clock::TimePoint lastProgress) = 0;

    protected:
        ~FrameHandler() = default;
    };

    ChannelLink(std::unique_ptr<ByteStream> stream, Clock &clock, const ChannelOptions &options,
                Events &events, FrameHandler &frames);

    /// Begins the first attempt to connect.
    void start();
    /// Closes the connection permanently.
    void stop();
    /// Ends a pause between attempts.
    void refresh();
    /// Changes the address of the device, and connects there at once, unless the link is ready.
    /// Returns true if the address differs from the previous one.
    bool moveTo(const QString &host, quint16 port);
    /// Call it at the time that linkWantsTick() requested.
    void tick(Clock::TimePoint time);
    /// Handles the frames that wait for the loop's thread.
    void handleFrames();
    /// Closes the connection, and reconnects after a pause.
    void drop(quint16 status, const QString &reason);

    /// Whether the device has identified itself over the current connection.
    bool isReady() const { return m_phase == Phase::Ready; }
    /// The time until the next attempt to connect; nothing if the link is not in the pause between
    /// two attempts.
    std::optional<ChannelOptions::Milliseconds> timeToNextAttempt() const;
    /// Identifies the current connection to the device.
    const Wire::ConnectionId &connectionId() const { return m_connection; }

    /// Returns the socket of the connection while the channel is ready, for the threads of callers.
    /// Null if only the loop's thread can send and receive.
    std::shared_ptr<ConnectedSocket> socket() const;
    /// Returns true if the channel is ready and the socket accepts further bytes.
    bool canSend() const;
    /// Sends the frame of a request.
    void send(const QByteArray &frame);
    /// Sends the frame over \a socket, which socket() has returned.
    void send(const QByteArray &frame, ConnectedSocket &socket);

private:
    enum class Phase {
        Idle,
        Connecting,
        Identifying,
        Ready,
        Pausing,
        Stopped
    };

    void streamOpened(const std::string &peerAddress) override;
    void streamReceived(std::string_view bytes) override;
    void streamBatchEnded() override { handleFrames(); }
    void streamDrained() override;
    void streamClosed(const QString &reason) override;

    void connect();
    bool isStable() const;
    void setSocket(std::shared_ptr<ConnectedSocket> socket);
    void enter(Phase phase, ChannelOptions::Milliseconds due);
    void wantTick(Clock::TimePoint time);
    void write(const QByteArray &frame);
    void noteWritten(qint64 bytes);
    void keepAlive();
    void handle(Wire::FrameEvent &&event);
    void answerPing(quint8 lables);
    static QString notIdentifiedReason();
    void refuse(Wire::FrameEvent &&event);
    void takeIdentity(const std::string &body);

    std::unique_ptr<ByteStream> m_stream;
    Clock &m_clock;
    const ChannelOptions m_options;
    Events &m_events;
    FrameHandler &m_frames;
    IncomingFrames m_incoming;
    std::atomic<Phase> m_phase{Phase::Idle};
    Wire::ConnectionId m_connection;
    Clock::TimePoint m_due; ///< When the phase times out, or is checked again.
    Clock::TimePoint m_tick = Clock::TimePoint::max(); ///< The pending tick; others are stale.
    ChannelOptions::Milliseconds m_pause; ///< Before the next attempt.
    Clock::TimePoint m_readySince;
    std::atomic<bool> m_hasRequested{false}; ///< A request was sent over this connection.
    std::atomic<bool> m_hasAnswered{false}; ///< The device has answered one of this connection.
    std::string m_peerAddress;

    mutable std::mutex m_mutex; // guards what follows; nothing is called while it is held
    KeepAlive m_keepAlive;
    std::shared_ptr<ConnectedSocket> m_socket; ///< Null unless the channel is ready.
};

} // namespace Tavoro::SSProxy::Internal
