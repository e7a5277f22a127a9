// Each device that is found gets one channel, which follows it to new addresses.

#include <tavorossproxy/channel/expecteddevice_p.h>
#include <tavorossproxy/devicecommand.h>
#include <tavorossproxy/discovery/devicetracker_p.h>

#include <QTest>

using namespace Tavoro;
using namespace Tavoro::SSProxy;
using Internal::ChannelRegistry;
using Internal::DeviceTracker;

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

/// A channel that was opened and has not connected yet.
class ConnectingChannel : public QuietChannel, public Internal::ExpectedDevice {
public:
    explicit ConnectingChannel(const char *identity = "") : m_identity(identity) { }

    std::string expectedIdentity() const override { return m_identity; }
    bool connectsTo(const QString &host, quint16 port) const override
    {
        return host == QLatin1String("192.0.2.7") && port == 6630;
    }

private:
    const std::string m_identity;
};

/// A channel that an application implements itself.
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

class tst_DeviceTracker : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();

    void foundDeviceGetsAChannelInTheManager();
    void channelAcceptsOnlyTheDeviceThatWasFound();
    void deviceThatIsFoundAgainGetsNoSecondChannel();
    void channelWithoutAConnectionFollowsItsDevice();
    void channelWithAConnectionStaysWhereItIs();
    void channelOfTheApplicationIsUsedToo();
    void connectingChannelIsRecognisedByItsIdentity();
    void connectingChannelIsRecognisedByItsAddress();
    void channelOfAnotherKindIsUsedToo();
    void deviceWhoseChannelReachedAnotherDeviceGetsANewOne();
    void movedChannelIsFoundByTheFormerAddressToo();
    void deviceSeenAtTheSameAddressHasNotMoved();
    void formerAddressFindsTheDeviceThatIsThereNow();
    void removedChannelIsNotFoundByItsFormerAddress();
    void removedDeviceStaysAwayUntilItIsReadmitted();
    void channelThatReplacesARemovedOneIsMoved();
    void deviceWithoutASerialNumberIsRecognisedByItsMac();
    void deviceWithoutAnyIdentityIsIgnored();
    void devicesBeyondTheLimitAreIgnored();

private:
    std::shared_ptr<ChannelRegistry> m_registry;
    std::unique_ptr<DeviceTracker> m_tracker;
    DiscoveryOptions m_options;
    QStringList m_opened; ///< Address and expected identity of each.
    std::vector<std::shared_ptr<QuietChannel>> m_channels;
    int m_reported = 0;

    void restart();
};

void tst_DeviceTracker::init()
{
    m_options = {};
    restart();
}

void tst_DeviceTracker::restart()
{
    m_registry = std::make_shared<ChannelRegistry>();
    m_opened.clear();
    m_channels.clear();
    m_reported = 0;
    m_tracker = std::make_unique<DeviceTracker>(
        m_registry,
        [this](const auto &info, const auto &options) {
            m_opened.append(QString::fromStdString(info.ip + ' ' + options.identity));
            m_channels.push_back(std::make_shared<QuietChannel>());
            return m_channels.back();
        },
        [this](const auto &channel) {
            m_reported += channel == m_channels.back() && !m_registry->all().empty();
        });
    m_tracker->setOptions(m_options);
}

void tst_DeviceTracker::foundDeviceGetsAChannelInTheManager()
{
    m_tracker->noteSeen(device());
    QCOMPARE(m_registry->all().size(), std::size_t(1));
    QCOMPARE(m_registry->all()[0].get(), static_cast<DeviceChannel *>(m_channels.at(0).get()));
    QCOMPARE(m_reported, 1);
}

void tst_DeviceTracker::channelAcceptsOnlyTheDeviceThatWasFound()
{
    m_tracker->noteSeen(device());
    QCOMPARE(m_opened, QStringList{QStringLiteral("192.0.2.7 0123456789ABCD07")});
}

