#include <tavorossproxy/devicemanager.h>
#include <tavorossproxy/networkchannel.h>

#include <support/tavorocontrol/scriptedchannel.h>

#include <QTest>

#include <thread>

using namespace Tavoro;
using namespace Tavoro::SSProxy;

namespace {

const char ip[] = "192.0.2.7";
const char mac[] = "02005E100001";
const char sn[] = "0123456789ABCDEF";

/// A channel that counts how often its identity is read and how often it is refreshed.
class CountingChannel : public NetworkChannel {
public:
    std::shared_ptr<DeviceResponseCommand>
    sendSyncRequest(std::shared_ptr<DeviceRequestCommand>) override
    {
        return nullptr;
    }
    ProtoModel::DeviceBaseInfo deviceBaseInfo() const override
    {
        ++asked;
        return info;
    }
    bool isHardwareReadFinished() override { return true; }
    bool isMasterControl() override { return true; }
    void stopChannel() override { }
    bool waitUntilReady(int, QString &) override { return true; }
    void reconnectNow() override { ++refreshed; }
    void moveTo(const QString &, quint16) override { }
    bool requestControl(ControlAction, QString &) override { return true; }
    RequestOutcome requestOutcome(quint8) override { return {}; }
    ChannelStatistics statistics() const override { return {}; }

    ProtoModel::DeviceBaseInfo info;
    mutable int asked = 0;
    int refreshed = 0;
};

} // namespace

class tst_DeviceManager : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void channelIsFoundByItsIdentity();
    void everyPartOfTheIdentityCounts_data();
    void everyPartOfTheIdentityCounts();
    void channelIdentifiedLaterIsFound();
    void changedIdentityIsFound();
    void identityThatMovesToAnotherChannelIsFoundThere();
    void findReadsOneIdentityOfFifty();
    void channelIsAddedOnlyOnce();
    void nullChannelIsIgnored();
    void removedChannelIsNotFound();
    void removedChannelIsNotKeptAlive();
    void refreshReachesTheChannels();
    void controlOfAConnectedDeviceIsGranted();
    void controlOfAnUnknownDeviceFailsWithAText();
    void controlHeldByAnotherClientFailsWithAText();
    void managerIsThreadSafe();

private:
    DeviceManager *const m_manager = DeviceManager::instance();
};

void tst_DeviceManager::cleanup()
{
    for (const auto &channel : m_manager->tavoroDeviceChannels())
        m_manager->removeDeviceChannel(channel.lock());
}

void tst_DeviceManager::channelIsFoundByItsIdentity()
{
    const auto channel = std::make_shared<ScriptedChannel>();
    m_manager->addDeviceChannel(channel);
    QCOMPARE(m_manager->findTavoroDeviceChannel(ip, mac, sn).get(), channel.get());
    QCOMPARE(m_manager->findDeviceChannel(ip, mac, sn).get(), channel.get());
    QCOMPARE(m_manager->findTavoroDeviceChannel(ip, mac, sn).get(), channel.get());
}

void tst_DeviceManager::everyPartOfTheIdentityCounts_data()
{
    QTest::addColumn<QString>("otherIp");
    QTest::addColumn<QString>("otherMac");
    QTest::addColumn<QString>("otherSn");
    const auto row = [](const char *name, const char *rowIp, const char *rowMac,
                        const char *rowSn) {
        QTest::newRow(name) << QString::fromLatin1(rowIp) << QString::fromLatin1(rowMac)
                            << QString::fromLatin1(rowSn);
    };
    row("ip", "192.0.2.8", mac, sn);
    row("mac", ip, "02005E100002", sn);
    row("sn", ip, mac, "0123456789ABCDEE");
    row("lower case", ip, "02005e100001", sn);
    row("nothing", "", "", "");
}

void tst_DeviceManager::everyPartOfTheIdentityCounts()
{
    QFETCH(QString, otherIp);
    QFETCH(QString, otherMac);
    QFETCH(QString, otherSn);
    m_manager->addDeviceChannel(std::make_shared<ScriptedChannel>());
    QVERIFY(m_manager->findDeviceChannel(ip, mac, sn));
    QVERIFY(!m_manager->findDeviceChannel(otherIp.toStdString(), otherMac.toStdString(),
                                          otherSn.toStdString()));
}

void tst_DeviceManager::channelIdentifiedLaterIsFound()
{
    const auto channel = std::make_shared<ScriptedChannel>();
    const auto info = channel->info;
    channel->info = {};
    m_manager->addDeviceChannel(channel);
    QVERIFY(!m_manager->findDeviceChannel(ip, mac, sn));
    channel->info = info;
    QCOMPARE(m_manager->findDeviceChannel(ip, mac, sn).get(), channel.get());
}

void tst_DeviceManager::changedIdentityIsFound()
{
    const auto channel = std::make_shared<ScriptedChannel>();
    m_manager->addDeviceChannel(channel);
    QVERIFY(m_manager->findDeviceChannel(ip, mac, sn));
    channel->info.ip = "192.0.2.99";
    QVERIFY(!m_manager->findDeviceChannel(ip, mac, sn));
    QCOMPARE(m_manager->findDeviceChannel("192.0.2.99", mac, sn).get(), channel.get());
}

