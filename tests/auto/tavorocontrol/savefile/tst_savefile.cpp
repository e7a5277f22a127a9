#include <support/common/markingtranslator.h>
#include <support/common/patience.h>
#include <support/tavorobizmodel/journal.h>
#include <support/tavorocontrol/savefolder.h>
#include <tavorocontrol/savefile.h>

#include <QtTest>

#include <array>
#include <cstring>
#include <memory>
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

QString openFailed(const QString &path)
{
    return QStringLiteral("File open failed. file path: %1").arg(path);
}

} // namespace

class tst_SaveFile : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { m_it = std::make_unique<SaveFolder>(); }

    void piecesAreWrittenInTheirOrder();
    void piecesAreWrittenByteForByte();
    void piecesReachTheDiskWhileTheWriterRuns();
    void existingFileIsExtended();
    void severalProducersLoseNothing();
    void appendBeforeTheStartWaitsForTheWorker();

    void pathThatCannotBeOpenedFails();
    void failureIsTranslated();
    void secondFailureGivesTheTextOfTheFirst();
    void successAfterAFailureStillGivesTheTextOfTheFailure();

    void appendAfterAStopIsTrueAndNeverWritten();
    void secondStartExtendsTheNewPath();
    void piecesLeftByAStopGoToTheNextFile();
    void stopBeforeTheStartDoesNothing();
    void assignmentSharesOneWriter();

private:
    QString path(const char *name) const { return m_it->path(name); }

    std::unique_ptr<SaveFolder> m_it;
};

void tst_SaveFile::piecesAreWrittenInTheirOrder()
{
    SaveFile file;
    QVERIFY(file.startWrite(path("f"), m_it->error));
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
    QVERIFY(file.startWrite(path("f"), m_it->error));
    file.append("\0\r\n"s);
    file.append({});
    file.append("\xFF\0"s);
    QTRY_COMPARE(contentOf(path("f")), QByteArray("\0\r\n\xFF\0", 5));
}

void tst_SaveFile::piecesReachTheDiskWhileTheWriterRuns()
{
    SaveFile file;
    QVERIFY(file.startWrite(path("f"), m_it->error));
    file.append("a");
    QTRY_COMPARE(contentOf(path("f")), QByteArray("a"));
    file.append("b");
    QTRY_COMPARE(contentOf(path("f")), QByteArray("ab"));
}

void tst_SaveFile::existingFileIsExtended()
{
    QFile old(path("f"));
    QVERIFY(old.open(QIODevice::WriteOnly));
    old.write("old ");
    old.close();
    SaveFile file;
    QVERIFY(file.startWrite(path("f"), m_it->error));
    file.append("new");
    QTRY_COMPARE(contentOf(path("f")), QByteArray("old new"));
}

void tst_SaveFile::severalProducersLoseNothing()
{
    constexpr int producers = 4;
    constexpr int pieces = 500;
    SaveFile file;
    QVERIFY(file.startWrite(path("f"), m_it->error));
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
        QCOMPARE(numbers.size(), 2); // pieces stay whole
        QCOMPARE(numbers[1].toInt(),
                 next[numbers[0].toInt()]++); // the pieces of each producer stay in order
    }
    QCOMPARE(next, (QList<int>{pieces, pieces, pieces, pieces}));
}

void tst_SaveFile::appendBeforeTheStartWaitsForTheWorker()
{
    SaveFile file;
    QVERIFY(file.append("early "));
    QVERIFY(!QFile::exists(path("f")));
    QVERIFY(file.startWrite(path("f"), m_it->error));
    QVERIFY(file.append("late"));
    QTRY_COMPARE(contentOf(path("f")), QByteArray("early late"));
}

