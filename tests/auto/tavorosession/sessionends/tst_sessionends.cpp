// Ending a session, in every state of its device: at once, whatever the device does. The thread of
// the application never blocks.

#include <support/common/resources.h>
#include <support/tavorosession/sessionbench.h>
#include <support/tavorosession/statelog.h>

#include <tavorocontrol/device.h>
#include <tavorocontrol/file.h>
#include <tavorossproxy/devicemanager.h>

#include <QElapsedTimer>

using namespace Tavoro;
using namespace std::chrono_literals;

namespace {

// A request to a silent device takes 100 s here. An end that waited for it would take as long; the
// bound is far below that, and far above what a busy machine takes from a thread.
constexpr quint32 requestTime = 100000; // milliseconds
constexpr qint64 longestEnd = 20000; // milliseconds

SessionBench::Options patientOptions()
{
    SessionBench::Options options = SessionBench::fastOptions();
    options.channel.maxRequestTime = std::chrono::milliseconds(requestTime);
    options.outcomeTime = 10min;
    return options;
}

/// A session whose device is known, so that its requests have the long time as well.
class PatientBench : public SessionBench {
public:
    PatientBench() : SessionBench(patientOptions())
    {
        if (!openReady())
            qFatal("the device cannot be read");
        wall->device()->deviceConfig().defaultTimeout = requestTime;
    }

    /// Adds a fault, and connects again.
    void openAgainWith(const char *fault)
    {
        wall->close();
        addFault(fault);
        wall->open();
    }
    /// Waits until the device has got the requests that the faults are for.
    bool waitForFaults()
    {
        return QTest::qWaitFor([this] { return !hasFaults(); }, 60000);
    }
    /// Makes a call that ends the connection and stays under way for the device. Returns when the
    /// device is ready again.
    PendingCall<Outcome> callThatIsAsked()
    {
        const StateLog states(*wall);
        if (!addFault("drop-request,code=0x1107,count=1"))
            qFatal("the device does not know the fault");
        const auto call = wall->call(&Control::Device::writeSwap, {1});
        const auto isBack = [&] {
            return states.kinds.contains("Lost") && wall->isReady();
        };
        if (!QTest::qWaitFor(isBack, 60000))
            qFatal("the device is not back");
        return call;
    }
    bool waitForState(DeviceState::Kind kind)
    {
        return QTest::qWaitFor([this, kind] { return wall->state().kind == kind; }, 60000);
    }
};

// Each function brings a session into a state, and returns whether that has succeeded.

bool isDisconnected(PatientBench &bench)
{
    bench.wall->close();
    return bench.waitForState(DeviceState::Disconnected);
}

bool connects(PatientBench &bench)
{
    bench.openAgainWith("silent,code=identity,count=1");
    return bench.waitForFaults() && bench.waitForState(DeviceState::Connecting);
}

template <int code>
bool reads(PatientBench &bench)
{
    const QByteArray fault = "silent,count=1,code=" + QByteArray::number(code);
    bench.openAgainWith(fault.constData());
    return bench.waitForFaults() && bench.waitForState(DeviceState::Reading);
}

bool readsHalfAnAnswer(PatientBench &bench)
{
    bench.openAgainWith("stall,code=0x1300,count=1");
    return bench.waitForFaults() && bench.waitForState(DeviceState::Reading);
}

bool waitsToReadAgain(PatientBench &bench)
{
    bench.openAgainWith("status=8,code=0x1100");
    return bench.waitForState(DeviceState::Reading)
        && QTest::qWaitFor([&] { return bench.wall->state().nextAttempt.isValid(); }, 60000);
}

bool isReady(PatientBench &bench)
{
    return bench.waitForState(DeviceState::Ready);
}

bool calls(PatientBench &bench)
{
    bench.addFault("silent,code=0x1107,count=1");
    for (int i = 0; i < 10; ++i)
        bench.wall->call(&Control::Device::writeSwap, {1});
    return bench.waitForFaults();
}

bool fetchesAContent(PatientBench &bench)
{
    bench.addFault("silent,code=0xFA04,count=1");
    bench.wall->call(qOverload<int, int, std::string &, QString &>(&Control::File::readBinary), 2,
                     1);
    return bench.waitForFaults();
}

bool sendsAContent(PatientBench &bench)
{
    bench.addFault("silent,code=0xFA03,skip=1,count=1"); // after the announcement
    ProtoModel::File::s_FileInfo file;
    file.fileType = 2;
    file.fileId = 1;
    file.size.length = 3;
    bench.wall->files().send(file, "abc");
    return bench.waitForFaults();
}

bool followsAWrite(PatientBench &bench)
{
    bench.addFault("silent,code=0x1100,count=1");
    bench.wall->call(&Control::Device::writeSwap, {1});
    return bench.waitForFaults();
}

bool asksForAnOutcome(PatientBench &bench)
{
    return !bench.callThatIsAsked().future().isFinished();
}

bool isLost(PatientBench &bench)
{
    bench.execute(QStringLiteral("switch 0"));
    return bench.waitForState(DeviceState::Lost);
}

using Arrange = bool (*)(PatientBench &);

} // namespace

