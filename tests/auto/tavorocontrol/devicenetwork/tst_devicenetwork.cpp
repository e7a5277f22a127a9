// How an operation changes the channel of its device, apart from the exchange.

#include <support/tavorocontrol/requestpath.h>
#include <tavorobizmodel/device.h>
#include <tavorocontrol/device.h>
#include <tavorossproxy/devicemanager.h>

#include <QtTest>

using namespace Tavoro;
using namespace Tavoro::ProtoModel::Device;

namespace {

s_Networks networksWith(std::initializer_list<const char *> addresses)
{
    s_Networks made;
    for (const char *address : addresses) {
        s_NetworkBody network;
        network.ip = address;
        made.networks.push_back(network);
    }
    return made;
}

} // namespace

Q_DECLARE_METATYPE(s_Networks)

class tst_DeviceNetwork : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void writeNetConfigWithUnchangedAddressesKeepsTheChannel_data();
    void writeNetConfigWithUnchangedAddressesKeepsTheChannel();
    void writeNetConfigWithANewAddressStopsAndRemovesTheChannel_data();
    void writeNetConfigWithANewAddressStopsAndRemovesTheChannel();
    void refusedNetConfigKeepsTheChannel();
    void writeNetConfigOfADeviceLostInFlightIsDone();

    void disconnectCommunicationStopsButKeepsTheChannel();
    void disconnectCommunicationWithoutDeviceOrChannelDoesNothing();
    void controlRequestIsForwarded();
    void refreshSendsNothing();
};

void tst_DeviceNetwork::writeNetConfigWithUnchangedAddressesKeepsTheChannel_data()
{
    QTest::addColumn<s_Networks>("networks");

    QTest::newRow("no port") << networksWith({});
    QTest::newRow("one port") << networksWith({"192.0.2.7"});
    QTest::newRow("two ports") << networksWith({"192.0.2.7", "192.0.2.7"});
}

void tst_DeviceNetwork::writeNetConfigWithUnchangedAddressesKeepsTheChannel()
{
    QFETCH(const s_Networks, networks);
    RequestPath path;
    QString error;
    QVERIFY(Control::Device(path.device.model, nullptr).writeNetConfig(networks, error));
    QCOMPARE(path.device.channel->stops(), 0);
    QVERIFY(path.device.isChannelKnown());
}

void tst_DeviceNetwork::writeNetConfigWithANewAddressStopsAndRemovesTheChannel_data()
{
    QTest::addColumn<s_Networks>("networks");

    // After the first port with a new address there is no channel left to stop.
    QTest::newRow("one port") << networksWith({"192.0.2.8"});
    QTest::newRow("second port") << networksWith({"192.0.2.7", "192.0.2.8"});
    QTest::newRow("both ports") << networksWith({"192.0.2.8", "192.0.2.9"});
    QTest::newRow("first port") << networksWith({"192.0.2.8", "192.0.2.7"});
}

void tst_DeviceNetwork::writeNetConfigWithANewAddressStopsAndRemovesTheChannel()
{
    QFETCH(const s_Networks, networks);
    RequestPath path;
    QString error;
    QVERIFY(Control::Device(path.device.model, nullptr).writeNetConfig(networks, error));
    QCOMPARE(path.device.channel->sent().size(), std::size_t(1));
    QCOMPARE(path.device.channel->stops(), 1);
    QVERIFY(!path.device.isChannelKnown());
}

void tst_DeviceNetwork::refusedNetConfigKeepsTheChannel()
{
    RequestPath path;
    path.device.channel->answer(ScriptedAnswer::refusal(5));
    QString error;
    QVERIFY(!Control::Device(path.device.model, nullptr)
                 .writeNetConfig(networksWith({"192.0.2.8"}), error));
    QCOMPARE(path.device.channel->stops(), 0);
    QVERIFY(path.device.isChannelKnown());
}

void tst_DeviceNetwork::writeNetConfigOfADeviceLostInFlightIsDone()
{
    RequestPath path;
    ScriptedAnswer answer;
    answer.before = [&path] {
        path.device.model.reset();
    };
    path.device.channel->answer(answer);
    QString error;
    QVERIFY(Control::Device(path.device.model, nullptr)
                .writeNetConfig(networksWith({"192.0.2.8"}), error));
    QVERIFY(path.device.isChannelKnown());
}

void tst_DeviceNetwork::disconnectCommunicationStopsButKeepsTheChannel()
{
    RequestPath path;
    Control::Device(path.device.model, nullptr).disconnectCommunication();
    QCOMPARE(path.device.channel->stops(), 1);
    QVERIFY(path.device.isChannelKnown());
    QVERIFY(path.device.channel->sent().empty());
}

void tst_DeviceNetwork::disconnectCommunicationWithoutDeviceOrChannelDoesNothing()
{
    RequestPath path;
    path.device.removeChannel();
    Control::Device(path.device.model, nullptr).disconnectCommunication();
    Control::Device({}, nullptr).disconnectCommunication();
    QCOMPARE(path.device.channel->stops(), 0);
    QVERIFY(path.journal.lines().isEmpty());
}

void tst_DeviceNetwork::controlRequestIsForwarded()
{
    const auto ip = QStringLiteral("192.0.2.200");
    const auto mac = QStringLiteral("02005E100099");
    const auto sn = QStringLiteral("FFFFFFFFFFFFFFFF");
    QString managersText;
    QString error;
    const bool managersWord =
        SSProxy::DeviceManager::instance()->sendTavoroControlRequest(ip, mac, sn, managersText);
    QCOMPARE(Control::Device({}, nullptr).writeDeviceControlRequest(ip, mac, sn, error),
             managersWord);
    QCOMPARE(error, managersText);
}

void tst_DeviceNetwork::refreshSendsNothing()
{
    RequestPath path;
    Control::Device(path.device.model, nullptr).refreshDeviceChannel();
    QVERIFY(path.device.isChannelKnown());
    QVERIFY(path.device.channel->sent().empty());
    QCOMPARE(path.device.channel->stops(), 0);
}

QTEST_GUILESS_MAIN(tst_DeviceNetwork)
#include "tst_devicenetwork.moc"
