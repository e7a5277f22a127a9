#include "messagecatcher.h"
#include "storedmodel.h"
#include "storefile.h"

#include <tavorobizmodel/file.h>
#include <tavorobizmodel/interface.h>
#include <tavorobizmodel/layer.h>
#include <tavorobizmodel/mvrscreen.h>
#include <tavorocontrol/proto/codec.h>

#include <QDir>
#include <QFile>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QtTest>

using namespace ModelRecords;
using namespace Tavoro;

namespace {

template <class Record>
std::string text(const Record &record)
{
    std::string json;
    ajson::encodeRecord(record, json);
    return json;
}

/// Looks into a file beside the store.
QStringList query(const QString &fileName, const QString &statement)
{
    return StoreFile(fileName).query(statement);
}

} // namespace

/// Devices that are kept from one run to the next.
class tst_DeviceStore : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();

    void nothingIsTouchedUntilAStoreIsOpened();
    void deviceOfTheLastRunIsOffline();
    void everythingOfADeviceComesBack();
    void onlyChangedRowsAreWritten();
    void goneObjectsAreTakenOut();
    void orderOfTheDeviceIsKept();
    void removedDeviceIsForgotten();
    void devicesThatShareANumberWithTheRemovedOneStay();
    void deviceThatMovedTakesThePlaceOfItsFormerSelf();

    void secondStoreIsRefused();
    void defaultPlaceIsTheApplicationsDataFolder();

    void schemaVersionIsKept();
    void fileOfALaterVersionIsLeftAlone();
    void fileOfAnotherKindIsLeftAlone();
    void damagedFileIsSetAside();
    void fileDamagedWhileItIsOpenIsWrittenAnew();
    void rowThatCannotBeReadCountsAsDamage();
    void folderThatCannotBeMadeIsTold();

private:
    QString file() const { return m_folder->filePath(QStringLiteral("devices.sqlite")); }
    /// Rows that a save of \a device writes into the file.
    QStringList written(const std::shared_ptr<BizModel::Device> &device) const;

    std::unique_ptr<QTemporaryDir> m_folder;
};

void tst_DeviceStore::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
}

QStringList tst_DeviceStore::written(const std::shared_ptr<BizModel::Device> &device) const
{
    const StoreFile store(file());
    store.watchWrites();
    {
        const StoredModel model(file());
        model.save(device);
    }
    const QStringList lines = store.writes();
    store.ignoreWrites();
    return lines;
}

void tst_DeviceStore::nothingIsTouchedUntilAStoreIsOpened()
{
    BizModel::DeviceList::instance()->append(ModelRecords::device());
    QVERIFY(!BizModel::DeviceList::instance()->saveDeviceDataThread());
    BizModel::DeviceList::instance()->remove(BizModel::DeviceList::instance()->devices().first());
    QVERIFY(!QFile::exists(file()));
}

void tst_DeviceStore::deviceOfTheLastRunIsOffline()
{
    const auto device = ModelRecords::device();
    device->setDeviceOnlineFlag(true);
    {
        const StoredModel model(file());
        QVERIFY2(model.isOpen, qPrintable(model.error));
        model.save(device);
    }
    const StoredModel model(file());
    QVERIFY(model.onlyDevice());
    QVERIFY(model.onlyDevice() != device);
    QVERIFY(!model.onlyDevice()->isOnline());
    QCOMPARE(model.list->findDevice(device->IPAddress(), device->MAC(), device->sn()).lock(),
             model.onlyDevice());
}

