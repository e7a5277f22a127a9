#pragma once

#include <QFile>
#include <QList>
#include <QMutex>
#include <QString>
#include <QThread>
#include <QWaitCondition>

#include <atomic>
#include <memory>
#include <string>

namespace Tavoro::Control {

/// The thread of a SaveFile.
///
/// | member               | thread                                   |
/// |----------------------|------------------------------------------|
/// | append()             | any                                      |
/// | run() and its steps  | this thread                              |
/// | all others           | that of the SaveFile                     |
class SaveFilePrivate : public QThread {
    Q_OBJECT

public:
    SaveFilePrivate();
    ~SaveFilePrivate() override;

    bool startWrite(const QString &path, QString &error);
    void append(const std::string &data);
    void stopWrite();
    void waitForStop();
    bool result() const { return saveResult; }

protected:
    void run() override;

private:
    void launch();
    void wake();
    qsizetype pendingPieces();
    bool takeBatch(QList<std::string> &batch);
    void writeBatch(QList<std::string> &batch);

    QString errorString;
    std::atomic<bool> saveResult{false};
    QMutex mutex;
    std::atomic<bool> stopFlag{false};
    QList<std::string> queue; // guarded by mutex
    QWaitCondition condition;
    const std::shared_ptr<QFile> file; // belongs to this thread while it runs
};

} // namespace Tavoro::Control
