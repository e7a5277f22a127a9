// What operators met with applications that called the control classes themselves: a frozen window,
// losses that nobody reported, devices that were not read, a take of unknown outcome, and a model
// that did not follow. None of it happens with a session.

#include <support/tavorosession/devicelog.h>
#include <support/tavorosession/sessionbench.h>

#include <tavorobizmodel/layer.h>
#include <tavorocontrol/device.h>
#include <tavorocontrol/file.h>
#include <tavorocontrol/layer.h>
#include <tavorocontrol/screen.h>
#include <tavorossproxy/devicemanager.h>

#include <QSignalSpy>

using namespace Tavoro;
using namespace std::chrono_literals;

namespace {

constexpr int preview = 2;
constexpr int programme = 4;

// A request to a silent device takes 100 s here, and so would an event loop that waited for it. The
// bound is far below that, and far above what a busy machine takes from a thread.
constexpr quint32 requestTime = 100000; // milliseconds
constexpr qint64 longestGap = 20000; // milliseconds

SessionBench::Options operatorsOptions()
{
    SessionBench::Options options = SessionBench::fastOptions();
    options.channel.maxRequestTime = std::chrono::milliseconds(requestTime);
    return options;
}

/// The first mixing layer of screen 1.
std::shared_ptr<BizModel::Layer> window(const DeviceSession &wall, int scene)
{
    for (const auto &each : wall.device()->layers()) {
        const auto layer = each.lock();
        const auto identity = layer->identity();
        if (identity.sceneType == scene && identity.screenId == 1 && identity.layerType == 1)
            return layer;
    }
    return nullptr;
}

int positionOf(const DeviceSession &wall, int scene)
{
    return window(wall, scene)->detail().window.x;
}

ProtoModel::Layer::s_LayerWindow windowAt(const DeviceSession &wall, qint32 x)
{
    const auto layer = window(wall, preview);
    ProtoModel::Layer::s_LayerWindow moved;
    moved.layerIdenti = layer->identity();
    moved.window = layer->detail().window;
    moved.window.x = x;
    return moved;
}

} // namespace

class tst_EverydayFaults : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void takeOnASilentDeviceDoesNotFreezeTheWindow();
    void closingDuringASynchronisationDoesNotWaitForTheDevice_data();
    void closingDuringASynchronisationDoesNotWaitForTheDevice();
    void lostAndReturnedConnectionIsReported();
    void pulledCableIsReported();
    void modelFollowsARebootedDevice();
    void devicesThatComeOnlineTogetherAreBothRead();
    void takeIsDeliveredAsTheDeviceCarriedItOut_data();
    void takeIsDeliveredAsTheDeviceCarriedItOut();
    void takeThatDidNotArriveIsNotSent();
    void windowThatIsMovedMovesInTheModel();
    void windowThatAnotherClientMovedMovesWhenTheDeviceIsReadAgain();

private:
    DeviceSession &wall() { return *m_bench->wall; }
    PendingCall<Outcome> callTake(quint8 screenId = 1)
    {
        ProtoModel::Screen::s_SwitchEffect effect;
        effect.screenId = screenId;
        effect.screenType = 1;
        return wall().call(&Control::Screen::writeTake, {effect});
    }
    bool movesWindow(int x)
    {
        return bool(resultOf(wall().call(&Control::Layer::writeWindow, {windowAt(wall(), x)})))
            && QTest::qWaitFor([&] { return positionOf(wall(), preview) == x; }, 60000);
    }
    /// Number of requests that the only channel has sent.
    static quint64 sentRequests()
    {
        const auto channels = SSProxy::DeviceManager::instance()->tavoroDeviceChannels();
        const auto channel =
            std::dynamic_pointer_cast<SSProxy::NetworkChannel>(channels.first().lock());
        return channel->statistics().requests;
    }

    std::unique_ptr<SessionBench> m_bench;
    std::unique_ptr<Heartbeat> m_heartbeat;
};

void tst_EverydayFaults::init()
{
    m_bench = std::make_unique<SessionBench>(operatorsOptions());
    m_heartbeat = std::make_unique<Heartbeat>();
    QVERIFY(m_bench->openReady());
}

