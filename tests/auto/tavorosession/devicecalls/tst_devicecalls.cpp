// Calls of a device session: how they are made, in which order they arrive at the device, and where
// their results are delivered.

#include <support/tavorosession/devicelog.h>
#include <support/tavorosession/sessionbench.h>

#include <tavorocontrol/auxiliary.h>
#include <tavorocontrol/device.h>
#include <tavorocontrol/file.h>
#include <tavorocontrol/layer.h>
#include <tavorocontrol/screen.h>

#include <QFutureWatcher>
#include <QSignalSpy>
#include <QThread>

using namespace Tavoro;
using namespace std::chrono_literals;
using ProtoModel::Screen::s_SwitchEffect;
using ProtoModel::Screen::s_TBar;

namespace {

s_TBar tbar(qint32 percent)
{
    s_TBar bar;
    bar.screenId = 1;
    bar.screenType = 1;
    bar.tbar.percent = percent;
    return bar;
}

QString tbarBody(int percent)
{
    return QStringLiteral(R"([{"screenId":1,"screenType":1,"tbar":{"percent":%1}}])").arg(percent);
}

ProtoModel::Device::s_General named(const char *name)
{
    ProtoModel::Device::s_General general;
    general.general.name = name;
    return general;
}

} // namespace

class tst_DeviceCalls : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_bench.reset(); }

    void writeIsCarriedOut();
    void bracesMakeAListOfOneRecord();
    void readDeliversItsRecords();
    void recordOfAReadMayBeGiven();
    void overloadIsSelectedWithQOverload();
    void severalArgumentsArePassedOn();
    void operationWithoutArgumentsIsCalled();
    void writeByReferenceIsNotSentWithoutItsRecord();
    void operationThatSendsNothingIsNotSent();
    void resultArrivesOnTheContextsThread();
    void resultIsNotDeliveredToADestroyedContext();
    void resultOfAnEndedCallIsStillDelivered();
    void futureHasTheResult();
    void cancelledFutureIsNotSent();
    void callsArriveInTheirOrder();
    void readsAndWritesArriveInOneOrder();
    void slowCallHoldsTheOrder();
    void takeDoesNotWaitForAFile();
    void takeDoesNotWaitForAReading();
    void callsBeyondTheLimitAreNotSent();
    void latestValueReplacesTheWaitingOne();
    void differentKeysDoNotReplaceEachOther();
    void everyEndedCallIsReported();

private:
    DeviceSession &wall() { return *m_bench->wall; }
    /// Makes a call that keeps the command lane busy until releaseCommands().
    PendingCall<Outcome> holdCommands()
    {
        if (!m_bench->addFault("hold,code=0x1107,count=1"))
            qFatal("the device does not know the fault");
        return wall().call(&Control::Device::writeSwap, {1});
    }
    void releaseCommands()
    {
        QTRY_VERIFY(!m_bench->hasFaults()); // the device has the call
        QVERIFY(m_bench->releaseAnswers());
    }

    std::unique_ptr<SessionBench> m_bench;
};

void tst_DeviceCalls::init()
{
    SessionBench::Options options = SessionBench::fastOptions();
    options.maxWaitingCalls = 20;
    m_bench = std::make_unique<SessionBench>(options);
    QVERIFY(m_bench->openReady());
}

void tst_DeviceCalls::writeIsCarriedOut()
{
    DeviceLog log;
    const Outcome outcome =
        resultOf(wall().call(&Control::Device::writeDeviceGeneral, named("new")));
    QVERIFY2(bool(outcome), qPrintable(outcome.text()));
    QCOMPARE(outcome.status(), quint16(0));
    QCOMPARE(outcome.reason(), QString());
    QCOMPARE(outcome.deviceName(), QStringLiteral("wall 1"));
    QCOMPARE(log.writes(0x1101),
             QStringList{QStringLiteral(R"({"general":{"name":"new","status":0}})")});
}

