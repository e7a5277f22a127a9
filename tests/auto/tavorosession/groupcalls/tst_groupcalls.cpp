// Calls to several devices at once, and devices that do not wait for each other.

#include <support/tavorosession/devicelog.h>
#include <support/tavorosession/sessionbench.h>

#include <tavorocontrol/device.h>

#include <chrono>

using namespace Tavoro;
using namespace std::chrono_literals;

class tst_GroupCalls : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void groupIsSentTogether();
    void groupHoldsTheOutcomeOfEachDevice();
    void groupDoesNotWaitForADeviceWithoutAConnection();
    void groupDoesNotWaitLongForABusyDevice();
    void slotMayChangeTheListOfTheCaller();
    void slotMayDeleteAnotherSessionOfTheGroup();
    void emptyGroupEndsAtOnce();
    void devicesDoNotWaitForEachOther();
    void atMostFourDevicesAreReadAtTheSameTime();

private:
    static constexpr int count = 8;

    PendingCall<GroupOutcome> callSwap(quint8 value = 0)
    {
        ProtoModel::Device::s_swap swap;
        swap.swap = value;
        return m_bench->session->callAll(m_walls, &Control::Device::writeSwap, swap);
    }
    bool execute(int wall, const QByteArray &line)
    {
        return m_simulators[static_cast<std::size_t>(wall)]
            ->simulator->execute(QString::fromLatin1(line))
            .ok;
    }
    void addFault(int wall, const char *rule)
    {
        QVERIFY(execute(wall, QByteArray("fault add ") + rule));
    }
    bool areReady() const
    {
        return std::all_of(m_walls.begin(), m_walls.end(),
                           [](DeviceSession *wall) { return wall->isReady(); });
    }

    std::vector<std::unique_ptr<RunningSimulator>> m_simulators;
    std::unique_ptr<SessionBench> m_bench;
    QList<DeviceSession *> m_walls;
};

void tst_GroupCalls::init()
{
    m_bench = std::make_unique<SessionBench>();
    for (int i = 0; i < count; ++i) {
        m_simulators.push_back(std::make_unique<RunningSimulator>(
            SessionBench::smallDevice(static_cast<quint8>(i + 10))));
        m_walls << m_bench->open(*m_simulators.back());
    }
    QTRY_VERIFY(areReady());
}

void tst_GroupCalls::cleanup()
{
    m_bench.reset();
    m_simulators.clear();
    m_walls.clear();
}

void tst_GroupCalls::groupIsSentTogether()
{
    const GroupOutcome group = resultOf(callSwap());
    QVERIFY2(bool(group), qPrintable(group.failures().join(QLatin1Char('\n'))));
    QCOMPARE(group.outcomes.size(), std::size_t(count));
    QVERIFY(group.spread > 0us);
    QVERIFY(group.spread < 10s);
}

void tst_GroupCalls::groupHoldsTheOutcomeOfEachDevice()
{
    addFault(2, "status=8,code=0x1107,count=1");
    const GroupOutcome group = resultOf(callSwap());
    QVERIFY(!group);
    for (std::size_t i = 0; i < count; ++i) {
        QCOMPARE(int(group.outcomes[i].kind()), int(i == 2 ? Outcome::Refused : Outcome::Done));
        QCOMPARE(group.outcomes[i].deviceName(), QStringLiteral("wall %1").arg(i + 10));
    }
    QCOMPARE(group.failures(), QStringList{group.outcomes[2].text()});
}

void tst_GroupCalls::groupDoesNotWaitForADeviceWithoutAConnection()
{
    m_walls[1]->close();
    const GroupOutcome group = resultOf(callSwap());
    QCOMPARE(int(group.outcomes[0].kind()), int(Outcome::Done));
    QCOMPARE(int(group.outcomes[1].kind()), int(Outcome::NotSent));
    QCOMPARE(group.failures().size(), 1);
}