void tst_DeviceTracker::deviceThatIsFoundAgainGetsNoSecondChannel()
{
    m_tracker->noteSeen(device());
    m_tracker->noteSeen(device());
    m_tracker->noteSeen(device("192.0.2.99"));
    QCOMPARE(m_registry->all().size(), std::size_t(1));
    QCOMPARE(m_reported, 1);
    m_tracker->noteSeen(device("192.0.2.8", 8));
    QCOMPARE(m_registry->all().size(), std::size_t(2));
    QCOMPARE(m_reported, 2);
}

void tst_DeviceTracker::channelWithoutAConnectionFollowsItsDevice()
{
    m_tracker->noteSeen(device());
    m_tracker->noteSeen(device("192.0.2.99"));
    QCOMPARE(m_channels.at(0)->moves, QStringList{QStringLiteral("192.0.2.99:6630")});
}

void tst_DeviceTracker::channelWithAConnectionStaysWhereItIs()
{
    m_tracker->noteSeen(device());
    m_channels.at(0)->isReady = true;
    m_tracker->noteSeen(device("192.0.2.99"));
    QCOMPARE(m_channels.at(0)->moves, QStringList());
}

void tst_DeviceTracker::channelOfTheApplicationIsUsedToo()
{
    const auto mine = std::make_shared<QuietChannel>();
    mine->info = device();
    m_registry->add(mine);
    m_tracker->noteSeen(device("192.0.2.99"));
    QCOMPARE(m_registry->all().size(), std::size_t(1));
    QCOMPARE(mine->moves, QStringList{QStringLiteral("192.0.2.99:6630")});
    QCOMPARE(m_reported, 0);
}

void tst_DeviceTracker::connectingChannelIsRecognisedByItsIdentity()
{
    const auto connecting = std::make_shared<ConnectingChannel>(sn);
    m_registry->add(connecting);
    m_tracker->noteSeen(device("192.0.2.99"));
    QCOMPARE(m_opened, QStringList());
    QCOMPARE(connecting->moves, QStringList{QStringLiteral("192.0.2.99:6630")});
    m_tracker->noteSeen(device("192.0.2.7", 8)); // the channel would not accept it
    QCOMPARE(m_opened, QStringList{QStringLiteral("192.0.2.7 0123456789ABCD08")});
}

void tst_DeviceTracker::connectingChannelIsRecognisedByItsAddress()
{
    const auto connecting = std::make_shared<ConnectingChannel>();
    m_registry->add(connecting);
    m_tracker->noteSeen(device());
    QCOMPARE(m_opened, QStringList());
    QCOMPARE(connecting->moves, QStringList{QStringLiteral("192.0.2.7:6630")});

    connecting->info = device("192.0.2.7", 8); // another device has answered there
    m_tracker->noteSeen(device());
    QCOMPARE(m_opened, QStringList{QStringLiteral("192.0.2.7 0123456789ABCD07")});
}

void tst_DeviceTracker::channelOfAnotherKindIsUsedToo()
{
    const auto foreign = std::make_shared<ForeignChannel>();
    foreign->info = device();
    m_registry->add(foreign);
    m_tracker->noteSeen(device());
    m_tracker->noteSeen(device("192.0.2.99"));
    QCOMPARE(m_opened, QStringList());
    QCOMPARE(m_registry->all().size(), std::size_t(1));
    m_registry->remove(foreign);
    m_tracker->noteSeen(device()); // stays away like other removed devices
    QCOMPARE(m_opened, QStringList());
}

void tst_DeviceTracker::deviceWhoseChannelReachedAnotherDeviceGetsANewOne()
{
    const auto mine = std::make_shared<QuietChannel>();
    mine->info = device();
    m_registry->add(mine);
    m_tracker->noteSeen(device());
    mine->info = device("192.0.2.7", 8); // the devices have swapped their addresses
    mine->isReady = true;
    m_tracker->noteSeen(device("192.0.2.7", 8));
    m_tracker->noteSeen(device("192.0.2.99"));
    QCOMPARE(m_opened, QStringList{QStringLiteral("192.0.2.99 0123456789ABCD07")});
}

void tst_DeviceTracker::deviceSeenAtTheSameAddressHasNotMoved()
{
    m_tracker->noteSeen(device());
    m_channels.at(0)->info = device();
    m_tracker->noteSeen(device());
    m_channels.at(0)->info = device("192.0.2.99");
    QVERIFY(!m_registry->find("192.0.2.7", mac, sn));
}

