// What a thread learns from its channel about the requests that its operations sent.

#include <support/tavorosim/simulatedconnection.h>

#include <tavorobizmodel/device.h>
#include <tavorocontrol/device.h>
#include <tavorocontrol/file.h>
#include <tavorossproxy/devicecommand.h>
#include <tavorossproxy/exchangewatch.h>
#include <tavorossproxy/networkchannel.h>

#include <QTest>

#include <mutex>
#include <thread>
#include <vector>

using namespace Tavoro;
using namespace Tavoro::SSProxy;
using namespace std::chrono_literals;

namespace {

Sim::SimOptions smallPackets()
{
    Sim::SimOptions options;
    options.packetSize = 400;
    return options;
}

ChannelOptions shortTimes()
{
    ChannelOptions options;
    options.maxRequestTime = 500ms;
    options.firstReconnectPause = 60s; // the test reconnects it
    return options;
}

} // namespace

class tst_ExchangeWatch : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_connection = std::make_unique<SimulatedConnection>(smallPackets(), shortTimes());
    }
    void cleanup() { m_connection.reset(); }

    void watchHoldsNothingBeforeAnExchange();
    void statusAndCodeOfAWriteAreHeld_data();
    void statusAndCodeOfAWriteAreHeld();
    void outcomeOfALostWriteIsKnownAfterReconnecting();
    void requestOfADisconnectedChannelWasNotSent();
    void operationOfAnOfflineDeviceWasNotSent();
    void streamOfALostDeviceEndsWithARequestThatWasNotSent();
    void everyPacketOfASplitWriteIsObserved();
    void watchesOfOtherThreadsObserveNothing();
    void newestWatchOfAThreadObserves();
    void connectionHandlerGetsEachState();
    void holderOfControlIsReadWithoutTakingIt();

private:
    bool writeSwap(quint8 value)
    {
        QString error;
        ProtoModel::Device::s_swap swap;
        swap.swap = value;
        return Control::Device(m_connection->model).writeSwap(swap, error);
    }
    void addFault(const QString &rule)
    {
        QVERIFY(m_connection->simulator->execute(QStringLiteral("fault add ") + rule).ok);
    }
    NetworkChannel &channel() { return *m_connection->channel; }

    std::unique_ptr<SimulatedConnection> m_connection;
};

void tst_ExchangeWatch::watchHoldsNothingBeforeAnExchange()
{
    QVERIFY(writeSwap(1));
    const ExchangeWatch watch;
    QVERIFY(!watch.last());
    QVERIFY(!watch.firstSent());
}

void tst_ExchangeWatch::statusAndCodeOfAWriteAreHeld_data()
{
    QTest::addColumn<QString>("fault");
    QTest::addColumn<int>("status");
    // clang-format off
    QTest::newRow("accepted")            << QString()                                  << 0;
    QTest::newRow("refused")             << QStringLiteral("status=8,code=0x1107")       << 8;
    QTest::newRow("no answer")           << QStringLiteral("silent,code=0x1107")         << 260;
    QTest::newRow("connection was lost") << QStringLiteral("drop-before,code=0x1107")    << 259;
    QTest::newRow("invalid answer")      << QStringLiteral("wrong-checksum,code=0x1107") << 361;
    // clang-format on
}

void tst_ExchangeWatch::statusAndCodeOfAWriteAreHeld()
{
    QFETCH(QString, fault);
    QFETCH(int, status);
    if (!fault.isEmpty())
        addFault(fault);
    const ExchangeWatch watch;
    QCOMPARE(writeSwap(1), status == 0);
    QVERIFY(watch.last().has_value());
    QCOMPARE(int(watch.last()->status), status);
    QCOMPARE(int(watch.last()->code), 0x1107);
    QCOMPARE(int(watch.last()->type), int(CommandType::Write));
    QCOMPARE(watch.last()->packets, 1u);
    QVERIFY(watch.last()->sent.has_value());
    QCOMPARE(watch.last()->sent->client.size(), std::size_t(8));
    QCOMPARE(watch.last()->sent->connection, 1u);
    QVERIFY(watch.firstSent() == watch.last()->time);
}

void tst_ExchangeWatch::outcomeOfALostWriteIsKnownAfterReconnecting()
{
    addFault(QStringLiteral("drop-before,count=1"));
    const ExchangeWatch watch;
    QVERIFY(!writeSwap(1));
    const RequestIdentity lost = *watch.last()->sent;
    QString error;
    channel().reconnectNow();
    QVERIFY2(channel().waitUntilReady(30000, error), qPrintable(error));
    const RequestOutcome outcome = channel().outcomeOf(lost);
    QCOMPARE(int(outcome.state), int(RequestOutcome::Done));
    QCOMPARE(int(outcome.status), 0);
}

void tst_ExchangeWatch::requestOfADisconnectedChannelWasNotSent()
{
    channel().stopChannel();
    const ExchangeWatch watch;
    channel().sendSyncRequest(std::make_shared<DeviceRequestCommand>());
    QVERIFY(watch.last().has_value());
    QCOMPARE(int(watch.last()->status), 259);
    QVERIFY(!watch.last()->sent);
    QVERIFY(!watch.firstSent());
}

