// The states of a device session: each change once, with its reason.

#include <support/tavorosession/sessionbench.h>
#include <support/tavorosession/statelog.h>

#include <tavorocontrol/device.h>

#include <QSignalSpy>

using namespace Tavoro;
using namespace std::chrono_literals;

class tst_DeviceStates : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { m_bench = std::make_unique<SessionBench>(); }
    void cleanup() { m_bench.reset(); }

    void openedDeviceIsReadAndBecomesReady();
    void deviceThatCannotBeReachedStaysConnectingWithAReason();
    void lossIsReportedOnceWithItsReasonAndTheNextAttempt();
    void deviceThatIsNotReadyIsReadUntilItIs();
    void failedEssentialReadIsRepeated();
    void failedOtherReadIsNamedByTheReadyState();
    void closedSessionIsDisconnectedAndOpensAgain();
    void stoppedChannelDisconnects();
    void onlineFlagFollows();

private:
    DeviceSession &wall() { return *m_bench->wall; }

    std::unique_ptr<SessionBench> m_bench;
};

void tst_DeviceStates::openedDeviceIsReadAndBecomesReady()
{
    m_bench->open();
    QCOMPARE(nameOf(wall().state().kind), QByteArray("Connecting"));
    QVERIFY(!wall().device());
    StateLog log(wall());
    QSignalSpy progress(&wall(), &DeviceSession::readProgressChanged);
    QTRY_VERIFY(wall().isReady());
    QCOMPARE(log.text(), QByteArray("Reading Ready"));
    QCOMPARE(log.reasons, (QStringList{QString(), QString()}));
    QVERIFY(wall().state().since.isValid());
    QVERIFY(!wall().state().nextAttempt.isValid());
    QCOMPARE(wall().name(), QStringLiteral("wall 1"));
    double former = 0;
    for (const auto &share : qAsConst(progress)) {
        QVERIFY(share.first().toDouble() > former);
        former = share.first().toDouble();
    }
    QVERIFY(progress.size() >= 5);
    QVERIFY(wall().device()->isSyncDataSuccess());
    QCOMPARE(wall().device()->interfaces().size(), 4);
    QCOMPARE(wall().device()->screens(30).size(), 2);
    QCOMPARE(wall().device(), BizModel::DeviceList::instance()->devices().first().lock());
}

void tst_DeviceStates::deviceThatCannotBeReachedStaysConnectingWithAReason()
{
    QVERIFY(m_bench->execute(QStringLiteral("switch 0")));
    m_bench->open();
    StateLog log(wall());
    QTRY_VERIFY(!wall().state().reason.isEmpty());
    QTRY_VERIFY(wall().state().nextAttempt.isValid());
    QCOMPARE(log.text(), QByteArray());
    QVERIFY(m_bench->execute(QStringLiteral("switch 1")));
    QTRY_VERIFY(wall().isReady());
    QCOMPARE(log.text(), QByteArray("Reading Ready"));
}

void tst_DeviceStates::lossIsReportedOnceWithItsReasonAndTheNextAttempt()
{
    QVERIFY(m_bench->openReady());
    StateLog log(wall());
    QDateTime nextAttempt;
    connect(&wall(), &DeviceSession::stateChanged, this, [&] {
        if (wall().state().kind == DeviceState::Lost)
            nextAttempt = wall().state().nextAttempt;
    });
    QSignalSpy details(&wall(), &DeviceSession::stateDetailsChanged);
    QVERIFY(m_bench->execute(QStringLiteral("switch 0")));
    QTRY_COMPARE(log.text(), QByteArray("Lost"));
    QVERIFY(nextAttempt.isValid());
    QVERIFY(!log.reasons.first().isEmpty());
    QTRY_VERIFY(details.size() > 2); // further attempts
    QCOMPARE(log.text(), QByteArray("Lost"));
    QVERIFY(m_bench->execute(QStringLiteral("switch 1")));
    QTRY_COMPARE(log.text(), QByteArray("Lost Reading Ready"));
}

