// What happens to running discovery, and to the devices that it knows, when it is restarted.

#include <tavorossproxy/channel/streamchannel_p.h>
#include <tavorossproxy/discovery/discoveryservice_p.h>

#include <support/common/messagecatcher.h>
#include <support/tavorossproxy/manualdatagrams.h>
#include <support/tavorossproxy/manualloop.h>

#include <QTest>

using namespace Tavoro;
using namespace Tavoro::SSProxy;
using namespace std::chrono_literals;
using Internal::ChannelRegistry;
using Internal::DeviceTracker;
using Internal::DiscoveryService;

class tst_DiscoveryService : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_loop->end(); } // the loop owns a query that is still running

    void secondStartReplacesTheFirst();
    void secondStartAppliesItsOptions();
    void failedStartKeepsTheDiscoveryBefore();
    void stopEndsTheRunningDiscovery();
    void deviceKeepsItsChannelWhenDiscoveryIsRestarted();
    void removedDeviceStaysAwayWhenDiscoveryIsRestarted();
    void refreshReadmitsDevicesWhileDiscoveryIsStopped();

private:
    void start(const char *target);
    void stop();
    void answer();

    std::shared_ptr<ManualLoop> m_loop;
    ManualNetwork m_network;
    std::shared_ptr<ChannelRegistry> m_registry;
    std::shared_ptr<DiscoveryService> m_service;
    DiscoveryOptions m_options;
    int m_opened = 0;
};

void tst_DiscoveryService::init()
{
    m_loop = std::make_shared<ManualLoop>();
    m_network = {};
    m_registry = std::make_shared<ChannelRegistry>();
    m_options = {};
    m_opened = 0;
    const auto open = [this](const auto &, const ChannelOptions &options) {
        ++m_opened;
        return Internal::StreamChannel::open({}, nullptr, m_loop, options, [](auto, auto) {});
    };
    m_service = std::make_shared<DiscoveryService>(
        m_loop, [this] { return std::make_unique<ManualDatagramSocket>(m_network); },
        std::make_shared<DeviceTracker>(m_registry, open, [](const auto &) {}));
}

void tst_DiscoveryService::start(const char *target)
{
    m_options.targets = {{QLatin1String(target)}};
    m_service->start(m_options);
    m_loop->run();
}

void tst_DiscoveryService::stop()
{
    m_service->stop();
    m_loop->run();
}

void tst_DiscoveryService::answer()
{
    m_network.deliver(QStringLiteral("192.0.2.7"),
                      R"(rspKELVORIN:{"sn":"0123456789ABCDEF","mac":"02005E100001",)"
                      R"("tcpPort":6630})");
}

void tst_DiscoveryService::secondStartReplacesTheFirst()
{
    start("192.0.2.7");
    start("192.0.2.8");
    QCOMPARE(m_network.sockets, 1);
    m_network.sent.clear();
    m_loop->advance(5s);
    QCOMPARE(m_network.sent, QStringList{QStringLiteral("192.0.2.8:6631 reqKELVORIN:")});
}

void tst_DiscoveryService::secondStartAppliesItsOptions()
{
    m_options.maxChannels = 0;
    start("192.0.2.7");
    answer();
    QCOMPARE(m_opened, 0);
    m_options.maxChannels = 1;
    start("192.0.2.7");
    answer();
    QCOMPARE(m_opened, 1);
}

void tst_DiscoveryService::failedStartKeepsTheDiscoveryBefore()
{
    start("192.0.2.7");
    MessageCatcher messages;
    m_network.failure = QStringLiteral("no more sockets");
    start("192.0.2.8");
    QCOMPARE(messages.texts("tavoro.channel", QtWarningMsg),
             QStringList{QStringLiteral("Cannot search for devices: no more sockets.")});
    QCOMPARE(m_network.sockets, 1);
    m_network.sent.clear();
    m_loop->advance(5s);
    QCOMPARE(m_network.sent, QStringList{QStringLiteral("192.0.2.7:6631 reqKELVORIN:")});
}

void tst_DiscoveryService::stopEndsTheRunningDiscovery()
{
    start("192.0.2.7");
    start("192.0.2.8");
    stop();
    QCOMPARE(m_network.sockets, 0);
    m_network.sent.clear();
    m_service->refresh();
    m_loop->advance(1min);
    QCOMPARE(m_network.sent, QStringList());
}

void tst_DiscoveryService::deviceKeepsItsChannelWhenDiscoveryIsRestarted()
{
    start("192.0.2.7");
    answer();
    stop();
    start("192.0.2.7");
    answer(); // the channel has not connected, so its device is not identified
    QCOMPARE(m_opened, 1);
    QCOMPARE(m_registry->all().size(), std::size_t(1));
}

void tst_DiscoveryService::removedDeviceStaysAwayWhenDiscoveryIsRestarted()
{
    start("192.0.2.7");
    answer();
    m_registry->remove(m_registry->all().at(0));
    start("192.0.2.7");
    answer();
    QCOMPARE(m_opened, 1);
    m_service->refresh();
    m_loop->run();
    answer();
    QCOMPARE(m_opened, 2);
}

void tst_DiscoveryService::refreshReadmitsDevicesWhileDiscoveryIsStopped()
{
    start("192.0.2.7");
    answer();
    m_registry->remove(m_registry->all().at(0));
    stop();
    m_service->refresh();
    start("192.0.2.7");
    answer();
    QCOMPARE(m_opened, 2);
}

QTEST_GUILESS_MAIN(tst_DiscoveryService)
#include "tst_discoveryservice.moc"
