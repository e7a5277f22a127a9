#pragma once

#include "calljob_p.h"

#include <QTimer>

#include <chrono>
#include <functional>
#include <list>
#include <memory>

namespace Tavoro::SessionInternal {

/// The calls whose outcome is not known: asks the device about them when it is connected, until it
/// has said what it did, or until their time is over. On the session's thread; the questions are
/// asked in a lane of their own, since a device may take long to answer one.
class UnknownCalls {
public:
    using JobPtr = std::shared_ptr<CallJob>;
    using Deliver = std::function<void(const JobPtr &job, const CallResult &result)>;

    /// \a deliver gets the result of each call, once.
    UnknownCalls(QThreadPool &pool, std::shared_ptr<Courier> courier,
                 std::chrono::milliseconds time, Deliver deliver);
    ~UnknownCalls();

    /// Takes a call. Delivers it at once if there is nothing to ask or no time to wait.
    void add(JobPtr job);
    /// Asks over \a target from now on; not while it is null.
    void setTarget(std::shared_ptr<const CallTarget> target);
    /// Delivers all calls as they are.
    void endAll();

private:
    struct Entry {
        JobPtr job;
        std::chrono::steady_clock::time_point deadline;
        bool isAsked = false; ///< A question is under way.
    };

    void askAll();
    void ask(Entry &entry);
    void answered(const JobPtr &job, const CallResult &result, bool isOpen);
    void deliver(std::list<Entry>::iterator entry, const CallResult &result);

    const std::chrono::milliseconds m_time;
    const Deliver m_deliver;
    const std::shared_ptr<Lane> m_questions;
    std::shared_ptr<const CallTarget> m_target;
    std::list<Entry> m_calls;
    QTimer m_timer; ///< Runs while there are calls.
    std::shared_ptr<UnknownCalls *> m_self; ///< Reset for answers that arrive after the destructor.
};

} // namespace Tavoro::SessionInternal
