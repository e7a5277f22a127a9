#include <support/common/messagecatcher.h>
#include <support/tavorobizmodel/storedmodel.h>
#include <support/tavorobizmodel/storefolder.h>

#include <QDir>
#include <QFile>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QtTest>

using namespace Tavoro;

/// Where the file of a store lies, and files that are not, or no longer, what a store reads.
class tst_DeviceStoreFile : public QObject, private StoreFolder {
    Q_OBJECT

private Q_SLOTS:
    void init();

    void secondStoreIsRefused();
    void defaultPlaceIsTheApplicationsDataFolder();
    void folderThatCannotBeMadeIsTold();

    void schemaVersionIsKept();
    void rowIsTheRecordInItsOwnFormat();
    void fileOfALaterVersionIsLeftAlone();
    void fileOfAnEarlierVersionIsSetAside();
    void fileOfAnotherKindIsLeftAlone();

    void damagedFileIsSetAside();
    void fileDamagedWhileItIsOpenIsWrittenAnew();
    void rowThatCannotBeReadCountsAsDamage();
};

void tst_DeviceStoreFile::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
}

void tst_DeviceStoreFile::secondStoreIsRefused()
{
    const StoredModel model(file());
    const StoredModel second(m_folder->filePath(QStringLiteral("other.sqlite")));
    QVERIFY(!second.isOpen);
    QCOMPARE(second.error, QStringLiteral("A store of devices is open already."));
}

void tst_DeviceStoreFile::defaultPlaceIsTheApplicationsDataFolder()
{
    QStandardPaths::setTestModeEnabled(true);
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
    {
        const StoredModel model((QString()));
        QVERIFY2(model.isOpen, qPrintable(model.error));
        QVERIFY(QFile::exists(folder + QStringLiteral("/devices.sqlite")));
    }
    QDir(folder).removeRecursively();
    QStandardPaths::setTestModeEnabled(false);
}

void tst_DeviceStoreFile::folderThatCannotBeMadeIsTold()
{
    QFile inTheWay(file());
    QVERIFY(inTheWay.open(QIODevice::WriteOnly));
    const StoredModel model(file() + QStringLiteral("/below.sqlite"));
    QVERIFY(!model.isOpen);
    QVERIFY(!model.error.isEmpty());
}

void tst_DeviceStoreFile::schemaVersionIsKept()
{
    {
        const StoredModel model(file());
    }
    QCOMPARE(query(file(), QStringLiteral("PRAGMA user_version")),
             QStringList(QStringLiteral("2")));
}

void tst_DeviceStoreFile::rowIsTheRecordInItsOwnFormat()
{
    const auto device = ModelRecords::device();
    QString error;
    device->updateCutoutRGB({1, -2, 300}, error);
    {
        const StoredModel model(file());
        model.save(device);
    }
    QCOMPARE(query(file(), QStringLiteral("SELECT hex(body) FROM record WHERE kind = 7")),
             QStringList(QStringLiteral("01"
                                        "72"
                                        "01527501"
                                        "01476E01"
                                        "014275AC02"
                                        "00")));
}

void tst_DeviceStoreFile::fileOfALaterVersionIsLeftAlone()
{
    {
        const StoredModel model(file());
    }
    query(file(), QStringLiteral("PRAGMA user_version = 3"));
    const StoredModel model(file());
    QVERIFY(!model.isOpen);
    QCOMPARE(model.error,
             QStringLiteral("The file %1 was written by a later version.").arg(file()));
    QVERIFY(!model.list->saveDeviceDataThread());
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files).size(), 1);
}

void tst_DeviceStoreFile::fileOfAnEarlierVersionIsSetAside()
{
    {
        const StoredModel model(file());
    }
    query(file(), QStringLiteral("PRAGMA user_version = 1"));
    const MessageCatcher quiet;
    const StoreSignals caught;
    const StoredModel model(file());
    QVERIFY2(model.isOpen, qPrintable(model.error));
    QTRY_COMPARE(caught.setAside, QStringList(QStringLiteral("%1 as %1.damaged-1").arg(file())));
}

void tst_DeviceStoreFile::fileOfAnotherKindIsLeftAlone()
{
    query(file(), QStringLiteral("CREATE TABLE recipes (title TEXT)"));
    const StoredModel model(file());
    QVERIFY(!model.isOpen);
    QCOMPARE(model.error, QStringLiteral("The file %1 is no store of devices.").arg(file()));
}

void tst_DeviceStoreFile::damagedFileIsSetAside()
{
    const QByteArray garbage(5000, 'x');
    for (const char *kept : {"/devices.sqlite.damaged-1", "/devices.sqlite.damaged-2"}) {
        QFile damaged(file());
        QVERIFY(damaged.open(QIODevice::WriteOnly));
        damaged.write(garbage);
        damaged.close();
        const StoreSignals told;
        const MessageCatcher log;
        const StoredModel model(file());
        QVERIFY2(model.isOpen, qPrintable(model.error));
        const QString keptAs = m_folder->path() + QLatin1String(kept);
        QTRY_COMPARE(told.setAside, QStringList(file() + QStringLiteral(" as ") + keptAs));
        QCOMPARE(log.texts("tavoro.model", QtWarningMsg).size(), 1);
        QFile aside(keptAs);
        QVERIFY(aside.open(QIODevice::ReadOnly));
        QCOMPARE(aside.readAll(), garbage);
        model.save(ModelRecords::device());
    }
}

void tst_DeviceStoreFile::fileDamagedWhileItIsOpenIsWrittenAnew()
{
    const MessageCatcher quiet;
    {
        const StoredModel model(file());
        const auto first = ModelRecords::device(1);
        const auto second = ModelRecords::device(2);
        model.list->append(first);
        model.list->append(second);
        model.save(first);
        model.save(second);
        QFile damaged(file());
        QVERIFY(damaged.open(QIODevice::WriteOnly));
        damaged.write(QByteArray(5000, 'x'));
        damaged.close();

        const StoreSignals told;
        model.list->saveDeviceDataThread()->saveDevicesInfor(first);
        QTRY_COMPARE(told.saved, (QList<std::shared_ptr<BizModel::Device>>{first, second}));
        QCOMPARE(told.setAside, QStringList(QStringLiteral("%1 as %1.damaged-1").arg(file())));
        QCOMPARE(told.failures, QStringList());
    }
    const StoredModel model(file());
    QCOMPARE(model.list->devices().size(), 2);
}

void tst_DeviceStoreFile::rowThatCannotBeReadCountsAsDamage()
{
    {
        const StoredModel model(file());
        model.save(ModelRecords::device(1));
        model.save(ModelRecords::device(2));
    }
    query(file(), QStringLiteral("UPDATE record SET body = '[' WHERE kind = 3 AND device = 2"));
    const StoreSignals told;
    const StoredModel model(file());
    QVERIFY(model.isOpen);
    QTRY_COMPARE(told.setAside.size(), 1);
    QVERIFY(model.list->devices().isEmpty());
}

QTEST_GUILESS_MAIN(tst_DeviceStoreFile)
#include "tst_devicestorefile.moc"
