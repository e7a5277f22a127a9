#include "fastclock.h"
#include "slowfile.h"

#include <journal.h>
#include <tavorocontrol/savefile.h>

#include <QTemporaryDir>
#include <QtTest>

#include <array>
#include <cstring>
#include <memory>
#include <optional>
#include <thread>
#include <vector>

using Tavoro::Control::SaveFile;

static_assert(std::is_default_constructible_v<SaveFile>);
static_assert(!std::has_virtual_destructor_v<SaveFile>);
static_assert(sizeof(SaveFile) == sizeof(void *));
static_assert(std::is_copy_assignable_v<SaveFile>);
static_assert(std::is_same_v<decltype(&SaveFile::startWrite),
                             bool (SaveFile::*)(const QString &, QString &)>);
static_assert(std::is_same_v<decltype(&SaveFile::append), bool (SaveFile::*)(std::string)>);
static_assert(std::is_same_v<decltype(&SaveFile::stopWrite), void (SaveFile::*)()>);
static_assert(std::is_same_v<decltype(&SaveFile::waitForStop), bool (SaveFile::*)()>);
static_assert(std::is_same_v<decltype(&SaveFile::fileSaveResult), bool (SaveFile::*)()>);

namespace {

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QString leftCount(int pieces)
{
    return QStringLiteral("debug: Left save file count :  %1").arg(pieces);
}

/// A stop lets the worker finish the piece in which it stands, and no more.
void verifyWholePiecesButNotAll(const QByteArray &content)
{
    QVERIFY(!content.isEmpty());
    QCOMPARE(int(content.size()) % SlowFile::pieceSize(), 0);
    QVERIFY(content.size() < SlowFile::batch().size());
    QVERIFY(SlowFile::batch().startsWith(content));
}

QString openFailed(const QString &path)
{
    return QStringLiteral("File open failed. file path: %1").arg(path);
}

} // namespace

class tst_SaveFile : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();

    void piecesAreWrittenInTheirOrder();
    void piecesAreWrittenByteForByte();
    void piecesReachTheDiskWhileTheWriterRuns();
    void fileThatExistsIsExtended();
    void severalProducersLoseNothing();
    void appendBeforeTheStartWaitsForTheWorker();

    void pathThatCannotBeOpenedFails();
    void secondFailureGivesTheTextOfTheFirst();
    void successAfterAFailureStillGivesTheTextOfTheFailure();

    void appendAfterAStopIsTrueAndNeverWritten();
    void secondStartExtendsTheNewPath();
    void piecesLeftByAStopGoToTheNextFile();
    void stopBeforeTheStartDoesNothing();
    void assignmentSharesOneWriter();

    void stopInTheMiddleLeavesTheRestUnwritten();
    void destructionInTheMiddleStopsAndClosesTheFile();
    void waitForStopMayLoseTheLastBatch();
    void waitForStopWaitsUntilTheQueueIsEmpty();
    void waitForStopOnAnEmptyQueueLogsOnce();

    void idleWorkerWakesAndGoesBackToWaiting();
    void resultIsFalseUntilTheWorkerHasEnded();
    void resultIsTrueAlthoughNothingCouldBeWritten();
    void piecesForAFileThatWasClosedAreDropped();

private:
    QString path(const char *name) const { return m_folder->filePath(QString::fromLatin1(name)); }

    std::optional<QTemporaryDir> m_folder;
    QString m_error;
};

void tst_SaveFile::init()
{
    m_folder.emplace();
    QVERIFY(m_folder->isValid());
    m_error = QStringLiteral("text from before");
}

void tst_SaveFile::piecesAreWrittenInTheirOrder()
{
    SaveFile file;
    QVERIFY(file.startWrite(path("f"), m_error));
    QByteArray expected;
    for (int i = 0; i < 1000; ++i) {
        const std::string piece = std::to_string(i) + '\n';
        expected += QByteArray::fromStdString(piece);
        QVERIFY(file.append(piece));
    }
    QTRY_COMPARE(contentOf(path("f")), expected);
    QVERIFY(file.waitForStop());
    QVERIFY(file.fileSaveResult());
    QCOMPARE(contentOf(path("f")), expected);
}

