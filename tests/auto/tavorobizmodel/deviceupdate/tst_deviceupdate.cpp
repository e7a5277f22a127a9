#include <support/tavorobizmodel/modelrecords.h>
#include <support/tavorobizmodel/objecttext.h>
#include <support/tavorobizmodel/randomreading.h>
#include <support/tavorobizmodel/updateddevice.h>

#include <tavorobizmodel/devicelist.h>
#include <tavorobizmodel/deviceupdate.h>
#include <tavorobizmodel/mvrscreen.h>

#include <QMap>
#include <QSignalSpy>
#include <QtTest>

using namespace ModelRecords;
using namespace Tavoro;
using BizModel::s_DeviceReading;
using Part = BizModel::Enum::Device::DataPart;

namespace {

/// What a synchronisation does with a reading: empties the device and builds it again.
void synchronise(BizModel::Device &device, s_DeviceReading reading)
{
    device.clearAll(true);
    auto &detail = *reading.detail;
    device.setDeviceOnlineFlag(reading.baseInfo.has_value());
    if (reading.baseInfo) {
        device.setModelId(reading.baseInfo->modelId);
        device.updateDeviceBaseInfo(*reading.baseInfo);
        if (detail.general.name == "N/A")
            detail.general.name = reading.baseInfo->name;
    }
    device.setSyncDataSuccess(reading.isComplete);
    auto &files = *reading.files;
    files.erase(std::remove_if(files.begin(), files.end(),
                               [](const auto &file) { return file.fileType == 15; }),
                files.end());
    QString error;
    device.initModelData(detail, error);
    device.initModelData(*reading.interfaces, error);
    device.initModelData(files, error);
    device.initModelData(*reading.screens, error);
    device.initModelData(*reading.layers, error);
    const auto ordinary = device.screens(6);
    if (!ordinary.isEmpty())
        device.setActivedScreen(ordinary.first());
    const auto multiviewers = device.screens(8);
    if (!multiviewers.isEmpty())
        device.setActivedScreen(multiviewers.first());
}

/// All objects of a device by identity.
QMap<QString, std::shared_ptr<QObject>> identities(const BizModel::Device &device)
{
    QMap<QString, std::shared_ptr<QObject>> all;
    for (const auto &weak : device.interfaces())
        all.insert(QLatin1String("interface ") + recordText(weak.lock()->interfaceId()),
                   weak.lock());
    for (const auto &weak : device.screens(everyType)) {
        const auto screen = weak.lock();
        all.insert(QStringLiteral("screen %1 %2").arg(screen->screenType()).arg(screen->screenId()),
                   screen);
    }
    for (const auto &weak : device.layers())
        all.insert(QLatin1String("layer ") + recordText(weak.lock()->identity()), weak.lock());
    for (const auto &weak : device.files())
        all.insert(QLatin1String("file ") + recordText(weak.lock()->identity()), weak.lock());
    return all;
}

} // namespace

/// How readings are applied to a device as differences.
class tst_DeviceUpdate : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void updateMakesTheModelOfASynchronisation();
    void objectsThatStillExistStayTheSame();
    void partialReadMakesTheModelOfASynchronisation();

    void activeScreenStaysActive();
    void firstScreensBecomeActive();
    void layersOfARemovedScreenAreRemoved();
    void fileKeepsItsContentUnlessItsSizeChanges();
    void contentOfOneFileIsStored();
    void nameOfTheChannelReplacesAMissingName();
    void faultsAreReportedAsWhenBuilding();
    void partsThatWereNotReadStay();
    void newDeviceIsFoundByItsIdentity();
};

void tst_DeviceUpdate::updateMakesTheModelOfASynchronisation()
{
    for (unsigned seed = 1; seed <= 30; ++seed) {
        RandomReadings readings(seed);
        const auto updated = emptyDevice();
        const auto synchronised = emptyDevice();
        for (int i = 0; i < 20; ++i) {
            const s_DeviceReading reading = readings.next();
            QString error;
            BizModel::updateDevice(*updated, reading, error);
            synchronise(*synchronised, reading);
            QCOMPARE(deviceTexts(*updated), deviceTexts(*synchronised));
            QCOMPARE(updated->activedScreen().expired(), synchronised->activedScreen().expired());
            QCOMPARE(updated->activedMVRScreen().expired(),
                     synchronised->activedMVRScreen().expired());
        }
    }
}

void tst_DeviceUpdate::objectsThatStillExistStayTheSame()
{
    int kept = 0;
    for (unsigned seed = 1; seed <= 10; ++seed) {
        RandomReadings readings(seed);
        const auto device = emptyDevice();
        QString error;
        for (int i = 0; i < 20; ++i) {
            const auto before = identities(*device);
            BizModel::updateDevice(*device, readings.next(), error);
            const auto after = identities(*device);
            for (auto object = after.begin(); object != after.end(); ++object) {
                if (!before.contains(object.key()))
                    continue;
                QCOMPARE(object.value(), before.value(object.key()));
                ++kept;
            }
        }
    }
    QVERIFY(kept > 1000);
}

