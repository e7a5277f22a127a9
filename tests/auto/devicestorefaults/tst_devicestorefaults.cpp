#include "faultyvfs.h"
#include "messagecatcher.h"
#include "storedstates.h"
#include "storefile.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QtTest>

#include <cstdio>

using namespace StoredStates;

namespace {

/// What a child process does: saves the new state and is killed at the \a number-th operation.
/// Prints the count of operations when it outlives that.
int saveAsChild(const QString &fileName, FaultyVfs::Fault fault, int number)
{
    StoredModel model(fileName);
    const auto changed = deviceIn(New);
    FaultyVfs::arm(fault, number);
    model.save(changed);
    std::printf("%d\n", FaultyVfs::operations());
    return 0;
}

/// What another does: asks for a save of the new state, and ends without closing the store.
int leaveAsChild(const QString &fileName)
{
    auto *const list = Tavoro::BizModel::DeviceList::instance();
    Tavoro::BizModel::s_DeviceStoreOptions options;
    options.fileName = fileName;
    QString error;
    if (!list->openDeviceStore(options, error))
        return 1;
    list->saveDeviceDataThread()->saveDevicesInfor(list->append(deviceIn(New)));
    return 0;
}

const QByteArray garbage(5000, 'x');

void damage(const QString &fileName)
{
    QFile damaged(fileName);
    QVERIFY(damaged.open(QIODevice::WriteOnly));
    damaged.write(garbage);
}

/// Only the index of the devices, by which a save finds them and which loading does not read.
void damageIndex(const QString &fileName)
{
    const StoreFile store(fileName);
    const auto number = [&](const char *statement) {
        return store.query(QLatin1String(statement)).value(0).toLongLong();
    };
    const qint64 size = number("PRAGMA page_size");
    const qint64 page = number("SELECT rootpage FROM sqlite_master WHERE type = 'index'"
                               " AND tbl_name = 'device'");
    QVERIFY(page > 1);
    QFile damaged(fileName);
    QVERIFY(damaged.open(QIODevice::ReadWrite));
    QVERIFY(damaged.seek(24)); // the count of changes, so that nobody trusts what was read before
    damaged.write("xxxx");
    QVERIFY(damaged.seek((page - 1) * size));
    damaged.write(QByteArray(100, 'x'));
}

QByteArray contentOf(const QString &fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// A name with room for "-journal" but not for ".damaged-1": no file system of Linux takes more
/// than 255 bytes, whoever asks.
const QString nameTooLongToBeKept(246, QLatin1Char('n'));

/// What SQLite says of a file of garbage when it is opened, and when it was open.
const QString notADatabase = QStringLiteral("file is not a database Unable to execute statement");
const QString noDatabaseAnyMore = QStringLiteral("file is not a database Unable to fetch row");

} // namespace

/// A disk that fails, and a process that ends in the middle of a save.
class tst_DeviceStoreFaults : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void killedSaveLeavesTheLastCompleteOne_data();
    void killedSaveLeavesTheLastCompleteOne();
    void endOfTheApplicationDoesTheSaves();
    void fullDiskIsToldAndTriedAgain();
    void failedSaveWaitsForItsTimeOrTheEnd();
    void fullDiskLeavesTheLastCompleteSave();
    void damagedFileIsReplacedOnceTheDiskHasRoom();
    void damageThatLoadingDoesNotMeetIsFound();
    void indexDamagedWhileItIsOpenIsWrittenAnew();
    void journalOfADamagedFileGoesWithIt();
    void fileThatCanOnlyBeReadIsRefused();
    void damagedFileThatCannotBeRenamedIsLeftAlone();
    void damagedFileThatCannotBeRenamedFailsSavesUntilItIsGone();
};

void tst_DeviceStoreFaults::killedSaveLeavesTheLastCompleteOne_data()
{
    QTest::addColumn<int>("fault");
    QTest::newRow("between operations") << int(FaultyVfs::Fault::Kill);
    QTest::newRow("within a write") << int(FaultyVfs::Fault::KillHalfway);
}

