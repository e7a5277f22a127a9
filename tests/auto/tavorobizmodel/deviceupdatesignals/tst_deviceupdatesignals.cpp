#include <support/tavorobizmodel/modelrecords.h>
#include <support/tavorobizmodel/objecttext.h>
#include <support/tavorobizmodel/randomreading.h>
#include <support/tavorobizmodel/updateddevice.h>

#include <tavorobizmodel/deviceupdate.h>

#include <QMap>
#include <QSignalSpy>
#include <QtTest>

using namespace ModelRecords;
using namespace Tavoro;
using BizModel::s_DeviceReading;
using Part = BizModel::Enum::Device::DataPart;

namespace {

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

} // namespace

/// What a device and its objects signal when a reading is applied.
class tst_DeviceUpdateSignals : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void eachObjectThatDiffersSignalsOnce();
    void equalReadingSignalsNothing();
    void onlyPartsThatDifferAreSignalled();
    void addedRemovedAndMovedObjectsSignalTheirPart();
    void layerFollowsTheTimingOfItsInterfaceOnce();
    void blockedDeviceStaysSilent();
    void slotSeesTheCompleteState();
};

void tst_DeviceUpdateSignals::eachObjectThatDiffersSignalsOnce()
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

void tst_DeviceUpdateSignals::equalReadingSignalsNothing()
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
            QCOMPARE(signalledParts(spy), QList<int>());
            QCOMPARE(objects.signalCounts.size(), 0);
        }
    }
}

void tst_DeviceUpdateSignals::onlyPartsThatDifferAreSignalled()
{
    const auto device = ModelRecords::device();
    const QSignalSpy spy(device.get(), &BizModel::Device::deviceDataChanged);
    s_DeviceDetail detail = device->deviceDetail();
    QString error;
    const auto update = [&] {
        return BizModel::updateDeviceDetail(*device, detail, error);
    };
    QVERIFY(update());
    QCOMPARE(signalledParts(spy), QList<int>());
    detail.swap = 1;
    QVERIFY(update());
    QCOMPARE(signalledParts(spy), (QList<int>{Part::Detail}));
    detail.powers.resize(1);
    detail.groupInfos.push_back({"group", "g"});
    detail.interfaceRelation.enable = 1;
    detail.genlockSignal.status = 1;
    detail.subcards[1].online = 1;
    QVERIFY(update());
    QCOMPARE(signalledParts(spy).mid(1),
             (QList<int>{Part::Subcards, Part::Powers, Part::GenlockSignal, Part::Groups,
                         Part::InterfaceRelations}));
    detail.general.name = "other";
    QVERIFY(update());
    QCOMPARE(signalledParts(spy).mid(6), (QList<int>{Part::Identity, Part::Detail}));
    QCOMPARE(device->name(), QStringLiteral("other"));
}

void tst_DeviceUpdateSignals::addedRemovedAndMovedObjectsSignalTheirPart()
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
    QCOMPARE(signalledParts(spy),
             (QList<int>{Part::Interfaces, Part::Interfaces, Part::Interfaces}));
    interfaces[0].general.name = "changed";
    QVERIFY(BizModel::updateInterfaces(*device, interfaces, {}, error));
    QCOMPARE(spy.size(), 3);
    QVERIFY(BizModel::updateFiles(*device, {}, {}, BizModel::FileContents::WereRead, error));
    QCOMPARE(signalledParts(spy).mid(3), (QList<int>{Part::Files}));
}

void tst_DeviceUpdateSignals::layerFollowsTheTimingOfItsInterfaceOnce()
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

void tst_DeviceUpdateSignals::blockedDeviceStaysSilent()
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

void tst_DeviceUpdateSignals::slotSeesTheCompleteState()
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

QTEST_GUILESS_MAIN(tst_DeviceUpdateSignals)
#include "tst_deviceupdatesignals.moc"
