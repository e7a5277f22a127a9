#include <support/tavorobizmodel/storedmodel.h>
#include <support/tavorobizmodel/storefile.h>
#include <support/tavorobizmodel/storefolder.h>

#include <tavorobizmodel/file.h>
#include <tavorobizmodel/interface.h>
#include <tavorobizmodel/layer.h>
#include <tavorobizmodel/mvrscreen.h>
#include <tavorocontrol/proto/codec.h>

#include <QFile>
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

} // namespace

/// Devices that the store keeps from one run to the next.
class tst_DeviceStore : public QObject, private StoreFolder {
    Q_OBJECT

private Q_SLOTS:
    void init();

    void nothingIsTouchedUntilAStoreIsOpened();
    void deviceOfTheLastRunIsOffline();
    void wholeDeviceIsRestored();
    void everyByteOfARecordIsRestored();
    void onlyChangedRowsAreWritten();
    void removedObjectsAreRemovedFromTheStore();
    void orderOfTheDeviceIsKept();
    void removedDeviceIsRemovedFromTheStore();
    void devicesThatShareANumberWithTheRemovedOneStay();
    void movedDeviceReplacesItsStoredSelf();
    void deviceThatMovedKeepsItsUserSettings();
    void deviceOfThisRunStaysWhenTheStoreIsOpened();
    void devicesWithoutNumbersAreStoredByAddress();

private:
    /// The rows that a save of \a device writes into the file.
    QStringList written(const std::shared_ptr<BizModel::Device> &device) const;
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

void tst_DeviceStore::wholeDeviceIsRestored()
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

// A text from a device may contain any bytes, also invalid UTF-8.
void tst_DeviceStore::everyByteOfARecordIsRestored()
{
    const std::string screen = "Wall \xF0\x9F\x93\xBA north";
    std::string everyByte;
    for (int byte = 0; byte < 256; ++byte)
        everyByte += char(byte);
    const auto device = ModelRecords::device();
    QString error;
    auto detail = device->deviceDetail();
    detail.general.name = screen;
    detail.groupInfos = {{everyByte, "\xC3("}};
    device->initModelData(detail, error);
    device->initModelData(std::vector{interface({1, 2, 3}, everyByte)}, error);
    auto info = device->deviceBaseInfo();
    info.name = "\xFF" + screen;
    info.hostName = everyByte;
    info.startTime = ~quint64(0);
    device->updateDeviceBaseInfo(info);
    {
        const StoredModel model(file());
        model.save(device);
    }
    const StoredModel model(file());
    const auto read = model.onlyDevice();
    QVERIFY(read);
    QVERIFY(read->deviceDetail().general.name == screen);
    QCOMPARE(read->name(), QString::fromStdString(screen));
    QVERIFY(read->deviceDetail().groupInfos.at(0).groupName == everyByte);
    QVERIFY(read->deviceDetail().groupInfos.at(0).groupId == "\xC3(");
    QVERIFY(read->interfaces().first().lock()->detail().general.name == everyByte);
    QVERIFY(read->deviceBaseInfo().name == info.name);
    QVERIFY(read->deviceBaseInfo().hostName == everyByte);
    QCOMPARE(read->deviceBaseInfo().startTime, ~quint64(0));
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

void tst_DeviceStore::removedObjectsAreRemovedFromTheStore()
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
    // The new one is placed between its neighbours, which are not changed.
    QCOMPARE(written(device), QStringList(QStringLiteral("INSERT 5 0/4/0/0/0")));
    device->initModelData(std::vector{ModelRecords::file(0, 5), ModelRecords::file(0, 9)}, error);
    QVERIFY(!written(device).isEmpty());
    const StoredModel model(file());
    QCOMPARE(order(*model.onlyDevice()), (QList<int>{5, 9}));
}

void tst_DeviceStore::removedDeviceIsRemovedFromTheStore()
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

void tst_DeviceStore::movedDeviceReplacesItsStoredSelf()
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

void tst_DeviceStore::deviceThatMovedKeepsItsUserSettings()
{
    const auto multiviewer = [](const BizModel::Device &device) {
        return std::dynamic_pointer_cast<BizModel::MVRScreen>(device.findScreen(3, 0).lock());
    };
    QString error;
    {
        const auto device = ModelRecords::device();
        multiviewer(*device)->setRowColSpan({6, 3});
        device->updateCutoutRGB({1, 2, 3}, error);
        const StoredModel model(file());
        model.save(device);
    }
    const auto moved = ModelRecords::device();
    moved->setIPAddress(QStringLiteral("198.51.100.7"));
    {
        const StoredModel model(file());
        model.list->append(moved);
        QCOMPARE(multiviewer(*moved)->rowColSpan(), QSize(6, 3));
        QCOMPARE(moved->cutoutRGB().B, 3);
        model.save(moved);
    }
    const StoredModel model(file());
    QCOMPARE(model.onlyDevice()->IPAddress(), QStringLiteral("198.51.100.7"));
    QCOMPARE(multiviewer(*model.onlyDevice())->rowColSpan(), QSize(6, 3));
    QCOMPARE(model.onlyDevice()->cutoutRGB().B, 3);
}

void tst_DeviceStore::deviceOfThisRunStaysWhenTheStoreIsOpened()
{
    const auto multiviewer = [](const BizModel::Device &device) {
        return std::dynamic_pointer_cast<BizModel::MVRScreen>(device.findScreen(3, 0).lock());
    };
    {
        const auto device = ModelRecords::device();
        multiviewer(*device)->setRowColSpan({6, 3});
        const StoredModel model(file());
        model.save(device);
    }
    const auto readBefore = ModelRecords::device();
    BizModel::DeviceList::instance()->append(readBefore);
    const StoredModel model(file());
    QCOMPARE(model.onlyDevice(), readBefore);
    QCOMPARE(multiviewer(*readBefore)->rowColSpan(), QSize(6, 3));
}

void tst_DeviceStore::devicesWithoutNumbersAreStoredByAddress()
{
    const auto at = [](quint8 address) {
        auto device = ModelRecords::device(address);
        device->updateDeviceBaseInfo({});
        return device;
    };
    {
        const StoredModel model(file());
        for (const auto &device : {at(1), at(2), at(3)}) {
            model.list->append(device);
            model.save(device);
        }
        model.list->remove(model.list->devices().at(1));
    }
    const StoredModel model(file());
    QStringList addresses;
    for (const auto &device : model.list->devices())
        addresses << device.lock()->IPAddress();
    QCOMPARE(addresses, (QStringList{QStringLiteral("192.0.2.1"), QStringLiteral("192.0.2.3")}));
}

QTEST_GUILESS_MAIN(tst_DeviceStore)
#include "tst_devicestore.moc"