void tst_DeviceStoreFaults::killedSaveLeavesTheLastCompleteOne()
{
    QFETCH(int, fault);
    const QTemporaryDir folder;
    int last = Old;
    int killed = 0;
    for (int number = 1;; ++number) {
        const QString file = folder.filePath(QStringLiteral("%1.sqlite").arg(number));
        {
            const StoredModel model(file);
            model.save(deviceIn(Old));
        }
        QProcess child;
        child.start(
            QCoreApplication::applicationFilePath(),
            {QStringLiteral("--save"), file, QString::number(fault), QString::number(number)});
        QVERIFY(child.waitForFinished());
        const bool isKilled = child.exitStatus() == QProcess::CrashExit;
        killed += isKilled;

        const StoreSignals told;
        const StoredModel model(file);
        QVERIFY2(model.isOpen, qPrintable(model.error));
        QCoreApplication::processEvents();
        QCOMPARE(told.setAside, QStringList());
        QVERIFY(model.onlyDevice());
        const State state = stateOf(*model.onlyDevice());
        QVERIFY2(state == Old || state == New, qPrintable(QString::number(number)));
        QVERIFY(state >= last); // once a save is complete, it is there at every later moment
        last = state;
        const int operations = child.readAllStandardOutput().trimmed().toInt();
        if (!isKilled && number > operations)
            break;
    }
    QCOMPARE(last, int(New));
    QVERIFY(killed > 10);
}

void tst_DeviceStoreFaults::endOfTheApplicationDoesTheSaves()
{
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("devices.sqlite"));
    QProcess child;
    child.start(QCoreApplication::applicationFilePath(), {QStringLiteral("--leave"), file});
    QVERIFY(child.waitForFinished());
    QCOMPARE(child.exitStatus(), QProcess::NormalExit);
    QCOMPARE(child.exitCode(), 0);
    QCOMPARE(child.readAllStandardError(), QByteArray()); // nothing of the store is left open
    const StoredModel model(file);
    QVERIFY(model.onlyDevice());
    QCOMPARE(stateOf(*model.onlyDevice()), New);
}

void tst_DeviceStoreFaults::fullDiskIsToldAndTriedAgain()
{
    const QTemporaryDir folder;
    const StoredModel model(folder.filePath(QStringLiteral("devices.sqlite")), 20);
    const StoreSignals told;
    const auto changed = deviceIn(New);
    FaultyVfs::arm(FaultyVfs::Fault::DiskFull, 1);
    model.list->saveDeviceDataThread()->saveDevicesInfor(changed);
    const auto other = ModelRecords::device(2);
    model.list->saveDeviceDataThread()->saveDevicesInfor(other);
    QTRY_VERIFY(told.failures.size() >= 2);
    QVERIFY(told.failures[0].contains(QStringLiteral("full")));
    QVERIFY(told.saved.isEmpty());
    FaultyVfs::arm(FaultyVfs::Fault::None, 0);
    QTRY_COMPARE(told.saved, (QList<std::shared_ptr<StoredModel::Device>>{changed, other}));
}

void tst_DeviceStoreFaults::failedSaveWaitsForItsTimeOrTheEnd()
{
    const MessageCatcher quiet;
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("devices.sqlite"));
    const auto changed = deviceIn(New);
    {
        const StoredModel model(file, 600000);
        const StoreSignals told;
        FaultyVfs::arm(FaultyVfs::Fault::DiskFull, 1);
        model.list->saveDeviceDataThread()->saveDevicesInfor(changed);
        QTRY_COMPARE(told.failures.size(), 1);
        FaultyVfs::arm(FaultyVfs::Fault::None, 0);
        QTest::qWait(100); // time for a saver that does not wait
        QCOMPARE(told.failures.size(), 1);
        QCOMPARE(FaultyVfs::operations(), 0);
    }
    const StoredModel model(file);
    QVERIFY(model.onlyDevice());
    QCOMPARE(stateOf(*model.onlyDevice()), New);
}