void tst_GroupCalls::groupDoesNotWaitLongForABusyDevice()
{
    addFault(0, "hold,code=0x1101,count=1");
    const auto busy =
        m_walls[0]->call(&Control::Device::writeDeviceGeneral, ProtoModel::Device::s_General());
    const DeviceLog log;
    const auto call = callSwap();
    const auto arrived = [&log] {
        return log.codes().count(QStringLiteral("1107"));
    };
    QTRY_COMPARE(int(arrived()), count - 1); // without the busy one
    const auto before = std::chrono::steady_clock::now();
    QVERIFY(Heartbeat().waitForBeats());
    QVERIFY(!busy.future().isFinished());
    QCOMPARE(int(arrived()), count - 1);
    const auto least = std::chrono::steady_clock::now() - before;
    QVERIFY(execute(0, "fault release"));
    const GroupOutcome group = resultOf(call);
    QVERIFY(group);
    QVERIFY(busy.future().isFinished());
    QVERIFY(group.spread >= least - 1us); // it was late, and the result says so
}

void tst_GroupCalls::slotMayChangeTheListOfTheCaller()
{
    m_walls[0]->close(); // its call ends at once
    connect(m_walls[0], &DeviceSession::callFinished, this, [this] { m_walls.clear(); });
    const GroupOutcome group = resultOf(callSwap());
    QCOMPARE(group.outcomes.size(), std::size_t(count));
    QCOMPARE(int(group.outcomes[0].kind()), int(Outcome::NotSent));
    QCOMPARE(int(group.outcomes[count - 1].kind()), int(Outcome::Done));
}

void tst_GroupCalls::slotMayDeleteAnotherSessionOfTheGroup()
{
    m_walls[0]->close(); // its call ends at once
    DeviceSession *const deleted = m_walls[1];
    connect(m_walls[0], &DeviceSession::callFinished, deleted, [deleted] { delete deleted; });
    const GroupOutcome group = resultOf(callSwap());
    QCOMPARE(group.outcomes.size(), std::size_t(count));
    const Outcome &outcome = group.outcomes[1];
    QCOMPARE(int(outcome.kind()), int(Outcome::NotSent));
    QCOMPARE(outcome.text(),
             QStringLiteral("wall 11: %1 was not sent: the session is closed.")
                 .arg(group.outcomes[2].operation()));
    for (std::size_t i = 2; i < count; ++i)
        QCOMPARE(int(group.outcomes[i].kind()), int(Outcome::Done));
    QVERIFY(group.spread < 10s);
}

void tst_GroupCalls::emptyGroupEndsAtOnce()
{
    m_walls.clear();
    QVERIFY(resultOf(callSwap()));
}

void tst_GroupCalls::devicesDoNotWaitForEachOther()
{
    for (int i = 1; i < count; ++i) {
        addFault(i, "silent");
        m_walls[i]->call(&Control::Device::writeSwap, {1});
    }
    QVERIFY(resultOf(m_walls[0]->call(&Control::Device::writeSwap, {1})));
    QVERIFY(m_walls[0]->isReady());
}

void tst_GroupCalls::atMostFourDevicesAreReadAtTheSameTime()
{
    for (int i = 0; i < count; ++i)
        addFault(i, "hold,code=0x1300");
    int most = 0;
    for (DeviceSession *const wall : qAsConst(m_walls)) {
        connect(wall, &DeviceSession::readProgressChanged, this, [&] {
            most = std::max(most,
                            static_cast<int>(std::count_if(
                                m_walls.begin(), m_walls.end(),
                                [](DeviceSession *each) { return each->readProgress() > 0; })));
        });
        wall->readAgain();
    }
    QTRY_COMPARE(most, 4);
    QVERIFY(Heartbeat().waitForBeats()); // a fifth one would begin
    for (int i = 0; i < count; ++i)
        QVERIFY(execute(i, "fault clear"));
    QTRY_VERIFY(areReady());
    QCOMPARE(most, 4);
}

QTEST_GUILESS_MAIN(tst_GroupCalls)
#include "tst_groupcalls.moc"
