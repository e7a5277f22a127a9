// The folder in which a simulated device keeps its files from run to run.

#include <support/tavorosim/commandcodes.h>
#include <support/tavorosim/simbench.h>
#include <support/tavorosim/sqlfile.h>

#include <tavorosim/state/filestore.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <functional>
#include <vector>

using namespace CommandCodes;
using Tavoro::ProtoModel::File::s_FileDetail;
using Tavoro::Sim::FileChanges;
using Tavoro::Sim::FileStore;
using Tavoro::Sim::SimOptions;
using Tavoro::Sim::SimulatedDevice;

namespace {

const std::string sample = "123456789"; ///< Its hash sum is 0xCBF43926, -873187034.

SimOptions inFolder(const QString &folder)
{
    SimOptions options;
    options.filesFolder = folder;
    return options;
}

QStringList filesIn(const QString &folder, const char *pattern)
{
    return QDir(folder).entryList({QLatin1String(pattern)}, QDir::Files, QDir::Name);
}

/// Copies the files of \a folder for another device.
void copyFiles(const QString &folder, const QString &to)
{
    for (const QString &name : filesIn(folder, "*"))
        QVERIFY(QFile::copy(QDir(folder).filePath(name), QDir(to).filePath(name)));
}

QString databaseIn(const QTemporaryDir &folder)
{
    return folder.filePath(QStringLiteral("device.sqlite"));
}

/// The error of a device that cannot use \a folder; empty when it can.
QString openingError(const QTemporaryDir &folder)
{
    SimulatedDevice device(inFolder(folder.path()));
    QString error;
    device.start(error);
    return error;
}

/// Imports, replaces, moves, renames and deletes; calls \a afterEach after each of them.
void changeFiles(SimBench &bench, const std::function<void()> &afterEach)
{
    const auto move = [&](const char *body) {
        QCOMPARE(bench.write(fileGeneral, body), 0);
    };
    bench.import(2, 1, "one");
    afterEach();
    bench.import(2, 2, "two");
    afterEach();
    bench.import(2, 1, "another one");
    afterEach();
    move(R"([{"fileId":1,"fileType":2,"desFileId":3,"desFileType":2,"general":{"name":"c"}},)"
         R"({"fileId":2,"fileType":2,"desFileId":1,"desFileType":2,"general":{"name":"d"}}])");
    afterEach();
    QCOMPARE(bench.write(fileDelete, R"([{"fileId":1,"fileType":2}])"), 0);
    afterEach();
}

} // namespace

class tst_TavoroSimFolder : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void folderKeepsFilesAcrossRestarts();
    void folderKeepsNamesOfAnyBytes_data();
    void folderKeepsNamesOfAnyBytes();
    void contentsWithoutARowAreRemoved();
    void folderServesOneDevice();
    void damagedDatabaseIsReported();
    void damagedRecordIsReported();
    void otherDatabaseIsRefused();
    void fileWithoutItsContentIsRemoved();
    void replacedContentIsRemoved();
    void folderCopiedBetweenCommandsHoldsTheFilesOfThatMoment();
};

void tst_TavoroSimFolder::folderKeepsFilesAcrossRestarts()
{
    QTemporaryDir folder;
    SimBench bench(inFolder(folder.filePath(QStringLiteral("made/for/it"))));
    bench.import(2, 7, sample);
    bench.import(0, 1, "old");
    bench.import(0, 1, "a");
    const std::string before = bench.list();
    bench.switchOff();
    bench.switchOn();
    QCOMPARE(bench.list(), before);
    QCOMPARE(bench.receive(2, 7).body, sample);
    QCOMPARE(bench.receive(0, 1).body, std::string("a"));
    bench.import(0, 2, "more");
    QCOMPARE(bench.receive(2, 7).body, sample);
}

void tst_TavoroSimFolder::folderKeepsNamesOfAnyBytes_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::newRow("above U+FFFF") << QByteArray("Wall \xF0\x9F\x93\xBA north");
    QTest::newRow("above U+007F") << QByteArray("Nordw\xC3\xA4nde \xE2\x82\xAC");
    QTest::newRow("not UTF-8") << QByteArray("Wall \xFF\x80 north");
    QTest::newRow("control characters") << QByteArray("Wall\x01\x1F\"\\\x7F north");
    QTest::newRow("zero") << QByteArray("Wall\0north", 10);
}

