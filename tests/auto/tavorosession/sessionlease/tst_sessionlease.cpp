// The lease of a device: taken, renewed and released by a session, and lost to another client.

#include <support/tavorosession/sessionbench.h>

#include <QSignalSpy>

#include <memory>
#include <utility>

using namespace Tavoro;
using namespace std::chrono_literals;
using SSProxy::DeviceLease;

namespace {

const QString mine = QStringLiteral("gate a");
const QString theirs = QStringLiteral("gate b");

Sim::SimOptions deviceWithStoppedClock()
{
    Sim::SimOptions options = SessionBench::smallDevice();
    options.clockSpeed = 0;
    return options;
}

} // namespace

class tst_SessionLease : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_bench =
            std::make_unique<SessionBench>(SessionBench::fastOptions(), deviceWithStoppedClock());
        QVERIFY(m_bench->openReady());
        m_other = std::make_unique<TcpConnection>(m_bench->running->simulator->port());
    }
    void cleanup()
    {
        m_other.reset();
        m_bench.reset();
    }

    void leaseIsTakenAndReleased();
    void leaseOfAnotherClientIsRefused();
    void leaseIsRenewedUntilItIsReleased();
    void leaseOfTheSessionEndsInTimeWithoutAnswers();
    void leaseIsRenewedWhenTheDeviceAnswersAgain();
    void lostLeaseIsReported();
    void leaseSurvivesALostConnection();
    void leaseIsTakenAgainAfterARestart();
    void leaseThatAnotherClientGotAfterARestartIsLost();
    void requestThatWasNotSentIsNotRepeated();
    void closedSessionDoesNotRenew();
    void invalidRequestIsRefused();
    void deviceWithoutLeasesIsReported();
    void leaseDoesNotWaitForCalls();

private:
    DeviceSession &wall() { return *m_bench->wall; }
    DeviceLease others() { return m_other->channel->readLease(); }
    bool pass(int milliseconds)
    {
        return m_bench->execute(QStringLiteral("pass %1").arg(milliseconds));
    }
    /// The device's clock stands still, so only a renewal can restore the whole time.
    bool waitForRenewal(int whole)
    {
        return pass(1)
            && QTest::qWaitFor([&] { return others().remaining.count() == whole; }, 60000);
    }
    bool reconnectOther()
    {
        QString error;
        m_other->channel->reconnectNow();
        return m_other->channel->waitUntilReady(30000, error);
    }

    std::unique_ptr<SessionBench> m_bench;
    std::unique_ptr<TcpConnection> m_other;
};

void tst_SessionLease::leaseIsTakenAndReleased()
{
    QSignalSpy changed(&wall(), &DeviceSession::leaseChanged);
    QVERIFY(!wall().holdsLease());
    const auto taken = resultOf(wall().takeLease(mine, 60s));
    QVERIFY2(taken, qPrintable(taken.text()));
    QCOMPARE(taken.record().state, DeviceLease::Own);
    QCOMPARE(taken.record().holder, mine);
    QVERIFY(wall().holdsLease());
    QCOMPARE(wall().lease().holder, mine);
    QCOMPARE(changed.size(), 1);
    QCOMPARE(others().holder, mine);

    const auto released = wall().releaseLease();
    QVERIFY(!wall().holdsLease());
    QVERIFY(resultOf(released));
    QCOMPARE(others().state, DeviceLease::Free);
    QCOMPARE(changed.size(), 2);
}

void tst_SessionLease::leaseOfAnotherClientIsRefused()
{
    QCOMPARE(m_other->channel->takeLease(theirs, 60s).state, DeviceLease::Own);
    const auto answer = resultOf(wall().takeLease(mine, 60s));
    QCOMPARE(int(answer.kind()), int(Outcome::Refused));
    QCOMPARE(
        answer.text(),
        QStringLiteral("wall 1: the request for the lease was refused: gate b holds the lease."));
    QCOMPARE(answer.record().holder, theirs);
    QCOMPARE(answer.record().remaining.count(), 60000);
    QVERIFY(!wall().holdsLease());
    QCOMPARE(wall().lease().holder, theirs);
    QVERIFY(resultOf(wall().releaseLease()));
    QCOMPARE(others().holder, theirs);
}

void tst_SessionLease::leaseIsRenewedUntilItIsReleased()
{
    QVERIFY(resultOf(wall().takeLease(mine, 1s)));
    QVERIFY(waitForRenewal(1000));
    QVERIFY(waitForRenewal(1000));
    QTRY_VERIFY(wall().holdsLease()); // a thread that was late gets it with the next renewal
    QVERIFY(resultOf(wall().releaseLease()));
    QCOMPARE(others().state, DeviceLease::Free);
}

/// The device grants the lease and then stops answering: its clock stands still, but the session's
/// does not.
void tst_SessionLease::leaseOfTheSessionEndsInTimeWithoutAnswers()
{
    QVERIFY(resultOf(wall().takeLease(mine, 1s)));
    QSignalSpy changed(&wall(), &DeviceSession::leaseChanged);
    QVERIFY(m_bench->addFault("ignore,code=0x0103"));
    QTRY_COMPARE(changed.size(), 1);
    QVERIFY(!wall().holdsLease());
}

