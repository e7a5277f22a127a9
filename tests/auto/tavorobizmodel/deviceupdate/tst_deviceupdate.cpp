#include <support/tavorobizmodel/modelrecords.h>
#include <support/tavorobizmodel/objecttext.h>
#include <support/tavorobizmodel/randomreading.h>

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

constexpr int everyType = 0x7FFFFFFF;

std::shared_ptr<BizModel::Device> emptyDevice()
{
    return std::make_shared<BizModel::Device>(65535, nullptr);
}

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

/// The objects of a device, their texts, and how often each emitted its signal. Keeps the objects,
/// so that no new object gets the address of an old one.
class Objects {
public:
    explicit Objects(const BizModel::Device &device)
    {
        add(device.interfaces(), &BizModel::Interface::interfaceChanged);
        add(device.screens(everyType), &BizModel::Screen::screenChanged);
        add(device.layers(), &BizModel::Layer::layerChanged);
        add(device.files(), &BizModel::File::fileChanged);
    }

    QMap<std::shared_ptr<QObject>, QString> texts;
    QMap<std::shared_ptr<QObject>, int> signalCounts;

private:
    template <class List, class Signal>
    void add(const List &list, Signal signal)
    {
        for (const auto &weak : list) {
            const auto object = weak.lock();
            texts.insert(object, objectText(*object));
            const std::weak_ptr<QObject> key = object;
            QObject::connect(object.get(), signal, &m_context,
                             [this, key] { ++signalCounts[key.lock()]; });
        }
    }

    QObject m_context;
};

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

QList<int> parts(const QSignalSpy &spy)
{
    QList<int> list;
    for (const auto &arguments : spy)
        list.append(arguments[0].value<Part>());
    return list;
}

} // namespace

/// How readings are applied to a device as differences.
class tst_DeviceUpdate : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void updateMakesTheModelOfASynchronisation();
    void objectsThatStillExistStayTheSame();
    void eachObjectThatDiffersSignalsOnce();
    void equalReadingSignalsNothing();
    void partialReadMakesTheModelOfASynchronisation();

    void onlyPartsThatDifferAreSignalled();
    void addedRemovedAndMovedObjectsSignalTheirPart();
    void activeScreenStaysActive();
    void firstScreensBecomeActive();
    void layersOfARemovedScreenAreRemoved();
    void layerFollowsTheTimingOfItsInterfaceOnce();
    void fileKeepsItsContentUnlessItsSizeChanges();
    void contentOfOneFileIsStored();
    void nameOfTheChannelReplacesAMissingName();
    void faultsAreReportedAsWhenBuilding();
    void partsThatWereNotReadStay();
    void blockedDeviceStaysSilent();
    void slotSeesTheCompleteState();
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

void tst_DeviceUpdate::eachObjectThatDiffersSignalsOnce()
{
    int changed = 0;
    for (unsigned seed = 1; seed <= 30; ++seed) {
        RandomReadings readings(seed);
        const auto device = emptyDevice();
        QString error;
        for (int i = 0; i < 20; ++i) {
            const Objects before(*device);
            BizModel::updateDevice(*device, readings.next(), error);
            const Objects after(*device);
            for (auto object = after.texts.begin(); object != after.texts.end(); ++object) {
                const bool differs = before.texts.contains(object.key())
                    && before.texts.value(object.key()) != object.value();
                QCOMPARE(before.signalCounts.value(object.key()), differs ? 1 : 0);
                changed += differs ? 1 : 0;
            }
        }
    }
    QVERIFY(changed > 1000);
}

