#pragma once

#include <QByteArray>
#include <QString>

#include <functional>
#include <thread>

namespace Tavoro::Control {
class SaveFile;
}

/// A file that takes no byte until the test lets it: a named pipe, in which a writer stands still
/// as soon as the pipe is full. POSIX only.
class SlowFile {
public:
    explicit SlowFile(const QString &path);
    ~SlowFile();
    SlowFile(const SlowFile &) = delete;
    SlowFile &operator=(const SlowFile &) = delete;

    /// Gives \a file one batch of pieces, starts it, and returns when its thread stands in the
    /// first of them. False if it could not be started.
    bool fill(Tavoro::Control::SaveFile &file);

    /// Takes what comes, on a thread of its own, until the writer closes the file.
    void drainFromNowOn();
    /// The same from when \a condition holds.
    void drainOnce(std::function<bool()> condition);

    /// What came, once the writer has closed the file.
    QByteArray drained();
    /// Whether it has; to be asked behind drained().
    bool isClosed() const { return m_isClosed; }
    static QByteArray batch();
    static int pieceSize();

private:
    void drain();

    const QByteArray m_path;
    const int m_readEnd;
    QByteArray m_drained; // the thread's while it runs
    bool m_isClosed = false; // as the former
    std::thread m_thread;
};
