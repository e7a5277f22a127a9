#pragma once

#include <tavorocontrol/export.h>

#include <QString>

#include <string>

namespace Tavoro::Control {

class SaveFilePrivate;

/// Writes data to a file on a thread of its own: the thread that receives the data never waits for
/// the disk.
///
/// Call startWrite(), then append() any number of times, then waitForStop() to write everything or
/// stopWrite() to cancel, then fileSaveResult(). append() may be called from any thread, several at
/// once. All other members belong to one thread.
///
/// Limits: the class ignores the results of writing, so a full disk is not reported. The queue has
/// no limit. Pieces that the thread has taken but not yet written when it stops are lost, also in
/// waitForStop(). Use \c QSaveFile where every byte counts.
class TAVOROCONTROL_EXPORT SaveFile {
public:
    /// Creates a writer without a file. Starts no thread.
    SaveFile();
    /// Stops the thread as stopWrite() does, and closes the file.
    ~SaveFile();

    SaveFile(const SaveFile &) = delete;
    /// Do not use. Shares the thread and the file of \a other; both destructors then delete them.
    SaveFile &operator=(const SaveFile &other);

    /// Opens the file \a path and starts the thread. Appends to a file that exists. Do not call it
    /// while the thread runs.
    ///
    /// False if the file cannot be opened; the log holds the reason. \a error gets the reason of
    /// the \e previous failure, or becomes empty.
    bool startWrite(const QString &path, QString &error);
    /// Queues \a data. Returns at once, always with true.
    bool append(std::string data);
    /// Stops the thread, waits for it without a limit, and closes the file. Queued data is not
    /// written.
    void stopWrite();
    /// Waits until the thread has taken all queued data, then stops it as stopWrite() does. Always
    /// true. Does not return while data is queued and no thread is running.
    bool waitForStop();
    /// True if the thread has ended. Says nothing about the results of writing.
    bool fileSaveResult();

private:
    SaveFilePrivate *d;
};

} // namespace Tavoro::Control
