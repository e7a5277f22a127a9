// Callers send their requests and receive their answers on their own threads. The device runs on
// the test's own thread.

#include <support/common/patience.h>
#include <support/tavorossproxy/echodevice.h>

#include <tavorossproxy/devicemanager.h>
#include <tavorossproxy/tcpdevicechannel.h>

#include <QTest>

#include <atomic>
#include <future>
#include <memory>
#include <string>
#include <vector>

using namespace Tavoro;
using namespace Tavoro::SSProxy;

namespace {

/// Keeps the thread of the channels busy until the end of the scope: in a slot that handles the
/// report of another device.
class BusyChannelThread {
public:
    BusyChannelThread()
    {
        m_connection = QObject::connect(
            DeviceManager::instance(), &DeviceManager::parseDeviceAutoReportFinished,
            DeviceManager::instance(), [this](const auto &, const auto &) { work(); },
            Qt::DirectConnection);
        if (QTest::qWaitFor([this] { return m_channel->isHardwareReadFinished(); }, 60000))
            m_device.send(Wire::FrameKind::Report, "{}");
        m_isStarted = QTest::qWaitFor([this] { return m_isBusy.load(); }, 60000);
    }
    ~BusyChannelThread()
    {
        m_released.set_value();
        QObject::disconnect(m_connection);
        m_channel.reset();
    }
    BusyChannelThread(const BusyChannelThread &) = delete;
    BusyChannelThread &operator=(const BusyChannelThread &) = delete;

    bool isStarted() const { return m_isStarted; }

private:
    void work()
    {
        const auto isReleased = m_isReleased; // the object may be destroyed after the release
        m_isBusy = true;
        isReleased.wait();
    }

    EchoDevice m_device;
    std::shared_ptr<NetworkChannel> m_channel =
        openTcpDeviceChannel(QStringLiteral("127.0.0.1"), m_device.port());
    QMetaObject::Connection m_connection;
    std::promise<void> m_released;
    const std::shared_future<void> m_isReleased = m_released.get_future().share();
    std::atomic<bool> m_isBusy{false};
    bool m_isStarted = false;
};

} // namespace

class tst_CallerReads : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void exchangeDoesNotNeedTheThreadOfTheChannels();
    void severalCallersDoNotNeedItEither();
    void longAnswerDoesNotNeedItEither();
    void stopEndsARequestWhileThatThreadIsBusy();
    void requestEndsAtItsTimeout();
    void reportIsHandledBeforeTheAnswerAfterIt();
    void callerDoesNotCollectReportsThatNothingHandles();
    void lossThatACallerFindsEndsItsRequest();

private:
    std::unique_ptr<EchoDevice> m_device;
    std::shared_ptr<NetworkChannel> m_channel;
};

void tst_CallerReads::init()
{
    m_device = std::make_unique<EchoDevice>();
    m_channel = openTcpDeviceChannel(QStringLiteral("127.0.0.1"), m_device->port());
    QTRY_VERIFY(m_channel->isHardwareReadFinished());
}

void tst_CallerReads::cleanup()
{
    m_channel.reset();
    m_device.reset();
}

void tst_CallerReads::exchangeDoesNotNeedTheThreadOfTheChannels()
{
    const BusyChannelThread busy;
    QVERIFY(busy.isStarted());
    for (int i = 0; i < 20; ++i) {
        auto answer = sendFromAThread(m_channel, "body " + std::to_string(i));
        QTRY_VERIFY(isDone(answer));
        QCOMPARE(answer.get()->body(), "body " + std::to_string(i));
    }
}

void tst_CallerReads::severalCallersDoNotNeedItEither()
{
    const BusyChannelThread busy;
    QVERIFY(busy.isStarted());
    std::vector<std::future<int>> callers;
    for (int caller = 0; caller < 8; ++caller) {
        callers.push_back(std::async(std::launch::async, [this, caller] {
            int good = 0;
            for (int i = 0; i < 50; ++i) {
                const std::string body = std::to_string(caller) + "/" + std::to_string(i);
                good += m_channel->sendSyncRequest(request(body))->body() == body;
            }
            return good;
        }));
    }
    for (auto &caller : callers) {
        QTRY_VERIFY(isDone(caller));
        QCOMPARE(caller.get(), 50);
    }
}

