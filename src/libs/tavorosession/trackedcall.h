#pragma once

#include <tavorosession/export.h>
#include <tavorosession/outcome.h>
#include <tavorosession/pendingcall.h>

#include <QMetaType>
#include <QObject>

#include <functional>
#include <memory>
#include <string>
#include <utility>

namespace Tavoro {

/// How far a TrackedCall is. A value.
struct TransferProgress {
    qint64 done = 0; ///< Bytes that were transferred; percent of an upgrade.
    /// Bytes of the whole content, or 100 for an upgrade. 0 while it is not known; an estimate
    /// until the last packet has arrived, if the model does not have the length of the file.
    qint64 total = 0;
    double rate = 0; ///< Bytes, or percent, per second, averaged over the last two seconds.

    /// From 0 to 1; 0 while \c total is not known.
    double share() const { return total > 0 ? double(done) / double(total) : 0; }
};

/// \cond
namespace SessionInternal {
class CallTracker;
using ProgressCallback = std::function<void(const TransferProgress &)>;

TAVOROSESSION_EXPORT TransferProgress progressOf(const CallTracker &tracker);
TAVOROSESSION_EXPORT void followProgress(CallTracker &tracker, QObject *context,
                                         ProgressCallback callback);
TAVOROSESSION_EXPORT void cancelCall(CallTracker &tracker);
} // namespace SessionInternal
/// \endcond

/// A call that takes long, with its progress. A value as PendingCall is; it has no thread and no
/// signals of its own. Dropping it does not end the call. When its session is closed or deleted, it
/// ends at once, even if another thread still uses the QIODevice of a transfer: see DeviceFiles.
///
/// \code
/// const auto transfer = wall->files().sendFrom(info, path);
/// transfer.onProgress(this, [=](const TransferProgress &now) {
///     bar->setValue(int(100 * now.share()));
/// });
/// transfer.then(this, [=](const Outcome &outcome) { showEnd(outcome.text()); });
/// connect(button, &QPushButton::clicked, this, [=] { transfer.cancel(); });
/// \endcode
///
/// All members must be called on the session's thread; none blocks.
template <class Result>
class TrackedCall : public PendingCall<Result> {
public:
    /// For the library, which makes all tracked calls.
    TrackedCall(QFuture<Result> future, std::shared_ptr<SessionInternal::CallTracker> tracker)
        : PendingCall<Result>(std::move(future)), m_tracker(std::move(tracker))
    { }

    /// The progress at this moment.
    TransferProgress progress() const { return SessionInternal::progressOf(*m_tracker); }

    /// Calls \a callback when the progress has changed, on the session's thread, at most ten times
    /// per second, and with the last progress before the result is delivered. Does not call it if
    /// \a context is destroyed before. May be called several times.
    const TrackedCall &onProgress(QObject *context,
                                  SessionInternal::ProgressCallback callback) const
    {
        SessionInternal::followProgress(*m_tracker, context, std::move(callback));
        return *this;
    }

    /// Ends the call. A call that waits ends at once; one that is under way ends with its packet
    /// under way, that is at the latest after the timeout of a packet (10 s). The outcome is
    /// delivered as usual: Outcome::isCanceled() is true, unless the device was faster. Without
    /// effect if the call has ended.
    void cancel() const { SessionInternal::cancelCall(*m_tracker); }

private:
    std::shared_ptr<SessionInternal::CallTracker> m_tracker;
};

/// A transfer whose content goes to or comes from a file.
using PendingTransfer = TrackedCall<Outcome>;
/// A transfer whose result is the content of a file.
using PendingContent = TrackedCall<Answer<std::string>>;

} // namespace Tavoro

Q_DECLARE_METATYPE(Tavoro::TransferProgress)
