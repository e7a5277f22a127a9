#pragma once

#include <tavorosession/pendingcall.h>

#include <QFuture>
#include <QFutureInterface>

#include <list>
#include <optional>

namespace Tavoro::SessionInternal {

/// Knows whether the model contains what the writes of the application have changed, and who waits
/// for that. Writes are counted, see ModelFollower::noted(). On the session's thread.
class ModelUpdates {
public:
    ~ModelUpdates() { endAll(); }

    /// Ends with true when the model contains the first \a noted writes, with false when what they
    /// have changed could not be read.
    PendingCall<bool> wait(quint64 noted);
    /// The first \a noted writes were read; if \a isComplete is false, that has failed, and the
    /// device is read again as a whole.
    void followed(quint64 noted, bool isComplete);
    /// The connection was lost. The next reading will include the first \a noted writes.
    void lost(quint64 noted);
    /// A reading of the device begins, which will include the first \a noted writes.
    void readingStarted(quint64 noted);
    /// Reports have changed what the reading has read: some of it is read again after it, with the
    /// first \a noted writes.
    void readingOutdated(quint64 noted) { m_outdated = noted; }
    /// The device was read, and is not read once more.
    void readingEnded(bool isComplete);
    /// Ends all with false.
    void endAll();

private:
    struct Waiting {
        quint64 noted;
        QFutureInterface<bool> promise;
    };

    void finishUpToDate(bool isComplete);

    std::list<Waiting> m_waiting;
    quint64 m_applied = 0; ///< Writes that the model contains.
    quint64 m_nextReading = 0; ///< Writes that the model contains after the next reading.
    std::optional<quint64> m_outdated; ///< See readingOutdated(). Of the present reading.
    std::optional<quint64> m_awaited; ///< The same, of a reading that has ended.
    bool m_needsReading = true; ///< Of the device as a whole.
};

} // namespace Tavoro::SessionInternal