void tst_DeviceStore::everythingOfADeviceComesBack()
{
    const auto device = ModelRecords::device();
    device->setName(QString::fromUtf8("J\xC3\xBCrgen's \"box\"\\"));
    device->setModelId(0x7701);
    device->setScreenGenlocks({{}});
    QString error;
    device->updateCutoutRGB({1, 2, 3}, error);
    device->setPower({{1, 2, 3}});
    std::dynamic_pointer_cast<BizModel::MVRScreen>(device->findScreen(3, 0).lock())
        ->setRowColSpan({6, 3});
    {
        const StoredModel model(file());
        model.save(device);
    }
    const StoredModel model(file());
    const auto read = model.onlyDevice();
    QVERIFY(read);
    QCOMPARE(read->name(), device->name());
    QCOMPARE(int(read->modelId()), 0x7701);
    QCOMPARE(read->ipMacSn(), device->ipMacSn());
    QCOMPARE(text(read->deviceDetail()), text(device->deviceDetail()));
    QCOMPARE(read->cutoutRGB().B, 3);
    QCOMPARE(text(read->screenGenlocks()), text(device->screenGenlocks()));
    QCOMPARE(read->interfaces().size(), 2);
    QCOMPARE(text(read->interfaces()[0].lock()->detail()),
             text(device->interfaces()[0].lock()->detail()));
    QCOMPARE(read->screens(30).size(), 3);
    QCOMPARE(text(read->screens(30)[0].lock()->detail()),
             text(device->screens(30)[0].lock()->detail()));
    QCOMPARE(read->layers().size(), 2);
    QCOMPARE(text(read->layers()[1].lock()->detail()), text(device->layers()[1].lock()->detail()));
    QCOMPARE(read->files()[0].lock()->detail().binary, std::string("a\0b", 3));
    const auto multiviewer =
        std::dynamic_pointer_cast<BizModel::MVRScreen>(read->findScreen(3, 0).lock());
    QCOMPARE(multiviewer->rowColSpan(), QSize(6, 3));
}

void tst_DeviceStore::onlyChangedRowsAreWritten()
{
    const auto device = ModelRecords::device();
    {
        const StoredModel model(file());
        model.save(device);
    }
    QCOMPARE(written(device), QStringList());
    device->findInterface({2, 0, 0}).lock()->setColorDepth({1, 2});
    QCOMPARE(written(device), QStringList(QStringLiteral("UPDATE 2 2/0/0/0/0")));
    device->setPower({{1, 1, 1}});
    QCOMPARE(written(device), QStringList(QStringLiteral("UPDATE 1 ")));
    QString error;
    device->initModelData(std::vector{ModelRecords::file(2, 5, "other")}, error);
    QCOMPARE(written(device), QStringList(QStringLiteral("UPDATE 5 2/5/0/0/0")));
    const StoredModel model(file());
    const auto read = model.onlyDevice();
    QVERIFY(read);
    QCOMPARE(text(read->deviceDetail()), text(device->deviceDetail()));
    QCOMPARE(text(read->interfaces()[1].lock()->detail()),
             text(device->interfaces()[1].lock()->detail()));
    QCOMPARE(read->files()[0].lock()->detail().binary, std::string("other"));
}

void tst_DeviceStore::goneObjectsAreTakenOut()
{
    const auto device = ModelRecords::device();
    {
        const StoredModel model(file());
        model.save(device);
    }
    QString error;
    device->initModelData(std::vector{layer(1, 0, 1, 0x010203)}, error);
    device->initModelData(std::vector{layer(1, 0, 1, 0x010203), layer(1, 0, 2)}, error);
    const QStringList lines = written(device);
    QVERIFY(lines.contains(QStringLiteral("DELETE 4 1/0/4/1/0")));
    QVERIFY(lines.contains(QStringLiteral("INSERT 4 1/0/4/1/2")));
    const StoredModel model(file());
    QCOMPARE(model.onlyDevice()->layers().size(), 2);
}

void tst_DeviceStore::orderOfTheDeviceIsKept()
{
    const auto device = ModelRecords::device();
    QString error;
    const auto order = [](const BizModel::Device &of) {
        QList<int> ids;
        const auto files = of.files();
        for (const auto &file : files)
            ids.append(file.lock()->detail().fileId);
        return ids;
    };
    device->initModelData(
        std::vector{ModelRecords::file(0, 9), ModelRecords::file(0, 3), ModelRecords::file(0, 5)},
        error);
    {
        const StoredModel model(file());
        model.save(device);
    }
    device->initModelData(std::vector{ModelRecords::file(0, 9), ModelRecords::file(0, 4),
                                      ModelRecords::file(0, 3), ModelRecords::file(0, 5)},
                          error);
    // The new one finds room between its neighbours, which stay as they are.
    QCOMPARE(written(device), QStringList(QStringLiteral("INSERT 5 0/4/0/0/0")));
    device->initModelData(std::vector{ModelRecords::file(0, 5), ModelRecords::file(0, 9)}, error);
    QVERIFY(!written(device).isEmpty());
    const StoredModel model(file());
    QCOMPARE(order(*model.onlyDevice()), (QList<int>{5, 9}));
}

