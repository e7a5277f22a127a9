// Channels over loopback sockets. The device runs on the test's own thread, callers on others.

#include <support/common/patience.h>
#include <support/tavorossproxy/echodevice.h>

#include <tavorossproxy/devicemanager.h>
#include <tavorossproxy/tcpdevicechannel.h>

#include <QTest>
#include <QThread>

#include <atomic>
#include <future>
#include <string>
#include <vector>

using namespace Tavoro;
using namespace Tavoro::SSProxy;

class tst_TcpChannel : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void deviceIsIdentifiedAndAnswers();
    void addressIsTakenFromTheConnection();
    void waitEndsWhenTheChannelIsReady();
    void longBodiesAreTransferredCompletely();
    void manyThreadsGetTheirOwnAnswers();
    void failureToConnectNamesTheHost();
    void channelWithoutAnAddressIsNotInitialised();
    void reportReachesOtherThreads();
    void requestFromASlotOnTheChannelsThreadIsRefused();
    void managerFindsTheChannel();
};

void tst_TcpChannel::deviceIsIdentifiedAndAnswers()
{
    EchoDevice device;
    const auto channel = openTcpDeviceChannel(QStringLiteral("127.0.0.1"), device.port());
    QTRY_VERIFY(channel->isHardwareReadFinished());
    QCOMPARE(channel->deviceBaseInfo().name, std::string("wall"));
    auto answer = sendFromAThread(channel, "body");
    QTRY_VERIFY(isDone(answer));
    const auto response = answer.get();
    QCOMPARE(response->status, quint16(0));
    QCOMPARE(response->body(), std::string("body"));
    QCOMPARE(channel->statistics().connections, quint64(1));
}

void tst_TcpChannel::addressIsTakenFromTheConnection()
{
    EchoDevice device;
    const auto channel = openTcpDeviceChannel(QStringLiteral("::ffff:127.0.0.1"), device.port());
    QTRY_VERIFY(channel->isHardwareReadFinished());
    QCOMPARE(channel->deviceBaseInfo().ip, std::string("127.0.0.1"));
}

void tst_TcpChannel::waitEndsWhenTheChannelIsReady()
{
    EchoDevice device;
    const auto channel = openTcpDeviceChannel(QStringLiteral("127.0.0.1"), device.port());
    auto waiting = std::async(std::launch::async, [&] {
        QString error;
        return channel->waitUntilReady(60000, error) && error.isEmpty();
    });
    QTRY_VERIFY(isDone(waiting));
    QVERIFY(waiting.get());
}

void tst_TcpChannel::longBodiesAreTransferredCompletely()
{
    EchoDevice device;
    const auto channel = openTcpDeviceChannel(QStringLiteral("127.0.0.1"), device.port());
    QTRY_VERIFY(channel->isHardwareReadFinished());
    std::string body(16 << 20, '\0');
    for (std::size_t i = 0; i < body.size(); ++i)
        body[i] = static_cast<char>(i * 7 >> 3);
    auto answer = sendFromAThread(channel, body);
    QTRY_VERIFY(isDone(answer));
    const auto response = answer.get();
    QCOMPARE(response->status, quint16(0));
    QVERIFY(response->body() == body);
}

void tst_TcpChannel::manyThreadsGetTheirOwnAnswers()
{
    EchoDevice device;
    const auto channel = openTcpDeviceChannel(QStringLiteral("127.0.0.1"), device.port());
    QTRY_VERIFY(channel->isHardwareReadFinished());
    std::vector<std::future<int>> callers;
    for (int caller = 0; caller < 8; ++caller) {
        callers.push_back(std::async(std::launch::async, [&channel, caller] {
            int good = 0;
            for (int i = 0; i < 50; ++i) {
                const std::string body = std::to_string(caller) + "/" + std::to_string(i);
                good += channel->sendSyncRequest(request(body))->body() == body;
            }
            return good;
        }));
    }
    for (auto &caller : callers) {
        QTRY_VERIFY(isDone(caller));
        QCOMPARE(caller.get(), 50);
    }
    QCOMPARE(channel->statistics().requests, quint64(400));
}

