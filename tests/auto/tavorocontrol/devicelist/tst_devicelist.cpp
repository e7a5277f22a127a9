#include <support/common/gate.h>
#include <support/common/patience.h>
#include <support/tavorocontrol/requestpath.h>
#include <support/tavorocontrol/synchronised.h>

#include <tavorocontrol/devicelist.h>
#include <tavorossproxy/devicemanager.h>

#include <QThread>
#include <QtTest>

#include <functional>
#include <thread>
#include <utility>

using namespace Tavoro;

class tst_DeviceList : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void synchronisationStartsAndFinishes();
    void modelIsCompleteBeforeTheFinish();
    void deviceOfTheModelIsReadByItsIdentity();
    void failedSynchronisationFinishesWithFalse();
    void deviceWithoutAddressFinishesWithEmptyTexts();

    void secondCallWhileRunningIsAcceptedAndIgnored();
    void callBetweenEndAndFinishCountsAsRunning();
    void callFromTheFinishedSlotIsAccepted();
    void identityWithoutChannelIsRefused();
    void refusedCallLeavesTheListUsable();
    void expiredDeviceIsRefused();

    void destructionWaitsForTheSynchronisation();
    void destructionWithoutSynchronisationReturnsAtOnce();
    void twoListsReadTwoDevicesAtOnce();
    void twoListsThatReadOneNewDeviceLeaveItInTheModelOnce();
};

namespace {

constexpr auto before = "text from before";

/// A list and its signals, which must be emitted on this thread.
class Reading {
public:
    Reading()
    {
        using List = Control::DeviceList;
        QObject::connect(
            list.get(), &List::signalReadDeviceDetailStarted, &m_context,
            [this](const QString &ip) { log(QStringLiteral("started %1").arg(ip)); },
            Qt::DirectConnection);
        QObject::connect(
            list.get(), &List::signalReadDeviceDetailFinished, &m_context,
            [this](bool success, const QString &ip, const QString &mac, const QString &sn) {
                log(QStringLiteral("finished %1 '%2' '%3' '%4'")
                        .arg(int(success))
                        .arg(ip, mac, sn));
                if (atFinish)
                    atFinish();
            },
            Qt::DirectConnection);
    }

    bool begin(const QString &ip = Synchronised::ip(), const QString &mac = Synchronised::mac(),
               const QString &sn = Synchronised::sn())
    {
        return list->readDeviceDetail(ip, mac, sn, error);
    }

    bool isFinished() const { return !logged.filter(QStringLiteral("finished")).isEmpty(); }

    std::unique_ptr<Control::DeviceList> list = std::make_unique<Control::DeviceList>(nullptr);
    QString error = QString::fromLatin1(before);
    QStringList logged;
    std::function<void()> atFinish;

private:
    void log(const QString &line)
    {
        logged << (QThread::currentThread() == list->thread() ? line : QStringLiteral("elsewhere"));
    }

    QObject m_context;
};

const QStringList readWell =
    textLines({"started 192.0.2.7", "finished 1 '192.0.2.7' '02005E100007' '0123456789ABCD07'"});

/// Calls a function of the test after a synchronisation has looked the device up in the model and
/// before it fills the device.
class ChannelWithModelStep : public WholeDeviceChannel {
public:
    ProtoModel::DeviceBaseInfo deviceBaseInfo() const override
    {
        std::exchange(m_interfere, [] {})();
        return WholeDeviceChannel::deviceBaseInfo();
    }

    void interfereAtModelStep(const std::function<void()> &interfere)
    {
        ScriptedAnswer last = ScriptedAnswer::packet("a picture");
        last.before = [this, interfere] {
            if (!std::exchange(m_hasInterfered, true))
                m_interfere = interfere;
        };
        replyContent(12, 1, last);
    }

private:
    bool m_hasInterfered = false;
    mutable std::function<void()> m_interfere = [] {
    };
};

ScriptedAnswer heldBack(Gate &gate)
{
    ScriptedAnswer answer;
    answer.before = gate.passage();
    return answer;
}

} // namespace

void tst_DeviceList::synchronisationStartsAndFinishes()
{
    Synchronised it;
    Reading reading;
    QVERIFY(reading.begin());
    QVERIFY(reading.logged.isEmpty()); // no signal before the event loop runs
    QTRY_VERIFY(reading.isFinished());
    QCOMPARE(reading.logged, readWell);
    QCOMPARE(reading.error, QString::fromLatin1(before));
    QCOMPARE(it.asked().size(), 8);
    QCOMPARE(it.lines(),
             textLines({"info: Sync device init model begin.", "info: Sync device init model end.",
                        "info: Sync device task finished.",
                        R"(debug: "Sync device model result is 1, device ip is192.0.2.7.")"}));
}