void tst_DeviceCalls::bracesMakeAListOfOneRecord()
{
    DeviceLog log;
    QVERIFY(resultOf(wall().call(&Control::Screen::writeTBar, {tbar(7)})));
    QVERIFY(resultOf(wall().call(&Control::Screen::writeTBar, {tbar(8), tbar(9)})));
    const std::vector<s_TBar> list{tbar(10)};
    QVERIFY(resultOf(wall().call(&Control::Screen::writeTBar, list)));
    QCOMPARE(log.writes(0x130D).size(), 3);
    QCOMPARE(log.writes(0x130D).first(), tbarBody(7));
}

void tst_DeviceCalls::readDeliversItsRecords()
{
    const auto screens = resultOf(wall().call(&Control::Screen::readDetails, -1, 0, -1));
    QVERIFY(screens);
    QCOMPARE(screens.record().size(), std::size_t(2));
    const auto detail = resultOf(wall().call(&Control::Device::readDetails));
    QCOMPARE(QString::fromStdString(detail.record().general.name), QStringLiteral("wall 1"));
}

void tst_DeviceCalls::recordOfAReadMayBeGiven()
{
    ProtoModel::Device::s_DeviceGroupInfos groups;
    groups.groupInfos.resize(1);
    const auto answer = resultOf(wall().call(&Control::Device::readDeviceGroupInfo, groups));
    QVERIFY(answer);
    QVERIFY(!answer.record().groupInfos.empty());
    ProtoModel::Device::s_DeviceZelk zelk;
    QVERIFY(resultOf(wall().call(&Control::Device::writeZelk, zelk)));
}

void tst_DeviceCalls::overloadIsSelectedWithQOverload()
{
    const auto content = resultOf(wall().call(
        qOverload<int, int, std::string &, QString &>(&Control::File::readBinary), 2, 99));
    QCOMPARE(int(content.kind()), int(Outcome::Refused));
    QCOMPARE(content.status(), quint16(3));
}

void tst_DeviceCalls::severalArgumentsArePassedOn()
{
    const quint8 screen = 1;
    QVERIFY(resultOf(wall().call(&Control::Layer::writeRemovedAll, screen, 1)));
    const auto layers = resultOf(wall().call(&Control::Layer::readDetails, 1, 1, -1, -1));
    QVERIFY(layers);
    QVERIFY(layers.record().empty());
}

void tst_DeviceCalls::operationWithoutArgumentsIsCalled()
{
    QVERIFY(resultOf(wall().call(&Control::Auxiliary::saveDeviceData)));
}

void tst_DeviceCalls::writeByReferenceIsNotSentWithoutItsRecord()
{
    DeviceLog log;
    QCOMPARE(int(resultOf(wall().call(&Control::Device::writeOutputMapping)).kind()),
             int(Outcome::NotSent));
    const auto zelk = resultOf(wall().call(&Control::Device::writeZelk));
    QCOMPARE(int(zelk.kind()), int(Outcome::NotSent));
    QCOMPARE(zelk.reason(), QStringLiteral("the record to write is missing"));
    QVERIFY(resultOf(wall().call(&Control::Device::readOutputMapping)));
    QCOMPARE(log.codes(), QStringList{QStringLiteral("1108")});
}

void tst_DeviceCalls::operationThatSendsNothingIsNotSent()
{
    const Outcome outcome = resultOf(
        wall().call(&Control::File::writeFile, std::vector<ProtoModel::File::s_FileInfo>()));
    QCOMPARE(int(outcome.kind()), int(Outcome::NotSent));
}

void tst_DeviceCalls::resultArrivesOnTheContextsThread()
{
    QThread *deliveredOn = nullptr;
    QObject context;
    bool isBeforeReturn = true;
    wall().call(&Control::Screen::writeTBar, {tbar(1)}).then(&context, [&](const Outcome &outcome) {
        QVERIFY(outcome && !isBeforeReturn);
        deliveredOn = QThread::currentThread();
    });
    isBeforeReturn = false;
    QTRY_COMPARE(deliveredOn, thread());

    QThread other;
    other.start();
    auto *const onOther = new QObject;
    onOther->moveToThread(&other);
    std::atomic<QThread *> seen{nullptr};
    wall().call(&Control::Screen::writeTBar, {tbar(1)}).then(onOther, [&](const Outcome &) {
        seen = QThread::currentThread();
    });
    QTRY_COMPARE(seen.load(), &other);
    onOther->deleteLater();
    other.quit();
    QVERIFY(other.wait(60000));
}