Q_DECLARE_METATYPE(Arrange)

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
    QTest::addColumn<Arrange>("arrange");
    // clang-format off
    QTest::newRow("disconnected")              << Arrange(isDisconnected);
    QTest::newRow("connecting")                << Arrange(connects);
    QTest::newRow("reading the clock")         << Arrange(reads<0xFC0C>);
    QTest::newRow("reading the details")       << Arrange(reads<0x1100>);
    QTest::newRow("reading the interfaces")    << Arrange(reads<0x1200>);
    QTest::newRow("reading the screens")       << Arrange(reads<0x1300>);
    QTest::newRow("reading the layers")        << Arrange(reads<0x1400>);
    QTest::newRow("reading the list of files") << Arrange(reads<0xFA00>);
    QTest::newRow("reading half an answer")    << Arrange(readsHalfAnAnswer);
    QTest::newRow("waiting to read again")     << Arrange(waitsToReadAgain);
    QTest::newRow("ready")                     << Arrange(isReady);
    QTest::newRow("ready, calls under way")    << Arrange(calls);
    QTest::newRow("ready, fetching a file")    << Arrange(fetchesAContent);
    QTest::newRow("ready, sending a file")     << Arrange(sendsAContent);
    QTest::newRow("ready, following a write")  << Arrange(followsAWrite);
    QTest::newRow("ready, asking for outcome") << Arrange(asksForAnOutcome);
    QTest::newRow("lost")                      << Arrange(isLost);
    // clang-format on
}

void tst_SessionEnds::sessionEndsInEveryState()
{
    QFETCH(Arrange, arrange);
    for (const bool isDeviceDeleted : {false, true}) {
        PatientBench bench;
        QVERIFY(arrange(bench));
        QElapsedTimer time;
        time.start();
        if (isDeviceDeleted)
            delete bench.wall;
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
    PatientBench bench;
    const auto asked = bench.callThatIsAsked();
    QVERIFY(bench.addFault("ignore,code=0x1107,count=1"));
    const auto underWay = bench.wall->call(&Control::Device::writeSwap, {1});
    const auto waiting = bench.wall->call(&Control::Device::readDetails);
    QVERIFY(bench.waitForFaults());
    QList<Outcome> delivered;
    for (const auto &call : {asked, underWay})
        call.then(this, [&](const Outcome &outcome) { delivered << outcome; });
    waiting.then(this, [&](const Outcome &outcome) { delivered << outcome; });
    if (isClosed)
        bench.wall->close();
    else
        bench.session.reset();
    QVERIFY(asked.future().isFinished()); // at once
    QVERIFY(underWay.future().isFinished() && waiting.future().isFinished());
    QTRY_COMPARE(delivered.size(), 3);
    QCOMPARE(int(resultOf(asked).kind()), int(Outcome::Unknown));
    QCOMPARE(int(resultOf(underWay).kind()), int(Outcome::Unknown));
    QCOMPARE(int(resultOf(waiting).kind()), int(Outcome::NotSent));
}

void tst_SessionEnds::silentDeviceDoesNotBlockTheApplication()
{
    PatientBench bench;
    Heartbeat heartbeat;
    QVERIFY(bench.addFault("silent"));
    bench.wall->readAgain();
    const auto first = bench.wall->call(&Control::Device::writeSwap, {1});
    for (int i = 0; i < 20; ++i)
        bench.wall->call(&Control::Device::writeSwap, {1});
    QVERIFY(heartbeat.waitForBeats());
    QVERIFY(!first.future().isFinished());
    bench.wall->close();
    bench.wall->open();
    QVERIFY(heartbeat.waitForBeats());
    delete bench.wall;
    QVERIFY(heartbeat.waitForBeats());
    QVERIFY2(heartbeat.longestGap() < longestEnd,
             qPrintable(QString::number(heartbeat.longestGap())));
}

void tst_SessionEnds::deletedDeviceLeavesTheOthers()
{
    SessionBench bench;
    QVERIFY(bench.openReady());
    RunningSimulator second(SessionBench::smallDevice(2));
    DeviceSession *const other = bench.open(second);
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
