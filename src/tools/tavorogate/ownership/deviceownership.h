#pragma once

#include <tavorogate/calls/callanswer.h>
#include <tavorogate/calls/callrequest.h>

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
        Postponed, ///< Keep it. The gateway is not active any more, or has no broker.
    };

    /// True if this gateway publishes state and carries out calls.
    virtual bool isActive() const = 0;

    /// Announces that this gateway is about to carry out \a call, and calls \a decided once, when
    /// others know of it or cannot know of it. At most one call is claimed at a time.
    virtual void claim(const CallRequest &call, std::function<void(Claim)> decided) = 0;

    /// The call has ended, and its answer is about to be published.
    virtual void release(const CallRequest &call, const CallAnswer &answer) = 0;

Q_SIGNALS:
    void activeChanged(bool isActive);
    /// Another gateway has claimed the call. This one drops it if it waits.
    void claimedElsewhere(const Tavoro::Gate::CallKey &key);
    /// The call has this answer, which another gateway has published or this one is to publish: if
    /// \a mustAnswer is true, this gateway answers it for one that is gone.
    void endedElsewhere(const Tavoro::Gate::CallRequest &call,
                        const Tavoro::Gate::CallAnswer &answer, bool mustAnswer);
};

} // namespace Tavoro::Gate
