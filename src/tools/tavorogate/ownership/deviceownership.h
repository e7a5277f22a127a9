#pragma once

#include <tavorogate/broker/brokermessage.h>
#include <tavorogate/calls/callanswer.h>
#include <tavorogate/calls/callrequest.h>
#include <tavorossproxy/exchangewatch.h>

#include <QObject>

#include <functional>

namespace Tavoro::Gate {

/// Whether this gateway is the one that works for a device. Several gateways may serve a device:
/// the active one publishes its state and carries out calls, the others only collect the calls.
///
/// There is one object for each device of each gateway, on the gateway's thread. No member blocks.
class DeviceOwnership : public QObject {
    Q_OBJECT

public:
    /// What a gateway may do with a call after claim().
    enum class Claim : quint8 {
        Granted, ///< Carry it out.
        Impossible, ///< Do not carry it out: the broker does not permit the announcement.
        Postponed, ///< Keep it. The gateway is not active any more, or has no broker.
    };

    /// True if this gateway publishes state and carries out calls.
    virtual bool isActive() const = 0;

    /// Announces that this gateway is about to send \a call, a write, as \a request, and calls
    /// \a decided at most once, when others know of it or need not know of it. At most one call is
    /// claimed at a time.
    virtual void claim(const CallRequest &call, const SSProxy::RequestIdentity &request,
                       std::function<void(Claim)> decided) = 0;

    /// The call has ended, and its answer was published before.
    virtual void release(const CallRequest &call, const CallAnswer &answer) = 0;

    /// The call has ended while this gateway was not active. The gateway that is active next finds
    /// out what became of it and answers it.
    virtual void abandon(const CallRequest &call) = 0;

    /// Asks the active gateway what became of a call that this one keeps. \a isDoubtful: this
    /// gateway has missed claims, so that the call may have been carried out. One of the signals
    /// about a call of another gateway follows, if there is an active one.
    virtual void ask(const CallRequest &call, bool isDoubtful) = 0;
    /// Answers asked(): this gateway has the call, and is going to answer it.
    virtual void replyWaiting(const CallRequest &call) = 0;
    /// Answers asked(): this gateway has published the answer before.
    virtual void replyAnswered(const CallRequest &call, const CallAnswer &answer) = 0;

    /// The gateway ends: lets another one work. The session must stay open while isLeaving().
    virtual void leave() = 0;
    virtual bool isLeaving() const = 0;

Q_SIGNALS:
    void activeChanged(bool isActive);
    /// Another gateway has claimed the call: from now on it may have been carried out.
    void claimedElsewhere(const Tavoro::Gate::CallKey &key);
    /// This gateway has missed claims: calls that wait may have been carried out.
    void claimsMissed();
    /// Another gateway has published an answer, to a call of any device.
    void answeredElsewhere(const Tavoro::Gate::BrokerMessage &answer);
    /// The active gateway has the call, and is going to answer it.
    void waitsElsewhere(const Tavoro::Gate::CallKey &key);
    /// Another gateway asks this one, which is active, what became of a call. If this gateway does
    /// not know the call, it answers it: \a isDoubtful if the call may have been carried out.
    void asked(const Tavoro::Gate::CallRequest &call, bool isDoubtful);
    /// The call has this answer, which another gateway has published or this one is to publish: if
    /// \a mustAnswer is true, this gateway answers it for one that is gone.
    void endedElsewhere(const Tavoro::Gate::CallRequest &call,
                        const Tavoro::Gate::CallAnswer &answer, bool mustAnswer);
};

} // namespace Tavoro::Gate