void tst_DeviceCalls::resultIsNotDeliveredToADestroyedContext()
{
    auto context = std::make_unique<QObject>();
    int delivered = 0;
    const auto call = wall().call(&Control::Screen::writeTBar, {tbar(1)});
    call.then(context.get(), [&](const Outcome &) { ++delivered; });
    context.reset();
    QObject kept;
    call.then(&kept, [&](const Outcome &) { delivered += 10; });
    QTRY_COMPARE(delivered, 10);
    QCoreApplication::processEvents();
    QCOMPARE(delivered, 10);
}

void tst_DeviceCalls::resultOfAnEndedCallIsStillDelivered()
{
    const auto call = wall().call(&Control::Screen::writeTBar, {tbar(1)});
    QVERIFY(resultOf(call));
    bool isDelivered = false;
    call.then(this, [&](const Outcome &outcome) { isDelivered = bool(outcome); });
    QVERIFY(!isDelivered);
    QTRY_VERIFY(isDelivered);
}

void tst_DeviceCalls::futureHasTheResult()
{
    QFutureWatcher<Outcome> watcher;
    QSignalSpy finished(&watcher, &QFutureWatcherBase::finished);
    watcher.setFuture(wall().call(&Control::Screen::writeTBar, {tbar(1)}));
    QTRY_COMPARE(finished.size(), 1);
    QVERIFY(watcher.result());
}

void tst_DeviceCalls::cancelledFutureIsNotSent()
{
    DeviceLog log;
    const auto first = holdCommands();
    const auto second = wall().call(&Control::Screen::writeTBar, {tbar(1)});
    bool isDelivered = false;
    second.then(this, [&](const Outcome &) { isDelivered = true; });
    second.future().cancel();
    releaseCommands();
    QVERIFY(resultOf(first));
    QVERIFY(resultOf(wall().call(&Control::Device::readDetails)));
    QVERIFY(log.writes(0x130D).isEmpty());
    QVERIFY(!isDelivered);
}

void tst_DeviceCalls::callsArriveInTheirOrder()
{
    DeviceLog log;
    QStringList expected;
    for (int percent = 0; percent < 15; ++percent) {
        wall().call(&Control::Screen::writeTBar, {tbar(percent)});
        expected << tbarBody(percent);
    }
    QVERIFY(resultOf(wall().call(&Control::Device::readDetails)));
    QCOMPARE(log.writes(0x130D), expected);
}

void tst_DeviceCalls::readsAndWritesArriveInOneOrder()
{
    DeviceLog log;
    QStringList expected;
    for (int i = 0; i < 5; ++i) {
        wall().call(&Control::Screen::writeTBar, {tbar(i)});
        wall().call(&Control::Device::readOutputMapping);
        wall().call(&Control::Device::readDeviceGroupInfo);
        expected << QStringLiteral("130D") << QStringLiteral("1108") << QStringLiteral("110A");
    }
    QVERIFY(resultOf(wall().call(&Control::Device::readDetails)));
    QStringList arrived;
    for (const QString &code : log.codes()) {
        if (expected.contains(code)) // not what is read after writes
            arrived << code;
    }
    QCOMPARE(arrived, expected);
}

/// The next call is sent when the one before has been answered.
void tst_DeviceCalls::slowCallHoldsTheOrder()
{
    DeviceLog log;
    const auto slow = holdCommands();
    const auto next = wall().call(&Control::Screen::writeTBar, {tbar(1)});
    QTRY_VERIFY(!m_bench->hasFaults()); // the device has the first call
    QVERIFY(Heartbeat().waitForBeats());
    QVERIFY(log.writes(0x130D).isEmpty());
    releaseCommands();
    QVERIFY(resultOf(next));
    QVERIFY(slow.future().isFinished());
    QCOMPARE(log.writes(0x130D), QStringList{tbarBody(1)});
}

