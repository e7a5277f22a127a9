#pragma once

#include "calljob_p.h"
#include "unknowncalls_p.h"

#include <QHash>
#include <QString>

#include <functional>
#include <memory>
#include <vector>

namespace Tavoro::SessionInternal {

/// The calls of one device. On the session's thread.
class CallQueue {
public:
    /// Delivers an outcome, on the session's thread. Called once for each call.
    using Deliver = std::function<void(CallJob &job, const CallResult &result, bool isReplaced)>;

    /// \a pool must outlive the lanes; \a limit is SessionOptions::maxWaitingCalls.
    CallQueue(QThreadPool &pool, const std::shared_ptr<Courier> &courier, int limit,
              std::chrono::milliseconds outcomeTime, Deliver deliver);
    /// Ends all calls.
    ~CallQueue();

    /// Sends further calls to \a target; none are sent while it is null. Ends the waiting calls of
    /// the previous connection as not sent, for \a reason.
    void setTarget(std::shared_ptr<const CallTarget> target, const QString &reason);
    /// Queues a call; a \a key replaces a waiting call with the same one.
    void start(std::shared_ptr<CallJob> job, const QString &key);
    /// Asks the device for the outcome of a call that no lane carries out.
    void resolve(const std::shared_ptr<CallJob> &job);
    /// Ends a call that waits as cancelled; without effect on others.
    void cancel(const std::shared_ptr<CallJob> &job);
    /// Ends the calls that wait as not sent.
    void endWaiting(const QString &reason);
    /// Ends all calls: those that wait as not sent, those under way as unknown.
    void endAll(const QString &reason);
    /// True if a call waits or is under way.
    bool isBusy() const { return !m_calls.empty(); }

private:
    using JobPtr = std::shared_ptr<CallJob>;

    Lane &laneOf(const CallJob &job) const;
    void dropReplaced(const QString &key);
    void finished(const JobPtr &job);
    void end(const JobPtr &job, const CallResult &result, bool isReplaced = false);
    void endUnsent(const JobPtr &job, const QString &reason, bool isReplaced = false);

    const std::size_t m_limit;
    const Deliver m_deliver;
    const std::shared_ptr<Lane> m_commands;
    const std::shared_ptr<Lane> m_transfers;
    const std::shared_ptr<Lane> m_lease;
    UnknownCalls m_unknown;
    std::shared_ptr<const CallTarget> m_target;
    QString m_reason; ///< Why there is no target.
    std::vector<JobPtr> m_calls; ///< Waiting or under way, in the order of their start.
    QHash<QString, std::weak_ptr<CallJob>> m_latest; ///< By key.
    std::shared_ptr<CallQueue *> m_self; ///< Empty for posts that arrive after the destructor.
};

} // namespace Tavoro::SessionInternal
