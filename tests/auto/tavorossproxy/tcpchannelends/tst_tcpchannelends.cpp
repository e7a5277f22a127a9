// How channels over loopback sockets end, and with them what is in flight. The device runs on the
// test's own thread, callers on others.

#include <support/tavorossproxy/echodevice.h>

#include <tavorossproxy/devicemanager.h>
#include <tavorossproxy/tcpdevicechannel.h>

#include <QCoreApplication>
#include <QTest>

#include <chrono>
#include <memory>
#include <string>

using namespace Tavoro;
using namespace Tavoro::SSProxy;

class tst_TcpChannelEnds : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void lostConnectionIsMadeAnew();
    void connectionLostWhileARequestLeavesEndsIt();
    void connectionThatTheDeviceEndsIsToldSo();
    void stopEndsTheRequestsAndTheConnection();
    void droppedChannelClosesItsConnection();
};

void tst_TcpChannelEnds::lostConnectionIsMadeAnew()
{
    EchoDevice device;
    const auto channel = openTcpDeviceChannel(QStringLiteral("127.0.0.1"), device.port());
    QTRY_VERIFY(channel->isHardwareReadFinished());
    auto answer = sendFromAThread(channel, {});
    QTRY_COMPARE(device.silentRequests, 1);
    device.dropConnections();
    QTRY_VERIFY(isDone(answer));
    QCOMPARE(answer.get()->status, quint16(259));
    channel->reconnectNow();
    QTRY_COMPARE(channel->statistics().connections, quint64(2));
    QVERIFY(channel->isHardwareReadFinished());
}

void tst_TcpChannelEnds::connectionLostWhileARequestLeavesEndsIt()
{
    EchoDevice device;
    const auto channel = openTcpDeviceChannel(QStringLiteral("127.0.0.1"), device.port());
    QTRY_VERIFY(channel->isHardwareReadFinished());
    device.dropsNextRequest = true;
    auto answer = sendFromAThread(channel, std::string(16 << 20, 'x'));
    QTRY_VERIFY(isDone(answer));
    QCOMPARE(answer.get()->status, quint16(259));
}

void tst_TcpChannelEnds::connectionThatTheDeviceEndsIsToldSo()
{
    EchoDevice device;
    ChannelOptions options;
    options.firstReconnectPause = std::chrono::hours(1);
    options.longestReconnectPause = options.firstReconnectPause;
    const auto channel = openTcpDeviceChannel(QStringLiteral("127.0.0.1"), device.port(), options);
    QTRY_VERIFY(channel->isHardwareReadFinished());
    device.endConnections();
    QTRY_VERIFY(!channel->isHardwareReadFinished());
    QString error;
    QVERIFY(!channel->waitUntilReady(0, error));
    QCOMPARE(error,
             QStringLiteral("The device at 127.0.0.1:%1 cannot be reached: "
                            "The remote host closed the connection.")
                 .arg(device.port()));
}

void tst_TcpChannelEnds::stopEndsTheRequestsAndTheConnection()
{
    EchoDevice device;
    const auto channel = openTcpDeviceChannel(QStringLiteral("127.0.0.1"), device.port());
    QTRY_VERIFY(channel->isHardwareReadFinished());
    auto answer = sendFromAThread(channel, {});
    QTRY_COMPARE(device.silentRequests, 1);
    channel->stopChannel();
    QTRY_VERIFY(isDone(answer));
    QCOMPARE(answer.get()->status, quint16(259));
    QTRY_COMPARE(device.connections(), 0);
}

void tst_TcpChannelEnds::droppedChannelClosesItsConnection()
{
    EchoDevice device;
    auto channel = openTcpDeviceChannel(QStringLiteral("127.0.0.1"), device.port());
    QTRY_COMPARE(device.connections(), 1);
    QTRY_VERIFY(channel->isHardwareReadFinished());
    channel.reset();
    QTRY_COMPARE(device.connections(), 0);
}

namespace {

/// The channels' thread ends with the application object. Channels that are left, in flight or in
/// the manager, must neither hang nor crash. False when one does not end as it should.
bool channelsEndWithTheApplication(std::unique_ptr<QCoreApplication> application)
{
    auto device = std::make_unique<EchoDevice>();
    const auto channel = openTcpDeviceChannel(QStringLiteral("127.0.0.1"), device->port());
    DeviceManager::instance()->addDeviceChannel(channel);
    if (!QTest::qWaitFor([&] { return channel->isHardwareReadFinished(); }))
        return false;
    auto answer = sendFromAThread(channel, {});
    if (!QTest::qWaitFor([&] { return device->silentRequests == 1; }))
        return false;
    device.reset(); // the channel is now about to connect again
    application.reset();
    const int inFlight = answer.get()->status;
    return (inFlight == 259 || inFlight == 264)
        && channel->sendSyncRequest(request("body"))->status == 264;
}

} // namespace

int main(int argc, char *argv[])
{
    auto application = std::make_unique<QCoreApplication>(argc, argv);
    tst_TcpChannelEnds test;
    const int failures = QTest::qExec(&test, argc, argv);
    if (channelsEndWithTheApplication(std::move(application)))
        return failures;
    qCritical("channels do not end with the application");
    return failures + 1;
}

#include "tst_tcpchannelends.moc"
