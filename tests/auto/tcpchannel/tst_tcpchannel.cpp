// Channels over loopback sockets. The device runs on the test's own thread, callers on others.

#include <tavorossproxy/devicecommand.h>
#include <tavorossproxy/devicemanager.h>
#include <tavorossproxy/tcpdevicechannel.h>
#include <tavorossproxy/wire/frame.h>
#include <tavorossproxy/wire/frameparser.h>

#include <QCoreApplication>
#include <QHostAddress>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTest>
#include <QThread>

#include <future>
#include <vector>

using namespace Tavoro;
using namespace Tavoro::SSProxy;

namespace {

constexpr char identity[] = R"({"sn":"0123456789ABCDEF","mac":"02005E100001",)"
                            R"("maxPacketSize":16777216,"name":"wall"})";

/// Answers each request with its own body, and a request without one never.
class EchoDevice : public QObject {
    Q_OBJECT

public:
    EchoDevice()
    {
        connect(&m_server, &QTcpServer::newConnection, this, &EchoDevice::takeConnection);
        m_server.listen(QHostAddress::LocalHost);
    }

    quint16 port() const { return m_server.serverPort(); }
    int connections() const { return int(m_server.findChildren<QTcpSocket *>().size()); }
    void send(Wire::FrameKind kind, const QByteArray &body = {})
    {
        Wire::WireHead head;
        head.kind = static_cast<quint8>(kind);
        head.BC = 0x11;
        head.FC = 0x03;
        for (auto *socket : m_server.findChildren<QTcpSocket *>())
            socket->write(Wire::encodeFrame(head, body.toStdString()));
    }
    void dropConnections()
    {
        for (auto *socket : m_server.findChildren<QTcpSocket *>())
            socket->abort();
    }
    void endConnections()
    {
        for (auto *socket : m_server.findChildren<QTcpSocket *>())
            socket->disconnectFromHost();
    }

    int silentRequests = 0; ///< Requests without a body that have come.
    bool dropsNextRequest = false; ///< Ends the connection on the first bytes of it.

private:
    void takeConnection()
    {
        QTcpSocket *socket = m_server.nextPendingConnection();
        socket->setReadBufferSize(64 * 1024); // a long request never comes in one piece
        connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
        auto parser = std::make_shared<Wire::FrameParser>();
        connect(socket, &QTcpSocket::readyRead, socket, [this, socket, parser] {
            const QByteArray received = socket->readAll();
            if (dropsNextRequest)
                return socket->abort();
            std::string_view bytes(received.constData(), std::size_t(received.size()));
            while (auto frame = parser->next(bytes))
                socket->write(answerTo(*frame));
        });
    }
    QByteArray answerTo(const Wire::FrameEvent &frame)
    {
        Wire::WireHead head = Wire::responseHead(frame.head);
        switch (static_cast<Wire::FrameKind>(frame.head.kind)) {
        case Wire::FrameKind::IdentityRequest:
            head.kind = static_cast<quint8>(Wire::FrameKind::IdentityAnswer);
            return Wire::encodeFrame(head, identity);
        case Wire::FrameKind::Request:
            if (!frame.body.empty())
                return Wire::encodeFrame(head, frame.body);
            ++silentRequests;
            return {};
        default:
            return {};
        }
    }

    QTcpServer m_server;
};

std::shared_ptr<DeviceRequestCommand> request(const std::string &body)
{
    auto command = std::make_shared<DeviceRequestCommand>();
    command->head().type = 2;
    command->body() = body;
    return command;
}

using Answer = std::shared_ptr<DeviceResponseCommand>;

std::future<Answer> sendFromAThread(const std::shared_ptr<DeviceChannel> &channel,
                                    const std::string &body)
{
    return std::async(std::launch::async, [=] { return channel->sendSyncRequest(request(body)); });
}

template <class Future>
bool isDone(const Future &future)
{
    return future.wait_for(std::chrono::seconds(0)) == std::future_status::ready;
}

} // namespace

