#pragma once

#include <tavorossproxy/channelstatus.h>
#include <tavorossproxy/controlaction.h>
#include <tavorossproxy/devicechannel.h>

#include <QString>

namespace Tavoro::SSProxy {

/// What became of a request, as far as the device knows.
struct RequestOutcome {
    /// What the device knows about the request.
    enum State : quint8 {
        Unknown, ///< It may have been carried out or not: the device does not know, or could not be
                 ///< asked.
        NotArrived, ///< The device did not receive it and will not carry it out.
        UnderWay, ///< The device received it and has not answered it.
        Done, ///< The device answered it.
    };
    State state = Unknown; ///< What the device knows.
    /// Of \c Done, the status of the answer: 0 for success, otherwise the request had no effect. Of
    /// \c Unknown, why the device could not be asked, or 0.
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
/// connection alive, and reconnects after a loss. Any thread.
class TAVOROSSPROXY_EXPORT NetworkChannel : public DeviceChannel {
public:
    ~NetworkChannel() override;

    /// Blocks until the channel is ready, and returns true. Returns false after \a milliseconds, or
    /// when the channel is stopped; \a error then names the device's address and the last reason.
    /// The channel continues to connect. Does not wait on the channels' thread.
    virtual bool waitUntilReady(int milliseconds, QString &error) = 0;

    /// Connects at once if the channel is in the pause between two attempts. Does not wait.
    virtual void reconnectNow() = 0;

    /// The device was seen at \a host and \a port. A channel without a connection connects there,
    /// now and later; a channel with a connection keeps it. Does not wait.
    virtual void moveTo(const QString &host, quint16 port) = 0;

    /// Takes control of the device, or gives it up. Returns false if the device did not grant it or
    /// did not answer; \a error then says why, and names the client that holds control. A device
    /// without control grants every action. Blocks until the device answers, at most 10 s. Fails on
    /// the channels' thread.
    virtual bool requestControl(ControlAction action, QString &error) = 0;

    /// Asks the device what became of the request that was sent last with the tag \a lables. After
    /// a request without an answer, its head holds the tag, or 0 if it was not sent. If the
    /// connection was lost, wait until the channel is ready again.
    ///
    /// A tag is used again after 254 further requests, these questions included; each other request
    /// that is in flight, or timed out without an answer, makes it one less. With one caller and
    /// the default of ChannelOptions::maxOwedAnswers a tag lasts for at least 127 requests.
    ///
    /// The packets of a split write have tags of their own, which its caller does not see. Its head
    /// holds the tag 0, and the outcome is unknown.
    ///
    /// Sends nothing again. Blocks until the device answers, at most 10 s. Fails on the channels'
    /// thread.
    virtual RequestOutcome requestOutcome(quint8 lables) = 0;

    /// Returns the counters of the channel. Does not block.
    virtual ChannelStatistics statistics() const = 0;

protected:
    NetworkChannel();
};

} // namespace Tavoro::SSProxy
