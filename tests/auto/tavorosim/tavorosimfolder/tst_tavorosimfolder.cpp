// The folder in which a simulated device keeps its files from run to run.

#include <support/tavorosim/simbench.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>

#include <functional>
#include <vector>

using Tavoro::Sim::SimOptions;
using Tavoro::Sim::SimulatedDevice;

namespace {

constexpr quint16 fileDelete = 0xFA01;
constexpr quint16 fileGeneral = 0xFA02;

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

/// What lies in \a folder, for a device of its own.
void copyFiles(const QString &folder, const QString &to, const char *pattern = "*")
{
    for (const QString &name : filesIn(folder, pattern)) {
        if (name != QStringLiteral("lock"))
            QVERIFY(QFile::copy(QDir(folder).filePath(name), QDir(to).filePath(name)));
    }
}

/// What a device lists and holds that finds \a folder.
std::string filesOf(const QString &folder)
{
    SimBench bench(inFolder(folder));
    std::string files = bench.list();
    for (const quint8 id : {quint8(1), quint8(2), quint8(3)})
        files += bench.receive(2, id).body;
    return files;
}

/// Imports, replaces, moves, renames and deletes; \a behindEach is called behind each of them.
void changeFiles(SimBench &bench, const std::function<void()> &behindEach)
{
    const auto move = [&](const char *body) {
        QCOMPARE(bench.write(fileGeneral, body), 0);
    };
    bench.import(2, 1, "one");
    behindEach();
    bench.import(2, 2, "two");
    behindEach();
    bench.import(2, 1, "another one");
    behindEach();
    move(R"([{"fileId":1,"fileType":2,"desFileId":3,"desFileType":2,"general":{"name":"c"}},)"
         R"({"fileId":2,"fileType":2,"desFileId":1,"desFileType":2,"general":{"name":"d"}}])");
    behindEach();
    QCOMPARE(bench.write(fileDelete, R"([{"fileId":1,"fileType":2}])"), 0);
    behindEach();
}

} // namespace

class tst_TavoroSimFolder : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aFolderKeepsFilesAcrossRestarts();
    void aFolderForgetsWhatWasCutOff();
    void aFolderServesOneDevice();
    void aDamagedFolderIsToldInASentence();
    void aLostContentIsNotListed();
    void anImportWritesWhatItChangesOnly();
    void manyChangesAreTakenIntoTheIndex();
    void whateverWasCutOffTheFilesAreThoseOfTheLastChange();
    void changesThatAreLeftBesideTheIndexChangeNothing();
    void aDamagedChangeIsToldInASentence();
};

void tst_TavoroSimFolder::aFolderKeepsFilesAcrossRestarts()
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

void tst_TavoroSimFolder::aFolderForgetsWhatWasCutOff()
{
    QTemporaryDir folder;
    SimBench bench(inFolder(folder.path()));
    bench.import(2, 7, sample);
    bench.switchOff();
    QFile leftover(folder.filePath(QStringLiteral("content-99.x1Yz")));
    QVERIFY(leftover.open(QIODevice::WriteOnly));
    leftover.close();
    QFile change(folder.filePath(QStringLiteral("change-2.json.a0Bc")));
    QVERIFY(change.open(QIODevice::WriteOnly));
    change.close();
    bench.switchOn();
    const QStringList names = QDir(folder.path()).entryList(QDir::Files, QDir::Name);
    QCOMPARE(names,
             QStringList({QStringLiteral("content-1"), QStringLiteral("index.json"),
                          QStringLiteral("lock")}));
}

void tst_TavoroSimFolder::aFolderServesOneDevice()
{
    QTemporaryDir folder;
    SimBench bench(inFolder(folder.path()));
    SimulatedDevice second(bench.options);
    QString error;
    QVERIFY(!second.start(error));
    QCOMPARE(error,
             QStringLiteral("the folder %1 is in use or cannot be written").arg(folder.path()));
}

void tst_TavoroSimFolder::aDamagedFolderIsToldInASentence()
{
    QTemporaryDir folder;
    QFile index(folder.filePath(QStringLiteral("index.json")));
    QVERIFY(index.open(QIODevice::WriteOnly));
    index.write("[{");
    index.close();
    SimulatedDevice device(inFolder(folder.path()));
    QString error;
    QVERIFY(!device.start(error));
    QVERIFY2(error.startsWith(index.fileName() + QStringLiteral(" is damaged: ")),
             qPrintable(error));
}