class tst_TcpChannel : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void deviceIsReadAndAsked();
    void addressIsThatOfTheConnection();
    void waitingEndsWhenTheChannelIsReady();
    void longBodiesTravelWhole();
    void manyThreadsGetTheirOwnAnswers();
    void unreachableHostIsNamedInTheSentence();
    void channelWithoutAnAddressIsNotInitialised();
    void lostConnectionIsMadeAnew();
    void connectionLostWhileARequestLeavesEndsIt();
    void connectionThatTheDeviceEndsIsToldSo();
    void stopEndsTheRequestsAndTheConnection();
    void droppedChannelClosesItsConnection();
    void reportReachesOtherThreads();
    void requestFromASlotOnTheChannelsThreadIsRefused();
    void managerFindsTheChannel();
};

void tst_TcpChannel::deviceIsReadAndAsked()
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

void tst_TcpChannel::addressIsThatOfTheConnection()
{
    EchoDevice device;
    const auto channel = openTcpDeviceChannel(QStringLiteral("::ffff:127.0.0.1"), device.port());
    QTRY_VERIFY(channel->isHardwareReadFinished());
    QCOMPARE(channel->deviceBaseInfo().ip, std::string("127.0.0.1"));
}

void tst_TcpChannel::waitingEndsWhenTheChannelIsReady()
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

void tst_TcpChannel::longBodiesTravelWhole()
{
    EchoDevice device;
    const auto channel = openTcpDeviceChannel(QStringLiteral("127.0.0.1"), device.port());
    QTRY_VERIFY(channel->isHardwareReadFinished());
    std::string body(16 << 20, '\0');
    for (std::size_t i = 0; i < body.size(); ++i)
        body[i] = static_cast<char>(i * 7 >> 3);
    auto answer = sendFromAThread(channel, body);
    QTRY_VERIFY_WITH_TIMEOUT(isDone(answer), 60000);
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
        QTRY_VERIFY_WITH_TIMEOUT(isDone(caller), 60000);
        QCOMPARE(caller.get(), 50);
    }
    QCOMPARE(channel->statistics().requests, quint64(400));
}

void tst_TcpChannel::unreachableHostIsNamedInTheSentence()
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

void tst_TcpChannel::lostConnectionIsMadeAnew()
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

void tst_TcpChannel::connectionLostWhileARequestLeavesEndsIt()
{
    EchoDevice device;
    const auto channel = openTcpDeviceChannel(QStringLiteral("127.0.0.1"), device.port());
    QTRY_VERIFY(channel->isHardwareReadFinished());
    device.dropsNextRequest = true;
    auto answer = sendFromAThread(channel, std::string(16 << 20, 'x'));
    QTRY_VERIFY(isDone(answer));
    QCOMPARE(answer.get()->status, quint16(259));
}

void tst_TcpChannel::connectionThatTheDeviceEndsIsToldSo()
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

void tst_TcpChannel::stopEndsTheRequestsAndTheConnection()
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

void tst_TcpChannel::droppedChannelClosesItsConnection()
{
    EchoDevice device;
    auto channel = openTcpDeviceChannel(QStringLiteral("127.0.0.1"), device.port());
    QTRY_COMPARE(device.connections(), 1);
    QTRY_VERIFY(channel->isHardwareReadFinished());
    channel.reset();
    QTRY_COMPARE(device.connections(), 0);
}

void tst_TcpChannel::reportReachesOtherThreads()
{
    EchoDevice device;
    const auto channel = openTcpDeviceChannel(QStringLiteral("127.0.0.1"), device.port());
    QTRY_VERIFY(channel->isHardwareReadFinished());
    std::weak_ptr<DeviceChannel> reporter;
    std::shared_ptr<IDeviceCommand> report;
    QThread *thread = nullptr;
    QObject receiver; // lives here, so that the signal comes by the event loop
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
    tst_TcpChannel test;
    const int failures = QTest::qExec(&test, argc, argv);
    if (channelsEndWithTheApplication(std::move(application)))
        return failures;
    qCritical("channels do not end with the application");
    return failures + 1;
}

#include "tst_tcpchannel.moc"
