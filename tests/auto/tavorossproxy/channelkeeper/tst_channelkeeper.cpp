// What becomes of a device that is found: one channel each, wherever the device goes.

#include <tavorossproxy/channel/expecteddevice_p.h>
#include <tavorossproxy/devicecommand.h>
#include <tavorossproxy/discovery/channelkeeper_p.h>

#include <QTest>

using namespace Tavoro;
using namespace Tavoro::SSProxy;
using Internal::ChannelIndex;
using Internal::ChannelKeeper;

namespace {

class QuietChannel : public NetworkChannel {
public:
    std::shared_ptr<DeviceResponseCommand>
    sendSyncRequest(std::shared_ptr<DeviceRequestCommand>) override
    {
        return nullptr;
    }
    ProtoModel::DeviceBaseInfo deviceBaseInfo() const override { return info; }
    bool isHardwareReadFinished() override { return isReady; }
    bool isMasterControl() override { return true; }
    void stopChannel() override { }
    bool waitUntilReady(int, QString &) override { return isReady; }
    void reconnectNow() override { }
    void moveTo(const QString &host, quint16 port) override
    {
        moves.append(QStringLiteral("%1:%2").arg(host).arg(port));
    }
    bool requestControl(ControlAction, QString &) override { return true; }
    RequestOutcome requestOutcome(quint8) override { return {}; }
    ChannelStatistics statistics() const override { return {}; }

    ProtoModel::DeviceBaseInfo info;
    bool isReady = false;
    QStringList moves;
};

/// One that was opened and has not connected yet.
class YoungChannel : public QuietChannel, public Internal::ExpectedDevice {
public:
    explicit YoungChannel(const char *identity = "") : m_identity(identity) { }

    std::string expectedIdentity() const override { return m_identity; }
    bool isBoundFor(const QString &host, quint16 port) const override
    {
        return host == QLatin1String("192.0.2.7") && port == 6630;
    }

private:
    const std::string m_identity;
};

/// A channel of an application that has its own way to a device.
class ForeignChannel : public DeviceChannel {
public:
    std::shared_ptr<DeviceResponseCommand>
    sendSyncRequest(std::shared_ptr<DeviceRequestCommand>) override
    {
        return nullptr;
    }
    ProtoModel::DeviceBaseInfo deviceBaseInfo() const override { return info; }
    bool isHardwareReadFinished() override { return false; }
    bool isMasterControl() override { return true; }
    void stopChannel() override { }

    ProtoModel::DeviceBaseInfo info;
};

ProtoModel::DeviceBaseInfo device(const char *ip = "192.0.2.7", quint8 number = 7)
{
    ProtoModel::DeviceBaseInfo info;
    info.ip = ip;
    info.tcpPort = 6630;
    info.sn = {0x01, 0x23, 0x45, 0x67, 0x89, 0xAB, 0xCD, number};
    info.mac = {0x02, 0x00, 0x5E, 0x10, 0x00, number};
    return info;
}

const char mac[] = "02005E100007";
const char sn[] = "0123456789ABCD07";

} // namespace

class tst_ChannelKeeper : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();

    void foundDeviceGetsAChannelInTheManager();
    void channelTakesOnlyTheDeviceThatWasFound();
    void deviceThatIsFoundAgainGetsNoSecondChannel();
    void channelWithoutAConnectionFollowsItsDevice();
    void channelWithAConnectionStaysWhereItIs();
    void channelOfSomebodyElseIsUsedToo();
    void channelThatHasNotConnectedIsKnownByItsIdentity();
    void channelThatHasNotConnectedIsKnownByItsPlace();
    void channelWithoutANetworkIsUsedToo();
    void deviceWhoseChannelHasAnotherDeviceNowGetsItsOwn();
    void movedChannelIsFoundByTheFormerAddressToo();
    void sightingAtTheSamePlaceIsNoMove();
    void formerAddressBelongsToWhoeverIsThereNow();
    void removedChannelIsNotFoundByItsFormerAddress();
    void removedDeviceStaysAwayUntilItIsReadmitted();
    void channelThatTakesThePlaceOfARemovedOneIsFollowed();
    void deviceWithoutASerialNumberIsKnownByItsMac();
    void deviceWithoutAnyIdentityIsLeftAlone();
    void devicesBeyondTheLimitAreLeftAlone();

private:
    std::shared_ptr<ChannelIndex> m_index;
    std::unique_ptr<ChannelKeeper> m_keeper;
    DiscoveryOptions m_options;
    QStringList m_opened; ///< Where, and the identity that is due there.
    std::vector<std::shared_ptr<QuietChannel>> m_channels;
    int m_told = 0;

    void restart();
};

