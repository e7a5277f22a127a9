// Discovery over loopback sockets, and the channels that it opens.

#include <support/common/patience.h>

#include <tavorosim/simulateddevice.h>
#include <tavorossproxy/devicediscovery.h>
#include <tavorossproxy/devicemanager.h>
#include <tavorossproxy/networkchannel.h>
#include <tavorossproxy/tcpdevicechannel.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QHostAddress>
#include <QNetworkDatagram>
#include <QTest>
#include <QUdpSocket>

#include <sys/resource.h>
#include <unistd.h>

#include <atomic>
#include <future>
#include <memory>

using namespace Tavoro;
using namespace Tavoro::SSProxy;
using Sim::SimOptions;
using Sim::SimulatedDevice;

namespace {

SimOptions wall(quint8 number, const char *address = "127.0.0.1", int discoveryPort = 0)
{
    SimOptions options;
    options.address = QHostAddress(QLatin1String(address));
    options.discoveryPort = discoveryPort;
    options.sn.back() = number;
    options.mac.back() = number;
    options.name = QStringLiteral("wall %1").arg(number);
    return options;
}

std::unique_ptr<SimulatedDevice> start(const SimOptions &options)
{
    auto device = std::make_unique<SimulatedDevice>(options);
    QString error;
    if (!device->start(error))
        qFatal("%s", qUtf8Printable(error));
    return device;
}

DiscoveryTarget targetOf(const SimulatedDevice &device, const char *address = "127.0.0.1")
{
    return {QString::fromLatin1(address), device.discoveryPort()};
}

std::vector<std::shared_ptr<NetworkChannel>> channels()
{
    std::vector<std::shared_ptr<NetworkChannel>> found;
    for (const auto &channel : DeviceManager::instance()->tavoroDeviceChannels())
        found.push_back(std::dynamic_pointer_cast<NetworkChannel>(channel.lock()));
    return found;
}

bool isConnected(std::size_t index = 0)
{
    return channels().size() > index && channels()[index]->isHardwareReadFinished();
}

/// Prevents the process from opening files and sockets during its lifetime.
class NoMoreFiles {
public:
    NoMoreFiles()
    {
        getrlimit(RLIMIT_NOFILE, &m_before);
        const int next = dup(0);
        close(next);
        const rlimit full{static_cast<rlim_t>(next), m_before.rlim_max};
        setrlimit(RLIMIT_NOFILE, &full);
    }
    ~NoMoreFiles() { setrlimit(RLIMIT_NOFILE, &m_before); }
    NoMoreFiles(const NoMoreFiles &) = delete;
    NoMoreFiles &operator=(const NoMoreFiles &) = delete;

private:
    rlimit m_before{};
};

} // namespace

class tst_DeviceDiscovery : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void devicesAnswerAQuery();
    void requestsComeFromAnUnprivilegedPort();
    void manyDevicesThatAnswerAtOnceAreAllFound();
    void searchWithoutASocketFailsAtOnce();
    void targetThatIsNotAnIpv4AddressGetsNoRequest_data();
    void targetThatIsNotAnIpv4AddressGetsNoRequest();
    void deviceThatIsSwitchedOffDoesNotAnswer();
    void foundDeviceHasAChannel();
    void devicesAreFoundDuringRunningDiscovery();
    void discoveryCanBeRestartedWithOtherTargets();
    void deviceWithAChannelGetsNoSecondOne();
    void removedDeviceGetsAChannelAfterRefresh();
    void deviceThatMovesKeepsItsChannel();

private:
    int m_argc = 1;
    char m_name[5] = "test";
    char *m_argv[2] = {m_name, nullptr};
    std::unique_ptr<QCoreApplication> m_application;
};

void tst_DeviceDiscovery::init()
{
    m_application = std::make_unique<QCoreApplication>(m_argc, m_argv);
}

/// The channels' thread ends with the application object. Otherwise it could log the loss of a
/// connection while Qt Test deletes its loggers after the last test.
void tst_DeviceDiscovery::cleanup()
{
    stopDeviceDiscovery();
    for (const auto &channel : channels()) {
        channel->stopChannel();
        DeviceManager::instance()->removeDeviceChannel(channel);
    }
    DeviceManager::instance()->refreshDeviceChannel(); // readmits the removed devices
    m_application.reset();
}

