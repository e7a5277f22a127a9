#pragma once

#include "leasejob_p.h"

#include <tavorossproxy/devicelease.h>

#include <QString>
#include <QTimer>

#include <chrono>
#include <functional>
#include <memory>

namespace Tavoro::SessionInternal {

/// Keeps the lease of a device: renews it, and knows whether this session still holds it. On the
/// session's thread.
///
/// A lease counts only on the connection on which the device has granted or renewed it: while a
/// connection was lost, the device may have restarted and given the lease to another client.
class LeaseKeeper {
public:
    /// Starts a request, which the application learns nothing of if \a isQuiet.
    using Start = std::function<void(const std::shared_ptr<LeaseJob> &job, bool isQuiet)>;

    /// \a changed is called when isHeld() or lease() has changed.
    LeaseKeeper(Start start, std::function<void()> changed);

    /// Takes the lease, and renews it from then on.
    std::shared_ptr<LeaseJob> take(const QString &holder, std::chrono::seconds time);
    /// Releases the lease, which does not count from now on.
    std::shared_ptr<LeaseJob> release();
    /// The session is connected again: renews the lease.
    void connected();
    /// The connection is lost.
    void lost();
    /// Neither renews nor takes the lease any more.
    void stop();

    /// True while this session holds the lease.
    bool isHeld() const;
    /// The lease as the device has reported it last. Free while not connected.
    const SSProxy::DeviceLease &lease() const { return m_lease; }

private:
    std::shared_ptr<LeaseJob> started(const std::shared_ptr<LeaseJob> &job, bool isQuiet);
    void renew();
    void answered(const Outcome &outcome, const SSProxy::DeviceLease &lease, bool isRenewal);
    void note(const SSProxy::DeviceLease &lease);

    const Start m_start;
    const std::function<void()> m_changed;
    QString m_holder; ///< The name of this session. Empty unless it keeps the lease.
    std::chrono::seconds m_time{0};
    SSProxy::DeviceLease m_lease;
    bool m_isRenewing = false; ///< A renewal is under way.
    quint64 m_round = 0; ///< Counts what makes answers obsolete that are still on their way.
    QTimer m_renewal;
    QTimer m_end; ///< Runs until the lease of this session ends.
    std::shared_ptr<LeaseKeeper *> m_self; ///< For answers that may arrive too late.
};

} // namespace Tavoro::SessionInternal
