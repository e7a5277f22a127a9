// Every status that the channel itself sets, by its cause, over TCP to a simulated device.

#include <support/common/requestcommand.h>
#include <support/tavorosim/commandcodes.h>
#include <support/tavorosim/packetsize.h>
#include <tavorocontrol/controlhelper.h>
#include <tavorosim/simulateddevice.h>
#include <tavorossproxy/devicemanager.h>
#include <tavorossproxy/tcpdevicechannel.h>

#include <QCoreApplication>
#include <QTest>

#include <atomic>
#include <future>
#include <memory>
#include <string>

using namespace CommandCodes;
using namespace Tavoro;
using namespace Tavoro::SSProxy;
using namespace std::chrono_literals;

namespace {

std::shared_ptr<DeviceRequestCommand> request(quint16 code, int timeout = 20000)
{
    return code == deviceSwap ? requestCommand(2, code, swapOff, timeout)
                              : requestCommand(1, code, {}, timeout);
}

/// A device that follows a fault rule from the beginning, and a channel to it.
struct Line {
    explicit Line(const char *rule = "", const ChannelOptions &channelOptions = {},
                  const Sim::SimOptions &options = {})
        : device(std::make_unique<Sim::SimulatedDevice>(options))
    {
        QString error;
        if (!device->start(error))
            qFatal("%s", qUtf8Printable(error));
        if (*rule != '\0'
            && !device->execute(QStringLiteral("fault add ") + QLatin1String(rule)).ok)
            qFatal("no rule: %s", rule);
        channel = openTcpDeviceChannel(QStringLiteral("127.0.0.1"), device->port(), channelOptions);
    }
    ~Line() { channel->stopChannel(); }

    bool isReady()
    {
        QString error;
        return channel->waitUntilReady(10000, error);
    }
    int ask(quint16 code = deviceDetail, int timeout = 20000)
    {
        return channel->sendSyncRequest(request(code, timeout))->status;
    }
    std::string swap()
    {
        const std::string body = channel->sendSyncRequest(request(deviceDetail))->body();
        const auto at = body.find("\"swap\":");
        return at == std::string::npos ? "unknown" : body.substr(at + 7, 1);
    }

    std::unique_ptr<Sim::SimulatedDevice> device;
    std::shared_ptr<NetworkChannel> channel;
};

QString textOf(int status)
{
    return Control::ControlHelper::errorText(static_cast<quint16>(status));
}

} // namespace

class tst_ChannelStatuses : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void channelWithoutAnAddressIsNotInitialised();
    void channelWithoutAnIdentityIsConnecting();
    void lostConnectionEndsTheRequest();
    void lostConnectionRefusesRequests();
    void anotherDeviceAtTheAddressIsRefused();
    void missingAnswerEndsTheRequest();
    void requestFromAReportIsRefused();
    void requestWithoutAFreeTagIsRefused();
    void invalidRequestIsRefused();
    void requestAfterTheEndOfTheApplicationIsRefused();
    void wrongAnswerHasItsStatus_data();
    void wrongAnswerHasItsStatus();
    void answerToAnotherRequestIsDetected();
    void deviceThatDoesNotAnswerPingsIsDisconnected();
    void nothingIsSentTwice();
    void unsentRequestsThatTimedOutAreNotSentLater();

private:
    int m_argc = 1;
    char m_name[5] = "test";
    char *m_argv[2] = {m_name, nullptr};
    std::unique_ptr<QCoreApplication> m_application;
};

/// One application object for each test: the channels' thread ends with it.
void tst_ChannelStatuses::init()
{
    m_application = std::make_unique<QCoreApplication>(m_argc, m_argv);
}

void tst_ChannelStatuses::cleanup()
{
    m_application.reset();
}

void tst_ChannelStatuses::channelWithoutAnAddressIsNotInitialised()
{
    const auto channel = openTcpDeviceChannel(QString());
    QCOMPARE(int(channel->sendSyncRequest(request(deviceDetail))->status), 257);
    QCOMPARE(textOf(257), QStringLiteral("software error: Channel is not initialized"));
}

void tst_ChannelStatuses::channelWithoutAnIdentityIsConnecting()
{
    Line line("ignore,code=identity,count=1");
    QTRY_COMPARE(line.device->execute(QStringLiteral("fault list")).text,
                 QString()); // the device was asked
    QCOMPARE(line.ask(), 258);
    QCOMPARE(textOf(258), QStringLiteral("software error: Channel is connecting"));
}

