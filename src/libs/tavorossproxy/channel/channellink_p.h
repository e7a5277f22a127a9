#pragma once

#include "frameprogress_p.h"
#include <tavorossproxy/io/bytestream_p.h>
#include <tavorossproxy/io/clock_p.h>

#include <tavorocontrol/proto/devicebaseinfo.h>
#include <tavorossproxy/channeloptions.h>
#include <tavorowire/frameparser.h>
#include <tavorowire/outcomes.h>

#include <QCoreApplication>
#include <QString>

#include <memory>

namespace Tavoro::SSProxy::Internal {

/// Keeps one connection to one device: connects, reads the identity, pings, and connects anew after
/// a loss. Lives on the thread of the channel's loop.
///
/// \code
/// Idle --start--> Connecting --opened--> Identifying --identity--> Ready
///                   ^   |                    |                       |
///                   |   +-----failed---------+---------lost----------+--> Pausing
///                   +-------------------- pause over, or refresh ------------+
/// \endcode
/// stop() leads to Stopped from everywhere, for good.
class ChannelLink final : private ByteStream::Events {
    Q_DECLARE_TR_FUNCTIONS(Tavoro::SSProxy::Internal::ChannelLink)

public:
    class Events {
    public:
        /// False when there are too many connections already.
        virtual bool linkMayConnect() = 0;
        virtual void linkConnecting() = 0;
        /// The connection is established. \a reason says why the channel is not ready until
        /// linkReady() or linkLost().
        virtual void linkIdentifying(const QString &reason) = 0;
        virtual void linkReady(ProtoModel::DeviceBaseInfo info) = 0;
        /// The connection or the attempt has failed. \a brokenOff is the number of the answer that
        /// was arriving, or 0.
        virtual void linkLost(quint16 status, const QString &reason, quint32 brokenOff) = 0;
        virtual void linkWritable() = 0;
        /// A frame that is not the link's own business has come, or one that is wrong.
        virtual void linkReceived(Wire::FrameEvent &&event) = 0;
        /// A response has come in part.
        virtual void linkReceiving(const Wire::WireHead &head) = 0;
        /// Bytes have arrived. \a lastProgress is when the frame that they end in last made
        /// progress; the clock's epoch if they end between two frames.
        virtual void linkProgressed(Clock::TimePoint lastProgress) = 0;
        /// Asks for tick(time) when \a time has come.
        virtual void linkWantsTick(Clock::TimePoint time) = 0;

    protected:
        ~Events() = default;
    };

    ChannelLink(std::unique_ptr<ByteStream> stream, Clock &clock, const ChannelOptions &options,
                Events &events);

    void start();
    void stop();
    /// Ends a pause.
    void refresh();
    /// The device was seen at \a host. Connects there at once unless there is a connection; true
    /// when that is another place than before.
    bool moveTo(const QString &host, quint16 port);
    void tick(Clock::TimePoint time);
    /// Gives the connection up; a new one is made.
    void drop(quint16 status, const QString &reason);

    /// That of the connection, as the device was told.
    const Wire::ConnectionId &connectionId() const { return m_connection; }

    bool canSend() const;
    /// Sends the frame of a request.
    void send(const QByteArray &frame);

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
    void streamDrained() override;
    void streamClosed(const QString &reason) override;

    void connect();
    bool hasProvedGood() const;
    void enter(Phase phase, ChannelOptions::Milliseconds due);
    void wantTick(Clock::TimePoint time);
    void write(const QByteArray &frame);
    void keepAlive();
    bool isTakingBytes(Clock::TimePoint now) const;
    void noteProgress(bool isSameFrame, qint64 bytes);
    void handle(Wire::FrameEvent &&event);
    void answerPing(quint8 lables);
    static QString notIdentifiedReason();
    void refuse(Wire::FrameEvent &&event);
    void takeIdentity(const std::string &body);

    std::unique_ptr<ByteStream> m_stream;
    Clock &m_clock;
    const ChannelOptions m_options;
    Events &m_events;
    Wire::FrameParser m_parser;
    Phase m_phase = Phase::Idle;
    Wire::ConnectionId m_connection;
    Clock::TimePoint m_due; ///< When the phase ends by itself, or is looked at again.
    Clock::TimePoint m_tick = Clock::TimePoint::max(); ///< The tick that counts; others are stale.
    Clock::TimePoint m_lastSignOfLife;
    FrameProgress m_incoming; ///< Of the frame that is arriving.
    Clock::TimePoint m_lastLook; ///< When keepAlive() ran last.
    qint64 m_unsentAtLastLook = 0;
    qint64 m_writtenSinceLastLook = 0;
    ChannelOptions::Milliseconds m_pause; ///< Before the next attempt.
    Clock::TimePoint m_readySince;
    bool m_hasRequested = false; ///< A request was sent over this connection.
    bool m_hasAnswered = false; ///< The device has answered a request of this connection.
    std::string m_peerAddress;
};

} // namespace Tavoro::SSProxy::Internal