void tst_SaveFile::piecesAreWrittenByteForByte()
{
    using namespace std::string_literals;
    SaveFile file;
    QVERIFY(file.startWrite(path("f"), m_error));
    file.append("\0\r\n"s);
    file.append({});
    file.append("\xFF\0"s);
    QTRY_COMPARE(contentOf(path("f")), QByteArray("\0\r\n\xFF\0", 5));
}

void tst_SaveFile::piecesReachTheDiskWhileTheWriterRuns()
{
    SaveFile file;
    QVERIFY(file.startWrite(path("f"), m_error));
    file.append("a");
    QTRY_COMPARE(contentOf(path("f")), QByteArray("a"));
    file.append("b");
    QTRY_COMPARE(contentOf(path("f")), QByteArray("ab"));
}

void tst_SaveFile::fileThatExistsIsExtended()
{
    QFile old(path("f"));
    QVERIFY(old.open(QIODevice::WriteOnly));
    old.write("old ");
    old.close();
    SaveFile file;
    QVERIFY(file.startWrite(path("f"), m_error));
    file.append("new");
    QTRY_COMPARE(contentOf(path("f")), QByteArray("old new"));
}

void tst_SaveFile::severalProducersLoseNothing()
{
    constexpr int producers = 4;
    constexpr int pieces = 500;
    SaveFile file;
    QVERIFY(file.startWrite(path("f"), m_error));
    std::vector<std::thread> threads;
    for (int p = 0; p < producers; ++p)
        threads.emplace_back([&file, p] {
            for (int i = 0; i < pieces; ++i)
                file.append(std::to_string(p) + ' ' + std::to_string(i) + '\n');
        });
    for (std::thread &thread : threads)
        thread.join();
    QTRY_COMPARE(contentOf(path("f")).count('\n'), producers * pieces);
    QVERIFY(file.waitForStop());

    QList<int> next{0, 0, 0, 0};
    const auto lines = contentOf(path("f")).trimmed().split('\n');
    for (const QByteArray &line : lines) {
        const auto numbers = line.split(' ');
        QCOMPARE(numbers.size(), 2); // pieces are not torn
        QCOMPARE(numbers[1].toInt(), next[numbers[0].toInt()]++); // each producer's in its order
    }
    QCOMPARE(next, (QList<int>{pieces, pieces, pieces, pieces}));
}

void tst_SaveFile::appendBeforeTheStartWaitsForTheWorker()
{
    SaveFile file;
    QVERIFY(file.append("early "));
    QVERIFY(!QFile::exists(path("f")));
    QVERIFY(file.startWrite(path("f"), m_error));
    QVERIFY(file.append("late"));
    QTRY_COMPARE(contentOf(path("f")), QByteArray("early late"));
}

void tst_SaveFile::pathThatCannotBeOpenedFails()
{
    const Journal journal;
    SaveFile file;
    QVERIFY(!file.startWrite(path("no/f"), m_error));
    QCOMPARE(m_error, QString()); // that of the attempt before, of which there was none
    QCOMPARE(journal.lines(),
             QStringList(QStringLiteral("warning: \"%1\"").arg(openFailed(path("no/f")))));
    QVERIFY(!file.fileSaveResult());
    QVERIFY(file.append("never written"));
    file.stopWrite();
    QVERIFY(!file.fileSaveResult()); // the thread was not started
}

void tst_SaveFile::secondFailureGivesTheTextOfTheFirst()
{
    const MessageCatcher quiet;
    SaveFile file;
    QVERIFY(!file.startWrite(path("no/first"), m_error));
    QCOMPARE(m_error, QString());
    QVERIFY(!file.startWrite(path("no/second"), m_error));
    QCOMPARE(m_error, openFailed(path("no/first")));
    QVERIFY(!file.startWrite(path("no/third"), m_error));
    QCOMPARE(m_error, openFailed(path("no/second")));
}