void tst_ChannelStatuses::lostConnectionEndsTheRequest()
{
    Line line("drop-before,code=DeviceSwap,count=1");
    QVERIFY(line.isReady());
    QCOMPARE(line.ask(deviceSwap), 259);
    QCOMPARE(textOf(259), QStringLiteral("software error: Channel disconnected"));
    line.channel->reconnectNow();
    QVERIFY(line.isReady());
    QCOMPARE(line.swap(), std::string("0")); // the device carried it out all the same
}

void tst_ChannelStatuses::lostConnectionRefusesRequests()
{
    ChannelOptions options;
    options.firstReconnectPause = 60s;
    Line line("drop-request,count=1", options);
    QVERIFY(line.isReady());
    QCOMPARE(line.ask(), 259);
    const quint64 requests = line.channel->statistics().requests;
    QCOMPARE(line.ask(deviceSwap), 259);
    QCOMPARE(line.channel->statistics().requests, requests); // it was not sent
}

void tst_ChannelStatuses::anotherDeviceAtTheAddressIsRefused()
{
    ChannelOptions options;
    options.identity = "FFFFFFFFFFFFFFFF";
    options.firstReconnectPause = 60s;
    Line line("", options);
    QTRY_COMPARE(line.ask(deviceSwap), 259);
    QString error;
    QVERIFY(!line.channel->waitUntilReady(0, error));
    QCOMPARE(
        error,
        QStringLiteral("The device at 127.0.0.1:%1 cannot be reached: another device is there.")
            .arg(line.device->port()));
    QCOMPARE(line.channel->statistics().requests, quint64(0)); // nothing was sent
    QVERIFY(line.device->execute(QStringLiteral("fault add late=1,code=identity,count=1")).ok);
    line.channel->reconnectNow();
    QTRY_COMPARE(line.device->execute(QStringLiteral("fault list")).text, QString());
    QTRY_COMPARE(line.ask(deviceSwap), 259);
}

void tst_ChannelStatuses::missingAnswerEndsTheRequest()
{
    Line line("silent,code=DeviceSwap,count=1");
    QVERIFY(line.isReady());
    QCOMPARE(line.ask(deviceSwap, 50), 260);
    QCOMPARE(textOf(260), QStringLiteral("software error: Request timed out"));
    QCOMPARE(line.swap(), std::string("0")); // the device carried it out all the same
}

void tst_ChannelStatuses::requestFromAReportIsRefused()
{
    Line line;
    QVERIFY(line.isReady());
    std::atomic<int> status{0};
    const auto connection = QObject::connect(
        DeviceManager::instance(), &DeviceManager::parseDeviceAutoReportFinished,
        DeviceManager::instance(), [&] { status = line.ask(); }, Qt::DirectConnection);
    QVERIFY(line.device->execute(QStringLiteral("genlock 0")).ok);
    QTRY_COMPARE(status.load(), 261);
    QObject::disconnect(connection);
    QCOMPARE(textOf(261), QStringLiteral("software error: Asynchronous request is being executed"));
}

void tst_ChannelStatuses::requestWithoutAFreeTagIsRefused()
{
    ChannelOptions options;
    options.maxTimedOutRequests = 1000;
    Line line("silent", options);
    QVERIFY(line.isReady());
    std::vector<std::future<int>> callers;
    for (int i = 0; i < 255; ++i)
        callers.push_back(
            std::async(std::launch::async, [&] { return line.ask(deviceSwap, 60000); }));
    QTRY_COMPARE(line.channel->statistics().requests, quint64(255));
    QCOMPARE(line.ask(), 262);
    QCOMPARE(textOf(262), QStringLiteral("software error: Sync request is being executed"));
    line.channel->stopChannel();
    for (auto &caller : callers)
        QCOMPARE(caller.get(), 259);
}

void tst_ChannelStatuses::invalidRequestIsRefused()
{
    Line line;
    QVERIFY(line.isReady());
    QCOMPARE(int(line.channel->sendSyncRequest(nullptr)->status), 263);
    auto ofNoType = request(deviceDetail);
    ofNoType->head().type = 5;
    QCOMPARE(int(line.channel->sendSyncRequest(ofNoType)->status), 263);
    auto tooLong = request(deviceSwap);
    tooLong->body() = std::string(64 * 1024 + 1, ' ');
    QCOMPARE(int(line.channel->sendSyncRequest(tooLong)->status), 263);
    QCOMPARE(textOf(263), QStringLiteral("software error: Invalid request command"));
}

void tst_ChannelStatuses::requestAfterTheEndOfTheApplicationIsRefused()
{
    Line line;
    QVERIFY(line.isReady());
    line.device.reset(); // the device needs an application as well
    m_application.reset();
    QCOMPARE(line.ask(), 264);
    QCOMPARE(textOf(264),
             QStringLiteral("software error: Sending thread is not initialized or not started"));
}