void tst_DeviceDiscovery::devicesAnswerAQuery()
{
    const auto first = start(wall(1));
    const auto second = start(wall(2));
    const auto devices = findDevices(60000, 2, {targetOf(*first), targetOf(*second)});
    QCOMPARE(devices.size(), std::size_t(2));
    for (const auto &device : devices) {
        const SimulatedDevice &expected = device.sn.back() == 1 ? *first : *second;
        QCOMPARE(device.tcpPort, expected.port());
        QCOMPARE(device.name, "wall " + std::to_string(device.sn.back()));
        QCOMPARE(device.ip, std::string("127.0.0.1"));
    }
    QVERIFY(channels().empty());
}

/// Ports below 1024 are reserved for the system.
void tst_DeviceDiscovery::requestsComeFromAnUnprivilegedPort()
{
    QUdpSocket device;
    QVERIFY(device.bind(QHostAddress(QHostAddress::LocalHost)));
    findDevices(0, 0, {{QStringLiteral("127.0.0.1"), device.localPort()}});
    QVERIFY(device.hasPendingDatagrams() || device.waitForReadyRead(60000));
    const QNetworkDatagram request = device.receiveDatagram();
    QCOMPARE(request.data(), QByteArray("reqKELVORIN:"));
    QVERIFY2(request.senderPort() >= 1024, qPrintable(QString::number(request.senderPort())));
}

void tst_DeviceDiscovery::manyDevicesThatAnswerAtOnceAreAllFound()
{
    QUdpSocket crowd;
    QVERIFY(crowd.bind(QHostAddress(QHostAddress::LocalHost)));
    auto found = std::async(std::launch::async, [port = crowd.localPort()] {
        return findDevices(60000, 100, {{QStringLiteral("127.0.0.1"), port}}).size();
    });
    QVERIFY(crowd.waitForReadyRead(60000));
    const QNetworkDatagram request = crowd.receiveDatagram();
    for (int device = 100; device < 200; ++device) {
        const QByteArray number = QByteArray::number(device);
        crowd.writeDatagram(request.makeReply("rspKELVORIN:{\"sn\":\"0123456789ABC" + number
                                              + "\",\"mac\":\"02005E100001\",\"tcpPort\":6630}"));
    }
    QCOMPARE(found.get(), std::size_t(100));
}

void tst_DeviceDiscovery::searchWithoutASocketFailsAtOnce()
{
    const auto device = start(wall(1));
    QString error;
    QCOMPARE(findDevices(60000, 1, {targetOf(*device)}, error).size(), std::size_t(1));
    QCOMPARE(error, QString());
    const auto fails = [&] {
        const NoMoreFiles noMoreFiles;
        return findDevices(600000, 1, {targetOf(*device)}, error).empty();
    };
    QElapsedTimer time;
    time.start();
    QTRY_VERIFY(fails()); // the previous query closes its socket a little later
    QVERIFY(time.elapsed() < 300000);
    QVERIFY2(error.startsWith(QLatin1String("Cannot search for devices: ")), qPrintable(error));
}

void tst_DeviceDiscovery::targetThatIsNotAnIpv4AddressGetsNoRequest_data()
{
    QTest::addColumn<QString>("address");
    QTest::newRow("name") << "wall.invalid";
    QTest::newRow("any of IPv6") << "::";
    QTest::newRow("nothing") << "";
}

/// Otherwise Qt would send the request to this machine.
void tst_DeviceDiscovery::targetThatIsNotAnIpv4AddressGetsNoRequest()
{
    QFETCH(QString, address);
    QUdpSocket bystander;
    QVERIFY(bystander.bind(QHostAddress(QHostAddress::LocalHost)));
    const auto device = start(wall(1));
    // Requests are sent in order: when the device has answered, the other one was sent before.
    const auto devices =
        findDevices(60000, 1, {{address, bystander.localPort()}, targetOf(*device)});
    QCOMPARE(devices.size(), std::size_t(1));
    QVERIFY(!bystander.hasPendingDatagrams());
}

void tst_DeviceDiscovery::deviceThatIsSwitchedOffDoesNotAnswer()
{
    const auto off = start(wall(1));
    const auto on = start(wall(2));
    QVERIFY(off->execute(QStringLiteral("switch 0")).ok);
    QCOMPARE(findDevices(60000, 1, {targetOf(*off), targetOf(*on)}).at(0).name,
             std::string("wall 2"));
    QVERIFY(off->execute(QStringLiteral("switch 1")).ok);
    QCOMPARE(findDevices(60000, 1, {targetOf(*off)}).at(0).name, std::string("wall 1"));
}