void tst_DeviceCalls::takeDoesNotWaitForAFile()
{
    QVERIFY(m_bench->addFault("hold,code=0xFA04,count=1"));
    DeviceLog log;
    const auto file = wall().call(
        qOverload<int, int, std::string &, QString &>(&Control::File::readBinary), 2, 1);
    const auto take = wall().call(&Control::Screen::writeTBar, {tbar(1)});
    QVERIFY(resultOf(take));
    QTRY_VERIFY(!m_bench->hasFaults());
    QVERIFY(!file.future().isFinished());
    QVERIFY(m_bench->releaseAnswers());
    resultOf(file);
}

void tst_DeviceCalls::takeDoesNotWaitForAReading()
{
    QVERIFY(m_bench->addFault("hold,code=0x1200,count=1"));
    wall().readAgain();
    QCOMPARE(int(wall().state().kind), int(DeviceState::Reading));
    QVERIFY(resultOf(wall().call(&Control::Screen::writeTBar, {tbar(1)})));
    QTRY_VERIFY(!m_bench->hasFaults());
    QCOMPARE(int(wall().state().kind), int(DeviceState::Reading));
    QVERIFY(m_bench->releaseAnswers());
    QTRY_VERIFY(wall().isReady());
}

void tst_DeviceCalls::callsBeyondTheLimitAreNotSent()
{
    DeviceLog log;
    const auto first = holdCommands();
    QTRY_VERIFY(!m_bench->hasFaults()); // it does not wait any more
    for (int i = 0; i < 20; ++i)
        wall().call(&Control::Screen::writeTBar, {tbar(i)});
    QList<PendingCall<Outcome>> more;
    for (int i = 0; i < 5; ++i)
        more << wall().call(&Control::Screen::writeTBar, {tbar(99)});
    const Outcome refused = resultOf(more.last());
    QCOMPARE(int(refused.kind()), int(Outcome::NotSent));
    QCOMPARE(refused.reason(), QStringLiteral("too many calls are waiting"));
    QVERIFY(!first.future().isFinished());
    releaseCommands();
    QVERIFY(resultOf(first));
    QTRY_COMPARE(log.writes(0x130D).size(), 20);
    QVERIFY(!log.writes(0x130D).contains(tbarBody(99)));
}

void tst_DeviceCalls::latestValueReplacesTheWaitingOne()
{
    DeviceLog log;
    const QString key = QStringLiteral("tbar");
    holdCommands();
    QList<PendingCall<Outcome>> calls;
    for (int percent = 1; percent <= 50; ++percent)
        calls << wall().callLatest(key, &Control::Screen::writeTBar, {tbar(percent)});
    releaseCommands();
    const Outcome last = resultOf(calls.last());
    QVERIFY(last);
    QCOMPARE(log.writes(0x130D), QStringList{tbarBody(50)});
    for (int i = 0; i < 49; ++i) {
        const Outcome replaced = resultOf(calls[i]);
        QCOMPARE(int(replaced.kind()), int(Outcome::NotSent));
        QVERIFY(replaced.isReplaced());
    }
    QVERIFY(!last.isReplaced());
}

void tst_DeviceCalls::differentKeysDoNotReplaceEachOther()
{
    DeviceLog log;
    holdCommands();
    wall().callLatest(QStringLiteral("a"), &Control::Screen::writeTBar, {tbar(1)});
    wall().callLatest(QStringLiteral("b"), &Control::Screen::writeTBar, {tbar(2)});
    wall().callLatest(QStringLiteral("a"), &Control::Screen::writeTBar, {tbar(3)});
    releaseCommands();
    QVERIFY(resultOf(wall().call(&Control::Device::readDetails)));
    QCOMPARE(log.writes(0x130D), (QStringList{tbarBody(2), tbarBody(3)}));
}

void tst_DeviceCalls::everyEndedCallIsReported()
{
    QSignalSpy finished(&wall(), &DeviceSession::callFinished);
    QVERIFY(resultOf(wall().call(&Control::Screen::writeTBar, {tbar(1)})));
    QCOMPARE(finished.size(), 1);
    const auto outcome = finished.first().first().value<Outcome>();
    QCOMPARE(outcome.text(),
             QStringLiteral("wall 1: %1 was carried out.").arg(outcome.operation()));
}

QTEST_GUILESS_MAIN(tst_DeviceCalls)
#include "tst_devicecalls.moc"
