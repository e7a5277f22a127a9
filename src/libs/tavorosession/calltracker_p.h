#pragma once

#include <tavorosession/trackedcall.h>

#include <QPointer>
#include <QTimer>

#include <atomic>
#include <chrono>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <utility>
#include <vector>

namespace Tavoro::SessionInternal {

/// The progress of one TrackedCall, and its cancellation.
///
/// | member                      | thread                     |
/// |-----------------------------|----------------------------|
/// | setDone, isCanceled         | any                        |
/// | the others                  | the session's              |
class CallTracker : public std::enable_shared_from_this<CallTracker> {
public:
    CallTracker();
    ~CallTracker();

    /// Sets the progress; \a total is 0 if it is not known.
    void setDone(qint64 done, qint64 total);
    bool isCanceled() const { return m_isCanceled; }

    TransferProgress progress() const;
    void follow(QObject *context, ProgressCallback callback);
    /// Sets what cancel() does besides setting the flag.
    void setCancelHandler(std::function<void()> handler) { m_cancelHandler = std::move(handler); }
    void cancel();
    /// The call has ended: reports the last progress.
    void finish();

private:
    using Clock = std::chrono::steady_clock;
    struct Sample {
        Clock::time_point time;
        qint64 done = 0;
    };
    struct Follower {
        QPointer<QObject> context;
        ProgressCallback callback;
    };

    std::pair<qint64, qint64> doneAndTotal() const;
    void look();
    void takeSample(qint64 done);

    std::atomic<bool> m_isCanceled{false};
    mutable std::mutex m_mutex;
    qint64 m_done = 0; // guarded by m_mutex
    qint64 m_total = 0; // guarded by m_mutex
    std::unique_ptr<QTimer> m_timer; ///< Null after the end, so that any thread may destroy this.
    std::deque<Sample> m_samples; ///< Of the last seconds.
    std::pair<qint64, qint64> m_reported{0, 0};
    std::vector<Follower> m_followers;
    std::function<void()> m_cancelHandler;
};

} // namespace Tavoro::SessionInternal