// The device lists its objects in the order of their identities.
void tst_DeviceUpdate::partialReadMakesTheModelOfASynchronisation()
{
    const auto layerKey = [](const s_LayerFullDetail &layer) {
        const auto &id = layer.layerIdenti;
        return std::make_tuple(id.screenType, id.screenId, id.sceneType, id.layerType, id.layerId);
    };
    const auto screenKey = [](const s_ScreenFullDetail &screen) {
        return std::make_tuple(screen.screenType, screen.screenId);
    };
    const auto byKey = [](const auto &key) {
        return [key](const auto &a, const auto &b) {
            return key(a) < key(b);
        };
    };
    for (unsigned seed = 1; seed <= 30; ++seed) {
        RandomReadings readings(seed);
        const auto sorted = [&] {
            s_DeviceReading reading = readings.next();
            RandomReadings::sort(*reading.screens, byKey(screenKey));
            RandomReadings::sort(*reading.layers, byKey(layerKey));
            return reading;
        };
        const auto updated = emptyDevice();
        const auto synchronised = emptyDevice();
        QString error;
        s_DeviceReading whole = sorted();
        BizModel::updateDevice(*updated, whole, error);
        synchronise(*synchronised, whole);
        for (int i = 0; i < 20; ++i) {
            const s_DeviceReading next = sorted();
            const BizModel::s_LayerFilter filter{readings.number(3) - 1, readings.number(6) - 1,
                                                 readings.chance(2) ? 4 : -1, -1};
            const auto isSelected = [&](const s_LayerFullDetail &layer) {
                const auto &id = layer.layerIdenti;
                return (filter.screenId < 0 || filter.screenId == id.screenId)
                    && (filter.screenType <= 0 || filter.screenType == id.screenType)
                    && (filter.sceneType < 0 || filter.sceneType == id.sceneType);
            };
            std::vector<s_LayerFullDetail> read;
            std::vector<s_LayerFullDetail> others;
            std::copy_if(next.layers->begin(), next.layers->end(), std::back_inserter(read),
                         isSelected);
            std::remove_copy_if(whole.layers->begin(), whole.layers->end(),
                                std::back_inserter(others), isSelected);
            whole.layers->clear();
            std::merge(read.begin(), read.end(), others.begin(), others.end(),
                       std::back_inserter(*whole.layers), byKey(layerKey));
            BizModel::updateLayers(*updated, read, filter, error);
            synchronise(*synchronised, whole);
            QCOMPARE(deviceTexts(*updated), deviceTexts(*synchronised));
        }
    }
}

void tst_DeviceUpdate::activeScreenStaysActive()
{
    const auto device = ModelRecords::device();
    QString error;
    std::vector screens{screen(1, 0), screen(1, 1), screen(3, 0)};
    QVERIFY(BizModel::updateScreens(*device, screens, {}, error));
    device->setActivedScreen(device->findScreen(1, 1));
    const QSignalSpy spy(device.get(), &BizModel::Device::deviceDataChanged);
    screens[1].freeze = 1;
    screens.insert(screens.begin(), screen(1, 7));
    QVERIFY(BizModel::updateScreens(*device, screens, {}, error));
    QCOMPARE(int(device->activedScreen().lock()->screenId()), 1);
    QCOMPARE(signalledParts(spy), (QList<int>{Part::Screens}));

    QVERIFY(BizModel::updateScreens(*device, {}, {1, 1}, error));
    QCOMPARE(int(device->activedScreen().lock()->screenId()), 7);
    QCOMPARE(signalledParts(spy).mid(1), (QList<int>{Part::Screens, Part::ActiveScreens}));
}

void tst_DeviceUpdate::firstScreensBecomeActive()
{
    const auto device = emptyDevice();
    QString error;
    QVERIFY(BizModel::updateScreens(
        *device, {screen(4, 0), screen(2, 5), screen(1, 1), screen(3, 2), screen(3, 3)}, {},
        error));
    QCOMPARE(int(device->activedScreen().lock()->screenId()), 5);
    QCOMPARE(int(device->activedMVRScreen().lock()->screenId()), 2);
}

void tst_DeviceUpdate::layersOfARemovedScreenAreRemoved()
{
    const auto device = ModelRecords::device();
    QCOMPARE(device->layers().size(), 2);
    const QSignalSpy spy(device.get(), &BizModel::Device::deviceDataChanged);
    QString error;
    QVERIFY(BizModel::updateScreens(*device, {screen(3, 0), screen(4, 1)}, {}, error));
    QCOMPARE(device->layers().size(), 0);
    QVERIFY(signalledParts(spy).contains(Part::Layers));
}

