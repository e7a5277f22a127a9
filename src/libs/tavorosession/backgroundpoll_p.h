#pragma once

#include <tavorosession/sessionoptions.h>

#include <tavorooperations/scope.h>

#include <QTimer>

#include <functional>
#include <memory>
#include <vector>

namespace Tavoro::SessionInternal {

/// Reads the kinds of objects of a device at their intervals, to find what other clients change
/// without a report. On the session's thread.
class BackgroundPoll {
public:
    /// Reads a scope without reporting failures. The argument is called when that has ended.
    using Read = std::function<void(const Operations::Scope &scope, std::function<void()> ended)>;

    BackgroundPoll(const PollIntervals &intervals, Read read);

    /// Polls from now on, or pauses. The intervals begin again.
    void setActive(bool isActive);

private:
    struct Kind {
        Operations::Scope scope;
        std::unique_ptr<QTimer> timer;
        bool isRead = false; ///< A read is under way.
    };

    void add(const Operations::Scope &scope, std::chrono::milliseconds interval);
    void read(Kind &kind);

    const Read m_read;
    std::vector<std::unique_ptr<Kind>> m_kinds;
    std::shared_ptr<BackgroundPoll *> m_self; ///< For reads that may end too late.
};

} // namespace Tavoro::SessionInternal
