#pragma once

#include "calljob_p.h"

#include <tavorooperations/scope.h>

#include <QTimer>

#include <functional>
#include <memory>
#include <vector>

namespace Tavoro::SessionInternal {

class FollowingRead;

/// Keeps the model equal to the device after writes: reads what they have changed, and applies it
/// as differences. Writes that follow each other closely are bundled. On the session's thread.
class ModelFollower {
public:
    /// Called when what the first \a noted writes have changed was applied. If \a isComplete is
    /// false, a read has failed, and the model may differ from the device.
    using FinishedHandler = std::function<void(quint64 noted, bool isComplete)>;

    /// Reads in \a lane, which it shares with the reading of the whole device: what was read first
    /// is applied first.
    ModelFollower(std::shared_ptr<Lane> lane, FinishedHandler finished);

    /// Reads over \a target from now on. Null: forgets what was noted, since the whole device is
    /// read after the next connection.
    void setTarget(std::shared_ptr<const CallTarget> target);
    /// A write has changed \a scopes, or may have.
    void note(const std::vector<Operations::Scope> &scopes);
    /// Reads a scope and applies it. A failure has no effect. Calls \a done at the end.
    void poll(const Operations::Scope &scope, std::function<void()> done);
    /// Number of writes that were noted since the follower was created.
    quint64 noted() const { return m_noted; }

private:
    void read();
    void ended(const FollowingRead &read, quint64 noted);

    const std::shared_ptr<Lane> m_lane;
    const FinishedHandler m_finished;
    std::shared_ptr<const CallTarget> m_target;
    std::vector<Operations::Scope> m_scopes; ///< Changed, and not read yet.
    quint64 m_noted = 0;
    int m_postponed = 0; ///< Reads in a row that were repeated because of reports.
    QTimer m_timer; ///< Runs while scopes are collected.
    std::shared_ptr<ModelFollower *> m_self; ///< For posts that may arrive too late.
};

} // namespace Tavoro::SessionInternal