void tst_TavoroSimFolder::aLostContentIsNotListed()
{
    QTemporaryDir folder;
    SimBench bench(inFolder(folder.path()));
    bench.import(2, 7, sample);
    bench.switchOff();
    QVERIFY(QFile::remove(folder.filePath(QStringLiteral("content-1"))));
    QTest::ignoreMessage(QtWarningMsg, "the content of file 7 of type 2 is lost");
    bench.switchOn();
    QCOMPARE(bench.list(), std::string("[]"));
}

void tst_TavoroSimFolder::anImportWritesWhatItChangesOnly()
{
    QTemporaryDir folder;
    SimBench bench(inFolder(folder.path()));
    for (int id = 0; id < 60; ++id)
        bench.import(2, id, "a");
    QCOMPARE(filesIn(folder.path(), "index*"), QStringList());
    const QStringList changes = filesIn(folder.path(), "change-*");
    QCOMPARE(changes.size(), 60);
    for (const QString &change : changes)
        QVERIFY(QFileInfo(folder.filePath(change)).size() < 400);
    const std::string before = bench.list();
    bench.switchOff();
    bench.switchOn();
    QCOMPARE(bench.list(), before);
    QCOMPARE(filesIn(folder.path(), "change-*"), QStringList());
    QCOMPARE(filesIn(folder.path(), "index*"), QStringList(QStringLiteral("index.json")));
}

void tst_TavoroSimFolder::manyChangesAreTakenIntoTheIndex()
{
    QTemporaryDir folder;
    SimBench bench(inFolder(folder.path()));
    for (int i = 0; i < 68; ++i)
        bench.import(2, 7, std::string(static_cast<std::size_t>(i), 'x'));
    QCOMPARE(filesIn(folder.path(), "change-*"),
             (QStringList{QStringLiteral("change-66.json"), QStringLiteral("change-67.json"),
                          QStringLiteral("change-68.json")}));
    QCOMPARE(filesIn(folder.path(), "content-*"), QStringList(QStringLiteral("content-68")));
    bench.switchOff();
    bench.switchOn();
    QCOMPARE(bench.receive(2, 7).body, std::string(67, 'x'));
}

void tst_TavoroSimFolder::whateverWasCutOffTheFilesAreThoseOfTheLastChange()
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

/// As when the changes were being removed after they had been taken into the index.
void tst_TavoroSimFolder::changesThatAreLeftBesideTheIndexChangeNothing()
{
    QTemporaryDir folder;
    QTemporaryDir changes;
    SimBench bench(inFolder(folder.path()));
    changeFiles(bench, [] {});
    copyFiles(folder.path(), changes.path(), "change-*");
    bench.switchOff();
    bench.switchOn();
    bench.switchOff();
    const std::string expected = filesOf(folder.path());
    QVERIFY(expected.find("another one") != std::string::npos);
    const QStringList names = filesIn(changes.path(), "change-*");
    QCOMPARE(names.size(), 5);
    for (const QString &removed : names) {
        QTemporaryDir cutOff;
        copyFiles(folder.path(), cutOff.path());
        copyFiles(changes.path(), cutOff.path());
        QCOMPARE(filesOf(cutOff.path()), expected);
        QCOMPARE(filesIn(cutOff.path(), "change-*"), QStringList());
        QVERIFY(QFile::remove(changes.filePath(removed)));
    }
}

void tst_TavoroSimFolder::aDamagedChangeIsToldInASentence()
{
    QTemporaryDir folder;
    QFile change(folder.filePath(QStringLiteral("change-1.json")));
    QVERIFY(change.open(QIODevice::WriteOnly));
    change.write("{\"placed\":[{");
    change.close();
    SimulatedDevice device(inFolder(folder.path()));
    QString error;
    QVERIFY(!device.start(error));
    QVERIFY2(error.startsWith(change.fileName() + QStringLiteral(" is damaged: ")),
             qPrintable(error));
}

QTEST_GUILESS_MAIN(tst_TavoroSimFolder)
#include "tst_tavorosimfolder.moc"