void tst_ChannelKeeper::init()
{
    m_options = {};
    restart();
}

void tst_ChannelKeeper::restart()
{
    m_index = std::make_shared<ChannelIndex>();
    m_opened.clear();
    m_channels.clear();
    m_told = 0;
    m_keeper = std::make_unique<ChannelKeeper>(
        m_index,
        [this](const auto &info, const auto &options) {
            m_opened.append(QString::fromStdString(info.ip + ' ' + options.identity));
            m_channels.push_back(std::make_shared<QuietChannel>());
            return m_channels.back();
        },
        [this](const auto &channel) {
            m_told += channel == m_channels.back() && !m_index->all().empty();
        });
    m_keeper->setOptions(m_options);
}

void tst_ChannelKeeper::foundDeviceGetsAChannelInTheManager()
{
    m_keeper->take(device());
    QCOMPARE(m_index->all().size(), std::size_t(1));
    QCOMPARE(m_index->all()[0].get(), static_cast<DeviceChannel *>(m_channels.at(0).get()));
    QCOMPARE(m_told, 1);
}

void tst_ChannelKeeper::channelTakesOnlyTheDeviceThatWasFound()
{
    m_keeper->take(device());
    QCOMPARE(m_opened, QStringList{QStringLiteral("192.0.2.7 0123456789ABCD07")});
}

void tst_ChannelKeeper::deviceThatIsFoundAgainGetsNoSecondChannel()
{
    m_keeper->take(device());
    m_keeper->take(device());
    m_keeper->take(device("192.0.2.99"));
    QCOMPARE(m_index->all().size(), std::size_t(1));
    QCOMPARE(m_told, 1);
    m_keeper->take(device("192.0.2.8", 8));
    QCOMPARE(m_index->all().size(), std::size_t(2));
    QCOMPARE(m_told, 2);
}

void tst_ChannelKeeper::channelWithoutAConnectionFollowsItsDevice()
{
    m_keeper->take(device());
    m_keeper->take(device("192.0.2.99"));
    QCOMPARE(m_channels.at(0)->moves, QStringList{QStringLiteral("192.0.2.99:6630")});
}

void tst_ChannelKeeper::channelWithAConnectionStaysWhereItIs()
{
    m_keeper->take(device());
    m_channels.at(0)->isReady = true;
    m_keeper->take(device("192.0.2.99"));
    QCOMPARE(m_channels.at(0)->moves, QStringList());
}

void tst_ChannelKeeper::channelOfSomebodyElseIsUsedToo()
{
    const auto mine = std::make_shared<QuietChannel>();
    mine->info = device();
    m_index->add(mine);
    m_keeper->take(device("192.0.2.99"));
    QCOMPARE(m_index->all().size(), std::size_t(1));
    QCOMPARE(mine->moves, QStringList{QStringLiteral("192.0.2.99:6630")});
    QCOMPARE(m_told, 0);
}

void tst_ChannelKeeper::channelThatHasNotConnectedIsKnownByItsIdentity()
{
    const auto young = std::make_shared<YoungChannel>(sn);
    m_index->add(young);
    m_keeper->take(device("192.0.2.99"));
    QCOMPARE(m_opened, QStringList());
    QCOMPARE(young->moves, QStringList{QStringLiteral("192.0.2.99:6630")});
    m_keeper->take(device("192.0.2.7", 8)); // it would not be let in there
    QCOMPARE(m_opened, QStringList{QStringLiteral("192.0.2.7 0123456789ABCD08")});
}

void tst_ChannelKeeper::channelThatHasNotConnectedIsKnownByItsPlace()
{
    const auto young = std::make_shared<YoungChannel>();
    m_index->add(young);
    m_keeper->take(device());
    QCOMPARE(m_opened, QStringList());
    QCOMPARE(young->moves, QStringList{QStringLiteral("192.0.2.7:6630")});

    young->info = device("192.0.2.7", 8); // now it shows that another device is there too
    m_keeper->take(device());
    QCOMPARE(m_opened, QStringList{QStringLiteral("192.0.2.7 0123456789ABCD07")});
}

void tst_ChannelKeeper::channelWithoutANetworkIsUsedToo()
{
    const auto foreign = std::make_shared<ForeignChannel>();
    foreign->info = device();
    m_index->add(foreign);
    m_keeper->take(device());
    m_keeper->take(device("192.0.2.99"));
    QCOMPARE(m_opened, QStringList());
    QCOMPARE(m_index->all().size(), std::size_t(1));
    m_index->remove(foreign);
    m_keeper->take(device()); // stays away like any other
    QCOMPARE(m_opened, QStringList());
}

