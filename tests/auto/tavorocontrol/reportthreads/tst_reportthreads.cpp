#include <support/common/gate.h>
#include <support/common/patience.h>
#include <support/tavorocontrol/reported.h>
#include <support/tavorocontrol/requestpath.h>
#include <support/tavorocontrol/synchronised.h>

#include <tavorocontrol/autoreportmanager.h>
#include <tavorocontrol/device.h>
#include <tavorocontrol/devicelist.h>

#include <QThread>
#include <QtTest>

#include <thread>

using namespace Tavoro;
using Control::AutoReportManager;

/// Reports from the threads of channels.
class tst_ReportThreads : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void reportFromAnotherThreadArrivesOnTheManagersThread();
    void channelRemovedBeforeDeliveryIsLogged();
    void reportsOfManyThreadsAllArrive();
    void reportsArriveWhileAnOperationIsCalled();
    void reportsArriveWhileAKnownDeviceIsSynchronised();
    void reportsAreDroppedWhileANewDeviceIsSynchronised();
};

namespace {

/// The log lines of the dispatch.
QStringList reportLines(const Journal &journal)
{
    return journal.lines().filter(QStringLiteral("TavoroCmd auto report"));
}

QStringList handledWell(const Journal &journal)
{
    return reportLines(journal).filter(QStringLiteral("Process result: 1"));
}

/// A synchronisation that is blocked in the read of the screens.
class HeldSynchronisation {
public:
    HeldSynchronisation()
    {
        ScriptedAnswer held = ScriptedAnswer::packet("[]");
        held.before = gate.passage();
        it.channel->reply(0x1300, held);
        it.channel->replyBody(0x1400, "[]");
        QObject::connect(&list, &Control::DeviceList::signalReadDeviceDetailFinished, &list,
                         [this] { isFinished = true; });
    }

    bool begin()
    {
        QString error;
        const bool accepted = list.readDeviceDetail(it.ip(), it.mac(), it.sn(), error);
        gate.awaitArrival();
        return accepted;
    }

    void reportFromTheChannelsThread()
    {
        std::thread channels([&] { announce(it.channel, reportOf(powerCode, powerBody)); });
        channels.join();
    }

    Synchronised it;
    Control::DeviceList list{nullptr};
    Gate gate;
    bool isFinished = false;
};

} // namespace

void tst_ReportThreads::initTestCase()
{
    QVERIFY(AutoReportManager::instance()); // on this thread
}

void tst_ReportThreads::reportFromAnotherThreadArrivesOnTheManagersThread()
{
    Reported it;
    QThread *changedOn = nullptr;
    connect(
        it.device.model.get(), &BizModel::Device::deviceDataChanged, this,
        [&] { changedOn = QThread::currentThread(); }, Qt::DirectConnection);
    std::thread channels([&] { it.report(powerCode, powerBody); });
    channels.join();
    QCOMPARE(heldPowers(it), std::string("[]")); // not before the event loop runs
    QVERIFY(it.journal.lines().isEmpty());
    QTRY_COMPARE(heldPowers(it), std::string(powersThen));
    QCOMPARE(changedOn, AutoReportManager::instance()->thread());
    QCOMPARE(handledWell(it.journal).size(), 1);
}

void tst_ReportThreads::channelRemovedBeforeDeliveryIsLogged()
{
    Reported it;
    std::thread channels([] {
        const auto channel = std::make_shared<ScriptedChannel>();
        announce(channel, reportOf(powerCode, powerBody));
    });
    channels.join();
    QTRY_COMPARE(it.journal.lines(),
                 textLines({"warning: TavoroCmd auto report: Invalid channel"}));
}

void tst_ReportThreads::reportsOfManyThreadsAllArrive()
{
    constexpr int threadCount = 4;
    constexpr int rounds = 50;
    Reported it;
    std::vector<std::thread> threads;
    for (int i = 0; i < threadCount; ++i) {
        threads.emplace_back([&] {
            for (int round = 0; round < rounds; ++round)
                it.report(powerCode, powerBody);
        });
    }
    for (std::thread &thread : threads)
        thread.join();
    QTRY_COMPARE(reportLines(it.journal).size(), threadCount * rounds);
    QCOMPARE(handledWell(it.journal).size(), threadCount * rounds);
}

void tst_ReportThreads::reportsArriveWhileAnOperationIsCalled()
{
    Reported it;
    Gate gate;
    ScriptedAnswer held;
    held.before = gate.passage();
    it.device.channel->answer(held);
    QString error;
    bool written = false;
    std::thread caller(
        [&] { written = Control::Device(it.device.model, nullptr).writeSwap({}, error); });
    gate.awaitArrival();
    std::thread channels([&] { it.report(powerCode, powerBody); });
    channels.join();
    QTRY_COMPARE(heldPowers(it), std::string(powersThen));
    gate.open();
    caller.join();
    QVERIFY(written);
}

void tst_ReportThreads::reportsArriveWhileAKnownDeviceIsSynchronised()
{
    HeldSynchronisation held;
    held.it.makeKnown();
    QVERIFY(held.begin());
    held.reportFromTheChannelsThread();
    QTRY_COMPARE(powersOf(*held.it.device.model), std::string(powersThen));
    held.gate.open();
    QTRY_VERIFY(held.isFinished);
    QVERIFY(held.it.device.model->deviceDetail().powers.empty()); // as read before
}

void tst_ReportThreads::reportsAreDroppedWhileANewDeviceIsSynchronised()
{
    HeldSynchronisation held;
    QVERIFY(held.begin());
    held.reportFromTheChannelsThread();
    QTRY_COMPARE(reportLines(held.it.journal).size(), 1);
    QVERIFY(reportLines(held.it.journal).first().contains(QStringLiteral("device model is null")));
    held.gate.open();
    QTRY_VERIFY(held.isFinished);
    QVERIFY(held.it.listed());
    held.reportFromTheChannelsThread();
    QTRY_COMPARE(powersOf(*held.it.listed()), std::string(powersThen));
}

QTEST_GUILESS_MAIN(tst_ReportThreads)
#include "tst_reportthreads.moc"