void tst_SaveFile::pathThatCannotBeOpenedFails()
{
    const Journal journal;
    SaveFile file;
    QVERIFY(!file.startWrite(path("no/f"), m_it->error));
    QCOMPARE(m_it->error, QString()); // the text of the previous attempt; there was none
    QCOMPARE(journal.lines(),
             QStringList(QStringLiteral("warning: \"%1\"").arg(openFailed(path("no/f")))));
    QVERIFY(!file.fileSaveResult());
    QVERIFY(file.append("never written"));
    file.stopWrite();
    QVERIFY(!file.fileSaveResult()); // the thread was not started
}

void tst_SaveFile::failureIsTranslated()
{
    MarkingTranslator translator("Tavoro::Control::SaveFilePrivate");
    QVERIFY(QCoreApplication::installTranslator(&translator));
    const Journal journal;
    SaveFile file;
    QVERIFY(!file.startWrite(path("no/f"), m_it->error));
    QCOMPARE(journal.lines(),
             QStringList(QStringLiteral("warning: \"<%1>\"").arg(openFailed(path("no/f")))));
}

void tst_SaveFile::secondFailureGivesTheTextOfTheFirst()
{
    const MessageCatcher quiet;
    SaveFile file;
    QVERIFY(!file.startWrite(path("no/first"), m_it->error));
    QCOMPARE(m_it->error, QString());
    QVERIFY(!file.startWrite(path("no/second"), m_it->error));
    QCOMPARE(m_it->error, openFailed(path("no/first")));
    QVERIFY(!file.startWrite(path("no/third"), m_it->error));
    QCOMPARE(m_it->error, openFailed(path("no/second")));
}

void tst_SaveFile::successAfterAFailureStillGivesTheTextOfTheFailure()
{
    const MessageCatcher quiet;
    SaveFile file;
    QVERIFY(!file.startWrite(path("no/f"), m_it->error));
    QVERIFY(file.startWrite(path("f"), m_it->error));
    QCOMPARE(m_it->error, openFailed(path("no/f")));
    file.stopWrite();
    QVERIFY(file.startWrite(path("f"), m_it->error));
    QCOMPARE(m_it->error, openFailed(path("no/f")));
}

void tst_SaveFile::appendAfterAStopIsTrueAndNeverWritten()
{
    {
        SaveFile file;
        QVERIFY(file.startWrite(path("f"), m_it->error));
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
    QVERIFY(file.startWrite(path("first"), m_it->error));
    file.append("a");
    QTRY_COMPARE(contentOf(path("first")), QByteArray("a"));
    file.stopWrite();
    QVERIFY(file.startWrite(path("second"), m_it->error));
    file.append("b");
    QTRY_COMPARE(contentOf(path("second")), QByteArray("b"));
    file.stopWrite();
    QVERIFY(file.startWrite(path("first"), m_it->error));
    file.append("c");
    QTRY_COMPARE(contentOf(path("first")), QByteArray("ac"));
}

void tst_SaveFile::piecesLeftByAStopGoToTheNextFile()
{
    SaveFile file;
    QVERIFY(file.startWrite(path("first"), m_it->error));
    file.stopWrite();
    file.append("left");
    QVERIFY(file.startWrite(path("second"), m_it->error));
    QTRY_COMPARE(contentOf(path("second")), QByteArray("left"));
    QCOMPARE(contentOf(path("first")), QByteArray());
}

void tst_SaveFile::stopBeforeTheStartDoesNothing()
{
    SaveFile file;
    file.stopWrite();
    QVERIFY(!file.fileSaveResult());
    QVERIFY(file.startWrite(path("f"), m_it->error)); // the stop does not last
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
    QVERIFY(other->startWrite(path("f"), m_it->error));
    source.append("a");
    other->append("b");
    QTRY_COMPARE(contentOf(path("f")), QByteArray("ab"));
    source.stopWrite();
    QVERIFY(other->fileSaveResult());

    std::memcpy(otherPointer, own.data(), own.size()); // both would delete the shared part
}

QTEST_GUILESS_MAIN(tst_SaveFile)
#include "tst_savefile.moc"