void tst_DeviceStoreFaults::fullDiskLeavesTheLastCompleteSave()
{
    const MessageCatcher quiet;
    const QTemporaryDir folder;
    int failed = 0;
    int operations = 1; // those of a save, from the first round on
    for (int number = 0; number <= operations; ++number) {
        const QString file = folder.filePath(QStringLiteral("%1.sqlite").arg(number));
        const StoreSignals told;
        {
            const StoredModel model(file);
            model.save(deviceIn(Old));
            QTRY_COMPARE(told.saved.size(), 1);
            const auto changed = deviceIn(New);
            FaultyVfs::arm(number ? FaultyVfs::Fault::DiskFull : FaultyVfs::Fault::None, number);
            model.list->saveDeviceDataThread()->saveDevicesInfor(changed);
            QTRY_COMPARE(told.saved.size() + told.failures.size(), 2);
            operations = number ? operations : FaultyVfs::operations();
            model.list->saveDeviceDataThread()->setTemporaryStop(true); // no second try at the end
        }
        FaultyVfs::arm(FaultyVfs::Fault::None, 0);
        const StoredModel model(file);
        model.list->saveDeviceDataThread()->setTemporaryStop(false);
        QVERIFY(model.onlyDevice());
        const State expected = told.failures.isEmpty() ? New : Old;
        QVERIFY2(stateOf(*model.onlyDevice()) == expected, qPrintable(QString::number(number)));
        failed += expected == Old;
    }
    QVERIFY(failed > 3);
}

void tst_DeviceStoreFaults::damagedFileIsReplacedOnceTheDiskHasRoom()
{
    const MessageCatcher quiet;
    const QTemporaryDir folder;
    using Devices = QList<std::shared_ptr<StoredModel::Device>>;
    const auto first = ModelRecords::device(1);
    const auto second = ModelRecords::device(2);
    // After the failures, the disk has room for some operations, then for all.
    for (int number = 1; number < 40; number += 6) {
        const QString file = folder.filePath(QStringLiteral("%1.sqlite").arg(number));
        {
            const StoredModel model(file, 20);
            auto *const saver = model.list->saveDeviceDataThread();
            model.list->append(first);
            model.list->append(second);
            model.save(first);
            model.save(second);
            damage(file);

            const StoreSignals told;
            FaultyVfs::arm(FaultyVfs::Fault::DiskFull, 1);
            saver->saveDevicesInfor(first);
            QTRY_VERIFY(told.failures.size() >= 2);
            FaultyVfs::arm(FaultyVfs::Fault::DiskFull, number);
            QTRY_VERIFY(told.saved.size() == 2 || FaultyVfs::operations() >= number);
            FaultyVfs::arm(FaultyVfs::Fault::None, 0);
            QTRY_COMPARE(told.saved, (Devices{first, second}));
            QCOMPARE(told.setAside, QStringList(QStringLiteral("%1 as %1.damaged-1").arg(file)));
        }
        const StoredModel model(file);
        QCOMPARE(model.list->devices().size(), 2);
    }
}

void tst_DeviceStoreFaults::damageThatLoadingDoesNotMeetIsFound()
{
    const MessageCatcher quiet;
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("devices.sqlite"));
    {
        const StoredModel model(file);
        model.save(deviceIn(New));
    }
    damageIndex(file);
    const StoreSignals told;
    const StoredModel model(file);
    QVERIFY2(model.isOpen, qPrintable(model.error));
    QVERIFY(model.list->devices().isEmpty());
    QTRY_COMPARE(told.setAside, QStringList(QStringLiteral("%1 as %1.damaged-1").arg(file)));
}

void tst_DeviceStoreFaults::indexDamagedWhileItIsOpenIsWrittenAnew()
{
    const MessageCatcher log;
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("devices.sqlite"));
    {
        const StoredModel model(file);
        model.save(deviceIn(Old));
        damageIndex(file);
        const StoreSignals told;
        model.save(deviceIn(New));
        QCOMPARE(told.setAside, QStringList(QStringLiteral("%1 as %1.damaged-1").arg(file)));
        QCOMPARE(told.failures, QStringList());
    }
    const StoredModel model(file);
    QVERIFY(model.onlyDevice());
    QCOMPARE(stateOf(*model.onlyDevice()), New);
}

