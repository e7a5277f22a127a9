#pragma once

#include <tavorocontrol/export.h>

#include <QString>

#include <string>

namespace Tavoro::Control {

class SaveFilePrivate;

/// Writes data to a file on a separate thread, so that the thread that receives the data never
/// waits for the disk.
///
/// Call startWrite(), then append() any number of times, then waitForStop() to write everything or
/// stopWrite() to cancel, then fileSaveResult(). append() may be called from any thread, several at
/// once. All other members belong to one thread.
///
/// Limitations: write errors are ignored, so a full disk is not noticed. The queue is unbounded.
/// Data that the thread has taken from the queue but not yet written when it stops is lost, also
/// with waitForStop(). Use \c QSaveFile for data that must not be lost.
class TAVOROCONTROL_EXPORT SaveFile {
public:
    /// Creates a writer without a file. Starts no thread.
    SaveFile();
    /// Stops the thread as stopWrite() does, and closes the file.
    ~SaveFile();

    SaveFile(const SaveFile &) = delete;
    /// Do not use: both objects would share the thread and the file, and both destructors would
    /// delete them.
    SaveFile &operator=(const SaveFile &other);

    /// Opens the file \a path and starts the thread. Appends to an existing file. Do not call it
    /// while the thread runs.
    ///
    /// Returns false if the file cannot be opened; the reason is logged. \a error gets the reason
    /// of the \e previous failure, or is emptied if there was none.
    bool startWrite(const QString &path, QString &error);
    /// Queues \a data and returns at once. Always returns true.
    bool append(std::string data);
    /// Stops the thread, blocks until it has ended, and closes the file. Does not write queued
    /// data.
    void stopWrite();
    /// Waits until the thread has taken all queued data, then stops it as stopWrite() does. Always
    /// returns true. Never returns if data is queued and the thread does not run.
    bool waitForStop();
    /// Returns true if the thread has ended, even if a write has failed.
    bool fileSaveResult();

private:
    SaveFilePrivate *d;
};

} // namespace Tavoro::Control