/// The window stays alive in each test, and when it is closed.
void tst_EverydayFaults::cleanup()
{
    m_bench->session.reset();
    const qint64 gap = m_heartbeat->longestGap();
    m_heartbeat.reset();
    m_bench.reset();
    QVERIFY2(gap < longestGap, qPrintable(QStringLiteral("blocked for %1 ms").arg(gap)));
}

void tst_EverydayFaults::takeOnASilentDeviceDoesNotFreezeTheWindow()
{
    m_bench->setTimeout(0x130E, std::chrono::milliseconds(requestTime));
    QVERIFY(m_bench->addFault("silent,code=0x130E,count=1"));
    const auto take = callTake();
    QTRY_VERIFY(!m_bench->hasFaults()); // it has arrived
    QVERIFY(m_heartbeat->waitForBeats());
    QVERIFY(!take.future().isFinished());
    m_bench->session.reset();
    QCOMPARE(int(resultOf(take).kind()), int(Outcome::Unknown));
}

void tst_EverydayFaults::closingDuringASynchronisationDoesNotWaitForTheDevice_data()
{
    QTest::addColumn<QByteArray>("code");
    // clang-format off
    QTest::newRow("clock")      << QByteArray("0xFC0C");
    QTest::newRow("details")    << QByteArray("0x1100");
    QTest::newRow("interfaces") << QByteArray("0x1200");
    QTest::newRow("screens")    << QByteArray("0x1300");
    QTest::newRow("layers")     << QByteArray("0x1400");
    QTest::newRow("files")      << QByteArray("0xFA00");
    // clang-format on
}

void tst_EverydayFaults::closingDuringASynchronisationDoesNotWaitForTheDevice()
{
    QFETCH(QByteArray, code);
    wall().device()->deviceConfig().defaultTimeout = requestTime; // nothing reads it now
    QVERIFY(m_bench->addFault(QByteArray("silent,count=1,code=" + code)));
    wall().readAgain();
    QTRY_VERIFY(!m_bench->hasFaults());
    QCOMPARE(int(wall().state().kind), int(DeviceState::Reading));
    DeviceLog log;
    QElapsedTimer time;
    time.start();
    m_bench->session.reset();
    QVERIFY2(time.elapsed() < longestGap, qPrintable(QString::number(time.elapsed())));
    QCOMPARE(log.codes(), QStringList()); // it did not continue with the next read
}

void tst_EverydayFaults::lostAndReturnedConnectionIsReported()
{
    QSignalSpy changed(&wall(), &DeviceSession::stateChanged);
    QVERIFY(m_bench->execute(QStringLiteral("switch 0")));
    QTRY_COMPARE(changed.size(), 1);
    QCOMPARE(int(wall().state().kind), int(DeviceState::Lost));
    QVERIFY(!wall().state().reason.isEmpty());
    QVERIFY(!wall().device()->isOnline());
    QVERIFY(m_bench->execute(QStringLiteral("switch 1")));
    QTRY_VERIFY(wall().isReady());
    QCOMPARE(changed.size(), 3); // Lost, Reading, Ready
    QVERIFY(wall().device()->isOnline());
}

void tst_EverydayFaults::pulledCableIsReported()
{
    SessionBench::Options options = operatorsOptions();
    options.channel.keepAliveInterval = 1s;
    options.channel.keepAliveTimeout = 3s;
    options.channel.identityTimeout = 1s;
    m_bench.reset();
    m_bench = std::make_unique<SessionBench>(options);
    QVERIFY(m_bench->openReady());
    // Nothing arrives any more, and no connection ends.
    QVERIFY(m_bench->addFault("stop-reading,code=0x1100,count=1"));
    QVERIFY(m_bench->addFault("silent,code=identity"));
    wall().readAgain();
    QTRY_VERIFY(!m_bench->hasFaults("stop-reading"));
    const DeviceLog log;
    const auto take = callTake();
    QTRY_COMPARE(int(wall().state().kind), int(DeviceState::Lost));
    QVERIFY(!wall().device()->isOnline());
    QCOMPARE(wall().state().reason, QStringLiteral("it stopped answering"));
    QTRY_VERIFY(log.hasLostConnection()); // or it would still carry the take out
    QVERIFY(m_bench->execute(QStringLiteral("fault clear")));
    wall().reconnectNow();
    QTRY_VERIFY(wall().isReady());
    QVERIFY(wall().device()->isOnline());
    QCOMPARE(int(resultOf(take).kind()), int(Outcome::NotSent));
}

