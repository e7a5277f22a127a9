#pragma once

#include <tavorocontrol/export.h>

#include <QString>

#include <string>

namespace Tavoro::Control {

class SaveFilePrivate;

/// Writes a stream of pieces to one file on a thread of its own, so that whoever receives data
/// never waits for the disk.
///
/// startWrite(), any number of append(), then waitForStop() to drain the queue or stopWrite() to
/// cancel, then fileSaveResult(). append() may be called from any thread, several at once; the
/// other members belong to one thread.
///
/// What it does not promise: results of writing are not looked at, so a full disk shows up nowhere;
/// the queue has no limit; and the pieces that the thread has taken but not yet written when it is
/// told to stop are lost, also by waitForStop(). Where every byte counts, write with \c QSaveFile
/// instead.
class TAVOROCONTROL_EXPORT SaveFile {
public:
    SaveFile();
    /// Stops the thread as stopWrite() does, and closes the file.
    ~SaveFile();

    SaveFile(const SaveFile &) = delete;
    /// Shares the other's thread and file, which the destructors of both then delete. Do not use.
    SaveFile &operator=(const SaveFile &other);

    /// Opens the file and starts the thread. Data goes behind what the file already holds. Not to
    /// be called while the thread runs.
    ///
    /// False if the file cannot be opened; the reason is logged. \a error gets the reason of the \e
    /// previous failure.
    bool startWrite(const QString &path, QString &error);
    /// Queues a piece and returns true, at once and always.
    bool append(std::string data);
    /// Ends the thread and waits for it. What is still queued is not written.
    void stopWrite();
    /// Waits until the thread has taken all pieces, then ends it. Always true. Does not return
    /// while pieces are queued and no thread runs that could take them.
    bool waitForStop();
    /// True when the thread has run to its end.
    bool fileSaveResult();

private:
    SaveFilePrivate *d;
};

} // namespace Tavoro::Control
