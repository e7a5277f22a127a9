// How devices come to a session: from the store of the last run, by discovery, and by two
// addresses.

#include <support/tavorosession/sessionbench.h>

#include <tavorobizmodel/layer.h>

#include <QHostAddress>
#include <QSignalSpy>
#include <QTemporaryDir>

using namespace Tavoro;
using namespace std::chrono_literals;

namespace {

const QString firstAddress = QStringLiteral("127.0.0.1");
const QString secondAddress = QStringLiteral("127.0.0.2");

BizModel::DeviceList &list()
{
    return *BizModel::DeviceList::instance();
}

void clearList()
{
    const auto devices = list().devices();
    for (const auto &device : devices)
        list().remove(device);
}

/// A device that both addresses reach.
Sim::SimOptions reachableDevice()
{
    Sim::SimOptions options = SessionBench::smallDevice();
    options.address = QHostAddress(QHostAddress::AnyIPv4);
    options.discoveryPort = 0;
    return options;
}

int kindOf(const DeviceSession &device)
{
    return int(device.state().kind);
}

} // namespace

class tst_SessionOpening : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { m_device = std::make_unique<RunningSimulator>(reachableDevice()); }
    void cleanup()
    {
        m_session.reset();
        m_device.reset();
        list().closeDeviceStore();
        clearList();
    }

    void storedDeviceIsThereAtOnceAndBecomesReady();
    void storedDeviceThatIsOffKeepsItsLastModel();
    void listedDeviceIsOpenedOnce();
    void newDeviceHasItsSessionWhenTheListReportsIt();
    void discoveryOpensADevice();
    void discoveryOpensNoSecondSession();
    void stoppedDiscoveryKeepsItsDevices();
    void secondAddressOfADeviceIsClosed();
    void addressesThatAreOpenedTogetherGiveOneSession();
    void lostSessionFollowsToTheNewAddress();
    void closedSessionGivesItsDeviceToAnother();

private:
    void startSession() { m_session = std::make_unique<Session>(SessionBench::fastOptions()); }
    quint16 port() const { return m_device->simulator->port(); }
    DeviceSession *open(const QString &address) { return m_session->open(address, port()); }
    void openStore()
    {
        QString error;
        BizModel::s_DeviceStoreOptions options;
        options.fileName = m_folder.filePath(QStringLiteral("store.sqlite"));
        QVERIFY2(list().openDeviceStore(options, error), qPrintable(error));
    }
    /// Reads the device, and ends with its data in the store only.
    void runBefore()
    {
        openStore();
        startSession();
        DeviceSession *const wall = open(firstAddress);
        QTRY_VERIFY(wall->isReady());
        m_session.reset();
        list().closeDeviceStore();
        clearList();
        openStore();
        startSession();
    }
    SSProxy::DiscoveryOptions discovery() const
    {
        SSProxy::DiscoveryOptions options;
        options.targets = {{firstAddress, m_device->simulator->discoveryPort()}};
        options.interval = 100ms;
        return options;
    }

    std::unique_ptr<RunningSimulator> m_device;
    std::unique_ptr<Session> m_session;
    QTemporaryDir m_folder;
};

void tst_SessionOpening::storedDeviceIsThereAtOnceAndBecomesReady()
{
    runBefore();
    const QList<DeviceSession *> opened = m_session->openListed();
    QCOMPARE(opened.size(), 1);
    DeviceSession &wall = *opened.first();
    QCOMPARE(wall.name(), QStringLiteral("wall 1"));
    QCOMPARE(wall.address(), QStringLiteral("127.0.0.1:%1").arg(port()));
    QCOMPARE(kindOf(wall), int(DeviceState::Connecting));
    const auto device = wall.device();
    QVERIFY(device && !device->layers().isEmpty());
    const auto layer = device->layers().first().lock();
    QTRY_VERIFY(wall.isReady());
    QCOMPARE(wall.device(), device);
    QCOMPARE(device->layers().first().lock(), layer);
    QVERIFY(device->isOnline());
}

void tst_SessionOpening::storedDeviceThatIsOffKeepsItsLastModel()
{
    runBefore();
    m_device.reset();
    const QList<DeviceSession *> opened = m_session->openListed();
    QCOMPARE(opened.size(), 1);
    DeviceSession &wall = *opened.first();
    QTRY_VERIFY(!wall.state().reason.isEmpty());
    QCOMPARE(kindOf(wall), int(DeviceState::Connecting));
    QVERIFY(!wall.device()->layers().isEmpty());
    QVERIFY(!wall.device()->isOnline());
}

void tst_SessionOpening::listedDeviceIsOpenedOnce()
{
    runBefore();
    QCOMPARE(m_session->openListed().size(), 1);
    QCOMPARE(m_session->openListed().size(), 0);
    QCOMPARE(m_session->devices().size(), 1);
    QCOMPARE(m_session->find(m_session->devices().first()->device()), m_session->devices().first());
}

