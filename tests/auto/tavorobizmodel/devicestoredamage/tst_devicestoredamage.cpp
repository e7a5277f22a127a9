#include <support/common/filecontent.h>
#include <support/common/messagecatcher.h>
#include <support/tavorobizmodel/faultyvfs.h>
#include <support/tavorobizmodel/storedstates.h>
#include <support/tavorobizmodel/storefile.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QtTest>

using namespace StoredStates;

namespace {

const QByteArray garbage(5000, 'x');

void damage(const QString &fileName)
{
    QFile damaged(fileName);
    QVERIFY(damaged.open(QIODevice::WriteOnly));
    damaged.write(garbage);
}

/// Damages only the index of the devices. A save finds devices by it; loading does not read it.
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
    QVERIFY(damaged.seek(24)); // the change counter, so that SQLite reads cached pages again
    damaged.write("xxxx");
    QVERIFY(damaged.seek((page - 1) * size));
    damaged.write(QByteArray(100, 'x'));
}

/// A name with room for "-journal" but not for ".damaged-1": file systems on Linux accept at most
/// 255 bytes, also from root.
const QString nameTooLongToBeKept(246, QLatin1Char('n'));

/// The error texts of SQLite for a file that was damaged before and after it was opened.
const QString notADatabase = QStringLiteral("file is not a database Unable to execute statement");
const QString noDatabaseAnyMore = QStringLiteral("file is not a database Unable to fetch row");

} // namespace

/// Store files that are damaged completely or in part, on a disk that may also fail.
class tst_DeviceStoreDamage : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { FaultyVfs::install(); }

    void damagedFileIsReplacedOnceTheDiskHasRoom();
    void damagedIndexIsFoundWhenTheStoreIsOpened();
    void indexDamagedWhileOpenIsCreatedAgain();
    void journalOfADamagedFileIsRenamedWithIt();
    void damagedFileThatCannotBeRenamedIsNotChanged();
    void damagedFileThatCannotBeRenamedFailsSavesUntilItIsGone();
};

void tst_DeviceStoreDamage::damagedFileIsReplacedOnceTheDiskHasRoom()
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

            const StoreSignals caught;
            FaultyVfs::arm(FaultyVfs::Fault::DiskFull, 1);
            saver->saveDevicesInfor(first);
            QTRY_VERIFY(caught.failures.size() >= 2);
            FaultyVfs::arm(FaultyVfs::Fault::DiskFull, number);
            QTRY_VERIFY(caught.saved.size() == 2 || FaultyVfs::operations() >= number);
            FaultyVfs::arm(FaultyVfs::Fault::None, 0);
            QTRY_COMPARE(caught.saved, (Devices{first, second}));
            QCOMPARE(caught.quarantined,
                     QStringList(QStringLiteral("%1 as %1.damaged-1").arg(file)));
        }
        const StoredModel model(file);
        QCOMPARE(model.list->devices().size(), 2);
    }
}

void tst_DeviceStoreDamage::damagedIndexIsFoundWhenTheStoreIsOpened()
{
    const MessageCatcher quiet;
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("devices.sqlite"));
    {
        const StoredModel model(file);
        model.save(deviceIn(New));
    }
    damageIndex(file);
    const StoreSignals caught;
    const StoredModel model(file);
    QVERIFY2(model.isOpen, qPrintable(model.error));
    QVERIFY(model.list->devices().isEmpty());
    QTRY_COMPARE(caught.quarantined, QStringList(QStringLiteral("%1 as %1.damaged-1").arg(file)));
}

void tst_DeviceStoreDamage::indexDamagedWhileOpenIsCreatedAgain()
{
    const MessageCatcher log;
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("devices.sqlite"));
    {
        const StoredModel model(file);
        model.save(deviceIn(Old));
        damageIndex(file);
        const StoreSignals caught;
        model.save(deviceIn(New));
        QCOMPARE(caught.quarantined, QStringList(QStringLiteral("%1 as %1.damaged-1").arg(file)));
        QCOMPARE(caught.failures, QStringList());
    }
    const StoredModel model(file);
    QVERIFY(model.onlyDevice());
    QCOMPARE(stateOf(*model.onlyDevice()), New);
}

void tst_DeviceStoreDamage::journalOfADamagedFileIsRenamedWithIt()
{
    const MessageCatcher quiet;
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("devices.sqlite"));
    damage(file);
    const QByteArray overwritten(
        600, '\0'); // overwrites the header; SQLite does not delete such a journal
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

void tst_DeviceStoreDamage::damagedFileThatCannotBeRenamedIsNotChanged()
{
    const QTemporaryDir folder;
    const QString file = folder.filePath(nameTooLongToBeKept);
    damage(file);
    const StoreSignals caught;
    const MessageCatcher log;
    const StoredModel model(file);
    QVERIFY(!model.isOpen);
    QCOMPARE(model.error, notADatabase);
    QVERIFY(!model.list->saveDeviceDataThread());
    QVERIFY(model.list->devices().isEmpty());
    QCoreApplication::processEvents();
    QCOMPARE(caught.quarantined, QStringList());
    QCOMPARE(log.texts("tavoro.model", QtWarningMsg), QStringList());
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files), QStringList(nameTooLongToBeKept));
    QCOMPARE(contentOf(file), garbage);
}

void tst_DeviceStoreDamage::damagedFileThatCannotBeRenamedFailsSavesUntilItIsGone()
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

        const StoreSignals caught;
        model.list->saveDeviceDataThread()->saveDevicesInfor(first);
        QTRY_VERIFY(caught.failures.size() >= 3);
        const QStringList reasons{noDatabaseAnyMore, notADatabase, notADatabase};
        QCOMPARE(caught.failures.mid(0, 3), reasons);
        QStringList lines = reasons;
        lines.replaceInStrings(QRegularExpression(QStringLiteral("^(.*)$")),
                               QStringLiteral("Saving device data failed: \"\\1\""));
        QCOMPARE(log.texts("tavoro.model", QtWarningMsg).mid(0, 3), lines);
        QCOMPARE(contentOf(file), garbage);
        QVERIFY(caught.saved.isEmpty());

        QVERIFY(QFile::remove(file));
        QTRY_COMPARE(caught.saved, (Devices{first, second}));
        QCOMPARE(caught.quarantined, QStringList());
    }
    const StoredModel model(file);
    QCOMPARE(model.list->devices().size(), 2);
}

QTEST_GUILESS_MAIN(tst_DeviceStoreDamage)
#include "tst_devicestoredamage.moc"