void tst_SaveFile::successAfterAFailureStillGivesTheTextOfTheFailure()
{
    const MessageCatcher quiet;
    SaveFile file;
    QVERIFY(!file.startWrite(path("no/f"), m_error));
    QVERIFY(file.startWrite(path("f"), m_error));
    QCOMPARE(m_error, openFailed(path("no/f")));
    file.stopWrite();
    QVERIFY(file.startWrite(path("f"), m_error));
    QCOMPARE(m_error, openFailed(path("no/f")));
}

void tst_SaveFile::appendAfterAStopIsTrueAndNeverWritten()
{
    {
        SaveFile file;
        QVERIFY(file.startWrite(path("f"), m_error));
        file.append("a");
        QTRY_COMPARE(contentOf(path("f")), QByteArray("a"));
        file.stopWrite();
        QVERIFY(file.append("b"));
    }
    QCOMPARE(contentOf(path("f")), QByteArray("a"));
}

void tst_SaveFile::secondStartExtendsTheNewPath()
{
    SaveFile file;
    QVERIFY(file.startWrite(path("first"), m_error));
    file.append("a");
    QTRY_COMPARE(contentOf(path("first")), QByteArray("a"));
    file.stopWrite();
    QVERIFY(file.startWrite(path("second"), m_error));
    file.append("b");
    QTRY_COMPARE(contentOf(path("second")), QByteArray("b"));
    file.stopWrite();
    QVERIFY(file.startWrite(path("first"), m_error));
    file.append("c");
    QTRY_COMPARE(contentOf(path("first")), QByteArray("ac"));
}

void tst_SaveFile::piecesLeftByAStopGoToTheNextFile()
{
    SaveFile file;
    QVERIFY(file.startWrite(path("first"), m_error));
    file.stopWrite();
    file.append("left");
    QVERIFY(file.startWrite(path("second"), m_error));
    QTRY_COMPARE(contentOf(path("second")), QByteArray("left"));
    QCOMPARE(contentOf(path("first")), QByteArray());
}

void tst_SaveFile::stopBeforeTheStartDoesNothing()
{
    SaveFile file;
    file.stopWrite();
    QVERIFY(!file.fileSaveResult());
    QVERIFY(file.startWrite(path("f"), m_error)); // and it is no lasting stop
    file.append("a");
    QTRY_COMPARE(contentOf(path("f")), QByteArray("a"));
}

void tst_SaveFile::assignmentSharesOneWriter()
{
    SaveFile source;
    auto other = std::make_unique<SaveFile>();
    void *const otherPointer = other.get();
    std::array<char, sizeof(SaveFile)> own;
    std::memcpy(own.data(), otherPointer, own.size());

    *other = source;
    QVERIFY(other->startWrite(path("f"), m_error));
    source.append("a");
    other->append("b");
    QTRY_COMPARE(contentOf(path("f")), QByteArray("ab"));
    source.stopWrite();
    QVERIFY(other->fileSaveResult());

    std::memcpy(otherPointer, own.data(), own.size()); // both would delete the shared part
}

void tst_SaveFile::stopInTheMiddleLeavesTheRestUnwritten()
{
    const MessageCatcher quiet;
    SlowFile slow(path("slow"));
    SaveFile file;
    QVERIFY(slow.fill(file));
    file.append("queued behind the batch");
    slow.drainFromNowOn();
    file.stopWrite();
    QVERIFY(file.fileSaveResult());
    verifyWholePiecesButNotAll(slow.drained());
    QVERIFY(slow.isClosed());

    QVERIFY(file.startWrite(path("next"), m_error));
    QTRY_COMPARE(contentOf(path("next")), QByteArray("queued behind the batch"));
}

void tst_SaveFile::destructionInTheMiddleStopsAndClosesTheFile()
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

void tst_SaveFile::waitForStopMayLoseTheLastBatch()
{
    const Journal journal;
    SlowFile slow(path("slow"));
    SaveFile file;
    QVERIFY(slow.fill(file)); // one batch, which the worker has taken
    slow.drainOnce([&] { return journal.lines().contains(leftCount(0)); });
    QVERIFY(file.waitForStop());
    QVERIFY(file.fileSaveResult()); // which does not tell
    verifyWholePiecesButNotAll(slow.drained());
}

