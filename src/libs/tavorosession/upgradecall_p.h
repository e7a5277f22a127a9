#pragma once

#include "calljob_p.h"
#include "calltracker_p.h"

#include <tavorocontrol/proto/auxiliary.h>

#include <QFutureInterface>
#include <QString>
#include <QTimer>

#include <atomic>
#include <chrono>
#include <functional>
#include <memory>

namespace Tavoro::SessionInternal {

/// An upgrade of the device: starts it, and reads its progress until it has ended. On the session's
/// thread.
class UpgradeCall : public std::enable_shared_from_this<UpgradeCall> {
public:
    using Progress = ProtoModel::Auxiliary::s_UpgradePercent;
    using Result = Answer<Progress>;
    /// What the upgrade needs from its session.
    struct Session {
        /// Starts a call. A quiet one is not reported to the application.
        std::function<void(const std::shared_ptr<CallJob> &job, bool isQuiet)> start;
        /// Ends a call that waits as cancelled; without effect on others.
        std::function<void(const std::shared_ptr<CallJob> &job)> cancel;
        /// Makes the outcome of the upgrade, and reports it to the application.
        std::function<Outcome(const CallResult &result, const QString &label)> report;
        std::function<bool()> isConnected;
    };

    /// Without an answer for \a patience the outcome is Unknown.
    UpgradeCall(Session session, std::chrono::milliseconds patience);

    TrackedCall<Result> pending() { return {m_promise.future(), m_tracker}; }
    void start(const ProtoModel::Auxiliary::s_UpgradeDetail &upgrade);
    /// The session was closed: the outcome is Unknown, or NotSent if the upgrade was not started.
    void end(const QString &reason);
    bool hasEnded() const { return m_hasEnded; }

private:
    using Clock = std::chrono::steady_clock;

    void started(const Outcome &outcome, const CallResult &result);
    void read();
    void judge(const Progress &progress);
    /// \a job is the command that starts the upgrade.
    void cancel(const std::shared_ptr<CallJob> &job);
    void finish(CallResult result);
    CallResult unknown(const QString &reason) const;

    const Session m_session;
    const std::chrono::milliseconds m_patience;
    const std::shared_ptr<CallTracker> m_tracker = std::make_shared<CallTracker>();
    QFutureInterface<Result> m_promise;
    std::unique_ptr<QTimer> m_timer; ///< Runs while the device upgrades.
    Clock::time_point m_lastAnswer; ///< Later by the times that the reads waited in their lane.
    Clock::time_point m_lastLook;
    std::shared_ptr<std::atomic<bool>> m_isSent; ///< The read under way does not wait any more.
    Progress m_progress;
    bool m_isRead = false; ///< The progress is being read.
    bool m_hasEnded = false;
};

} // namespace Tavoro::SessionInternal