void tst_DeviceUpdate::equalReadingSignalsNothing()
{
    for (unsigned seed = 1; seed <= 10; ++seed) {
        RandomReadings readings(seed);
        const auto device = emptyDevice();
        QString error;
        for (int i = 0; i < 10; ++i) {
            const s_DeviceReading reading = readings.next();
            BizModel::updateDevice(*device, reading, error);
            const Objects objects(*device);
            const QSignalSpy spy(device.get(), &BizModel::Device::deviceDataChanged);
            BizModel::updateDevice(*device, reading, error);
            QCOMPARE(parts(spy), QList<int>());
            QCOMPARE(objects.signalCounts.size(), 0);
        }
    }
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

void tst_DeviceUpdate::onlyPartsThatDifferAreSignalled()
{
    const auto device = ModelRecords::device();
    const QSignalSpy spy(device.get(), &BizModel::Device::deviceDataChanged);
    s_DeviceDetail detail = device->deviceDetail();
    QString error;
    const auto update = [&] {
        return BizModel::updateDeviceDetail(*device, detail, error);
    };
    QVERIFY(update());
    QCOMPARE(parts(spy), QList<int>());
    detail.swap = 1;
    QVERIFY(update());
    QCOMPARE(parts(spy), (QList<int>{Part::Detail}));
    detail.powers.resize(1);
    detail.groupInfos.push_back({"group", "g"});
    detail.interfaceRelation.enable = 1;
    detail.genlockSignal.status = 1;
    detail.subcards[1].online = 1;
    QVERIFY(update());
    QCOMPARE(parts(spy).mid(1),
             (QList<int>{Part::Subcards, Part::Powers, Part::GenlockSignal, Part::Groups,
                         Part::InterfaceRelations}));
    detail.general.name = "other";
    QVERIFY(update());
    QCOMPARE(parts(spy).mid(6), (QList<int>{Part::Identity, Part::Detail}));
    QCOMPARE(device->name(), QStringLiteral("other"));
}

void tst_DeviceUpdate::addedRemovedAndMovedObjectsSignalTheirPart()
{
    const auto device = ModelRecords::device();
    const QSignalSpy spy(device.get(), &BizModel::Device::deviceDataChanged);
    QString error;
    std::vector interfaces{interface({1, 2, 3}), interface({2, 0, 0}), interface({3, 0, 0})};
    QVERIFY(BizModel::updateInterfaces(*device, interfaces, {}, error));
    std::swap(interfaces[0], interfaces[1]);
    QVERIFY(BizModel::updateInterfaces(*device, interfaces, {}, error));
    QCOMPARE(device->interfaces().first().lock()->interfaceId().slotId, 2);
    interfaces.pop_back();
    QVERIFY(BizModel::updateInterfaces(*device, interfaces, {}, error));
    QCOMPARE(parts(spy), (QList<int>{Part::Interfaces, Part::Interfaces, Part::Interfaces}));
    interfaces[0].general.name = "changed";
    QVERIFY(BizModel::updateInterfaces(*device, interfaces, {}, error));
    QCOMPARE(spy.size(), 3);
    QVERIFY(BizModel::updateFiles(*device, {}, {}, BizModel::FileContents::WereRead, error));
    QCOMPARE(parts(spy).mid(3), (QList<int>{Part::Files}));
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
    QCOMPARE(parts(spy), (QList<int>{Part::Screens}));

    QVERIFY(BizModel::updateScreens(*device, {}, {1, 1}, error));
    QCOMPARE(int(device->activedScreen().lock()->screenId()), 7);
    QCOMPARE(parts(spy).mid(1), (QList<int>{Part::Screens, Part::ActiveScreens}));
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
    QVERIFY(parts(spy).contains(Part::Layers));
}

void tst_DeviceUpdate::layerFollowsTheTimingOfItsInterfaceOnce()
{
    const auto device = ModelRecords::device();
    const auto input = device->findInterface({1, 2, 3}).lock();
    const auto shown = device->layers().last().lock();
    const QSignalSpy layerSpy(shown.get(), &BizModel::Layer::layerChanged);
    const QSignalSpy inputSpy(input.get(), &BizModel::Interface::interfaceChanged);
    const QSignalSpy cropSpy(input.get(), &BizModel::Interface::layerInputCropOutdated);
    auto read = input->detail();
    read.actualTiming = timing(1280, 720);
    QString error;
    BizModel::s_InterfaceFilter filter;
    filter.interfaceId = input->interfaceId();
    QVERIFY(BizModel::updateInterfaces(*device, {read}, filter, error));
    QCOMPARE(shown->detail().source.crop[0].rect.width, 640);
    QCOMPARE(layerSpy.size(), 1);
    QCOMPARE(inputSpy.size(), 1);
    QCOMPARE(cropSpy.size(), 1);
    QCOMPARE(device->interfaces().size(), 2);

    read.general.name = "camera";
    QVERIFY(BizModel::updateInterfaces(*device, {read}, filter, error));
    QCOMPARE(inputSpy.size(), 2);
    QCOMPARE(cropSpy.size(), 1);
    QCOMPARE(layerSpy.size(), 1);
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

void tst_DeviceUpdate::blockedDeviceStaysSilent()
{
    const auto device = ModelRecords::device();
    const Objects objects(*device);
    const QSignalSpy spy(device.get(), &BizModel::Device::deviceDataChanged);
    device->blockSignals(true);
    QString error;
    auto changed = screen(1, 0, {{2, 0, 0}});
    changed.freeze = 1;
    QVERIFY(BizModel::updateScreens(*device, {changed}, {}, error));
    QCOMPARE(spy.size(), 0);
    QCOMPARE(objects.signalCounts.size(), 0);
    QCOMPARE(device->findScreen(1, 0).lock()->detail().freeze, 1);
}

void tst_DeviceUpdate::slotSeesTheCompleteState()
{
    const auto device = ModelRecords::device();
    s_DeviceReading reading;
    reading.interfaces = {interface({5, 0, 0})};
    reading.screens = {screen(1, 3)};
    reading.layers = {layer(1, 3, 1)};
    reading.files.emplace();
    QList<int> sizes;
    connect(device.get(), &BizModel::Device::deviceDataChanged, this, [&](Part part) {
        if (part == Part::Interfaces)
            sizes << int(device->screens(everyType).size()) << int(device->layers().size())
                  << int(device->files().size());
    });
    QString error;
    QVERIFY(BizModel::updateDevice(*device, reading, error));
    QCOMPARE(sizes, (QList<int>{1, 1, 0}));
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
    QCOMPARE(parts(spy), (QList<int>{Part::Identity, Part::OnlineFlag}));
    QCOMPARE(list->findDevice(QStringLiteral("192.0.2.77"), QStringLiteral("0000000000AB"),
                              QStringLiteral("0000000000000000"))
                 .lock(),
             device);
    list->remove(device);
}

QTEST_GUILESS_MAIN(tst_DeviceUpdate)
#include "tst_deviceupdate.moc"