void tst_DeviceList::modelIsCompleteBeforeTheFinish()
{
    Synchronised it;
    Reading reading;
    bool isComplete = false;
    reading.atFinish = [&] {
        const auto device = it.listed();
        isComplete = device && !device->signalsBlocked() && device->isSyncDataSuccess()
            && device->layers().size() == 1;
    };
    QVERIFY(reading.begin());
    QTRY_VERIFY(reading.isFinished());
    QVERIFY(isComplete);
}

void tst_DeviceList::deviceOfTheModelIsReadByItsIdentity()
{
    Synchronised it;
    it.makeKnown();
    Reading reading;
    QVERIFY(reading.list->readDeviceDetail(it.device.model, reading.error));
    QTRY_VERIFY(reading.isFinished());
    QCOMPARE(reading.logged, readWell);
    QCOMPARE(reading.error, QString::fromLatin1(before));
    QCOMPARE(it.device.model->screens(30).size(), 2);
}

void tst_DeviceList::failedSynchronisationFinishesWithFalse()
{
    Synchronised it;
    it.channel->reply(0x1100, ScriptedAnswer::refusal(5));
    Reading reading;
    QVERIFY(reading.begin());
    QTRY_VERIFY(reading.isFinished());
    QCOMPARE(reading.logged.last(),
             QStringLiteral("finished 0 '192.0.2.7' '02005E100007' '0123456789ABCD07'"));
    QCOMPARE(reading.error, QString::fromLatin1(before)); // the log has the reason
    QCOMPARE(it.lines().last(),
             QStringLiteral(R"(debug: "Sync device model result is 0, device ip is192.0.2.7.")"));
}

void tst_DeviceList::deviceWithoutAddressFinishesWithEmptyTexts()
{
    Synchronised it;
    it.device.removeChannel();
    it.channel->info.ip.clear();
    SSProxy::DeviceManager::instance()->addDeviceChannel(it.channel);
    Reading reading;
    QVERIFY(reading.begin(QString()));
    QTRY_VERIFY(reading.isFinished());
    QCOMPARE(reading.logged, textLines({"started ", "finished 0 '' '' ''"}));
    QCOMPARE(it.lines(),
             textLines({"info: Sync device init model begin.",
                        "warning: Sync device model failed,Device ip invalid.",
                        "info: Sync device task finished.",
                        "warning: Sync device model failed,Device ip invalid."}));
}

void tst_DeviceList::secondCallWhileRunningIsAcceptedAndIgnored()
{
    Synchronised it;
    ScriptedDevice other(8);
    Gate gate;
    it.channel->reply(0xFC0C, heldBack(gate));
    Reading reading;
    QVERIFY(reading.begin());
    gate.awaitArrival();
    it.journal.clear();

    QVERIFY(reading.begin());
    QVERIFY(reading.list->readDeviceDetail(other.model, reading.error));
    QVERIFY(reading.begin(QStringLiteral("198.51.100.1"))); // a device without a channel
    const auto stillRunning =
        "warning: Sync device model failed, last sync device is still running.";
    QCOMPARE(it.journal.lines(), textLines({stillRunning, stillRunning, stillRunning}));
    QCOMPARE(reading.error, QString::fromLatin1(before));

    gate.open();
    QTRY_VERIFY(reading.isFinished());
    QCOMPARE(reading.logged, readWell);
    QVERIFY(other.channel->sent().empty());
    QCOMPARE(it.asked().size(), 8);
}

// The thread has ended, but the finished signal has not arrived yet.
void tst_DeviceList::callBetweenEndAndFinishCountsAsRunning()
{
    Synchronised it;
    Reading reading;
    QThread *thread = nullptr;
    Gate gate;
    const auto connection = connect(
        BizModel::DeviceList::instance(), &BizModel::DeviceList::signalDeviceAppended, this,
        [&] {
            thread = QThread::currentThread();
            gate.passage()();
        },
        Qt::DirectConnection);
    QVERIFY(reading.begin());
    gate.awaitArrival();
    disconnect(connection);
    gate.open();
    QVERIFY(thread->wait());
    QVERIFY(!thread->isRunning());

    QVERIFY(reading.begin());
    QVERIFY(it.lines().contains(
        QStringLiteral("warning: Sync device model failed, last sync device is still running.")));
    QTRY_VERIFY(reading.isFinished());
    QCOMPARE(reading.logged, readWell);
}

void tst_DeviceList::callFromTheFinishedSlotIsAccepted()
{
    Synchronised it;
    Reading reading;
    int calls = 0;
    reading.atFinish = [&] {
        if (++calls == 1)
            QVERIFY(reading.begin());
    };
    QVERIFY(reading.begin());
    QTRY_COMPARE(calls, 2);
    QCOMPARE(reading.logged, readWell + readWell);
    QVERIFY(it.lines().filter(QStringLiteral("still running")).isEmpty());
    QCOMPARE(it.asked().size(), 16);
}

