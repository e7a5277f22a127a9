// Firmware upgrades that a session starts and follows to their end.

#include <support/tavorosession/devicelog.h>
#include <support/tavorosession/sessionbench.h>

#include <tavorocontrol/device.h>

#include <QElapsedTimer>
#include <QEventLoop>
#include <QSignalSpy>
#include <QTimer>

using namespace Tavoro;
using namespace std::chrono_literals;

class tst_Upgrades : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { start(SessionBench::fastOptions()); }
    void cleanup() { m_bench.reset(); }

    void upgradeEndsWhenTheDeviceHasFinished();
    void failedUpgradeNamesTheProgress();
    void refusedUpgradeIsNotFollowed();
    void upgradeIsFollowedOverARestart();
    void upgradeWithoutAProgressIsUnknown();
    void cancelledUpgradeContinuesOnTheDevice();
    void upgradeThatWasNotSentIsCancelled();
    void upgradeThatWaitsIsCancelledAtOnce();
    void upgradeTimeDoesNotPassWhileATransferIsUnderWay();
    void closedSessionEndsTheUpgrade();
    void readsOfTheProgressAreNotReported();
    void upgradeIsReportedOnceWhileASlotRunsAnEventLoop();

private:
    static constexpr int packetSize = 4000;
    static constexpr int fast = 500; ///< Percent. An upgrade takes 1.2 s.
    static constexpr int standing = 0; ///< An upgrade takes 6 s that pass().

    void start(const SessionBench::Options &options, int clockSpeed = fast)
    {
        m_bench.reset();
        Sim::SimOptions device = SessionBench::smallDevice();
        device.clockSpeed = clockSpeed;
        device.packetSize = packetSize;
        m_bench = std::make_unique<SessionBench>(options, device);
        QVERIFY(m_bench->openReady());
    }
    DeviceSession &wall() { return *m_bench->wall; }
    bool pass(int milliseconds)
    {
        return m_bench->execute(QStringLiteral("pass %1").arg(milliseconds));
    }
    auto upgrade(int reboot = 0)
    {
        ProtoModel::Auxiliary::s_UpgradeDetail detail;
        detail.filePath = "/package";
        detail.reboot = reboot;
        return wall().upgrade(detail);
    }
    /// An upgrade that the device has begun, and that does not continue.
    auto upgradeThatStands()
    {
        start(SessionBench::fastOptions(), standing);
        const DeviceLog log;
        const auto call = upgrade();
        const auto hasBegun = [&] {
            return log.codes().contains(QStringLiteral("FC08"));
        };
        if (!QTest::qWaitFor(hasBegun, 60000) || !pass(1500)
            || !QTest::qWaitFor([&] { return call.progress().done == 25; }, 60000))
            qFatal("the upgrade does not begin");
        return call;
    }

    std::unique_ptr<SessionBench> m_bench;
};

void tst_Upgrades::upgradeEndsWhenTheDeviceHasFinished()
{
    start(SessionBench::fastOptions(), standing);
    QList<qint64> seen;
    const auto call = upgrade();
    call.onProgress(this, [&](const TransferProgress &now) {
        QCOMPARE(now.total, qint64(100));
        seen << now.done;
        QVERIFY(pass(1500));
    });
    const auto answer = resultOf(call);
    QVERIFY2(answer, qPrintable(answer.text()));
    QCOMPARE(int(answer.record().rate), 100);
    QCOMPARE(seen, (QList<qint64>{0, 25, 50, 75, 100}));
}

void tst_Upgrades::failedUpgradeNamesTheProgress()
{
    QVERIFY(m_bench->execute(QStringLiteral("spoil 40")));
    const auto answer = resultOf(upgrade());
    QCOMPARE(int(answer.kind()), int(Outcome::Refused));
    QCOMPARE(answer.text(),
             QStringLiteral("wall 1: upgrade detail information was refused: it "
                            "failed at 40 percent."));
    QCOMPARE(int(answer.record().rate), 40);
}

void tst_Upgrades::refusedUpgradeIsNotFollowed()
{
    DeviceLog log;
    QVERIFY(m_bench->addFault("status=8,code=0xFC08,count=1"));
    const auto answer = resultOf(upgrade());
    QCOMPARE(int(answer.kind()), int(Outcome::Refused));
    QCOMPARE(int(answer.status()), 8);
    QVERIFY(!log.codes().contains(QStringLiteral("FC09")));
}

void tst_Upgrades::upgradeIsFollowedOverARestart()
{
    QVERIFY(m_bench->addFault("drop-request,code=0xFC09,count=1"));
    QSignalSpy changed(&wall(), &DeviceSession::stateChanged);
    const auto answer = resultOf(upgrade(1));
    QVERIFY2(answer, qPrintable(answer.text()));
    QVERIFY(changed.size() > 0);
    QTRY_VERIFY(wall().isReady());
}

