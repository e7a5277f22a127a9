// Ending a session, in every state of its device: at once, whatever the device does. The thread of
// the application never blocks.

#include <support/common/resources.h>
#include <support/tavorosession/sessionbench.h>

#include <tavorocontrol/device.h>
#include <tavorossproxy/devicemanager.h>

#include <QElapsedTimer>

using namespace Tavoro;
using namespace std::chrono_literals;

namespace {

constexpr qint64 longestEnd = 1000; // milliseconds
constexpr qint64 longestGap = 500; // milliseconds; a blocked thread waits for seconds

SessionBench::Options patientOptions()
{
    SessionBench::Options options = SessionBench::fastOptions();
    options.channel.maxRequestTime = 100s; // nothing ends by itself
    return options;
}

} // namespace

class tst_SessionEnds : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void sessionEndsInEveryState_data();
    void sessionEndsInEveryState();
    void outstandingCallsEndWithTheSession_data();
    void outstandingCallsEndWithTheSession();
    void silentDeviceDoesNotBlockTheApplication();
    void deletedDeviceLeavesTheOthers();
    void sessionLeavesNoThreadAndNoChannel();
};

void tst_SessionEnds::sessionEndsInEveryState_data()
{
    QTest::addColumn<QString>("fault");
    QTest::addColumn<int>("state");
    // clang-format off
    QTest::newRow("connecting")              << "silent,code=identity" << int(DeviceState::Connecting);
    QTest::newRow("reading the clock")       << "silent,code=0xFC0C"   << int(DeviceState::Reading);
    QTest::newRow("reading the details")     << "silent,code=0x1100"   << int(DeviceState::Reading);
    QTest::newRow("reading the interfaces")  << "silent,code=0x1200"   << int(DeviceState::Reading);
    QTest::newRow("reading half an answer")  << "stall,code=0x1300"    << int(DeviceState::Reading);
    QTest::newRow("reading is repeated")     << "status=8,code=0x1100" << int(DeviceState::Reading);
    QTest::newRow("ready")                   << ""                     << int(DeviceState::Ready);
    // clang-format on
}

void tst_SessionEnds::sessionEndsInEveryState()
{
    QFETCH(QString, fault);
    QFETCH(int, state);
    for (const bool isDeviceDeleted : {false, true}) {
        SessionBench bench(patientOptions());
        if (!fault.isEmpty())
            QVERIFY(bench.addFault(qPrintable(fault)));
        bench.open();
        QTRY_COMPARE(int(bench.wall->state().kind), state);
        QTest::qWait(50); // into the exchange; any time will do
        QElapsedTimer time;
        time.start();
        if (isDeviceDeleted)
            delete bench.wall;
        else
            bench.session.reset();
        QVERIFY2(time.elapsed() < longestEnd, qPrintable(QString::number(time.elapsed())));
        time.start();
        bench.session.reset();
        QVERIFY2(time.elapsed() < longestEnd, qPrintable(QString::number(time.elapsed())));
    }
}

void tst_SessionEnds::outstandingCallsEndWithTheSession_data()
{
    QTest::addColumn<bool>("isClosed");
    QTest::newRow("session destroyed") << false;
    QTest::newRow("device closed") << true;
}

void tst_SessionEnds::outstandingCallsEndWithTheSession()
{
    QFETCH(bool, isClosed);
    SessionBench bench(patientOptions());
    QVERIFY(bench.openReady());
    QVERIFY(bench.addFault("ignore,code=0x1107,count=1"));
    const auto underWay = bench.wall->call(&Control::Device::writeSwap, {1});
    const auto waiting = bench.wall->call(&Control::Device::readDetails);
    QList<Outcome> delivered;
    underWay.then(this, [&](const Outcome &outcome) { delivered << outcome; });
    waiting.then(this, [&](const Outcome &outcome) { delivered << outcome; });
    QTRY_VERIFY(bench.running->simulator->execute(QStringLiteral("fault list")).text.isEmpty());
    QElapsedTimer time;
    time.start();
    if (isClosed)
        bench.wall->close();
    else
        bench.session.reset();
    QVERIFY(time.elapsed() < longestEnd);
    QTRY_COMPARE(delivered.size(), 2);
    QCOMPARE(int(resultOf(underWay).kind()), int(Outcome::Unknown));
    QCOMPARE(int(resultOf(waiting).kind()), int(Outcome::NotSent));
}

void tst_SessionEnds::silentDeviceDoesNotBlockTheApplication()
{
    SessionBench bench(patientOptions());
    QVERIFY(bench.openReady());
    Heartbeat heartbeat;
    QVERIFY(bench.addFault("silent"));
    bench.wall->readAgain();
    for (int i = 0; i < 20; ++i)
        bench.wall->call(&Control::Device::writeSwap, {1});
    QTest::qWait(300);
    bench.wall->close();
    bench.wall->open();
    QTest::qWait(100);
    delete bench.wall;
    QTest::qWait(50);
    QVERIFY2(heartbeat.longestGap() < longestGap,
             qPrintable(QString::number(heartbeat.longestGap())));
}

void tst_SessionEnds::deletedDeviceLeavesTheOthers()
{
    SessionBench bench;
    QVERIFY(bench.openReady());
    RunningSimulator second(SessionBench::smallDevice(2));
    DeviceSession *const other =
        bench.session->open(QStringLiteral("127.0.0.1"), second.simulator->port());
    QTRY_VERIFY(other->isReady());
    QCOMPARE(bench.session->devices(), (QList<DeviceSession *>{bench.wall, other}));
    delete bench.wall;
    QCOMPARE(bench.session->devices(), QList<DeviceSession *>{other});
    QVERIFY(resultOf(other->call(&Control::Device::readDetails)));
}

void tst_SessionEnds::sessionLeavesNoThreadAndNoChannel()
{
    {
        SessionBench bench;
        QVERIFY(bench.openReady());
    }
    const Resources before = Resources::now();
    {
        SessionBench bench;
        QVERIFY(bench.openReady());
        QVERIFY(resultOf(bench.wall->call(&Control::Device::readDetails)));
    }
    QVERIFY(SSProxy::DeviceManager::instance()->tavoroDeviceChannels().isEmpty());
    QTRY_VERIFY2(Resources::now().isWithin(before),
                 qPrintable(Resources::now().text() + QStringLiteral(" after ") + before.text()));
}

QTEST_GUILESS_MAIN(tst_SessionEnds)
#include "tst_sessionends.moc"