void tst_DeviceStore::removedDeviceIsForgotten()
{
    {
        const StoredModel model(file());
        model.save(ModelRecords::device());
    }
    {
        const StoredModel model(file());
        QVERIFY(model.list->remove(model.onlyDevice()));
    }
    const StoredModel model(file());
    QVERIFY(model.list->devices().isEmpty());
    QCOMPARE(query(file(), QStringLiteral("SELECT count(*) FROM record")),
             QStringList(QStringLiteral("0")));
}

void tst_DeviceStore::devicesThatShareANumberWithTheRemovedOneStay()
{
    const auto sharing = [](quint8 sn, quint8 mac, quint8 address) {
        const auto device = ModelRecords::device(address);
        ProtoModel::DeviceBaseInfo info;
        info.sn[7] = sn;
        info.mac[5] = mac;
        device->updateDeviceBaseInfo(info);
        return device;
    };
    {
        const StoredModel model(file());
        const auto gone = sharing(1, 1, 1);
        for (const auto &device : {gone, sharing(1, 2, 2), sharing(2, 1, 3)}) {
            model.list->append(device);
            model.save(device);
        }
        QVERIFY(model.list->remove(gone));
    }
    const StoredModel model(file());
    QCOMPARE(model.list->devices().size(), 2);
    for (const auto &device : model.list->devices())
        QCOMPARE(device.lock()->interfaces().size(), 2);
}

void tst_DeviceStore::deviceThatMovedTakesThePlaceOfItsFormerSelf()
{
    {
        const StoredModel model(file());
        model.save(ModelRecords::device());
    }
    const StoredModel model(file());
    const auto moved = ModelRecords::device();
    moved->setIPAddress(QStringLiteral("198.51.100.7"));
    model.list->append(moved);
    QCOMPARE(model.onlyDevice(), moved);
}

void tst_DeviceStore::secondStoreIsRefused()
{
    const StoredModel model(file());
    const StoredModel second(m_folder->filePath(QStringLiteral("other.sqlite")));
    QVERIFY(!second.isOpen);
    QCOMPARE(second.error, QStringLiteral("A store of devices is open already."));
}

void tst_DeviceStore::defaultPlaceIsTheApplicationsDataFolder()
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

void tst_DeviceStore::schemaVersionIsKept()
{
    {
        const StoredModel model(file());
    }
    QCOMPARE(query(file(), QStringLiteral("PRAGMA user_version")),
             QStringList(QStringLiteral("1")));
}

void tst_DeviceStore::fileOfALaterVersionIsLeftAlone()
{
    {
        const StoredModel model(file());
    }
    query(file(), QStringLiteral("PRAGMA user_version = 2"));
    const StoredModel model(file());
    QVERIFY(!model.isOpen);
    QCOMPARE(model.error,
             QStringLiteral("The file %1 was written by a later version.").arg(file()));
    QVERIFY(!model.list->saveDeviceDataThread());
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files).size(), 1);
}

void tst_DeviceStore::fileOfAnotherKindIsLeftAlone()
{
    query(file(), QStringLiteral("CREATE TABLE recipes (title TEXT)"));
    const StoredModel model(file());
    QVERIFY(!model.isOpen);
    QCOMPARE(model.error, QStringLiteral("The file %1 is no store of devices.").arg(file()));
}

void tst_DeviceStore::damagedFileIsSetAside()
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

void tst_DeviceStore::fileDamagedWhileItIsOpenIsWrittenAnew()
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

void tst_DeviceStore::rowThatCannotBeReadCountsAsDamage()
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

void tst_DeviceStore::folderThatCannotBeMadeIsTold()
{
    QFile inTheWay(file());
    QVERIFY(inTheWay.open(QIODevice::WriteOnly));
    const StoredModel model(file() + QStringLiteral("/below.sqlite"));
    QVERIFY(!model.isOpen);
    QVERIFY(!model.error.isEmpty());
}

QTEST_GUILESS_MAIN(tst_DeviceStore)
#include "tst_devicestore.moc"
