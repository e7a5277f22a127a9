// How channels over loopback sockets end, and the requests that are in flight then. The device runs
// on the test's own thread, callers run on others.

#include <support/common/patience.h>
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
    void channelReconnectsAfterALoss();
    void lossWhileARequestIsBeingSentEndsTheRequest();
    void connectionThatTheDeviceClosesIsReportedAsSuch();
    void stopEndsRequestsAndConnection();
    void destroyedChannelClosesItsConnection();
};

void tst_TcpChannelEnds::channelReconnectsAfterALoss()
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

void tst_TcpChannelEnds::lossWhileARequestIsBeingSentEndsTheRequest()
{
    EchoDevice device;
    const auto channel = openTcpDeviceChannel(QStringLiteral("127.0.0.1"), device.port());
    QTRY_VERIFY(channel->isHardwareReadFinished());
    device.dropsNextRequest = true;
    auto answer = sendFromAThread(channel, std::string(16 << 20, 'x'));
    QTRY_VERIFY(isDone(answer));
    QCOMPARE(answer.get()->status, quint16(259));
}

void tst_TcpChannelEnds::connectionThatTheDeviceClosesIsReportedAsSuch()
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

void tst_TcpChannelEnds::stopEndsRequestsAndConnection()
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

void tst_TcpChannelEnds::destroyedChannelClosesItsConnection()
{
    EchoDevice device;
    auto channel = openTcpDeviceChannel(QStringLiteral("127.0.0.1"), device.port());
    QTRY_COMPARE(device.connections(), 1);
    QTRY_VERIFY(channel->isHardwareReadFinished());
    channel.reset();
    QTRY_COMPARE(device.connections(), 0);
}

namespace {

/// The channels' thread ends with the application object. Channels that still exist, with a request
/// in flight or in the manager, must neither hang nor crash. Returns false if one does not end
/// properly.
bool channelsEndWithTheApplication(std::unique_ptr<QCoreApplication> application)
{
    auto device = std::make_unique<EchoDevice>();
    const auto channel = openTcpDeviceChannel(QStringLiteral("127.0.0.1"), device->port());
    DeviceManager::instance()->addDeviceChannel(channel);
    if (!QTest::qWaitFor([&] { return channel->isHardwareReadFinished(); }, 60000))
        return false;
    auto answer = sendFromAThread(channel, {});
    if (!QTest::qWaitFor([&] { return device->silentRequests == 1; }, 60000))
        return false;
    device.reset(); // the channel is about to reconnect
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
