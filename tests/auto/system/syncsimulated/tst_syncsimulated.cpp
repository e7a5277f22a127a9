#include <support/common/messagecatcher.h>
#include <support/tavorobizmodel/modeltext.h>
#include <support/tavorosim/simulatedsync.h>

#include <tavorobizmodel/mvrscreen.h>
#include <tavorocontrol/autoreportmanager.h>
#include <tavorossproxy/devicemanager.h>

#include <QTimer>
#include <QtTest>

using namespace Tavoro;

/// Reads a whole device into the model: TCP, synchronisation and reports together.
class tst_SyncSimulated : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanup();

    void wholeDeviceIsInTheModel();
    void objectsKnowEachOther();
    void contentsArriveByteForByte();
    void smallPacketsMakeNoDifference();
    void writesReachTheModelWithTheNextSynchronisation();
    void reportsChangeWhatWasRead();
    void reportsArriveWhileTheDeviceIsReadAgain();
    void deviceThatGoesAwayIsOffline();
    void twoDevicesAreReadAtOnce();
};

namespace {

template <class Object>
QList<std::shared_ptr<Object>> locked(const QList<std::weak_ptr<Object>> &objects)
{
    QList<std::shared_ptr<Object>> list;
    for (const auto &object : objects)
        list << object.lock();
    return list;
}

constexpr int everyScreen = 30;

Sim::SimOptions anotherDevice()
{
    Sim::SimOptions options;
    options.sn.back() = 2;
    options.mac.back() = 2;
    options.inputs = 2;
    return options;
}

} // namespace

void tst_SyncSimulated::initTestCase()
{
    QVERIFY(Control::AutoReportManager::instance()); // on this thread
}

void tst_SyncSimulated::cleanup()
{
    auto *const list = BizModel::DeviceList::instance();
    const auto devices = list->devices();
    for (const auto &device : devices)
        list->remove(device);
}

void tst_SyncSimulated::wholeDeviceIsInTheModel()
{
    const MessageCatcher quiet;
    SimulatedSync sync;
    QVERIFY(sync.run());
    const auto device = sync.listed();
    QVERIFY(device);
    QVERIFY(device->isOnline());
    QVERIFY(device->isSyncDataSuccess());
    QVERIFY(!device->signalsBlocked());
    QCOMPARE(device->name(), QStringLiteral("Simulated device"));
    QCOMPARE(device->sn(), QStringLiteral("53494D0000000001"));
    QCOMPARE(device->interfaces().size(), 16);
    QCOMPARE(device->screens(everyScreen).size(), 4);
    QCOMPARE(device->layers().size(), 32);
    QCOMPARE(int(device->deviceDetail().powers.size()), 2);
    QVERIFY(!device->deviceDetail().subcards.empty());
    QCOMPARE(int(device->activedScreen().lock()->screenId()), 1);
    QCOMPARE(int(device->activedMVRScreen().lock()->screenId()), 3);
}

void tst_SyncSimulated::objectsKnowEachOther()
{
    const MessageCatcher quiet;
    SimulatedSync sync;
    QVERIFY(sync.run());
    const auto device = sync.listed();
    int shown = 0;
    for (const auto &layer : locked(device->layers())) {
        const auto screen = layer->screen().lock();
        QVERIFY(screen);
        QVERIFY(locked(screen->layers()).contains(layer));
        QCOMPARE(device->findLayer(layer->identity()).lock(), layer);
        if (const auto source = layer->source().lock()) {
            QVERIFY(locked(source->layers()).contains(layer));
            ++shown;
        }
    }
    QVERIFY(shown > 0);
    int outputs = 0;
    for (const auto &screen : locked(device->screens(everyScreen))) {
        for (const auto &output : locked(screen->outputs())) {
            QCOMPARE(output->screen().lock(), screen);
            QCOMPARE(device->findInterface(output->interfaceId()).lock(), output);
            ++outputs;
        }
    }
    QCOMPARE(outputs, 8);
}

void tst_SyncSimulated::contentsArriveByteForByte()
{
    const MessageCatcher quiet;
    using namespace std::string_literals;
    SimulatedSync sync;
    const std::string large(300000, 'z'); // in several packets
    QVERIFY(sync.import(2, 1, "\0\xFF\"{\r\n"s));
    QVERIFY(sync.import(12, 4, large));
    QVERIFY(sync.import(10, 2, "a log"));
    QVERIFY(sync.run());
    const auto content = [&](int type, int id) {
        return sync.listed()
            ->findFile(static_cast<BizModel::Enum::File::FileType>(type), id)
            .lock()
            ->detail()
            .binary;
    };
    QCOMPARE(content(2, 1), "\0\xFF\"{\r\n"s);
    QVERIFY(content(12, 4) == large);
    QCOMPARE(content(10, 2), std::string()); // content of this type is not read
}

