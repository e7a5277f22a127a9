#pragma once

#include <tavorossproxy/io/clock_p.h>

#include <tavorocontrol/proto/devicebaseinfo.h>
#include <tavorowire/outcomes.h>

#include <QCoreApplication>
#include <QString>

#include <atomic>
#include <condition_variable>
#include <mutex>

namespace Tavoro::SSProxy::Internal {

class ExchangeTable;

/// Whether a channel accepts requests, and why not. The table of exchanges is opened and closed
/// together with it. Any thread.
class ChannelReadiness {
    Q_DECLARE_TR_FUNCTIONS(Tavoro::SSProxy::Internal::ChannelReadiness)

public:
    /// \a peerName is the device's name for users.
    ChannelReadiness(const QString &peerName, ExchangeTable &exchanges);

    QString peerName() const;
    void setPeerName(const QString &name);
    /// What the device last reported about itself.
    ProtoModel::DeviceBaseInfo deviceInfo() const;
    /// Number of connections over which the device has identified itself.
    quint64 connections() const { return m_connections; }
    /// Why the channel is not ready.
    QString reason() const;
    /// Blocks until the channel is ready, and returns true. Returns false at \a deadline or if the
    /// channel stops; \a error then says why.
    bool await(Clock &clock, Clock::TimePoint deadline, QString &error);

    // Without effect after stop().
    void beginConnecting();
    void setReason(const QString &reason);
    /// The device has identified itself. Returns false if the channel has stopped.
    bool begin(ProtoModel::DeviceBaseInfo info, const Wire::ConnectionId &connection);
    /// The connection or an attempt has ended. Returns false if the channel has stopped.
    bool end(quint16 status, const QString &reason, quint32 interruptedAnswer);
    /// Ends the connection with the number \a connection, before the link closes it. Returns false
    /// if it has ended already.
    bool endConnection(quint64 connection, const QString &reason);
    /// Requests in flight and all later ones end with \a refusal.
    void stop(quint16 refusal, const QString &reason);

private:
    enum class State {
        Waiting,
        Ready,
        Stopped
    };

    ExchangeTable &m_exchanges;
    std::atomic<quint64> m_connections{0};

    mutable std::mutex m_mutex; // guards what follows; only m_exchanges is called while it is held
    std::condition_variable m_changed;
    State m_state = State::Waiting;
    QString m_peerName;
    QString m_reason;
    ProtoModel::DeviceBaseInfo m_info;
};

} // namespace Tavoro::SSProxy::Internal