void tst_SessionLease::leaseIsRenewedWhenTheDeviceAnswersAgain()
{
    QVERIFY(resultOf(wall().takeLease(mine, 1s)));
    QVERIFY(m_bench->addFault("ignore,code=0x0103"));
    QTRY_VERIFY(!wall().holdsLease());
    QVERIFY(m_bench->execute(QStringLiteral("fault clear")));
    QTRY_VERIFY(wall().holdsLease());
}

void tst_SessionLease::lostLeaseIsReported()
{
    QVERIFY(resultOf(wall().takeLease(mine, 1s)));
    QSignalSpy changed(&wall(), &DeviceSession::leaseChanged);
    QVERIFY(m_bench->addFault("ignore,code=0x0103,count=1")); // the renewal
    QTRY_VERIFY(!m_bench->hasFaults());
    QVERIFY(pass(1000));
    QCOMPARE(m_other->channel->takeLease(theirs, 60s).state, DeviceLease::Own);
    QTRY_VERIFY(!wall().holdsLease());
    QVERIFY(!changed.isEmpty());
    QTRY_COMPARE(wall().lease().holder, theirs);
    QCOMPARE(others().holder, theirs);
}

void tst_SessionLease::leaseSurvivesALostConnection()
{
    QVERIFY(resultOf(wall().takeLease(mine, 60s)));
    QSignalSpy changed(&wall(), &DeviceSession::leaseChanged);
    QVERIFY(m_bench->addFault("drop-request,code=0x1100,count=1"));
    wall().callByName(QStringLiteral("Device.readDetails"));
    QTRY_COMPARE(changed.size(), 2); // lost and renewed
    QVERIFY(wall().holdsLease());
    QCOMPARE(others().holder, mine);
}

void tst_SessionLease::leaseIsTakenAgainAfterARestart()
{
    QVERIFY(resultOf(wall().takeLease(mine, 60s)));
    QVERIFY(m_bench->execute(QStringLiteral("switch 0")));
    QTRY_VERIFY(!wall().holdsLease());
    QVERIFY(m_bench->execute(QStringLiteral("switch 1")));
    QTRY_VERIFY(wall().holdsLease());
}

void tst_SessionLease::leaseThatAnotherClientGotAfterARestartIsLost()
{
    QVERIFY(resultOf(wall().takeLease(mine, 60s)));
    QVERIFY(m_bench->execute(QStringLiteral("switch 0")));
    QTRY_VERIFY(!wall().holdsLease());
    QVERIFY(m_bench->addFault("ignore,code=0x0103,count=1")); // of either client
    QVERIFY(m_bench->execute(QStringLiteral("switch 1")));
    QVERIFY(reconnectOther());
    QTRY_VERIFY_WITH_TIMEOUT(m_other->channel->takeLease(theirs, 60s).state != DeviceLease::Free,
                             60000);
    // Exactly one of them has it now.
    const bool isMine = others().holder == mine;
    QTRY_COMPARE(wall().holdsLease(), isMine);
}

void tst_SessionLease::requestThatWasNotSentIsNotRepeated()
{
    QVERIFY(m_bench->execute(QStringLiteral("switch 0")));
    QTRY_COMPARE(wall().state().kind, DeviceState::Lost);
    QCOMPARE(int(resultOf(wall().takeLease(mine, 60s)).kind()), int(Outcome::NotSent));
    QVERIFY(m_bench->execute(QStringLiteral("switch 1")));
    QTRY_VERIFY(wall().isReady());
    QVERIFY(reconnectOther());
    QCOMPARE(others().state, DeviceLease::Free);
}

void tst_SessionLease::closedSessionDoesNotRenew()
{
    QVERIFY(resultOf(wall().takeLease(mine, 60s)));
    wall().close();
    QVERIFY(!wall().holdsLease());
    QCOMPARE(others().holder, mine);
    QVERIFY(pass(60000));
    wall().open();
    QTRY_VERIFY(wall().isReady());
    QCOMPARE(others().state, DeviceLease::Free);
}

void tst_SessionLease::invalidRequestIsRefused()
{
    const auto withoutName = resultOf(wall().takeLease(QString(), 60s));
    QCOMPARE(int(withoutName.kind()), int(Outcome::Refused));
    QCOMPARE(withoutName.status(), quint16(2));
    const auto tooLong = resultOf(wall().takeLease(mine, 3601s));
    QCOMPARE(int(tooLong.kind()), int(Outcome::Refused));
    QCOMPARE(tooLong.status(), quint16(4));
}

void tst_SessionLease::deviceWithoutLeasesIsReported()
{
    QVERIFY(m_bench->addFault("status=1,code=0x0103"));
    const auto answer = resultOf(wall().takeLease(mine, 60s));
    QCOMPARE(int(answer.kind()), int(Outcome::Refused));
    QCOMPARE(answer.status(), quint16(1));
    QCOMPARE(answer.reason(), QStringLiteral("the device does not support leases"));
    QVERIFY(!wall().holdsLease());
}

void tst_SessionLease::leaseDoesNotWaitForCalls()
{
    QVERIFY(m_bench->addFault("ignore,code=0x1100,count=1"));
    const auto call = wall().callByName(QStringLiteral("Device.readDetails"));
    QVERIFY(resultOf(wall().takeLease(mine, 60s)));
    QVERIFY(!call.future().isFinished());
}

QTEST_GUILESS_MAIN(tst_SessionLease)
#include "tst_sessionlease.moc"