void tst_SyncSimulated::smallPacketsMakeNoDifference()
{
    const MessageCatcher quiet;
    QStringList seen[2];
    for (const quint32 packetSize : {64U * 1024, 211U}) {
        Sim::SimOptions options;
        options.packetSize = packetSize;
        SimulatedSync sync(options);
        QVERIFY(sync.import(2, 1, std::string(1000, 'a')));
        QVERIFY(sync.run());
        seen[packetSize == 211] = ModelText(*sync.listed()).all();
        cleanup();
    }
    QCOMPARE(seen[1], seen[0]);
}

void tst_SyncSimulated::writesReachTheModelWithTheNextSynchronisation()
{
    const MessageCatcher quiet;
    SimulatedSync sync;
    QVERIFY(sync.run());
    const auto device = sync.listed();
    const QStringList before = ModelText(*device).all();
    QVERIFY(sync.import(2, 1, "a logo"));
    QVERIFY(device->files().isEmpty());
    QCOMPARE(ModelText(*device).all(), before);
    QVERIFY(sync.run());
    QCOMPARE(sync.listed(), device);
    QCOMPARE(device->files().size(), 1);
}

void tst_SyncSimulated::reportsChangeWhatWasRead()
{
    const MessageCatcher quiet;
    SimulatedSync sync;
    QVERIFY(sync.run());
    const auto device = sync.listed();
    const auto input = device->findInterface({1, 2, 0}).lock();
    const QSignalSpy changes(input.get(), &BizModel::Interface::interfaceChanged);
    QVERIFY(sync.connection.simulator->execute(QStringLiteral("depth 1 2 12")).ok);
    QTRY_COMPARE(int(input->detail().colorDepths.actualColorDepth), 12);
    QCOMPARE(changes.size(), 1);
    QVERIFY(sync.connection.simulator->execute(QStringLiteral("power 2 0")).ok);
    QTRY_COMPARE(device->findPower(2)->status, 0);
}

// Whatever the device reports during the synchronisations, the model matches the device afterwards.
void tst_SyncSimulated::reportsArriveWhileTheDeviceIsReadAgain()
{
    const MessageCatcher quiet;
    SimulatedSync sync;
    QVERIFY(sync.run());
    const auto device = sync.listed();
    int reports = 0;
    QTimer reporting; // on this thread, while the task reads on another one
    connect(&reporting, &QTimer::timeout, this, [&] {
        sync.connection.simulator->execute(QStringLiteral("power 2 %1").arg(++reports % 2));
    });
    reporting.start(0);
    for (int round = 0; round < 5; ++round)
        QVERIFY(sync.run());
    reporting.stop();
    QVERIFY(reports > 5);
    sync.connection.simulator->execute(QStringLiteral("power 2 0"));
    sync.connection.simulator->execute(QStringLiteral("depth 1 2 12"));
    const auto input = device->findInterface({1, 2, 0}).lock();
    QTRY_COMPARE(int(input->detail().colorDepths.actualColorDepth), 12); // the last report
    QCOMPARE(device->findPower(2)->status, 0);
    QCOMPARE(device->layers().size(), 32);
}

void tst_SyncSimulated::deviceThatGoesAwayIsOffline()
{
    const MessageCatcher quiet;
    SimulatedSync sync;
    QVERIFY(sync.run());
    const auto device = sync.listed();
    sync.connection.simulator.reset();
    QVERIFY(!sync.run());
    QVERIFY(!device->isSyncDataSuccess());
    QVERIFY(device->layers().isEmpty());

    SSProxy::DeviceManager::instance()->removeDeviceChannel(sync.connection.channel);
    QVERIFY(!sync.run()); // it does not start
    QVERIFY(!device->isOnline());
}

void tst_SyncSimulated::twoDevicesAreReadAtOnce()
{
    const MessageCatcher quiet;
    SimulatedSync first;
    SimulatedSync second(anotherDevice());
    bool isSecondRead = false;
    Control::DeviceList reader(nullptr);
    connect(&reader, &Control::DeviceList::signalReadDeviceDetailFinished, this,
            [&](bool success) { isSecondRead = success; });
    QString error;
    QVERIFY(reader.readDeviceDetail(second.connection.model, error));
    QVERIFY(first.run());
    QTRY_VERIFY(isSecondRead);
    QCOMPARE(first.listed()->interfaces().size(), 16);
    QCOMPARE(second.listed()->interfaces().size(), 10);
}

QTEST_GUILESS_MAIN(tst_SyncSimulated)
#include "tst_syncsimulated.moc"