void tst_SaveFile::waitForStopWaitsUntilTheQueueIsEmpty()
{
    const Journal journal;
    SlowFile slow(path("slow"));
    SaveFile file;
    QVERIFY(slow.fill(file));
    file.append("x"); // behind the batch that the worker has taken
    file.append("y");
    slow.drainOnce([&] { return journal.lines().size() >= 3; });
    QVERIFY(file.waitForStop());
    QVERIFY(slow.drained().startsWith(SlowFile::batch()));
    const QStringList lines = journal.lines();
    QVERIFY(lines.size() >= 3); // one, and one more for each look that found pieces
    QCOMPARE(lines.count(leftCount(2)), int(lines.size()));
}

void tst_SaveFile::waitForStopOnAnEmptyQueueLogsOnce()
{
    const Journal journal;
    SaveFile file;
    QVERIFY(file.startWrite(path("f"), m_error));
    QVERIFY(file.waitForStop());
    QVERIFY(file.fileSaveResult());
    QCOMPARE(journal.lines(), QStringList(leftCount(0)));
    QVERIFY(file.append("after the stop"));
    QCOMPARE(contentOf(path("f")), QByteArray());
}

void tst_SaveFile::idleWorkerWakesAndGoesBackToWaiting()
{
    if (!FastClock::isPossible())
        QSKIP("takes ten seconds here");
    const FastClock clock;
    SaveFile file;
    QVERIFY(file.startWrite(path("f"), m_error));
    QTRY_VERIFY(clock.waitsThatRanOut() > 2);
    QVERIFY(!file.fileSaveResult());
    file.append("still there");
    QTRY_COMPARE(contentOf(path("f")), QByteArray("still there"));
    QVERIFY(!file.fileSaveResult());
}

void tst_SaveFile::resultIsFalseUntilTheWorkerHasEnded()
{
    SaveFile file;
    QVERIFY(!file.fileSaveResult());
    QVERIFY(file.startWrite(path("f"), m_error));
    file.append("a");
    QTRY_COMPARE(contentOf(path("f")), QByteArray("a"));
    QVERIFY(!file.fileSaveResult());
    file.stopWrite();
    QVERIFY(file.fileSaveResult());

    QVERIFY(file.startWrite(path("f"), m_error));
    file.append("b");
    QTRY_COMPARE(contentOf(path("f")), QByteArray("ab"));
    QVERIFY(!file.fileSaveResult()); // a new run, a new result
}

void tst_SaveFile::resultIsTrueAlthoughNothingCouldBeWritten()
{
    const QString fullDisk = QStringLiteral("/dev/full");
    if (!QFile::exists(fullDisk))
        QSKIP("no file that refuses every write");
    const Journal journal;
    SaveFile file;
    QVERIFY(file.startWrite(fullDisk, m_error));
    QVERIFY(file.append("never written"));
    QVERIFY(file.waitForStop());
    QVERIFY(file.fileSaveResult());
    QCOMPARE(journal.lines().filter(QStringLiteral("warning: ")), QStringList());
}

// A start of a running writer closes its file; when the next one cannot be opened, none is left.
void tst_SaveFile::piecesForAFileThatWasClosedAreDropped()
{
    if (!FastClock::isPossible())
        QSKIP("nothing tells that the worker has taken the pieces");
    const FastClock clock;
    const MessageCatcher caught;
    SaveFile file;
    QVERIFY(file.startWrite(path("f"), m_error));
    QVERIFY(!file.startWrite(path("no/f"), m_error));
    file.append("dropped");
    const int waits = clock.waitsThatRanOut();
    QTRY_VERIFY(clock.waitsThatRanOut() > waits + 1); // the queue is empty again

    QVERIFY(file.startWrite(path("next"), m_error));
    file.append("written");
    QTRY_COMPARE(contentOf(path("next")), QByteArray("written"));
    QCOMPARE(contentOf(path("f")), QByteArray());
    const auto lines = caught.messages();
    for (const CaughtMessage &line : lines)
        QVERIFY2(!line.text.contains(QLatin1String("device not open")), qPrintable(line.text));
    file.stopWrite();
    QVERIFY(file.fileSaveResult());
}

QTEST_GUILESS_MAIN(tst_SaveFile)
#include "tst_savefile.moc"