void tst_ExchangeWatch::operationOfAnOfflineDeviceWasNotSent()
{
    const ExchangeWatch watch;
    QVERIFY(writeSwap(1));
    const auto sent = watch.firstSent();
    channel().stopChannel();
    QVERIFY(!writeSwap(0));
    QCOMPARE(int(watch.last()->status), 259);
    QVERIFY(!watch.last()->sent);
    QVERIFY(watch.firstSent() == sent);
}

void tst_ExchangeWatch::streamOfALostDeviceEndsWithARequestThatWasNotSent()
{
    QString error;
    ProtoModel::File::s_FileInfo info;
    info.fileType = 2;
    info.fileId = 1;
    info.size.length = 1500; // four packets
    Control::File file(m_connection->model);
    QVERIFY2(file.importFile({info}, error), qPrintable(error));
    QVERIFY2(file.importFileBinary({1, 2}, std::string(1500, 'x'), error), qPrintable(error));
    const ExchangeWatch watch;
    QStringList errors;
    file.readBinary(2, 1, [&](bool ok, double, const std::string &, QString &reason) {
        if (!ok)
            errors += reason;
        QVERIFY(m_connection->simulator->execute(QStringLiteral("switch 0")).ok);
        QTRY_VERIFY(!channel().isHardwareReadFinished());
    });
    QCOMPARE(
        errors,
        QStringList{QStringLiteral("Get file export information failed: The device is offline .")});
    QCOMPARE(int(watch.last()->status), 259);
    QVERIFY(!watch.last()->sent);
}

void tst_ExchangeWatch::everyPacketOfASplitWriteIsObserved()
{
    ProtoModel::Device::s_General general;
    general.general.name = std::string(500, 'n'); // two packets
    QString error;
    addFault(QStringLiteral("drop-before,code=0x1101,skip=1,count=1"));
    const ExchangeWatch watch;
    QVERIFY(!Control::Device(m_connection->model).writeDeviceGeneral(general, error));
    QVERIFY(watch.last().has_value());
    QVERIFY(watch.last()->packets > 1);
    QCOMPARE(watch.last()->packet, 1u);
    QVERIFY(watch.last()->sent.has_value());
    QVERIFY(*watch.firstSent() < watch.last()->time);
}

void tst_ExchangeWatch::watchesOfOtherThreadsObserveNothing()
{
    const ExchangeWatch watch;
    std::thread([this] { QVERIFY(writeSwap(1)); }).join();
    QVERIFY(!watch.last());
}

void tst_ExchangeWatch::newestWatchOfAThreadObserves()
{
    const ExchangeWatch outer;
    {
        const ExchangeWatch inner;
        QVERIFY(writeSwap(1));
        QVERIFY(inner.last().has_value());
    }
    QVERIFY(!outer.last());
    QVERIFY(writeSwap(0));
    QVERIFY(outer.last().has_value());
}

void tst_ExchangeWatch::connectionHandlerGetsEachState()
{
    std::mutex mutex;
    std::vector<ConnectionState> states;
    channel().setConnectionHandler([&](const ConnectionState &state) {
        const std::lock_guard<std::mutex> lock(mutex);
        states.push_back(state);
    });
    const auto hasStates = [&](std::size_t count) {
        const std::lock_guard<std::mutex> lock(mutex);
        return states.size() == count;
    };
    QTRY_VERIFY(hasStates(1));
    QVERIFY(m_connection->simulator->execute(QStringLiteral("switch 0")).ok);
    QTRY_VERIFY(hasStates(2));
    QVERIFY(m_connection->simulator->execute(QStringLiteral("switch 1")).ok);
    channel().reconnectNow();
    QTRY_VERIFY(hasStates(4));
    channel().stopChannel();
    QTRY_VERIFY(hasStates(5));
    using Phase = ConnectionState::Phase;
    const Phase expected[] = {Phase::Ready, Phase::Pausing, Phase::Connecting, Phase::Ready,
                              Phase::Stopped};
    for (std::size_t i = 0; i < states.size(); ++i)
        QCOMPARE(int(states[i].phase), int(expected[i]));
    QVERIFY(states[1].pause > 50s);
    QVERIFY(!states[1].reason.isEmpty());
    QCOMPARE(states[0].connections, quint64(1));
    QCOMPARE(states[3].connections, quint64(2));
    QVERIFY(states[3].reason.isEmpty());
}

void tst_ExchangeWatch::holderOfControlIsReadWithoutTakingIt()
{
    const TcpConnection other(m_connection->simulator->port());
    QString holder = QStringLiteral("text from before");
    QVERIFY(channel().readControlHolder(holder));
    QCOMPARE(holder, QString());
    QString error;
    QVERIFY(other.channel->requestControl(ControlAction::Take, error));
    QVERIFY(channel().readControlHolder(holder));
    QVERIFY2(holder.startsWith(QStringLiteral("127.0.0.1:")), qPrintable(holder));
    QVERIFY(other.channel->isMasterControl());
    QTRY_VERIFY(!channel().isMasterControl());
}

QTEST_GUILESS_MAIN(tst_ExchangeWatch)
#include "tst_exchangewatch.moc"