void tst_ChannelStatuses::wrongAnswerHasItsStatus_data()
{
    QTest::addColumn<int>("status");
    QTest::addColumn<QString>("text");
    const auto row = [](const char *fault, int status, const char *text) {
        QTest::newRow(fault) << status << QString::fromLatin1(text);
    };
    row("wrong-code", 357, "protocol error: Invalid register address");
    row("drop-within", 358, "protocol error: Return data is too short");
    row("wrong-flag", 359, "protocol error: Invalid protocol header flag");
    row("wrong-version", 359, "protocol error: Invalid protocol header flag");
    row("wrong-index", 360, "protocol error: Invalid checksum index");
    row("wrong-checksum", 361, "protocol error: Invalid checksum");
    row("wrong-head-checksum", 361, "protocol error: Invalid checksum");
    row("wrong-type", 362, "protocol error: Invalid type");
    row("wrong-kind", 362, "protocol error: Invalid type");
    row("wrong-length", 363, "protocol error: Invalid extended data length");
    row("packets", 363, "protocol error: Invalid extended data length");
    row("stall", 365, "protocol error: Device response decoding timed out");
}

void tst_ChannelStatuses::wrongAnswerHasItsStatus()
{
    QFETCH(int, status);
    QFETCH(QString, text);
    Line line;
    QVERIFY(line.isReady());
    const QString rule = QLatin1String(QTest::currentDataTag());
    QVERIFY(line.device->execute(QStringLiteral("fault add ") + rule).ok);
    QCOMPARE(line.ask(deviceDetail, status == 365 ? 100 : 20000), status);
    QCOMPARE(textOf(status), text);
}

/// The answer has the number, tag and stream of the first request, but another code.
void tst_ChannelStatuses::answerToAnotherRequestIsDetected()
{
    Line line("silent,code=DeviceSwap,count=1");
    QVERIFY(line.isReady());
    auto first = std::async(std::launch::async, [&] { return line.ask(deviceSwap); });
    QTRY_COMPARE(line.device->execute(QStringLiteral("fault list")).text, QString());
    QVERIFY(line.device->execute(QStringLiteral("fault add other-tag")).ok);
    QCOMPARE(line.ask(deviceDetail, 100), 260);
    QCOMPARE(first.get(), 357);
}

void tst_ChannelStatuses::deviceThatDoesNotAnswerPingsIsDisconnected()
{
    ChannelOptions options;
    options.keepAliveInterval = 50ms;
    options.keepAliveTimeout = 150ms;
    Line line("stop-reading", options);
    QVERIFY(line.isReady());
    QCOMPARE(line.ask(), 364);
    QCOMPARE(textOf(364), QStringLiteral("protocol error: Device response timeout"));
}

/// The channel does not repeat a request, neither after a timeout nor after a loss.
void tst_ChannelStatuses::nothingIsSentTwice()
{
    Line line("ignore,code=DeviceSwap,count=1");
    QVERIFY(line.isReady());
    QCOMPARE(line.ask(deviceSwap, 50), 260);
    QVERIFY(
        line.device->execute(QStringLiteral("fault add drop-request,code=DeviceSwap,count=1")).ok);
    QCOMPARE(line.ask(deviceSwap), 259);
    line.channel->reconnectNow();
    QVERIFY(line.isReady());
    QCOMPARE(line.swap(), std::string("1"));
}

/// A device that does not read fills the buffers of the network; what does not fit waits in the
/// channel until its timeout.
void tst_ChannelStatuses::unsentRequestsThatTimedOutAreNotSentLater()
{
    constexpr int requests = 12;
    Line line("stop-reading,count=1", {}, packetsOf(4 << 20));
    QVERIFY(line.isReady());
    QCOMPARE(line.ask(deviceDetail, 20), 260);
    auto long4MiB = request(deviceSwap, 20);
    long4MiB->body() = std::string(4 << 20, ' ');
    for (int i = 0; i < requests; ++i)
        QCOMPARE(int(line.channel->sendSyncRequest(long4MiB)->status), 260);
    QVERIFY(line.device->execute(QStringLiteral("fault clear")).ok);
    QCOMPARE(line.ask(), 0);
    QCOMPARE(line.channel->statistics().timeouts, quint64(requests + 1));
    QVERIFY(line.channel->statistics().lateAnswers > 0);
    QVERIFY(line.channel->statistics().lateAnswers < requests);
}

int main(int argc, char *argv[])
{
    tst_ChannelStatuses test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_channelstatuses.moc"