void tst_CallerReads::longAnswerDoesNotNeedItEither()
{
    // The socket takes all bytes at once, so that nothing is left to the thread of the channels.
    const std::string body(100'000, 'x');
    const BusyChannelThread busy;
    QVERIFY(busy.isStarted());
    auto answer = sendFromAThread(m_channel, body);
    QTRY_VERIFY(isDone(answer));
    QCOMPARE(answer.get()->body(), body);
}

void tst_CallerReads::stopEndsARequestWhileThatThreadIsBusy()
{
    auto answer = sendFromAThread(m_channel, {});
    QTRY_COMPARE(m_device->silentRequests, 1);
    const BusyChannelThread busy;
    QVERIFY(busy.isStarted());
    m_channel->stopChannel();
    QTRY_VERIFY(isDone(answer));
    QCOMPARE(answer.get()->status, quint16(259));
}

void tst_CallerReads::requestEndsAtItsTimeout()
{
    const auto silent = request({});
    silent->setTimeout(20);
    auto answer =
        std::async(std::launch::async, [&] { return m_channel->sendSyncRequest(silent); });
    QTRY_VERIFY(isDone(answer));
    QCOMPARE(answer.get()->status, quint16(260));
    auto next = sendFromAThread(m_channel, "next");
    QTRY_VERIFY(isDone(next));
    QCOMPARE(next.get()->body(), std::string("next"));
}

/// A caller that receives an answer may rely on the reports before it.
void tst_CallerReads::reportIsHandledBeforeTheAnswerAfterIt()
{
    std::atomic<int> reports{0};
    const auto connection = connect(
        DeviceManager::instance(), &DeviceManager::parseDeviceAutoReportFinished,
        DeviceManager::instance(), [&](const auto &, const auto &) { ++reports; },
        Qt::DirectConnection);
    m_device->reportsBeforeAnswers = true;
    auto caller = std::async(std::launch::async, [&] {
        int inOrder = 0;
        for (int i = 1; i <= 200; ++i) {
            m_channel->sendSyncRequest(request("body"));
            inOrder += reports == i;
        }
        return inOrder;
    });
    QTRY_VERIFY(isDone(caller));
    QCOMPARE(caller.get(), 200);
    disconnect(connection);
}

/// What is not received stays in the network's buffers, which slows the device down. The reports
/// are far longer than these buffers.
void tst_CallerReads::callerDoesNotCollectReportsThatNothingHandles()
{
    constexpr int reportCount = 64;
    const QByteArray body(1 << 20, 'r');
    auto answer = sendFromAThread(m_channel, {});
    QTRY_COMPARE(m_device->silentRequests, 1);
    {
        const BusyChannelThread busy;
        QVERIFY(busy.isStarted());
        for (int i = 0; i < reportCount; ++i)
            m_device->send(Wire::FrameKind::Report, body);
        qint64 unsent = 0;
        do { // until nothing is sent any more
            unsent = m_device->unsentBytes();
        } while (QTest::qWaitFor([&] { return m_device->unsentBytes() < unsent; }, 500));
        QVERIFY(unsent > 0);
    }
    QTRY_COMPARE(m_channel->statistics().reports, quint64(reportCount));
    m_channel->stopChannel();
    QTRY_VERIFY(isDone(answer));
}

void tst_CallerReads::lossThatACallerFindsEndsItsRequest()
{
    for (int i = 0; i < 3; ++i) {
        auto answer = sendFromAThread(m_channel, {});
        QTRY_COMPARE(m_device->silentRequests, i + 1);
        m_device->dropConnections();
        QTRY_VERIFY(isDone(answer));
        QCOMPARE(answer.get()->status, quint16(259));
        m_channel->reconnectNow();
        QTRY_VERIFY(m_channel->isHardwareReadFinished());
    }
}

QTEST_GUILESS_MAIN(tst_CallerReads)
#include "tst_callerreads.moc"
