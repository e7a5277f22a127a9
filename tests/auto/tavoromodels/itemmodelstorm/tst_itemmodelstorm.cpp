#include <support/tavorobizmodel/randomreading.h>
#include <support/tavoromodels/allmodels.h>

#include <tavorobizmodel/device.h>
#include <tavorobizmodel/devicelist.h>
#include <tavorobizmodel/deviceupdate.h>
#include <tavorobizmodel/file.h>
#include <tavorobizmodel/interface.h>
#include <tavorobizmodel/layer.h>
#include <tavorobizmodel/mvrscreen.h>
#include <tavorobizmodel/screen.h>

#include <QtTest>

#include <thread>

using namespace Tavoro;

namespace {

constexpr int everyType = 0x7FFFFFFF;

const AllModels::Scenes scenes{{{{0, 1}, 4}, {{1, 1}, 4}, {{0, 2}, 4}, {{1, 2}, 2}}};

template <class List>
auto anyOf(const List &list, RandomReadings &random)
{
    return list.isEmpty() ? nullptr : list[random.number(int(list.size()))].lock();
}

/// Changes a device as one of its reports does.
void report(BizModel::Device &device, RandomReadings &random)
{
    const auto interface = anyOf(device.interfaces(), random);
    const auto screen = anyOf(device.screens(everyType), random);
    const auto file = anyOf(device.files(), random);
    switch (random.number(8)) {
    case 0:
        device.setDeviceOnlineFlag(random.chance(2));
        break;
    case 1:
        device.updateSubCard({{random.number(2), 0, 0, 0, random.number(2), {}}});
        break;
    case 2:
        device.setScreenGenlocks(
            {{{static_cast<quint8>(random.number(2)), random.number(4) + 1}, {random.number(3)}}});
        break;
    case 3:
        device.setActivedScreen(screen);
        break;
    case 4:
        if (interface) {
            ProtoModel::s_TimingDetailBody timing;
            timing.horizontal.addTime = timing.vertical.addTime = random.number(3) * 500;
            interface->setActualTiming(timing);
            interface->updateLayerInputCrop();
        }
        break;
    case 5:
        if (interface)
            interface->setGeneral({random.number(3), std::to_string(random.number(3)), "N/A"});
        break;
    case 6:
        if (screen)
            screen->setScreenZelk({random.number(2), random.number(2)});
        break;
    default:
        if (file)
            file->setTransferProgress({{0, 0}, 1, random.number(101), 0});
    }
}

} // namespace

/// Item models during many reports and readings.
class tst_ItemModelStorm : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void modelsFollowReadingsAndReports();
    void modelsFollowReportsOfAnotherThread();
};

void tst_ItemModelStorm::modelsFollowReadingsAndReports()
{
    int changes = 0;
    int moves = 0;
    for (unsigned seed = 1; seed <= 6; ++seed) {
        RandomReadings readings(seed);
        const auto device = std::make_shared<BizModel::Device>(1, nullptr);
        BizModel::DeviceList::instance()->append(device);
        const WatchedModels models(device, scenes);
        for (int i = 0; i < 20; ++i) {
            QString error;
            BizModel::updateDevice(*device, readings.next(), error);
            for (int n = 0; n < 10; ++n)
                report(*device, readings);
            QCOMPARE(models.faults(), QStringList());
        }
        for (const auto &mirror : models.mirrors()) {
            changes += mirror->changes.size();
            moves += mirror->moves;
        }
        BizModel::DeviceList::instance()->remove(device);
    }
    QVERIFY(changes > 500);
    QVERIFY(moves > 50);
}

void tst_ItemModelStorm::modelsFollowReportsOfAnotherThread()
{
    RandomReadings readings(99);
    const auto device = std::make_shared<BizModel::Device>(1, nullptr);
    BizModel::DeviceList::instance()->append(device);
    const WatchedModels models(device, scenes);
    std::thread reporter([device] {
        RandomReadings random(7);
        for (int i = 0; i < 500; ++i)
            report(*device, random);
    });
    for (int i = 0; i < 30; ++i) {
        QString error;
        BizModel::updateDevice(*device, readings.next(), error);
        QCoreApplication::processEvents();
    }
    reporter.join();
    QCoreApplication::processEvents();
    QCOMPARE(models.faults(), QStringList());
    BizModel::DeviceList::instance()->remove(device);
}

QTEST_GUILESS_MAIN(tst_ItemModelStorm)
#include "tst_itemmodelstorm.moc"