void tst_DeviceManager::identityThatMovesToAnotherChannelIsFoundThere()
{
    const auto first = std::make_shared<ScriptedChannel>();
    const auto second = std::make_shared<ScriptedChannel>();
    second->info = {};
    m_manager->addDeviceChannel(first);
    m_manager->addDeviceChannel(second);
    QCOMPARE(m_manager->findDeviceChannel(ip, mac, sn).get(), first.get());
    std::swap(first->info, second->info);
    QCOMPARE(m_manager->findDeviceChannel(ip, mac, sn).get(), second.get());
}

void tst_DeviceManager::findReadsOneIdentityOfFifty()
{
    std::vector<std::shared_ptr<CountingChannel>> channels;
    for (int i = 0; i < 50; ++i) {
        channels.push_back(std::make_shared<CountingChannel>());
        channels.back()->info.sn[7] = static_cast<quint8>(i);
        m_manager->addDeviceChannel(channels.back());
    }
    const std::string lastSn = "0000000000000031";
    QVERIFY(m_manager->findDeviceChannel("", "000000000000", lastSn));
    for (const auto &channel : channels)
        channel->asked = 0;
    QVERIFY(m_manager->findDeviceChannel("", "000000000000", lastSn));
    QCOMPARE(channels[49]->asked, 1);
    for (unsigned i = 0; i < 49; ++i)
        QCOMPARE(channels[i]->asked, 0);
}

void tst_DeviceManager::channelIsAddedOnlyOnce()
{
    const auto channel = std::make_shared<ScriptedChannel>();
    m_manager->addDeviceChannel(channel);
    m_manager->addDeviceChannel(channel);
    QCOMPARE(m_manager->tavoroDeviceChannels().size(), 1);
    QCOMPARE(m_manager->tavoroDeviceChannels().first().lock().get(), channel.get());
}

void tst_DeviceManager::nullChannelIsIgnored()
{
    m_manager->addDeviceChannel(nullptr);
    m_manager->removeDeviceChannel(nullptr);
    QCOMPARE(m_manager->tavoroDeviceChannels().size(), 0);
}

void tst_DeviceManager::removedChannelIsNotFound()
{
    const auto channel = std::make_shared<ScriptedChannel>();
    m_manager->addDeviceChannel(channel);
    QVERIFY(m_manager->findDeviceChannel(ip, mac, sn));
    m_manager->removeDeviceChannel(channel);
    QVERIFY(!m_manager->findDeviceChannel(ip, mac, sn));
    QCOMPARE(m_manager->tavoroDeviceChannels().size(), 0);
    QCOMPARE(channel->stops(), 0);
}

void tst_DeviceManager::removedChannelIsNotKeptAlive()
{
    auto channel = std::make_shared<ScriptedChannel>();
    m_manager->addDeviceChannel(channel);
    QVERIFY(m_manager->findDeviceChannel(ip, mac, sn));
    m_manager->removeDeviceChannel(channel);
    const std::weak_ptr<ScriptedChannel> weak = channel;
    channel.reset();
    QVERIFY(weak.expired());
}

void tst_DeviceManager::refreshReachesTheChannels()
{
    const auto network = std::make_shared<CountingChannel>();
    m_manager->addDeviceChannel(network);
    m_manager->addDeviceChannel(std::make_shared<ScriptedChannel>());
    m_manager->refreshDeviceChannel();
    QCOMPARE(network->refreshed, 1);
}

void tst_DeviceManager::controlOfAConnectedDeviceIsGranted()
{
    m_manager->addDeviceChannel(std::make_shared<ScriptedChannel>());
    QString error = QStringLiteral("as it was");
    QVERIFY(m_manager->sendTavoroControlRequest(QLatin1String(ip), QLatin1String(mac),
                                                QLatin1String(sn), error));
    QCOMPARE(error, QStringLiteral("as it was"));
}

void tst_DeviceManager::controlOfAnUnknownDeviceFailsWithAText()
{
    const auto offline = std::make_shared<ScriptedChannel>();
    offline->ready = false;
    for (int round = 0; round < 2; ++round) {
        QString error;
        QVERIFY(!m_manager->sendTavoroControlRequest(QLatin1String(ip), QLatin1String(mac),
                                                     QLatin1String(sn), error));
        QCOMPARE(error, QStringLiteral("The device at 192.0.2.7 is not connected."));
        m_manager->addDeviceChannel(offline);
    }
}

void tst_DeviceManager::controlHeldByAnotherClientFailsWithAText()
{
    const auto channel = std::make_shared<ScriptedChannel>();
    channel->master = false;
    m_manager->addDeviceChannel(channel);
    QString error;
    QVERIFY(!m_manager->sendTavoroControlRequest(QLatin1String(ip), QLatin1String(mac),
                                                 QLatin1String(sn), error));
    QCOMPARE(error, QStringLiteral("The device at 192.0.2.7 is controlled by another client."));
}

void tst_DeviceManager::managerIsThreadSafe()
{
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([this] {
            for (int round = 0; round < 200; ++round) {
                const auto channel = std::make_shared<ScriptedChannel>();
                m_manager->addDeviceChannel(channel);
                m_manager->findDeviceChannel(ip, mac, sn);
                m_manager->tavoroDeviceChannels();
                m_manager->removeDeviceChannel(channel);
            }
        });
    }
    for (auto &thread : threads)
        thread.join();
    QCOMPARE(m_manager->tavoroDeviceChannels().size(), 0);
}

QTEST_APPLESS_MAIN(tst_DeviceManager)
#include "tst_devicemanager.moc"
