#pragma once

#include "livestatus.h"

#include <tavorosession/outcome.h>
#include <tavorosession/pendingcall.h>

#include <QObject>

#include <memory>

namespace Tavoro {
class DeviceSession;
} // namespace Tavoro

namespace Tavoro::Panel {

/// Follows the calls of the live bar until their outcomes are known, and says what the operator
/// must know: that an answer is late, that the outcome of a call is not known because the
/// connection was lost, and what the device answered then.
class LiveCalls : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

    /// Follows a call. \a name is a noun such as "take".
    void follow(const QString &name, DeviceSession &device, const PendingCall<Outcome> &call);

    const LiveStatus &status() const { return m_status; }
    /// Removes a status that the operator has read.
    void clear() { setStatus({}); }

Q_SIGNALS:
    void statusChanged();

private:
    struct Followed;

    void finish(Followed &call, const Outcome &outcome);
    void setStatus(const LiveStatus &status);

    LiveStatus m_status;
};

} // namespace Tavoro::Panel