void tst_ChannelKeeper::deviceWhoseChannelHasAnotherDeviceNowGetsItsOwn()
{
    const auto mine = std::make_shared<QuietChannel>();
    mine->info = device();
    m_index->add(mine);
    m_keeper->take(device());
    mine->info = device("192.0.2.7", 8); // devices were exchanged
    mine->isReady = true;
    m_keeper->take(device("192.0.2.7", 8));
    m_keeper->take(device("192.0.2.99"));
    QCOMPARE(m_opened, QStringList{QStringLiteral("192.0.2.99 0123456789ABCD07")});
}

void tst_ChannelKeeper::sightingAtTheSamePlaceIsNoMove()
{
    m_keeper->take(device());
    m_channels.at(0)->info = device();
    m_keeper->take(device());
    m_channels.at(0)->info = device("192.0.2.99");
    QVERIFY(!m_index->find("192.0.2.7", mac, sn));
}

void tst_ChannelKeeper::movedChannelIsFoundByTheFormerAddressToo()
{
    m_keeper->take(device());
    m_channels.at(0)->info = device(); // has connected, and has lost its device
    m_keeper->take(device("192.0.2.99"));
    m_channels.at(0)->info = device("192.0.2.99");
    const DeviceChannel *const channel = m_channels.at(0).get();
    QCOMPARE(m_index->find("192.0.2.99", mac, sn).get(), channel);
    QCOMPARE(m_index->find("192.0.2.7", mac, sn).get(), channel);
    QVERIFY(!m_index->find("192.0.2.7", mac, "0123456789ABCD08"));
    QVERIFY(!m_index->find("192.0.2.7", "02005E100008", sn));
    QVERIFY(!m_index->find("192.0.2.8", mac, sn));
}

void tst_ChannelKeeper::formerAddressBelongsToWhoeverIsThereNow()
{
    movedChannelIsFoundByTheFormerAddressToo();
    const auto twin = std::make_shared<QuietChannel>();
    twin->info = device();
    m_index->add(twin);
    QCOMPARE(m_index->find("192.0.2.7", mac, sn).get(), static_cast<DeviceChannel *>(twin.get()));
}

void tst_ChannelKeeper::removedChannelIsNotFoundByItsFormerAddress()
{
    movedChannelIsFoundByTheFormerAddressToo();
    m_index->remove(m_channels.at(0));
    QVERIFY(!m_index->find("192.0.2.7", mac, sn));
    QCOMPARE(m_channels.at(0).use_count(), 1L);
}

void tst_ChannelKeeper::removedDeviceStaysAwayUntilItIsReadmitted()
{
    m_keeper->take(device());
    m_keeper->take(device("192.0.2.8", 8));
    m_index->remove(m_channels.at(0));
    m_keeper->take(device());
    QCOMPARE(m_index->all().size(), std::size_t(1));
    m_keeper->readmit();
    m_keeper->take(device());
    m_keeper->take(device("192.0.2.8", 8));
    QCOMPARE(m_index->all().size(), std::size_t(2));
    QCOMPARE(m_told, 3);
}

void tst_ChannelKeeper::channelThatTakesThePlaceOfARemovedOneIsFollowed()
{
    m_keeper->take(device());
    m_index->remove(m_channels.at(0));
    const auto own = std::make_shared<QuietChannel>();
    own->info = device();
    m_index->add(own);
    m_keeper->take(device("192.0.2.99"));
    QCOMPARE(own->moves, QStringList{QStringLiteral("192.0.2.99:6630")});
    QCOMPARE(m_opened.size(), 1);
}

void tst_ChannelKeeper::deviceWithoutASerialNumberIsKnownByItsMac()
{
    auto info = device();
    info.sn = {};
    m_keeper->take(info);
    info.ip = "192.0.2.99";
    m_keeper->take(info);
    QCOMPARE(m_opened, QStringList{QStringLiteral("192.0.2.7 02005E100007")});
}

void tst_ChannelKeeper::deviceWithoutAnyIdentityIsLeftAlone()
{
    auto info = device();
    info.sn = {};
    info.mac = {};
    m_keeper->take(info);
    QVERIFY(m_index->all().empty());
}

void tst_ChannelKeeper::devicesBeyondTheLimitAreLeftAlone()
{
    m_options.maxChannels = 2;
    restart();
    for (quint8 number = 1; number <= 3; ++number)
        m_keeper->take(device("192.0.2.7", number));
    QCOMPARE(m_index->all().size(), std::size_t(2));
    m_index->remove(m_channels.at(0));
    m_keeper->take(device("192.0.2.7", 3)); // there is room now
    QCOMPARE(m_index->all().size(), std::size_t(2));
}

QTEST_GUILESS_MAIN(tst_ChannelKeeper)
#include "tst_channelkeeper.moc"
