#pragma once

#include <tavorossproxy/channelstatus.h>
#include <tavorossproxy/controlaction.h>
#include <tavorossproxy/devicechannel.h>

#include <QString>

namespace Tavoro::SSProxy {

/// What became of a request, as far as the device knows.
struct RequestOutcome {
    enum State : quint8 {
        Unknown, ///< The device does not know or could not be asked: it may have happened or not.
        NotArrived, ///< It has not happened and will not happen.
        UnderWay, ///< It has come to the device, which has not answered it.
        Done, ///< The device has answered it with \c status: 0 for success, else it changed
              ///< nothing.
    };
    State state = Unknown;
    quint16 status = 0; ///< Of Unknown: why the device could not be asked, or 0.
};

/// What a channel has counted since it was made.
struct ChannelStatistics {
    quint64 connections = 0; ///< Times that the device told its identity.
    quint64 requests = 0; ///< Requests that were given a tag.
    quint64 timeouts = 0; ///< Requests that ended by their time.
    quint64 lateAnswers = 0; ///< Answers to such requests, dropped.
    quint64 strayAnswers = 0; ///< Answers to no request at all, dropped.
    quint64 reports = 0; ///< Reports handed to the manager.
    quint64 droppedReports = 0; ///< Reports for which there was no room.
    quint64 protocolErrors = 0; ///< Frames that were refused.
};

/// A channel that looks after its connection itself: it connects, reads the device's identity,
/// keeps the connection alive and makes it anew after a loss.
class TAVOROSSPROXY_EXPORT NetworkChannel : public DeviceChannel {
public:
    ~NetworkChannel() override;

    /// Blocks until the channel is ready, and returns true. When \a milliseconds are over or the
    /// channel is stopped first, returns false, with a sentence in \a error that names the peer and
    /// the last reason. The channel goes on trying after that. On the channels' thread it does not
    /// wait.
    virtual bool waitUntilReady(int milliseconds, QString &error) = 0;

    /// Ends the pause between two attempts to connect, if the channel is in one.
    virtual void reconnectNow() = 0;

    /// Tells the channel that its device was seen at \a host. A channel without a connection tries
    /// there at once, and from then on; one with a connection keeps it.
    virtual void moveTo(const QString &host, quint16 port) = 0;

    /// Asks the device for control, or to be rid of it. On failure \a error tells why, in words.
    /// Blocks until the device answers, 10 s at the most; not for slots on the channels' thread. A
    /// device that does not know about control grants everything.
    virtual bool requestControl(ControlAction action, QString &error) = 0;

    /// Asks the device what became of the request that was last sent with the tag \a lables: after
    /// a request that ended without an answer, its head holds the tag, or 0 if it was not sent. A
    /// channel whose connection was lost is asked when it is ready again. Do not wait long: the tag
    /// is used again after 254 further requests, these questions among them, and each other request
    /// that is under way or timed out and owes its answer makes it one less. With one caller and
    /// the default of ChannelOptions::maxOwedAnswers it lasts for 127 at least.
    ///
    /// The packets of a split write have tags of their own, which their caller does not see: for
    /// its head, with the tag 0, the outcome is unknown.
    ///
    /// Nothing is sent again. Blocks until the device answers, 10 s at the most; not for slots on
    /// the channels' thread.
    virtual RequestOutcome requestOutcome(quint8 lables) = 0;

    virtual ChannelStatistics statistics() const = 0;

protected:
    NetworkChannel();
};

} // namespace Tavoro::SSProxy