void tst_SessionOpening::newDeviceHasItsSessionWhenTheListReportsIt()
{
    startSession();
    QObject context;
    QList<DeviceSession *> found;
    QList<DeviceSession *> opened;
    connect(&list(), &BizModel::DeviceList::signalDeviceAppended, &context,
            [&](const std::weak_ptr<BizModel::Device> &device) {
                found << m_session->find(device.lock());
                opened << m_session->openListed();
            });
    DeviceSession *const wall = open(firstAddress);
    QTRY_VERIFY(wall->isReady());
    QCOMPARE(found, QList<DeviceSession *>{wall});
    QCOMPARE(opened, QList<DeviceSession *>());
}

void tst_SessionOpening::discoveryOpensADevice()
{
    startSession();
    QSignalSpy added(m_session.get(), &Session::deviceAdded);
    m_session->startDiscovery(discovery());
    QTRY_COMPARE(added.size(), 1);
    DeviceSession &wall = *m_session->devices().first();
    QTRY_VERIFY(wall.isReady());
    QCOMPARE(wall.name(), QStringLiteral("wall 1"));
    QCOMPARE(wall.address(), QStringLiteral("127.0.0.1:%1").arg(port()));
}

void tst_SessionOpening::discoveryOpensNoSecondSession()
{
    startSession();
    DeviceSession *const wall = open(firstAddress);
    QTRY_VERIFY(wall->isReady());
    auto other = SessionBench::smallDevice(2);
    other.discoveryPort = 0;
    const RunningSimulator second(other);
    SSProxy::DiscoveryOptions both = discovery();
    both.targets.push_back({firstAddress, second.simulator->discoveryPort()});
    m_session->startDiscovery(both);
    QTRY_COMPARE(m_session->devices().size(), 2);
    QTRY_VERIFY(m_session->devices().last()->isReady());
    QCOMPARE(m_session->devices().last()->name(), QStringLiteral("wall 2"));
    QVERIFY(wall->isReady());
}

void tst_SessionOpening::stoppedDiscoveryKeepsItsDevices()
{
    startSession();
    m_session->startDiscovery(discovery());
    QTRY_COMPARE(m_session->devices().size(), 1);
    QTRY_VERIFY(m_session->devices().first()->isReady());
    m_session->stopDiscovery();
    QVERIFY(m_session->devices().first()->isReady());
}

void tst_SessionOpening::secondAddressOfADeviceIsClosed()
{
    startSession();
    DeviceSession *const first = open(firstAddress);
    QTRY_VERIFY(first->isReady());
    QSignalSpy changed(first, &DeviceSession::stateChanged);
    DeviceSession *const second = open(secondAddress);
    QTRY_COMPARE(kindOf(*second), int(DeviceState::Disconnected));
    QCOMPARE(second->state().reason,
             QStringLiteral("the device is open already, at 127.0.0.1:%1").arg(port()));
    QVERIFY(!second->device());
    QVERIFY(first->isReady());
    QCOMPARE(changed.size(), 0);
    QVERIFY(first->device()->isOnline());
    QCOMPARE(list().devices().size(), 1);
    QCOMPARE(m_session->find(first->device()), first);
}

void tst_SessionOpening::addressesThatAreOpenedTogetherGiveOneSession()
{
    startSession();
    DeviceSession *const first = open(firstAddress);
    DeviceSession *const second = open(secondAddress);
    QTRY_VERIFY(first->isReady() || second->isReady());
    DeviceSession *const closed = first->isReady() ? second : first;
    QTRY_COMPARE(kindOf(*closed), int(DeviceState::Disconnected));
    QVERIFY(closed->state().reason.startsWith(QLatin1String("the device is open already, at ")));
    QCOMPARE(list().devices().size(), 1);
}

void tst_SessionOpening::lostSessionFollowsToTheNewAddress()
{
    startSession();
    DeviceSession *const first = open(firstAddress);
    QTRY_VERIFY(first->isReady());
    const auto device = first->device();
    m_device.reset();
    QTRY_COMPARE(kindOf(*first), int(DeviceState::Lost));
    Sim::SimOptions moved = reachableDevice();
    moved.address = QHostAddress(secondAddress);
    m_device = std::make_unique<RunningSimulator>(moved);
    DeviceSession *const second = open(secondAddress);
    QTRY_COMPARE(kindOf(*second), int(DeviceState::Disconnected));
    QTRY_VERIFY(first->isReady());
    QCOMPARE(first->address(), QStringLiteral("127.0.0.2:%1").arg(port()));
    QCOMPARE(first->device(), device);
    QVERIFY(device->isOnline());
}

void tst_SessionOpening::closedSessionGivesItsDeviceToAnother()
{
    startSession();
    DeviceSession *const first = open(firstAddress);
    QTRY_VERIFY(first->isReady());
    first->close();
    DeviceSession *const second = open(secondAddress);
    QTRY_VERIFY(second->isReady());
    QCOMPARE(second->device(), first->device());
    QCOMPARE(m_session->find(second->device()), second);
    first->open();
    QTRY_VERIFY(!first->state().reason.isEmpty());
    QTRY_COMPARE(kindOf(*first), int(DeviceState::Disconnected));
    QVERIFY(second->isReady());
    QVERIFY(second->device()->isOnline());
    delete first;
    QVERIFY(second->device()->isOnline());
    QCOMPARE(m_session->find(second->device()), second);
}

QTEST_GUILESS_MAIN(tst_SessionOpening)
#include "tst_sessionopening.moc"
