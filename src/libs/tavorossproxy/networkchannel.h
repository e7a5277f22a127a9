#pragma once

#include <tavorossproxy/channelstatus.h>
#include <tavorossproxy/controlaction.h>
#include <tavorossproxy/devicechannel.h>
#include <tavorossproxy/devicelease.h>
#include <tavorossproxy/exchangewatch.h>

#include <QString>

#include <chrono>
#include <functional>

namespace Tavoro::SSProxy {

/// The outcome of a request, as far as the device knows it.
struct RequestOutcome {
    /// What the device knows about the request.
    enum State : quint8 {
        Unknown, ///< The request may or may not have been carried out: the device does not know,
                 ///< or could not be asked.
        NotArrived, ///< The device did not receive the request and will not carry it out.
        UnderWay, ///< The device received the request and has not answered it yet.
        Done, ///< The device answered the request.
    };
    State state = Unknown; ///< What the device knows.
    /// If \c state is \c Done, the status of the answer: 0 for success; otherwise the request had
    /// no effect. If it is \c Unknown, the status with which the query failed, or 0 if the device
    /// answered it.
    quint16 status = 0;
};

/// Whether a channel has a connection, and if not, why.
struct ConnectionState {
    /// What the channel does.
    enum class Phase : quint8 {
        Connecting, ///< Connects, or waits for the identity of the device.
        Ready, ///< Accepts requests.
        Pausing, ///< Waits for the next attempt to connect.
        Stopped, ///< Does not connect any more.
    };
    Phase phase = Phase::Connecting; ///< What the channel does.
    /// Why the channel is not ready; words for the end of a sentence, translated. Empty if it is
    /// ready.
    QString reason;
    /// If \c phase is \c Pausing, the time until the next attempt.
    std::chrono::milliseconds pause{0};
    /// Number of connections over which the device has identified itself, this one included.
    quint64 connections = 0;
};

/// Counters of a channel since it was opened.
struct ChannelStatistics {
    quint64 connections = 0; ///< Connections over which the device identified itself.
    quint64 requests = 0; ///< Requests that got a tag.
    quint64 timeouts = 0; ///< Requests that timed out.
    quint64 lateAnswers = 0; ///< Dropped answers to requests that had timed out.
    quint64 strayAnswers = 0; ///< Dropped answers that matched no request.
    quint64 reports = 0; ///< Reports that the manager emitted.
    quint64 droppedReports = 0; ///< Reports that were dropped because too many were pending.
    quint64 protocolErrors = 0; ///< Frames that were not valid.
};

/// A channel that maintains its connection: it connects, reads the device's identity, keeps the
/// connection alive, and reconnects after a loss. All members may be called from any thread.
class TAVOROSSPROXY_EXPORT NetworkChannel : public DeviceChannel {
public:
    ~NetworkChannel() override;

    /// Blocks until the channel is ready, and returns true. Returns false after \a milliseconds, or
    /// when the channel is stopped; \a error then names the device's address and the last reason. A
    /// timeout does not end the channel's attempts to connect. On the channels' thread the call
    /// does not wait.
    virtual bool waitUntilReady(int milliseconds, QString &error) = 0;

    /// Connects at once if the channel is in the pause between two attempts. Does not block.
    virtual void reconnectNow() = 0;

    /// Changes the address of the device, which was seen at \a host and \a port. The channel
    /// connects there at once, and in all further attempts. A channel that is ready ignores the
    /// call. Does not block.
    virtual void moveTo(const QString &host, quint16 port) = 0;

    /// Takes control of the device, or gives it up. Returns false if the device refused or did not
    /// answer; \a error then says why, and names the client that holds control. A device that does
    /// not support control grants every action. Blocks until the device answers, at most 10 s.
    /// Fails on the channels' thread.
    virtual bool requestControl(ControlAction action, QString &error) = 0;

    /// Asks the device for the outcome of the last request that was sent with the tag \a lables.
    /// The head of a request without an answer holds its tag, or 0 if the request got no tag. If
    /// the connection was lost, wait until the channel is ready again.
    ///
    /// Tags are reused: ask before 254 further requests were sent, calls of this function included.
    /// Each other request that is in flight, or that timed out and was not answered, lowers that
    /// number by one. With one caller and the default of ChannelOptions::maxTimedOutRequests a tag
    /// is not reused for at least 127 requests.
    ///
    /// The packets of a split write have tags of their own, which the caller does not get: the head
    /// of its request holds the tag 0, for which the outcome is \c Unknown.
    ///
    /// Does not repeat the request. Blocks until the device answers, at most 10 s. Fails on the
    /// channels' thread.
    virtual RequestOutcome requestOutcome(quint8 lables) = 0;

    /// Asks the device for the outcome of the request \a id, see ExchangeWatch. Unlike tags, the
    /// identities of requests are not reused. A device remembers a limited number of requests.
    /// Otherwise the same as requestOutcome(). The default implementation returns \c Unknown.
    virtual RequestOutcome outcomeOf(const RequestIdentity &id);

    /// Reads which client holds control of the device, without requesting it: \a holder gets the
    /// client's address and port, or becomes empty if no client holds control or the device does
    /// not support control. This client is named as well if it is the holder. Returns false if the
    /// device did not answer. Blocks until the device answers, at most 10 s. Fails on the channels'
    /// thread. The default implementation fails.
    virtual bool readControlHolder(QString &holder);

    /// Reads which client holds the lease of the device. Blocks until the device answers, at most
    /// 10 s. Fails on the channels' thread. The default implementation returns a status.
    virtual DeviceLease readLease();

    /// Takes the lease of the device for \a time from now on, or renews it, unless another client
    /// holds it: then the result names that client. \a time is 1 to 3600 s, and \a holder has 1 to
    /// 64 bytes of UTF-8 without control characters; otherwise the device refuses. The lease ends
    /// when its time is over, with releaseLease(), or when the device restarts; a lost connection
    /// does not end it. If the lease of another client has ended by time, the device ends the
    /// connection of that client, so that nothing which it still sends is carried out. Blocks and
    /// fails as readLease() does.
    virtual DeviceLease takeLease(const QString &holder, std::chrono::seconds time);

    /// Ends the lease of this channel. Without effect if another client holds it. Blocks and fails
    /// as readLease() does.
    virtual DeviceLease releaseLease();

    /// Calls \a handler at once with the present state, and then each time that it changes, until
    /// the channel has stopped or another handler is set. The calls are made on the channels'
    /// thread, so the handler must not block. The default implementation does nothing.
    virtual void setConnectionHandler(std::function<void(const ConnectionState &)> handler);

    /// Returns the counters of the channel. Does not block.
    virtual ChannelStatistics statistics() const = 0;

protected:
    NetworkChannel();
};

} // namespace Tavoro::SSProxy
