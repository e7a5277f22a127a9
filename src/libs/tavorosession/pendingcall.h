#pragma once

#include <QFuture>
#include <QFutureWatcher>
#include <QObject>

#include <utility>

namespace Tavoro {

/// A call whose outcome arrives later. A value: copies belong to the same call, and dropping all of
/// them does not end it.
///
/// It converts to \c QFuture, for \c QFutureWatcher, for \c QFuture::then() of Qt 6, and for
/// libraries of coroutines. Cancelling the future drops the call if it has not been sent yet.
///
/// \a Result is Outcome, Answer or GroupOutcome.
template <class Result>
class PendingCall {
public:
    /// For the library, which makes all pending calls.
    explicit PendingCall(QFuture<Result> future) : m_future(std::move(future)) { }

    /// Calls \a callback with the result, once, on the thread of \a context, from its event loop:
    /// never before then() has returned. Does not call it if \a context is destroyed before, or if
    /// the future is cancelled. May be called several times. Call it on a thread with an event
    /// loop; never blocks.
    template <class Callback>
    const PendingCall &then(QObject *context, Callback callback) const
    {
        auto *const watcher = new QFutureWatcher<Result>;
        QObject::connect(watcher, &QFutureWatcherBase::finished, context,
                         [future = m_future, callback = std::move(callback)]() mutable {
                             if (future.resultCount() > 0)
                                 callback(future.result());
                         });
        QObject::connect(watcher, &QFutureWatcherBase::finished, watcher, &QObject::deleteLater);
        watcher->setFuture(m_future);
        return *this;
    }

    /// The future that gets the result.
    QFuture<Result> future() const { return m_future; }
    /// \copydoc future()
    operator QFuture<Result>() const { return m_future; }

private:
    QFuture<Result> m_future;
};

} // namespace Tavoro