void tst_EverydayFaults::modelFollowsARebootedDevice()
{
    const int before = positionOf(wall(), preview);
    const auto device = wall().device();
    const auto layer = window(wall(), preview);
    QVERIFY(movesWindow(before + 40));
    QSignalSpy changed(&wall(), &DeviceSession::stateChanged);
    QVERIFY(m_bench->addFault("reboot,code=0x130E,count=1")); // the move was not saved
    const auto take = callTake();
    QTRY_COMPARE(changed.size(), 3); // Lost, Reading, Ready
    QVERIFY(wall().isReady());
    QCOMPARE(positionOf(wall(), preview), before);
    QCOMPARE(wall().device(), device);
    QCOMPARE(window(wall(), preview), layer);
    QVERIFY(!resultOf(take));
}

void tst_EverydayFaults::devicesThatComeOnlineTogetherAreBothRead()
{
    RunningSimulator second(SessionBench::smallDevice(2));
    DeviceSession *const other = m_bench->open(second);
    QTRY_VERIFY(other->isReady());
    const auto all = [&](const char *line) {
        return m_bench->execute(QString::fromLatin1(line))
            && second.simulator->execute(QString::fromLatin1(line)).ok;
    };
    // Their names are not saved, so the model shows whether they were read again.
    for (DeviceSession *const each : {&wall(), other}) {
        ProtoModel::Device::s_General general;
        general.general.name = "renamed";
        QVERIFY(resultOf(each->call(&Control::Device::writeDeviceGeneral, general)));
        QTRY_COMPARE(each->device()->name(), QStringLiteral("renamed"));
    }
    QVERIFY(all("switch 0"));
    QTRY_VERIFY(!wall().device()->isOnline() && !other->device()->isOnline());
    // The reading of one device lasts until the other is read as well.
    QVERIFY(all("fault add hold,code=0x1100,count=1"));
    int most = 0;
    for (DeviceSession *const each : {&wall(), other}) {
        connect(each, &DeviceSession::stateChanged, this, [&] {
            const auto isRead = [](const DeviceSession &session) {
                return session.state().kind == DeviceState::Reading ? 1 : 0;
            };
            most = std::max(most, isRead(wall()) + isRead(*other));
        });
    }
    QVERIFY(all("switch 1"));
    QTRY_COMPARE(most, 2);
    QTRY_VERIFY(!m_bench->hasFaults()
                && second.simulator->execute(QStringLiteral("fault list")).text.isEmpty());
    QVERIFY(all("fault release"));
    QTRY_VERIFY(wall().isReady() && other->isReady());
    QVERIFY(wall().device()->isSyncDataSuccess() && other->device()->isSyncDataSuccess());
    QCOMPARE(wall().device()->name(), QStringLiteral("wall 1"));
    QCOMPARE(other->device()->name(), QStringLiteral("wall 2"));
}

void tst_EverydayFaults::takeIsDeliveredAsTheDeviceCarriedItOut_data()
{
    QTest::addColumn<QByteArray>("fault");
    QTest::addColumn<int>("screen");
    QTest::addColumn<int>("kind");
    QTest::addColumn<bool>("isCarriedOut");
    // clang-format off
    QTest::newRow("carried out")                << QByteArray("drop-before")      << 1 << int(Outcome::Done)    << true;
    QTest::newRow("carried out, half an answer") << QByteArray("drop-within")     << 1 << int(Outcome::Done)    << true;
    QTest::newRow("refused")                    << QByteArray("drop-before")      << 9 << int(Outcome::Refused) << false;
    QTest::newRow("not finished")               << QByteArray("drop-request")     << 1 << int(Outcome::Unknown) << false;
    // clang-format on
}