void tst_Upgrades::upgradeWithoutAProgressIsUnknown()
{
    SessionBench::Options options = SessionBench::fastOptions();
    options.upgradeTime = 500ms;
    start(options);
    QVERIFY(m_bench->addFault("status=8,code=0xFC09"));
    const auto answer = resultOf(upgrade());
    QCOMPARE(int(answer.kind()), int(Outcome::Unknown));
    QCOMPARE(answer.reason(), QStringLiteral("the device does not report its progress any more"));
}

void tst_Upgrades::cancelledUpgradeContinuesOnTheDevice()
{
    const auto call = upgradeThatStands();
    call.cancel();
    QVERIFY(call.future().isFinished());
    const auto answer = call.future().result();
    QCOMPARE(int(answer.kind()), int(Outcome::Unknown));
    QVERIFY(answer.isCanceled());
    QCOMPARE(answer.reason(), QStringLiteral("the device continues, but is not followed any more"));
}

void tst_Upgrades::upgradeThatWasNotSentIsCancelled()
{
    DeviceLog log;
    QVERIFY(m_bench->addFault("hold,code=0x1107,count=1"));
    wall().call(&Control::Device::writeSwap, {1});
    const auto call = upgrade();
    call.cancel();
    const auto answer = resultOf(call);
    QCOMPARE(int(answer.kind()), int(Outcome::NotSent));
    QVERIFY(answer.isCanceled());
    QTRY_VERIFY(!m_bench->hasFaults());
    QVERIFY(m_bench->releaseAnswers());
    QVERIFY(resultOf(wall().call(&Control::Device::readDetails)));
    QVERIFY(!log.codes().contains(QStringLiteral("FC08")));
}

void tst_Upgrades::upgradeThatWaitsIsCancelledAtOnce()
{
    QVERIFY(m_bench->addFault("hold,code=0x1107,count=1"));
    wall().call(&Control::Device::writeSwap, {1});
    const auto second = wall().call(&Control::Device::writeSwap, {0});
    const auto call = upgrade(); // the second call waits, so this one does too
    call.cancel();
    QVERIFY(call.future().isFinished());
    QCOMPARE(int(call.future().result().kind()), int(Outcome::NotSent));
    QVERIFY(call.future().result().isCanceled());
    QTRY_VERIFY(!m_bench->hasFaults());
    QVERIFY(m_bench->releaseAnswers());
    QVERIFY(resultOf(second));
}

/// The device answers one packet of the transfer every 200 ms, while this thread runs.
void tst_Upgrades::upgradeTimeDoesNotPassWhileATransferIsUnderWay()
{
    constexpr int packets = 30;
    SessionBench::Options options = SessionBench::fastOptions();
    options.upgradeTime = 3s;
    start(options);
    QVERIFY(m_bench->addFault("hold,code=0xFA03"));
    QTimer answers;
    connect(&answers, &QTimer::timeout, &answers, [this] { m_bench->releaseAnswers(); });
    answers.start(200ms);
    ProtoModel::File::s_FileInfo file;
    file.fileType = 2;
    file.fileId = 7;
    file.general.name = "picture";
    const auto transfer =
        wall().files().send(file, std::string(std::size_t(packets * packetSize), 'c'));
    QTRY_VERIFY(transfer.progress().done > 0);
    QElapsedTimer time;
    time.start();
    const auto call = upgrade();
    QTRY_VERIFY(time.hasExpired(4000)); // longer than the upgrade may be silent
    QVERIFY(!transfer.future().isFinished());
    QVERIFY(!call.future().isFinished());
    answers.start(1ms);
    const auto answer = resultOf(call);
    QVERIFY2(answer, qPrintable(answer.text()));
    QVERIFY(transfer.future().isFinished());
}

void tst_Upgrades::closedSessionEndsTheUpgrade()
{
    const auto call = upgradeThatStands();
    wall().close();
    QVERIFY(call.future().isFinished());
    QCOMPARE(int(call.future().result().kind()), int(Outcome::Unknown));
    QVERIFY(!call.future().result().isCanceled());
}

void tst_Upgrades::readsOfTheProgressAreNotReported()
{
    QSignalSpy finished(&wall(), &DeviceSession::callFinished);
    QVERIFY(resultOf(upgrade()));
    QCOMPARE(finished.size(), 1);
}

/// As when the application shows the failure in a message box.
void tst_Upgrades::upgradeIsReportedOnceWhileASlotRunsAnEventLoop()
{
    constexpr int readsOfTheProgress = 4; // as many as the session would make meanwhile
    QVERIFY(m_bench->execute(QStringLiteral("spoil 40")));
    QSignalSpy finished(&wall(), &DeviceSession::callFinished);
    QEventLoop messageBox;
    connect(&wall(), &DeviceSession::callFinished, &messageBox, [&] {
        if (messageBox.isRunning() || finished.size() > 1)
            return;
        QTimer::singleShot(readsOfTheProgress * 200ms, &messageBox, &QEventLoop::quit);
        messageBox.exec();
    });
    QCOMPARE(int(resultOf(upgrade()).kind()), int(Outcome::Refused));
    QCOMPARE(finished.size(), 1);
}

QTEST_GUILESS_MAIN(tst_Upgrades)
#include "tst_upgrades.moc"