void tst_DeviceStoreFaults::journalOfADamagedFileGoesWithIt()
{
    const MessageCatcher quiet;
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("devices.sqlite"));
    damage(file);
    const QByteArray overwritten(600, '\0'); // its head; SQLite leaves such a journal where it is
    QFile journal(file + QStringLiteral("-journal"));
    QVERIFY(journal.open(QIODevice::WriteOnly));
    journal.write(overwritten);
    journal.close();
    const StoredModel model(file);
    QVERIFY2(model.isOpen, qPrintable(model.error));
    QVERIFY(!journal.exists());
    QCOMPARE(contentOf(file + QStringLiteral(".damaged-1")), garbage);
    QCOMPARE(contentOf(file + QStringLiteral(".damaged-1-journal")), overwritten);
}

void tst_DeviceStoreFaults::fileThatCanOnlyBeReadIsRefused()
{
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("devices.sqlite"));
    {
        const StoredModel model(file);
        model.save(deviceIn(New));
    }
    const QByteArray before = contentOf(file);
    FaultyVfs::arm(FaultyVfs::Fault::ReadOnly, 0);
    {
        const StoredModel model(file);
        FaultyVfs::arm(FaultyVfs::Fault::None, 0);
        QVERIFY(!model.isOpen);
        QCOMPARE(model.error,
                 QStringLiteral("attempt to write a readonly database Unable to fetch row"));
        QVERIFY(model.list->devices().isEmpty());
    }
    QCOMPARE(contentOf(file), before);
    const StoredModel model(file);
    QVERIFY(model.onlyDevice());
}

void tst_DeviceStoreFaults::damagedFileThatCannotBeRenamedIsLeftAlone()
{
    const QTemporaryDir folder;
    const QString file = folder.filePath(nameTooLongToBeKept);
    damage(file);
    const StoreSignals told;
    const MessageCatcher log;
    const StoredModel model(file);
    QVERIFY(!model.isOpen);
    QCOMPARE(model.error, notADatabase);
    QVERIFY(!model.list->saveDeviceDataThread());
    QVERIFY(model.list->devices().isEmpty());
    QCoreApplication::processEvents();
    QCOMPARE(told.setAside, QStringList());
    QCOMPARE(log.texts("tavoro.model", QtWarningMsg), QStringList());
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files), QStringList(nameTooLongToBeKept));
    QCOMPARE(contentOf(file), garbage);
}

void tst_DeviceStoreFaults::damagedFileThatCannotBeRenamedFailsSavesUntilItIsGone()
{
    const QTemporaryDir folder;
    const QString file = folder.filePath(nameTooLongToBeKept);
    using Devices = QList<std::shared_ptr<StoredModel::Device>>;
    const auto first = ModelRecords::device(1);
    const auto second = ModelRecords::device(2);
    {
        const MessageCatcher log;
        const StoredModel model(file, 20);
        model.list->append(first);
        model.list->append(second);
        model.save(first);
        damage(file);

        const StoreSignals told;
        model.list->saveDeviceDataThread()->saveDevicesInfor(first);
        QTRY_VERIFY(told.failures.size() >= 3);
        const QStringList reasons{noDatabaseAnyMore, notADatabase, notADatabase};
        QCOMPARE(told.failures.mid(0, 3), reasons);
        QStringList lines = reasons;
        lines.replaceInStrings(QRegularExpression(QStringLiteral("^(.*)$")),
                               QStringLiteral("Saving device data failed: \"\\1\""));
        QCOMPARE(log.texts("tavoro.model", QtWarningMsg).mid(0, 3), lines);
        QCOMPARE(contentOf(file), garbage);
        QVERIFY(told.saved.isEmpty());

        QVERIFY(QFile::remove(file));
        QTRY_COMPARE(told.saved, (Devices{first, second}));
        QCOMPARE(told.setAside, QStringList());
    }
    const StoredModel model(file);
    QCOMPARE(model.list->devices().size(), 2);
}

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    FaultyVfs::install();
    const QStringList arguments = application.arguments();
    if (arguments.size() == 5 && arguments[1] == QLatin1String("--save"))
        return saveAsChild(arguments[2], FaultyVfs::Fault(arguments[3].toInt()),
                           arguments[4].toInt());
    if (arguments.size() == 3 && arguments[1] == QLatin1String("--leave"))
        return leaveAsChild(arguments[2]);
    tst_DeviceStoreFaults test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_devicestorefaults.moc"
