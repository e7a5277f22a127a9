#include "fastclock.h"
#include "slowfile.h"

#include <support/common/patience.h>
#include <support/tavorobizmodel/journal.h>
#include <support/tavorocontrol/savefolder.h>
#include <tavorocontrol/savefile.h>

#include <QtTest>

#include <memory>
#include <thread>

using Tavoro::Control::SaveFile;

namespace {

QString leftCount(int pieces)
{
    return QStringLiteral("debug: Left save file count :  %1").arg(pieces);
}

/// After a stop, the worker only finishes the piece that it is writing.
void verifyWholePiecesButNotAll(const QByteArray &content)
{
    QVERIFY(!content.isEmpty());
    QCOMPARE(int(content.size()) % SlowFile::pieceSize(), 0);
    QVERIFY(content.size() < SlowFile::batch().size());
    QVERIFY(SlowFile::batch().startsWith(content));
}

} // namespace

/// How the queued writer behaves when it is stopped and when it is idle.
class tst_SaveFileStops : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { m_it = std::make_unique<SaveFolder>(); }

    void stopInTheMiddleLeavesTheRestUnwritten();
    void piecesAddedDuringTheStopStayQueued();
    void destructionInTheMiddleStopsAndClosesTheFile();
    void waitForStopMayLoseTheLastBatch();
    void waitForStopWaitsUntilTheQueueIsEmpty();
    void waitForStopOnAnEmptyQueueLogsOnce();

    void idleWorkerWakesAndWaitsAgain();
    void resultIsFalseUntilTheWorkerHasEnded();
    void resultIsTrueAlthoughNothingCouldBeWritten();
    void piecesForAClosedFileAreDropped();

private:
    QString path(const char *name) const { return m_it->path(name); }

    std::unique_ptr<SaveFolder> m_it;
};

void tst_SaveFileStops::stopInTheMiddleLeavesTheRestUnwritten()
{
    const MessageCatcher quiet;
    SlowFile slow(path("slow"));
    SaveFile file;
    QVERIFY(slow.fill(file));
    file.append("queued after the batch");
    slow.drainFromNowOn();
    file.stopWrite();
    QVERIFY(file.fileSaveResult());
    verifyWholePiecesButNotAll(slow.drained());
    QVERIFY(slow.isClosed());

    QVERIFY(file.startWrite(path("next"), m_it->error));
    QTRY_COMPARE(contentOf(path("next")), QByteArray("queued after the batch"));
}

void tst_SaveFileStops::piecesAddedDuringTheStopStayQueued()
{
    if (!FastClock::isPossible())
        QSKIP("cannot detect that the worker goes to sleep");
    SaveFile file;
    std::thread stopper;
    const NextSleep sleep([&file] { file.append("left"); },
                          [&] { stopper = std::thread([&file] { file.stopWrite(); }); });
    QVERIFY(file.startWrite(path("first"), m_it->error));
    QTRY_VERIFY(file.fileSaveResult());
    stopper.join();
    QCOMPARE(contentOf(path("first")), QByteArray());

    QVERIFY(file.startWrite(path("next"), m_it->error));
    QTRY_COMPARE(contentOf(path("next")), QByteArray("left"));
}

void tst_SaveFileStops::destructionInTheMiddleStopsAndClosesTheFile()
{
    const MessageCatcher quiet;
    SlowFile slow(path("slow"));
    {
        SaveFile file;
        QVERIFY(slow.fill(file));
        slow.drainFromNowOn();
    }
    verifyWholePiecesButNotAll(slow.drained());
    QVERIFY(slow.isClosed());
}

void tst_SaveFileStops::waitForStopMayLoseTheLastBatch()
{
    const Journal journal;
    SlowFile slow(path("slow"));
    SaveFile file;
    QVERIFY(slow.fill(file)); // one batch; the worker has taken it
    slow.drainOnce([&] { return journal.lines().contains(leftCount(0)); }, SlowFile::Pace::Slow);
    QVERIFY(file.waitForStop());
    QVERIFY(file.fileSaveResult()); // says nothing about the content
    verifyWholePiecesButNotAll(slow.drained());
}

