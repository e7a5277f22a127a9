#include <tavorocontrol/savefile.h>

#include "logging_p.h"
#include "savefile_p.h"

#include <QDeadlineTimer>
#include <QMutexLocker>

namespace Tavoro::Control {

using Internal::controlLog;

namespace {

/// In ms; append() and both stop functions wake the thread at once.
constexpr int waitTimeout = 10000;
constexpr int drainInterval = 10; ///< In ms.

void logPending(qsizetype pieces)
{
    qCDebug(controlLog) << "Left save file count : " << pieces;
}

} // namespace

SaveFilePrivate::SaveFilePrivate() : file(std::make_shared<QFile>())
{
    setObjectName(QStringLiteral("SaveFile"));
}

SaveFilePrivate::~SaveFilePrivate()
{
    stopWrite();
}

// Kept: error gets the text of the previous attempt.
bool SaveFilePrivate::startWrite(const QString &path, QString &error)
{
    error = errorString;
    file->setFileName(path);
    if (!(file->isOpen() && file->isWritable())
        && !file->open(QIODevice::WriteOnly | QIODevice::Append)) {
        errorString = tr("File open failed. file path: %1").arg(path);
        qCWarning(controlLog) << errorString;
        return false;
    }
    launch();
    return true;
}

void SaveFilePrivate::launch()
{
    stopFlag = false;
    start(QThread::InheritPriority);
}

void SaveFilePrivate::append(const std::string &data)
{
    const QMutexLocker lock(&mutex);
    queue.append(data);
    condition.wakeAll();
}

void SaveFilePrivate::wake()
{
    const QMutexLocker lock(&mutex);
    condition.wakeAll();
}

void SaveFilePrivate::stopWrite()
{
    stopFlag = true;
    wake();
    if (isRunning())
        wait(QDeadlineTimer(QDeadlineTimer::Forever));
    if (file->isOpen())
        file->close();
}

qsizetype SaveFilePrivate::pendingPieces()
{
    const QMutexLocker lock(&mutex);
    return queue.size();
}

// Kept: an empty queue means that the last batch was taken, not that it was written.
void SaveFilePrivate::waitForStop()
{
    qsizetype pieces = pendingPieces();
    logPending(pieces);
    while (pieces != 0) {
        wake();
        logPending(pieces);
        msleep(drainInterval);
        pieces = pendingPieces();
    }
    stopWrite();
}

void SaveFilePrivate::run()
{
    saveResult = false;
    while (!stopFlag) {
        QList<std::string> batch;
        if (!takeBatch(batch))
            break;
        writeBatch(batch);
    }
    saveResult = true;
}

/// Waits for data. Returns false if the thread must end; queued data is then not written.
bool SaveFilePrivate::takeBatch(QList<std::string> &batch)
{
    const QMutexLocker lock(&mutex);
    if (queue.isEmpty() && !condition.wait(&mutex, waitTimeout))
        return true;
    if (stopFlag)
        return false;
    batch.swap(queue);
    return true;
}

void SaveFilePrivate::writeBatch(QList<std::string> &batch)
{
    while (!batch.isEmpty() && !stopFlag) {
        const std::string piece = batch.takeFirst();
        if (!file->isOpen())
            continue;
        file->write(piece.data(), static_cast<qint64>(piece.size()));
        file->flush(); // so that the data reaches the file at once
    }
}

SaveFile::SaveFile() : d(new SaveFilePrivate) { }

SaveFile::~SaveFile()
{
    delete d;
}

SaveFile &SaveFile::operator=(const SaveFile &other) = default;

bool SaveFile::startWrite(const QString &path, QString &error)
{
    return d->startWrite(path, error);
}

bool SaveFile::append(std::string data)
{
    d->append(data);
    return true;
}

void SaveFile::stopWrite()
{
    d->stopWrite();
}

bool SaveFile::waitForStop()
{
    d->waitForStop();
    return true;
}

bool SaveFile::fileSaveResult()
{
    return d->result();
}

} // namespace Tavoro::Control