void tst_DeviceList::identityWithoutChannelIsRefused()
{
    Synchronised it;
    it.makeKnown();
    it.device.model->setDeviceOnlineFlag(true);
    it.device.removeChannel();
    Reading reading;
    QVERIFY(!reading.begin());
    QCOMPARE(reading.error, QString::fromLatin1(before));
    QCOMPARE(it.journal.lines(),
             textLines({"warning: Sync device model failed, device channel is null",
                        "warning: Sync device model failed, device para error"}));
    QVERIFY(!it.device.model->isOnline());
    QCoreApplication::processEvents();
    QVERIFY(reading.logged.isEmpty());
}

void tst_DeviceList::refusedCallLeavesTheListUsable()
{
    Synchronised it;
    Reading reading;
    QVERIFY(!reading.begin(QStringLiteral("198.51.100.1")));
    QVERIFY(reading.begin());
    QTRY_VERIFY(reading.isFinished());
    QCOMPARE(reading.logged, readWell);
}

void tst_DeviceList::expiredDeviceIsRefused()
{
    Synchronised it;
    Reading reading;
    QVERIFY(!reading.list->readDeviceDetail(std::weak_ptr<BizModel::Device>(), reading.error));
    QCOMPARE(reading.error, QStringLiteral("Device model is nullptr"));
    QVERIFY(it.journal.lines().isEmpty());

    // The result is the same while the task is busy.
    Gate gate;
    it.channel->reply(0xFC0C, heldBack(gate));
    QVERIFY(reading.begin());
    gate.awaitArrival();
    reading.error.clear();
    QVERIFY(!reading.list->readDeviceDetail(std::weak_ptr<BizModel::Device>(), reading.error));
    QCOMPARE(reading.error, QStringLiteral("Device model is nullptr"));
    gate.open();
    QTRY_VERIFY(reading.isFinished());
    QCOMPARE(reading.logged, readWell);
}

void tst_DeviceList::destructionWaitsForTheSynchronisation()
{
    Synchronised it;
    Gate gate;
    it.channel->reply(0x1300, heldBack(gate));
    Reading reading;
    QVERIFY(reading.begin());
    gate.awaitArrival();
    std::thread opener([&gate] { gate.open(); });
    reading.list.reset();
    opener.join();
    QCOMPARE(it.asked().size(), 7); // all but the layers, as the screens' answer is empty
    QCOMPARE(it.lines().last(), QStringLiteral("info: Sync device init model end."));
    QCoreApplication::processEvents();
    QVERIFY(reading.logged.isEmpty());
    QVERIFY(it.lines().filter(QStringLiteral("task finished")).isEmpty());
}

void tst_DeviceList::destructionWithoutSynchronisationReturnsAtOnce()
{
    Synchronised it;
    Reading reading;
    QVERIFY(reading.begin());
    QTRY_VERIFY(reading.isFinished());
    reading.list.reset();
    QCOMPARE(reading.logged, readWell);
    const Reading unused;
}

void tst_DeviceList::twoListsReadTwoDevicesAtOnce()
{
    Synchronised it;
    const auto otherChannel = std::make_shared<WholeDeviceChannel>();
    const ScriptedDevice other(8, otherChannel);
    Gate gate;
    Gate otherGate;
    it.channel->reply(0xFC0C, heldBack(gate));
    otherChannel->reply(0xFC0C, heldBack(otherGate));

    Reading reading;
    Reading otherReading;
    QVERIFY(reading.begin());
    QVERIFY(otherReading.list->readDeviceDetail(other.model, otherReading.error));
    gate.awaitArrival();
    otherGate.awaitArrival();
    gate.open();
    otherGate.open();
    QTRY_VERIFY(reading.isFinished());
    QTRY_VERIFY(otherReading.isFinished());
    QCOMPARE(reading.logged, readWell);
    QCOMPARE(otherReading.logged,
             textLines({"started 192.0.2.8",
                        "finished 1 '192.0.2.8' '02005E100008' '0123456789ABCD08'"}));
    QCOMPARE(it.asked(), otherChannel->asked());
    auto *list = BizModel::DeviceList::instance();
    QCOMPARE(list->devices().size(), 2);
    list->remove(list->findDevice(other.model->IPAddress(), other.model->MAC(), other.model->sn()));
}

void tst_DeviceList::twoListsThatReadOneNewDeviceLeaveItInTheModelOnce()
{
    const auto channel = std::make_shared<ChannelWithModelStep>();
    Synchronised it(channel);
    std::shared_ptr<BizModel::Device> readFirst;
    SyncTask other;
    channel->interfereAtModelStep([&] {
        other.setDevice(it.ip(), it.mac(), it.sn());
        other.run();
        readFirst = it.listed();
    });
    it.run();
    QVERIFY(readFirst);
    const auto devices = BizModel::DeviceList::instance()->devices();
    QCOMPARE(devices.size(), 1);
    QCOMPARE(devices.first().lock(), it.listed());
    QVERIFY(it.listed() != readFirst);
}

QTEST_GUILESS_MAIN(tst_DeviceList)
#include "tst_devicelist.moc"
