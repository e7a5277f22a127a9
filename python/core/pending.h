#pragma once

#include "eventqueue.h"
#include "result.h"

#include <tavorosession/trackedcall.h>

#include <chrono>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>

namespace Tavoro::Python {

/// Something that the runtime does for Python: a call, a transfer, a search. A thread of Python
/// waits for it, or gets an event when it has ended. Dropping it does not end it.
///
/// | members                         | thread        |
/// |---------------------------------|---------------|
/// | wait, result, progress, cancel  | any           |
/// | notify                          | any           |
/// | finish, setProgress             | any           |
/// | setCanceler, dropCanceler       | the runtime's |
class Pending : public std::enable_shared_from_this<Pending> {
public:
    /// Waits at most \a time. Returns whether it has ended.
    bool wait(std::chrono::milliseconds time) const;
    /// Whether it has ended.
    bool isDone() const { return wait(std::chrono::milliseconds(0)); }
    /// What became of it; only valid when it has ended.
    const Result &result() const;
    /// The last progress of a transfer.
    TransferProgress progress() const;
    /// Adds an event to the runtime's queue when it has ended, at once if it has.
    void notify(EventKey key);
    /// Ends it as soon as possible. Has no effect when it has ended.
    void cancel();

    /// Stores the result and wakes those who wait. Only the first call has an effect.
    void finish(Result result);
    /// Stores the progress.
    void setProgress(const TransferProgress &progress);
    /// Sets what cancel() does; calls it at once if cancel() was called before.
    void setCanceler(std::function<void()> cancel);
    /// Drops what cancel() does. A call must be dropped on the runtime's thread, but the last
    /// reference to this object may end elsewhere.
    void dropCanceler();

private:
    mutable std::mutex m_mutex;
    mutable std::condition_variable m_ended;
    std::optional<Result> m_result; ///< Guarded by m_mutex; constant when it has a value.
    std::optional<EventKey> m_key; ///< Guarded by m_mutex.
    TransferProgress m_progress; ///< Guarded by m_mutex.
    std::function<void()> m_cancel; ///< Belongs to the runtime's thread.
    bool m_isCanceled = false; ///< Belongs to the runtime's thread.
};

} // namespace Tavoro::Python
