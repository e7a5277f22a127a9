// What becomes of a running search, and of the devices that it knows, when it is started anew.

#include <tavorossproxy/channel/streamchannel_p.h>
#include <tavorossproxy/discovery/devicesearch_p.h>

#include <support/common/messagecatcher.h>
#include <support/tavorossproxy/manualdatagrams.h>
#include <support/tavorossproxy/manualloop.h>

#include <QTest>

using namespace Tavoro;
using namespace Tavoro::SSProxy;
using namespace std::chrono_literals;
using Internal::ChannelIndex;
using Internal::ChannelKeeper;
using Internal::DeviceSearch;

class tst_DeviceSearch : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_loop->end(); } // a search that goes on belongs to the loop

    void secondStartTakesThePlaceOfTheFirst();
    void secondStartBringsItsOptions();
    void startThatFailsLeavesTheSearchBefore();
    void stopEndsTheSearchThatRuns();
    void deviceKeepsItsOneChannelWhenTheSearchIsStartedAnew();
    void removedDeviceStaysAwayWhenTheSearchIsStartedAnew();
    void refreshLetsDevicesInAgainWhileNobodySearches();

private:
    void start(const char *target);
    void stop();
    void answer();

    std::shared_ptr<ManualLoop> m_loop;
    ManualNetwork m_network;
    std::shared_ptr<ChannelIndex> m_index;
    std::shared_ptr<DeviceSearch> m_search;
    DiscoveryOptions m_options;
    int m_opened = 0;
};

void tst_DeviceSearch::init()
{
    m_loop = std::make_shared<ManualLoop>();
    m_network = {};
    m_index = std::make_shared<ChannelIndex>();
    m_options = {};
    m_opened = 0;
    const auto open = [this](const auto &, const ChannelOptions &options) {
        ++m_opened;
        return Internal::StreamChannel::open({}, nullptr, m_loop, options, [](auto, auto) {});
    };
    m_search = std::make_shared<DeviceSearch>(
        m_loop, [this] { return std::make_unique<ManualDatagramPort>(m_network); },
        std::make_shared<ChannelKeeper>(m_index, open, [](const auto &) {}));
}

void tst_DeviceSearch::start(const char *target)
{
    m_options.targets = {{QLatin1String(target)}};
    m_search->start(m_options);
    m_loop->run();
}

void tst_DeviceSearch::stop()
{
    m_search->stop();
    m_loop->run();
}

void tst_DeviceSearch::answer()
{
    m_network.deliver(QStringLiteral("192.0.2.7"),
                      R"(rspKELVORIN:{"sn":"0123456789ABCDEF","mac":"02005E100001",)"
                      R"("tcpPort":6630})");
}

void tst_DeviceSearch::secondStartTakesThePlaceOfTheFirst()
{
    start("192.0.2.7");
    start("192.0.2.8");
    QCOMPARE(m_network.ports, 1);
    m_network.sent.clear();
    m_loop->advance(5s);
    QCOMPARE(m_network.sent, QStringList{QStringLiteral("192.0.2.8:6631 reqKELVORIN:")});
}

void tst_DeviceSearch::secondStartBringsItsOptions()
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

void tst_DeviceSearch::startThatFailsLeavesTheSearchBefore()
{
    start("192.0.2.7");
    MessageCatcher messages;
    m_network.failure = QStringLiteral("no more sockets");
    start("192.0.2.8");
    QCOMPARE(messages.texts("tavoro.channel", QtWarningMsg),
             QStringList{QStringLiteral("Devices cannot be looked for: no more sockets.")});
    QCOMPARE(m_network.ports, 1);
    m_network.sent.clear();
    m_loop->advance(5s);
    QCOMPARE(m_network.sent, QStringList{QStringLiteral("192.0.2.7:6631 reqKELVORIN:")});
}

void tst_DeviceSearch::stopEndsTheSearchThatRuns()
{
    start("192.0.2.7");
    start("192.0.2.8");
    stop();
    QCOMPARE(m_network.ports, 0);
    m_network.sent.clear();
    m_search->refresh();
    m_loop->advance(1min);
    QCOMPARE(m_network.sent, QStringList());
}

void tst_DeviceSearch::deviceKeepsItsOneChannelWhenTheSearchIsStartedAnew()
{
    start("192.0.2.7");
    answer();
    stop();
    start("192.0.2.7");
    answer(); // the channel has not connected, and has told no identity
    QCOMPARE(m_opened, 1);
    QCOMPARE(m_index->all().size(), std::size_t(1));
}

void tst_DeviceSearch::removedDeviceStaysAwayWhenTheSearchIsStartedAnew()
{
    start("192.0.2.7");
    answer();
    m_index->remove(m_index->all().at(0));
    start("192.0.2.7");
    answer();
    QCOMPARE(m_opened, 1);
    m_search->refresh();
    m_loop->run();
    answer();
    QCOMPARE(m_opened, 2);
}

void tst_DeviceSearch::refreshLetsDevicesInAgainWhileNobodySearches()
{
    start("192.0.2.7");
    answer();
    m_index->remove(m_index->all().at(0));
    stop();
    m_search->refresh();
    start("192.0.2.7");
    answer();
    QCOMPARE(m_opened, 2);
}

QTEST_GUILESS_MAIN(tst_DeviceSearch)
#include "tst_devicesearch.moc"
