#include <support/tavorobizmodel/modelrecords.h>

#include <tavorobizmodel/devicelist.h>
#include <tavorobizmodel/file.h>
#include <tavorobizmodel/interface.h>
#include <tavorobizmodel/layer.h>
#include <tavorobizmodel/mvrscreen.h>
#include <tavorobizmodel/screen.h>

#include <QtTest>

#include <atomic>
#include <functional>
#include <thread>

using namespace ModelRecords;
using namespace Tavoro;

namespace {

constexpr int rounds = 200;

/// Runs each function \c rounds times, each on a thread of its own.
void together(const std::vector<std::function<void(int)>> &functions)
{
    std::vector<std::thread> threads;
    for (const auto &function : functions) {
        threads.emplace_back([function] {
            for (int round = 0; round < rounds; ++round)
                function(round);
        });
    }
    for (std::thread &thread : threads)
        thread.join();
}

void rebuild(BizModel::Device &device)
{
    QString error;
    device.clearAll(true);
    device.initModelData(std::vector{interface({1, 2, 3}), interface({2, 0, 0})}, error);
    device.initModelData(std::vector{file(2, 5)}, error);
    device.initModelData(std::vector{screen(1, 0, {{2, 0, 0}}), screen(3, 0)}, error);
    device.initModelData(std::vector{layer(1, 0, 0), layer(1, 0, 1, 0x010203)}, error);
}

} // namespace

/// Uses the model from several threads.
class tst_BizModelThreads : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void reportsArriveWhileTheDeviceIsRebuilt();
    void relationsAreFollowedWhileTheDeviceIsRebuilt();
    void deviceIsDestroyedWhileItsObjectsAreUsed();
    void devicesAreAddedAndRemovedDuringLookups();
};

void tst_BizModelThreads::reportsArriveWhileTheDeviceIsRebuilt()
{
    const auto device = ModelRecords::device();
    std::atomic<int> emitted = 0;
    connect(
        device.get(), &BizModel::Device::deviceDataChanged, device.get(), [&] { ++emitted; },
        Qt::DirectConnection);
    together({
        [&](int) { rebuild(*device); },
        [&](int round) {
            device->setPower({{round, 0, 0}});
            device->updateSubCard({{}});
            device->setScreenGenlocks({{}});
        },
        [&](int round) {
            if (const auto input = device->findInterface({1, 2, 3}).lock()) {
                input->setActualTiming(timing(round + 1, round + 1));
                input->updateLayerInputCrop();
            }
            if (const auto file = device->findFile(BizModel::Enum::File::Logo, 5).lock())
                file->setTransferProgress({});
        },
    });
    // Four for clearing, four for building, three for the reports.
    QCOMPARE(emitted.load(), rounds * 11);
}

void tst_BizModelThreads::relationsAreFollowedWhileTheDeviceIsRebuilt()
{
    const auto device = ModelRecords::device();
    together({
        [&](int) { rebuild(*device); },
        [&](int round) {
            const auto screens = device->screens(30);
            for (const auto &weak : screens) {
                const auto screen = weak.lock();
                if (!screen)
                    continue;
                screen->layers();
                screen->outputs();
                device->setActivedScreen(screen);
                if (const auto multiviewer = std::dynamic_pointer_cast<BizModel::MVRScreen>(screen))
                    multiviewer->setRowColSpan({round, 1});
            }
            device->activedScreen();
        },
        [&](int) {
            const auto layers = device->layers();
            for (const auto &weak : layers) {
                if (const auto layer = weak.lock()) {
                    layer->screen();
                    layer->source();
                    layer->detail();
                }
            }
        },
    });
    QCOMPARE(device->layers().size(), 2);
}

void tst_BizModelThreads::deviceIsDestroyedWhileItsObjectsAreUsed()
{
    for (int round = 0; round < 50; ++round) {
        auto device = ModelRecords::device();
        const auto screen = device->findScreen(1, 0).lock();
        const auto input = device->findInterface({1, 2, 3}).lock();
        std::thread user([&] {
            screen->setScreenZelk({1, 1});
            input->updateLayerInputCrop();
            screen->layers();
        });
        device.reset();
        user.join();
        QVERIFY(screen->device().expired());
    }
}

void tst_BizModelThreads::devicesAreAddedAndRemovedDuringLookups()
{
    auto *const list = BizModel::DeviceList::instance();
    const auto device = ModelRecords::device(1);
    list->append(device);
    std::atomic<int> missed = 0;
    together({
        [&](int) {
            const auto other = ModelRecords::device(2);
            list->append(other);
            other->setIPAddress(QStringLiteral("192.0.2.77"));
            list->remove(other);
        },
        [&](int) {
            if (list->findDevice(device->IPAddress(), device->MAC(), device->sn()).expired())
                ++missed;
            list->devices();
        },
    });
    QCOMPARE(missed.load(), 0);
    QVERIFY(list->remove(device));
}

QTEST_GUILESS_MAIN(tst_BizModelThreads)
#include "tst_bizmodelthreads.moc"