void tst_DeviceDiscovery::foundDeviceHasAChannel()
{
    const auto device = start(wall(1));
    std::atomic<int> reported{0};
    const auto connection = connect(
        DeviceManager::instance(), &DeviceManager::deviceChannelFound, DeviceManager::instance(),
        [&] { ++reported; }, Qt::DirectConnection);
    DiscoveryOptions options;
    options.targets = {targetOf(*device)};
    startDeviceDiscovery(options);
    QTRY_VERIFY(isConnected());
    QCOMPARE(reported.load(), 1);
    QVERIFY(DeviceManager::instance()->findTavoroDeviceChannel("127.0.0.1", "02005E100001",
                                                               "53494D0000000001"));
    disconnect(connection);
}

void tst_DeviceDiscovery::devicesAreFoundDuringRunningDiscovery()
{
    const auto device = start(wall(1));
    DiscoveryOptions options;
    options.targets = {targetOf(*device)};
    startDeviceDiscovery(options);
    QTRY_VERIFY(isConnected());
    QCOMPARE(findDevices(60000, 1, options.targets).size(), std::size_t(1));
}

void tst_DeviceDiscovery::discoveryCanBeRestartedWithOtherTargets()
{
    const auto first = start(wall(1));
    const auto second = start(wall(2));
    DiscoveryOptions options;
    options.targets = {targetOf(*first)};
    startDeviceDiscovery(options);
    QTRY_VERIFY(isConnected());
    options.targets = {targetOf(*first), targetOf(*second)};
    startDeviceDiscovery(options);
    QTRY_VERIFY(isConnected(1));
    QCOMPARE(channels().size(), std::size_t(2));
}

void tst_DeviceDiscovery::deviceWithAChannelGetsNoSecondOne()
{
    const auto first = start(wall(1));
    const auto second = start(wall(2));
    ChannelOptions waiting;
    waiting.maxConnections = 0; // it never connects, so its device is not identified
    DeviceManager::instance()->addDeviceChannel(
        openTcpDeviceChannel(QStringLiteral("127.0.0.1"), first->port(), waiting));
    DiscoveryOptions options;
    options.targets = {targetOf(*first), targetOf(*second)};
    startDeviceDiscovery(options);
    QTRY_VERIFY(isConnected(1));
    QCOMPARE(channels().size(), std::size_t(2));
    QCOMPARE(channels()[1]->deviceBaseInfo().name, std::string("wall 2"));
}

void tst_DeviceDiscovery::removedDeviceGetsAChannelAfterRefresh()
{
    const auto device = start(wall(1));
    DiscoveryOptions options;
    options.targets = {targetOf(*device)};
    options.interval = std::chrono::milliseconds(0);
    startDeviceDiscovery(options);
    QTRY_VERIFY(isConnected());
    const auto channel = channels().at(0);
    channel->stopChannel();
    DeviceManager::instance()->removeDeviceChannel(channel);
    QVERIFY(channels().empty());
    DeviceManager::instance()->refreshDeviceChannel();
    QTRY_VERIFY(isConnected());
    QVERIFY(channels().at(0) != channel);
}

void tst_DeviceDiscovery::deviceThatMovesKeepsItsChannel()
{
    auto device = start(wall(1));
    const quint16 discoveryPort = device->discoveryPort();
    DiscoveryOptions options;
    options.targets = {targetOf(*device), targetOf(*device, "127.0.0.2")};
    options.interval = std::chrono::milliseconds(0);
    startDeviceDiscovery(options);
    QTRY_VERIFY(isConnected());
    const auto channel = channels().at(0);

    device.reset();
    QTRY_VERIFY(!channel->isHardwareReadFinished());
    device = start(wall(1, "127.0.0.2", discoveryPort));
    DeviceManager::instance()->refreshDeviceChannel();
    QTRY_VERIFY(isConnected());
    QCOMPARE(channels().size(), std::size_t(1));
    QCOMPARE(channels().at(0), channel);
    QCOMPARE(channel->deviceBaseInfo().ip, std::string("127.0.0.2"));
    for (const char *ip : {"127.0.0.2", "127.0.0.1"}) {
        QCOMPARE(DeviceManager::instance()->findTavoroDeviceChannel(ip, "02005E100001",
                                                                    "53494D0000000001"),
                 std::shared_ptr<DeviceChannel>(channel));
    }
}

QTEST_APPLESS_MAIN(tst_DeviceDiscovery)
#include "tst_devicediscovery.moc"