void tst_SaveFileStops::waitForStopWaitsUntilTheQueueIsEmpty()
{
    const Journal journal;
    SlowFile slow(path("slow"));
    SaveFile file;
    QVERIFY(slow.fill(file));
    file.append("x"); // after the batch that the worker has taken
    file.append("y");
    slow.drainOnce([&] { return journal.lines().size() >= 3; }, SlowFile::Pace::Fast);
    QVERIFY(file.waitForStop());
    QVERIFY(slow.drained().startsWith(SlowFile::batch()));
    const QStringList lines = journal.lines();
    QVERIFY(lines.size() >= 3); // one, plus one for each check that found pieces
    QCOMPARE(lines.count(leftCount(2)), int(lines.size()));
}

void tst_SaveFileStops::waitForStopOnAnEmptyQueueLogsOnce()
{
    const Journal journal;
    SaveFile file;
    QVERIFY(file.startWrite(path("f"), m_it->error));
    QVERIFY(file.waitForStop());
    QVERIFY(file.fileSaveResult());
    QCOMPARE(journal.lines(), QStringList(leftCount(0)));
    QVERIFY(file.append("after the stop"));
    QCOMPARE(contentOf(path("f")), QByteArray());
}

void tst_SaveFileStops::idleWorkerWakesAndWaitsAgain()
{
    if (!FastClock::isPossible())
        QSKIP("takes ten seconds here");
    const FastClock clock;
    SaveFile file;
    QVERIFY(file.startWrite(path("f"), m_it->error));
    QTRY_VERIFY(clock.waitsThatRanOut() > 2);
    QVERIFY(!file.fileSaveResult());
    file.append("still there");
    QTRY_COMPARE(contentOf(path("f")), QByteArray("still there"));
    QVERIFY(!file.fileSaveResult());
}

void tst_SaveFileStops::resultIsFalseUntilTheWorkerHasEnded()
{
    SaveFile file;
    QVERIFY(!file.fileSaveResult());
    QVERIFY(file.startWrite(path("f"), m_it->error));
    file.append("a");
    QTRY_COMPARE(contentOf(path("f")), QByteArray("a"));
    QVERIFY(!file.fileSaveResult());
    file.stopWrite();
    QVERIFY(file.fileSaveResult());

    QVERIFY(file.startWrite(path("f"), m_it->error));
    file.append("b");
    QTRY_COMPARE(contentOf(path("f")), QByteArray("ab"));
    QVERIFY(!file.fileSaveResult()); // a new run resets the result
}

void tst_SaveFileStops::resultIsTrueAlthoughNothingCouldBeWritten()
{
    const QString fullDisk = QStringLiteral("/dev/full");
    if (!QFile::exists(fullDisk))
        QSKIP("no file that refuses every write");
    const Journal journal;
    SaveFile file;
    QVERIFY(file.startWrite(fullDisk, m_it->error));
    QVERIFY(file.append("never written"));
    QVERIFY(file.waitForStop());
    QVERIFY(file.fileSaveResult());
    QCOMPARE(journal.lines().filter(QStringLiteral("warning: ")), QStringList());
}

void tst_SaveFileStops::piecesForAClosedFileAreDropped()
{
    if (!FastClock::isPossible())
        QSKIP("cannot detect that the worker has taken the pieces");
    const FastClock clock;
    const MessageCatcher caught;
    SaveFile file;
    QVERIFY(file.startWrite(path("f"), m_it->error));
    QVERIFY(!file.startWrite(path("no/f"), m_it->error));
    file.append("dropped");
    const int waits = clock.waitsThatRanOut();
    QTRY_VERIFY(clock.waitsThatRanOut() > waits + 1); // the queue is empty again

    QVERIFY(file.startWrite(path("next"), m_it->error));
    file.append("written");
    QTRY_COMPARE(contentOf(path("next")), QByteArray("written"));
    QCOMPARE(contentOf(path("f")), QByteArray());
    const auto lines = caught.messages();
    for (const CaughtMessage &line : lines)
        QVERIFY2(!line.text.contains(QLatin1String("device not open")), qPrintable(line.text));
    file.stopWrite();
    QVERIFY(file.fileSaveResult());
}

QTEST_GUILESS_MAIN(tst_SaveFileStops)
#include "tst_savefilestops.moc"
