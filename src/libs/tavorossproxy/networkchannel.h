#pragma once

#include <tavorossproxy/channelstatus.h>
#include <tavorossproxy/controlaction.h>
#include <tavorossproxy/devicechannel.h>

#include <QString>

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

    /// Returns the counters of the channel. Does not block.
    virtual ChannelStatistics statistics() const = 0;

protected:
    NetworkChannel();
};

} // namespace Tavoro::SSProxy