void tst_DeviceStates::deviceThatIsNotReadyIsReadUntilItIs()
{
    SessionBench::Options options = SessionBench::fastOptions();
    options.channel.maxRequestTime = 1s;
    m_bench.reset();
    m_bench = std::make_unique<SessionBench>(options);
    QVERIFY(m_bench->addFault("silent,code=0x1200"));
    m_bench->open();
    StateLog log(wall());
    QTRY_VERIFY(wall().state().reason.contains(QStringLiteral("interfaces")));
    QCOMPARE(nameOf(wall().state().kind), QByteArray("Reading"));
    QVERIFY(wall().state().nextAttempt.isValid());
    QVERIFY(m_bench->execute(QStringLiteral("fault clear")));
    QTRY_VERIFY(wall().isReady());
    QCOMPARE(log.text(), QByteArray("Reading Ready"));
}

void tst_DeviceStates::failedEssentialReadIsRepeated()
{
    QVERIFY(m_bench->addFault("status=8,code=0x1100,count=3"));
    m_bench->open();
    QSignalSpy details(&wall(), &DeviceSession::stateDetailsChanged);
    QTRY_VERIFY(wall().isReady());
    QVERIFY(details.size() >= 3);
    QCOMPARE(wall().state().reason, QString());
}

void tst_DeviceStates::failedOtherReadIsNamedByTheReadyState()
{
    QVERIFY(m_bench->addFault("status=8,code=0x1400,count=1"));
    QVERIFY(m_bench->openReady());
    QCOMPARE(wall().state().reason,
             QStringLiteral(
                 "the layers could not be read (the device is busy, or the object is in use)"));
    QVERIFY(!wall().device()->isSyncDataSuccess());
    QVERIFY(wall().device()->layers().isEmpty());
    StateLog log(wall());
    wall().readAgain();
    QTRY_COMPARE(log.text(), QByteArray("Reading Ready"));
    QCOMPARE(wall().state().reason, QString());
    QVERIFY(!wall().device()->layers().isEmpty());
}

void tst_DeviceStates::closedSessionIsDisconnectedAndOpensAgain()
{
    QVERIFY(m_bench->openReady());
    StateLog log(wall());
    const auto device = wall().device();
    wall().close();
    QCOMPARE(log.text(), QByteArray("Disconnected"));
    QCOMPARE(log.reasons.first(), QStringLiteral("the session is closed"));
    wall().close();
    QCOMPARE(log.kinds.size(), 1);
    wall().open();
    QTRY_COMPARE(log.text(), QByteArray("Disconnected Connecting Reading Ready"));
    QCOMPARE(wall().device(), device);
}

void tst_DeviceStates::stoppedChannelDisconnects()
{
    QVERIFY(m_bench->openReady());
    StateLog log(wall());
    Control::Device(wall().device()).disconnectCommunication();
    QTRY_COMPARE(log.text(), QByteArray("Disconnected"));
    QCOMPARE(log.reasons.first(), QStringLiteral("its channel was stopped"));
}

void tst_DeviceStates::onlineFlagFollows()
{
    QVERIFY(m_bench->openReady());
    QVERIFY(wall().device()->isOnline());
    QVERIFY(m_bench->execute(QStringLiteral("switch 0")));
    QTRY_VERIFY(!wall().device()->isOnline());
    QCOMPARE(nameOf(wall().state().kind), QByteArray("Lost"));
    QVERIFY(m_bench->execute(QStringLiteral("switch 1")));
    QTRY_VERIFY(wall().isReady());
    QVERIFY(wall().device()->isOnline());
    wall().close();
    QVERIFY(!wall().device()->isOnline());
}

QTEST_GUILESS_MAIN(tst_DeviceStates)
#include "tst_devicestates.moc"
