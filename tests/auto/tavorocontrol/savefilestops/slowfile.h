#pragma once

#include <QByteArray>
#include <QString>

#include <functional>
#include <thread>

namespace Tavoro::Control {
class SaveFile;
}

/// A file that accepts bytes only when the test reads them: a named pipe, on which a writer blocks
/// as soon as the pipe is full. POSIX only.
class SlowFile {
public:
    explicit SlowFile(const QString &path);
    ~SlowFile();
    SlowFile(const SlowFile &) = delete;
    SlowFile &operator=(const SlowFile &) = delete;

    /// Gives \a file one batch of pieces, starts it, and returns when its thread blocks in the
    /// first of them. False if it could not be started.
    bool fill(Tavoro::Control::SaveFile &file);

    /// How fast a batch is read.
    enum class Pace {
        Fast, ///< In less than a second.
        Slow, ///< In 40 s, so that the writer can be stopped within it.
    };
    /// Reads everything slowly, on a separate thread, until the writer closes the file.
    void drainFromNowOn();
    /// Reads everything too, but starts when \a condition holds.
    void drainOnce(std::function<bool()> condition, Pace pace);

    /// Returns the bytes that were read. Waits until the writer has closed the file.
    QByteArray drained();
    /// Whether the writer has closed the file. Call it after drained().
    bool isClosed() const { return m_isClosed; }
    static QByteArray batch();
    static int pieceSize();

private:
    void drain(Pace pace);

    const QByteArray m_path;
    const int m_readEnd;
    QByteArray m_drained; // used by the thread while it runs
    bool m_isClosed = false; // used by the thread while it runs
    std::thread m_thread;
};
