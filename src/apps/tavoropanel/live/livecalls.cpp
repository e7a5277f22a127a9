#include "livecalls.h"

#include <tavorosession/devicesession.h>

#include <QTimer>

namespace Tavoro::Panel {

namespace {

using namespace std::chrono_literals;

/// A call without an answer for this time is shown.
constexpr auto lateAnswer = 1s;

} // namespace

/// A call under way. It is the context of its connections, which end with it.
struct LiveCalls::Followed : QObject {
    QString name;
    QString device;
    bool isShown = false; ///< The operator was asked to wait for its outcome.
};

void LiveCalls::follow(const QString &name, DeviceSession &device, const PendingCall<Outcome> &call)
{
    auto *const followed = new Followed;
    followed->setParent(this);
    followed->name = name;
    followed->device = device.name();

    QTimer::singleShot(lateAnswer, followed, [this, followed] {
        if (followed->isShown)
            return;
        followed->isShown = true;
        setStatus({LiveStatus::Waiting,
                   tr("%1: no answer to the %2 yet.").arg(followed->device, followed->name)});
    });
    connect(&device, &DeviceSession::stateChanged, followed, [this, followed, &device] {
        if (device.state().kind != DeviceState::Lost)
            return;
        followed->isShown = true;
        setStatus({LiveStatus::Unknown,
                   tr("%1: the connection was lost during the %2. The device is asked for the "
                      "outcome when it is back.")
                       .arg(followed->device, followed->name)});
    });
    call.then(followed, [this, followed](const Outcome &outcome) {
        finish(*followed, outcome);
        followed->deleteLater();
    });
}

void LiveCalls::finish(Followed &call, const Outcome &outcome)
{
    if (outcome.isReplaced())
        return;
    if (outcome && call.isShown)
        setStatus({LiveStatus::Done,
                   tr("%1: the device has carried out the %2.").arg(call.device, call.name)});
    else if (outcome.kind() == Outcome::Unknown)
        setStatus({LiveStatus::Unknown, outcome.text()});
    else if (!outcome)
        setStatus({LiveStatus::Failed, outcome.text()});
    else if (m_status.kind == LiveStatus::Failed || m_status.kind == LiveStatus::Done)
        clear(); // the call after a failure has succeeded
}

void LiveCalls::setStatus(const LiveStatus &status)
{
    m_status = status;
    Q_EMIT statusChanged();
}

} // namespace Tavoro::Panel