void tst_DeviceTracker::movedChannelIsFoundByTheFormerAddressToo()
{
    m_tracker->noteSeen(device());
    m_channels.at(0)->info = device(); // was connected, and has lost its device
    m_tracker->noteSeen(device("192.0.2.99"));
    m_channels.at(0)->info = device("192.0.2.99");
    const DeviceChannel *const channel = m_channels.at(0).get();
    QCOMPARE(m_registry->find("192.0.2.99", mac, sn).get(), channel);
    QCOMPARE(m_registry->find("192.0.2.7", mac, sn).get(), channel);
    QVERIFY(!m_registry->find("192.0.2.7", mac, "0123456789ABCD08"));
    QVERIFY(!m_registry->find("192.0.2.7", "02005E100008", sn));
    QVERIFY(!m_registry->find("192.0.2.8", mac, sn));
}

void tst_DeviceTracker::formerAddressFindsTheDeviceThatIsThereNow()
{
    movedChannelIsFoundByTheFormerAddressToo();
    const auto twin = std::make_shared<QuietChannel>();
    twin->info = device();
    m_registry->add(twin);
    QCOMPARE(m_registry->find("192.0.2.7", mac, sn).get(),
             static_cast<DeviceChannel *>(twin.get()));
}

void tst_DeviceTracker::removedChannelIsNotFoundByItsFormerAddress()
{
    movedChannelIsFoundByTheFormerAddressToo();
    m_registry->remove(m_channels.at(0));
    QVERIFY(!m_registry->find("192.0.2.7", mac, sn));
    QCOMPARE(m_channels.at(0).use_count(), 1L);
}

void tst_DeviceTracker::removedDeviceStaysAwayUntilItIsReadmitted()
{
    m_tracker->noteSeen(device());
    m_tracker->noteSeen(device("192.0.2.8", 8));
    m_registry->remove(m_channels.at(0));
    m_tracker->noteSeen(device());
    QCOMPARE(m_registry->all().size(), std::size_t(1));
    m_tracker->forgetRemoved();
    m_tracker->noteSeen(device());
    m_tracker->noteSeen(device("192.0.2.8", 8));
    QCOMPARE(m_registry->all().size(), std::size_t(2));
    QCOMPARE(m_reported, 3);
}

void tst_DeviceTracker::channelThatReplacesARemovedOneIsMoved()
{
    m_tracker->noteSeen(device());
    m_registry->remove(m_channels.at(0));
    const auto own = std::make_shared<QuietChannel>();
    own->info = device();
    m_registry->add(own);
    m_tracker->noteSeen(device("192.0.2.99"));
    QCOMPARE(own->moves, QStringList{QStringLiteral("192.0.2.99:6630")});
    QCOMPARE(m_opened.size(), 1);
}

void tst_DeviceTracker::deviceWithoutASerialNumberIsRecognisedByItsMac()
{
    auto info = device();
    info.sn = {};
    m_tracker->noteSeen(info);
    info.ip = "192.0.2.99";
    m_tracker->noteSeen(info);
    QCOMPARE(m_opened, QStringList{QStringLiteral("192.0.2.7 02005E100007")});
}

void tst_DeviceTracker::deviceWithoutAnyIdentityIsIgnored()
{
    auto info = device();
    info.sn = {};
    info.mac = {};
    m_tracker->noteSeen(info);
    QVERIFY(m_registry->all().empty());
}

void tst_DeviceTracker::devicesBeyondTheLimitAreIgnored()
{
    m_options.maxChannels = 2;
    restart();
    for (quint8 number = 1; number <= 3; ++number)
        m_tracker->noteSeen(device("192.0.2.7", number));
    QCOMPARE(m_registry->all().size(), std::size_t(2));
    m_registry->remove(m_channels.at(0));
    m_tracker->noteSeen(device("192.0.2.7", 3)); // there is room now
    QCOMPARE(m_registry->all().size(), std::size_t(2));
}

QTEST_GUILESS_MAIN(tst_DeviceTracker)
#include "tst_devicetracker.moc"