void tst_EverydayFaults::takeIsDeliveredAsTheDeviceCarriedItOut()
{
    QFETCH(QByteArray, fault);
    QFETCH(int, screen);
    QFETCH(int, kind);
    QFETCH(bool, isCarriedOut);
    SessionBench::Options options = operatorsOptions();
    options.outcomeTime = kind == Outcome::Unknown ? 500ms : 60s;
    m_bench.reset();
    m_bench = std::make_unique<SessionBench>(options);
    QVERIFY(m_bench->openReady());
    const int before = positionOf(wall(), programme);
    QVERIFY(movesWindow(before + 70));
    QSignalSpy changed(&wall(), &DeviceSession::stateChanged);
    QVERIFY(m_bench->addFault(QByteArray(fault + ",code=0x130E,count=1")));
    DeviceLog log;
    const Outcome outcome = resultOf(callTake(static_cast<quint8>(screen)));
    QCOMPARE(int(outcome.kind()), kind);
    QTRY_COMPARE(changed.size(), 3); // Lost, Reading, Ready
    QCOMPARE(positionOf(wall(), programme), isCarriedOut ? before + 70 : before);
    // Not sent again. The device does not log what it leaves unfinished.
    QCOMPARE(log.codes().count(QStringLiteral("130E")), kind == Outcome::Unknown ? 0 : 1);
}

void tst_EverydayFaults::takeThatDidNotArriveIsNotSent()
{
    const int before = positionOf(wall(), programme);
    QVERIFY(movesWindow(before + 70));
    // The device reads a file's content and the take together, and disconnects between them.
    QVERIFY(m_bench->addFault("stop-reading,code=0x1100,count=1"));
    QVERIFY(m_bench->addFault("drop-before,code=0xFA04,count=1"));
    DeviceLog log;
    wall().readAgain();
    QTRY_VERIFY(!m_bench->hasFaults("stop-reading"));
    const quint64 sent = sentRequests();
    wall().call(qOverload<int, int, std::string &, QString &>(&Control::File::readBinary), 2, 1);
    QTRY_COMPARE(sentRequests(), sent + 1);
    const auto take = callTake();
    QTRY_COMPARE(sentRequests(), sent + 2);
    QVERIFY(m_bench->hasFaults()); // the device has not read them
    QVERIFY(m_bench->releaseAnswers()); // and reads them now
    QCOMPARE(int(resultOf(take).kind()), int(Outcome::NotSent));
    QTRY_VERIFY(wall().isReady());
    QCOMPARE(positionOf(wall(), programme), before);
    QVERIFY(!log.codes().contains(QStringLiteral("130E")));
}

void tst_EverydayFaults::windowThatIsMovedMovesInTheModel()
{
    const auto layer = window(wall(), preview);
    QSignalSpy moved(layer.get(), &BizModel::Layer::layerChanged);
    const int wanted = positionOf(wall(), preview) + 12;
    QVERIFY(movesWindow(wanted));
    QCOMPARE(int(layer->detail().window.x), wanted);
    QCOMPARE(moved.size(), 1);
}

void tst_EverydayFaults::windowThatAnotherClientMovedMovesWhenTheDeviceIsReadAgain()
{
    const auto layer = window(wall(), preview);
    QSignalSpy moved(layer.get(), &BizModel::Layer::layerChanged);
    const auto wanted = windowAt(wall(), positionOf(wall(), preview) + 34);
    const TcpConnection other(m_bench->running->simulator->port());
    QString error;
    QVERIFY2(Control::Layer(other.model).writeWindow({wanted}, error), qPrintable(error));
    wall().readAgain();
    QTRY_VERIFY(wall().isReady());
    QCOMPARE(int(layer->detail().window.x), wanted.window.x);
    QCOMPARE(moved.size(), 1);
}

QTEST_GUILESS_MAIN(tst_EverydayFaults)
#include "tst_everydayfaults.moc"