void tst_TavoroSimFolder::folderKeepsNamesOfAnyBytes()
{
    QFETCH(QByteArray, name);
    QTemporaryDir folder;
    QString error;
    s_FileDetail detail;
    detail.fileType = 2;
    detail.fileId = 7;
    detail.general.name = name.toStdString();
    {
        FileStore store;
        QVERIFY2(store.open(folder.path(), error), qPrintable(error));
        FileChanges changes = store.change();
        QVERIFY(store.put(changes, detail, sample));
        QVERIFY(store.commit(changes));
    }
    FileStore store;
    QVERIFY2(store.open(folder.path(), error), qPrintable(error));
    QCOMPARE(int(store.index().size()), 1);
    QCOMPARE(QByteArray::fromStdString(store.index().begin()->second.general.name), name);
}

void tst_TavoroSimFolder::contentsWithoutARowAreRemoved()
{
    QTemporaryDir folder;
    SimBench bench(inFolder(folder.path()));
    bench.import(2, 7, sample);
    bench.switchOff();
    for (const char *const name : {"content-99", "content-2.x1Yz"}) {
        QFile leftover(folder.filePath(QLatin1String(name)));
        QVERIFY(leftover.open(QIODevice::WriteOnly));
    }
    bench.switchOn();
    QCOMPARE(filesIn(folder.path(), "content*"), QStringList(QStringLiteral("content-1")));
}

void tst_TavoroSimFolder::folderServesOneDevice()
{
    QTemporaryDir folder;
    const SimBench bench(inFolder(folder.path()));
    QCOMPARE(openingError(folder),
             QStringLiteral("cannot use %1: another device uses it").arg(databaseIn(folder)));
}

void tst_TavoroSimFolder::damagedDatabaseIsReported()
{
    QTemporaryDir folder;
    QFile database(databaseIn(folder));
    QVERIFY(database.open(QIODevice::WriteOnly));
    database.write(QByteArray(4096, 'x'));
    database.close();
    QCOMPARE(openingError(folder).section(QStringLiteral(": "), 0, 0),
             databaseIn(folder) + QStringLiteral(" is damaged"));
}

void tst_TavoroSimFolder::damagedRecordIsReported()
{
    QTemporaryDir folder;
    {
        SimBench bench(inFolder(folder.path()));
        bench.import(2, 7, sample);
    }
    QVERIFY(runSql(databaseIn(folder), QStringLiteral("UPDATE file SET record = ?"),
                   QByteArray("{\"fileId\":")));
    QCOMPARE(openingError(folder).section(QStringLiteral(": "), 0, 0),
             databaseIn(folder) + QStringLiteral(" is damaged"));
}

void tst_TavoroSimFolder::otherDatabaseIsRefused()
{
    QTemporaryDir folder;
    QVERIFY(runSql(databaseIn(folder), QStringLiteral("CREATE TABLE other (id INTEGER)")));
    QCOMPARE(openingError(folder),
             QStringLiteral("cannot use %1: it was not written by this version of tavorosim")
                 .arg(databaseIn(folder)));
}

void tst_TavoroSimFolder::fileWithoutItsContentIsRemoved()
{
    QTemporaryDir folder;
    SimBench bench(inFolder(folder.path()));
    bench.import(2, 7, sample);
    bench.switchOff();
    QVERIFY(QFile::remove(folder.filePath(QStringLiteral("content-1"))));
    QTest::ignoreMessage(QtWarningMsg, "the content of file 7 of type 2 is missing");
    bench.switchOn();
    QCOMPARE(bench.list(), std::string("[]"));
    bench.switchOff();
    bench.switchOn(); // no further message
    QCOMPARE(bench.list(), std::string("[]"));
}

void tst_TavoroSimFolder::replacedContentIsRemoved()
{
    QTemporaryDir folder;
    SimBench bench(inFolder(folder.path()));
    for (std::size_t i = 0; i < 5; ++i)
        bench.import(2, 7, std::string(i, 'x'));
    QCOMPARE(filesIn(folder.path(), "content-*"), QStringList(QStringLiteral("content-5")));
    bench.switchOff();
    bench.switchOn();
    QCOMPARE(bench.receive(2, 7).body, std::string("xxxx"));
}

void tst_TavoroSimFolder::folderCopiedBetweenCommandsHoldsTheFilesOfThatMoment()
{
    QTemporaryDir folder;
    QTemporaryDir copies[5];
    std::vector<std::string> lists;
    SimBench bench(inFolder(folder.path()));
    changeFiles(bench, [&] {
        copyFiles(folder.path(), copies[lists.size()].path());
        lists.push_back(bench.list());
    });
    QCOMPARE(int(lists.size()), 5);
    for (std::size_t i = 0; i < lists.size(); ++i) {
        SimBench found(inFolder(copies[i].path()));
        QCOMPARE(found.list(), lists[i]);
    }
    QCOMPARE(filesIn(copies[4].path(), "content-*"), QStringList(QStringLiteral("content-3")));
}

QTEST_GUILESS_MAIN(tst_TavoroSimFolder)
#include "tst_tavorosimfolder.moc"