void tst_DeviceUpdate::fileKeepsItsContentUnlessItsSizeChanges()
{
    const auto device = ModelRecords::device();
    const auto stored = device->files().first().lock();
    const QSignalSpy spy(stored.get(), &BizModel::File::fileChanged);
    QString error;
    auto read = file(2, 5);
    read.general.name = "renamed";
    const BizModel::s_FileFilter logos{2, -1};
    const auto update = [&] {
        return BizModel::updateFiles(*device, {read}, logos, BizModel::FileContents::WereNotRead,
                                     error);
    };
    QVERIFY(update());
    QCOMPARE(stored->detail().binary, std::string("a\0b", 3));
    QCOMPARE(stored->detail().general.name, std::string("renamed"));
    QCOMPARE(spy.size(), 1);
    read.size.hashSum = 7;
    QVERIFY(update());
    QCOMPARE(stored->detail().binary, std::string());
    QCOMPARE(spy.size(), 2);
}

void tst_DeviceUpdate::contentOfOneFileIsStored()
{
    const auto device = ModelRecords::device();
    const auto stored = device->files().first().lock();
    const QSignalSpy spy(stored.get(), &BizModel::File::fileChanged);
    QVERIFY(BizModel::updateFileContent(*device, stored->identity(), "new"));
    QVERIFY(BizModel::updateFileContent(*device, stored->identity(), "new"));
    QCOMPARE(stored->detail().binary, std::string("new"));
    QCOMPARE(spy.size(), 1);
    QVERIFY(!BizModel::updateFileContent(*device, {9, 9}, "new"));
}

void tst_DeviceUpdate::nameOfTheChannelReplacesAMissingName()
{
    const auto device = ModelRecords::device();
    s_DeviceReading reading;
    reading.baseInfo = device->deviceBaseInfo();
    reading.baseInfo->name = "wall";
    reading.detail = s_DeviceDetail();
    QString error;
    QVERIFY(BizModel::updateDevice(*device, reading, error));
    QCOMPARE(device->name(), QStringLiteral("wall"));
    QCOMPARE(device->deviceDetail().general.name, std::string("wall"));
    QVERIFY(device->isOnline());
    QVERIFY(BizModel::updateDeviceDetail(*device, s_DeviceDetail(), error));
    QCOMPARE(device->name(), QStringLiteral("wall"));

    reading.baseInfo.reset();
    QVERIFY(BizModel::updateDevice(*device, reading, error));
    QCOMPARE(device->name(), QStringLiteral("N/A"));
    QVERIFY(!device->isOnline());
}

void tst_DeviceUpdate::faultsAreReportedAsWhenBuilding()
{
    const auto device = ModelRecords::device();
    s_DeviceReading reading;
    reading.interfaces = {interface({1, 0, 0}, "first"), interface({1, 0, 0}, "second")};
    reading.screens = {screen(1, 0, {{9, 8, 7}})};
    reading.layers = {layer(1, 9, 2)};
    QString error;
    QVERIFY(!BizModel::updateDevice(*device, reading, error));
    QCOMPARE(error,
             QStringLiteral(
                 "Interface 1/0/0 occurs twice. "
                 "Screen 0 of type 1 has the output Interface 9/8/7, which the device does not "
                 "have. Layer 2 of type 1 in scene 4 on screen 9 of type 1: the device does not "
                 "have the screen."));
    QCOMPARE(device->interfaces().first().lock()->detail().general.name, std::string("first"));
    QCOMPARE(device->layers().size(), 0);
}

void tst_DeviceUpdate::partsThatWereNotReadStay()
{
    const auto device = ModelRecords::device();
    const QStringList before = deviceTexts(*device);
    const auto screens = device->screens(everyType);
    s_DeviceReading reading;
    reading.files.emplace();
    QString error;
    QVERIFY(BizModel::updateDevice(*device, reading, error));
    QCOMPARE(device->files().size(), 0);
    QCOMPARE(device->screens(everyType).size(), screens.size());
    QCOMPARE(device->layers().size(), 2);
    QCOMPARE(device->name(), QStringLiteral("box"));
}

void tst_DeviceUpdate::newDeviceIsFoundByItsIdentity()
{
    const auto device = emptyDevice();
    device->setIPAddress(QStringLiteral("192.0.2.77"));
    auto *const list = BizModel::DeviceList::instance();
    list->append(device);
    QVERIFY(list->findDevice(QStringLiteral("192.0.2.77"), device->MAC(), device->sn()).lock());
    s_DeviceReading reading;
    reading.baseInfo.emplace();
    reading.baseInfo->mac[5] = 0xAB;
    QString error;
    const QSignalSpy spy(device.get(), &BizModel::Device::deviceDataChanged);
    QVERIFY(BizModel::updateDevice(*device, reading, error));
    QCOMPARE(signalledParts(spy), (QList<int>{Part::Identity, Part::OnlineFlag}));
    QCOMPARE(list->findDevice(QStringLiteral("192.0.2.77"), QStringLiteral("0000000000AB"),
                              QStringLiteral("0000000000000000"))
                 .lock(),
             device);
    list->remove(device);
}

QTEST_GUILESS_MAIN(tst_DeviceUpdate)
#include "tst_deviceupdate.moc"