void tst_TcpChannel::failureToConnectNamesTheHost()
{
    quint16 port = 0;
    {
        EchoDevice gone;
        port = gone.port();
    }
    const auto channel = openTcpDeviceChannel(QStringLiteral("127.0.0.1"), port);
    QString error;
    const QString sentence =
        QStringLiteral("The device at 127.0.0.1:%1 cannot be reached: Connection refused.")
            .arg(port);
    QTRY_VERIFY(!channel->waitUntilReady(1, error) && error == sentence);
}

void tst_TcpChannel::channelWithoutAnAddressIsNotInitialised()
{
    const auto withoutHost = openTcpDeviceChannel({}, 6630);
    const auto withoutPort = openTcpDeviceChannel(QStringLiteral("127.0.0.1"), 0);
    for (const auto &channel : {withoutHost, withoutPort}) {
        QCOMPARE(channel->sendSyncRequest(request("body"))->status, quint16(257));
        QVERIFY(!channel->isHardwareReadFinished());
    }
    QString error;
    QVERIFY(!withoutHost->waitUntilReady(60000, error));
    QCOMPARE(error, QStringLiteral("The device at :6630 cannot be reached: it has no address."));
    withoutHost->reconnectNow();
    withoutHost->stopChannel();
    QCOMPARE(withoutHost->sendSyncRequest(request("body"))->status, quint16(257));
}

void tst_TcpChannel::reportReachesOtherThreads()
{
    EchoDevice device;
    const auto channel = openTcpDeviceChannel(QStringLiteral("127.0.0.1"), device.port());
    QTRY_VERIFY(channel->isHardwareReadFinished());
    std::weak_ptr<DeviceChannel> reporter;
    std::shared_ptr<IDeviceCommand> report;
    QThread *thread = nullptr;
    QObject receiver; // lives on this thread, so the event loop delivers the signal
    connect(DeviceManager::instance(), &DeviceManager::parseDeviceAutoReportFinished, &receiver,
            [&](const auto &from, const auto &command) {
                reporter = from;
                report = command;
                thread = QThread::currentThread();
            });
    device.send(Wire::FrameKind::Report, "{\"powers\":[]}");
    QTRY_VERIFY(report);
    QCOMPARE(reporter.lock(), std::shared_ptr<DeviceChannel>(channel));
    QCOMPARE(report->head().BC, quint8(0x11));
    QCOMPARE(report->body(), std::string("{\"powers\":[]}"));
    QCOMPARE(thread, QThread::currentThread());
}

void tst_TcpChannel::requestFromASlotOnTheChannelsThreadIsRefused()
{
    EchoDevice device;
    const auto channel = openTcpDeviceChannel(QStringLiteral("127.0.0.1"), device.port());
    QTRY_VERIFY(channel->isHardwareReadFinished());
    std::atomic<int> status{0};
    const auto connection = connect(
        DeviceManager::instance(), &DeviceManager::parseDeviceAutoReportFinished,
        DeviceManager::instance(),
        [&](const auto &from, const auto &) {
            status = from.lock()->sendSyncRequest(request("body"))->status;
        },
        Qt::DirectConnection);
    device.send(Wire::FrameKind::Report, "{}");
    QTRY_COMPARE(status.load(), 261);
    disconnect(connection);
}

void tst_TcpChannel::managerFindsTheChannel()
{
    EchoDevice device;
    const auto channel = openTcpDeviceChannel(QStringLiteral("127.0.0.1"), device.port());
    DeviceManager::instance()->addDeviceChannel(channel);
    QTRY_VERIFY(channel->isHardwareReadFinished());
    QCOMPARE(DeviceManager::instance()->findTavoroDeviceChannel("127.0.0.1", "02005E100001",
                                                                "0123456789ABCDEF"),
             std::shared_ptr<DeviceChannel>(channel));
    DeviceManager::instance()->removeDeviceChannel(channel);
}

QTEST_GUILESS_MAIN(tst_TcpChannel)
#include "tst_tcpchannel.moc"
