// Control of a device: taken, released and forced by a session, and who holds it otherwise.

#include <support/tavorosession/sessionbench.h>

#include <tavorocontrol/device.h>
#include <tavorossproxy/devicemanager.h>

#include <QSignalSpy>

using namespace Tavoro;
using namespace std::chrono_literals;
using SSProxy::ControlAction;

class tst_DeviceControl : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { start(SessionBench::fastOptions()); }
    void cleanup()
    {
        m_other.reset();
        m_bench.reset();
    }

    void readingTakesNoControl();
    void controlIsTakenAndReleased();
    void refusalsNameTheHolder();
    void holderOfARefusalIsIgnoredUnlessOthersHaveControl();
    void holderIsReadWithoutTakingControl();
    void controlIsForced();
    void lossOfControlIsReported();
    void controlIsReleasedAfterTheIdleTime();
    void controlThatWasRequestedIsReleasedAfterTheIdleTime_data();
    void controlThatWasRequestedIsReleasedAfterTheIdleTime();
    void controlOfAnUnknownWriteIsReleasedAfterTheIdleTime();
    void refusedWriteBeginsTheIdleTime_data();
    void refusedWriteBeginsTheIdleTime();
    void cancelledTransferBeginsTheIdleTime();
    void releaseThatFailsIsRepeatedAfterTheIdleTime_data();
    void releaseThatFailsIsRepeatedAfterTheIdleTime();
    void controlIsKeptDuringATransfer();
    void holderIsAPropertyWithASignal();
    void holderIsKnownAfterConnecting();
    void refusalThatTheDeviceConfirmsLaterNamesTheHolder();
    void lostConnectionHasNoHolder();

private:
    /// No request takes longer than \a requestTime.
    void startWithIdleTime(std::chrono::milliseconds requestTime = 60s)
    {
        SessionBench::Options options = SessionBench::fastOptions();
        options.controlIdleTime = 200ms;
        options.outcomeTime = 0ms; // without an answer the outcome is unknown at once
        options.channel.maxRequestTime = requestTime;
        start(options);
    }
    void start(const SessionBench::Options &options)
    {
        m_other.reset();
        m_bench = std::make_unique<SessionBench>(options);
        QVERIFY(m_bench->openReady());
        m_other = std::make_unique<TcpConnection>(m_bench->running->simulator->port());
    }
    DeviceSession &wall() { return *m_bench->wall; }
    PendingCall<Outcome> callSwap() { return wall().call(&Control::Device::writeSwap, {1}); }
    QString holder()
    {
        QString name;
        m_other->channel->readControlHolder(name);
        return name;
    }
    static bool takeControlWithoutTheSession()
    {
        QString error;
        for (const auto &each : SSProxy::DeviceManager::instance()->tavoroDeviceChannels()) {
            const auto channel = std::dynamic_pointer_cast<SSProxy::NetworkChannel>(each.lock());
            if (channel && channel->requestControl(ControlAction::Take, error))
                return true;
        }
        return false;
    }
    bool otherRequests(ControlAction action)
    {
        QString error;
        return m_other->channel->requestControl(action, error);
    }

    std::unique_ptr<SessionBench> m_bench;
    std::unique_ptr<TcpConnection> m_other;
};

void tst_DeviceControl::readingTakesNoControl()
{
    QCOMPARE(holder(), QString());
    QVERIFY(resultOf(wall().call(&Control::Device::readDetails)));
    QCOMPARE(holder(), QString());
    QVERIFY(!wall().isControlledByOthers());
}

void tst_DeviceControl::controlIsTakenAndReleased()
{
    QVERIFY(resultOf(wall().takeControl()));
    QVERIFY(!holder().isEmpty());
    QVERIFY(!otherRequests(ControlAction::Take));
    QVERIFY(resultOf(wall().releaseControl()));
    QCOMPARE(holder(), QString());
}

void tst_DeviceControl::refusalsNameTheHolder()
{
    QVERIFY(otherRequests(ControlAction::Take));
    const QString reason = QStringLiteral("the device is controlled by ") + holder();
    const Outcome request = resultOf(wall().takeControl());
    QCOMPARE(int(request.kind()), int(Outcome::Refused));
    QCOMPARE(request.status(), quint16(67));
    QCOMPARE(request.text(),
             QStringLiteral("wall 1: the request for control was refused: %1.").arg(reason));
    const Outcome write = resultOf(callSwap());
    QCOMPARE(int(write.kind()), int(Outcome::Refused));
    QCOMPARE(write.reason(), reason);
}

/// The device refuses a call, but names this client when it is asked afterwards.
void tst_DeviceControl::holderOfARefusalIsIgnoredUnlessOthersHaveControl()
{
    QVERIFY(resultOf(wall().takeControl()));
    QVERIFY(m_bench->addFault("status=67,code=0x1107,count=1"));
    QCOMPARE(int(resultOf(callSwap()).kind()), int(Outcome::Refused));
    QVERIFY(!wall().isControlledByOthers());
    QCOMPARE(wall().controlHolder(), QString());
}

void tst_DeviceControl::holderIsReadWithoutTakingControl()
{
    const Answer<QString> free = resultOf(wall().readControlHolder());
    QVERIFY2(free, qUtf8Printable(free.text()));
    QCOMPARE(free.record(), QString());
    QCOMPARE(holder(), QString());

    QVERIFY(otherRequests(ControlAction::Take));
    QTRY_VERIFY(wall().isControlledByOthers());
    QVERIFY(!holder().isEmpty());
    QCOMPARE(resultOf(wall().readControlHolder()).record(), holder());

    QVERIFY(m_bench->execute(QStringLiteral("switch 0")));
    QTRY_COMPARE(wall().state().kind, DeviceState::Lost);
    QCOMPARE(resultOf(wall().readControlHolder()).kind(), Outcome::NotSent);
}

void tst_DeviceControl::controlIsForced()
{
    QVERIFY(otherRequests(ControlAction::Take));
    QTRY_VERIFY(wall().isControlledByOthers());
    QVERIFY(resultOf(wall().forceControl()));
    QTRY_VERIFY(!wall().isControlledByOthers());
    QVERIFY(resultOf(callSwap()));
}

void tst_DeviceControl::lossOfControlIsReported()
{
    QVERIFY(resultOf(wall().takeControl()));
    QSignalSpy changed(&wall(), &DeviceSession::controlChanged);
    QVERIFY(otherRequests(ControlAction::Force));
    QTRY_COMPARE(changed.size(), 1);
    QVERIFY(wall().isControlledByOthers());
    QVERIFY(otherRequests(ControlAction::GiveUp));
    QTRY_COMPARE(changed.size(), 2);
    QVERIFY(!wall().isControlledByOthers());
}

void tst_DeviceControl::controlIsReleasedAfterTheIdleTime()
{
    SessionBench::Options options = SessionBench::fastOptions();
    options.controlIdleTime = 200ms;
    start(options);
    QStringList holders;
    connect(&wall(), &DeviceSession::callFinished, &wall(), [&] { holders << holder(); });
    QVERIFY(resultOf(callSwap()));
    QCOMPARE(holders.size(), 1);
    QVERIFY(!holders.first().isEmpty());
    QTRY_COMPARE(holder(), QString());
}

void tst_DeviceControl::controlThatWasRequestedIsReleasedAfterTheIdleTime_data()
{
    QTest::addColumn<bool>("isForced");
    QTest::newRow("taken") << false;
    QTest::newRow("forced") << true;
}

void tst_DeviceControl::controlThatWasRequestedIsReleasedAfterTheIdleTime()
{
    QFETCH(const bool, isForced);
    startWithIdleTime();
    QVERIFY(resultOf(isForced ? wall().forceControl() : wall().takeControl()));
    QTRY_COMPARE(holder(), QString());
}

void tst_DeviceControl::controlOfAnUnknownWriteIsReleasedAfterTheIdleTime()
{
    startWithIdleTime(2s);
    QVERIFY(m_bench->addFault("silent,code=0x1107,count=1"));
    QCOMPARE(int(resultOf(callSwap()).kind()), int(Outcome::Unknown));
    QTRY_COMPARE(holder(), QString());
}

void tst_DeviceControl::refusedWriteBeginsTheIdleTime_data()
{
    QTest::addColumn<QByteArray>("fault");
    QTest::addColumn<bool>("isReleased");
    QTest::newRow("value out of range") << QByteArray("status=4") << true;
    QTest::newRow("another client controls it") << QByteArray("status=67") << false;
}

/// A device may give control to a client whose write it refuses. Here the client has taken control
/// without its session.
void tst_DeviceControl::refusedWriteBeginsTheIdleTime()
{
    QFETCH(const QByteArray, fault);
    QFETCH(const bool, isReleased);
    startWithIdleTime();
    QVERIFY(takeControlWithoutTheSession());
    QVERIFY(Heartbeat().waitForBeats(50)); // longer than the idle time
    QVERIFY(!holder().isEmpty());
    QVERIFY(m_bench->addFault(QByteArray(fault + ",code=0x1107,count=1")));
    QCOMPARE(int(resultOf(callSwap()).kind()), int(Outcome::Refused));
    if (isReleased) {
        QTRY_COMPARE(holder(), QString());
    } else {
        QVERIFY(Heartbeat().waitForBeats(50));
        QVERIFY(!holder().isEmpty());
    }
}

/// The announcement of the file has taken control.
void tst_DeviceControl::cancelledTransferBeginsTheIdleTime()
{
    startWithIdleTime();
    QVERIFY(m_bench->addFault("hold,code=0xFA03,skip=1,count=1"));
    ProtoModel::File::s_FileInfo file;
    file.fileType = 2;
    file.fileId = 7;
    file.general.name = "picture";
    const std::string content(std::size_t(3) << 20, 'c'); // three packets
    const auto transfer = wall().files().send(file, content);
    QTRY_VERIFY(!m_bench->hasFaults());
    QVERIFY(!holder().isEmpty());
    transfer.cancel();
    QVERIFY(m_bench->releaseAnswers());
    QVERIFY(resultOf(transfer).isCanceled());
    QTRY_COMPARE(holder(), QString());
}

void tst_DeviceControl::releaseThatFailsIsRepeatedAfterTheIdleTime_data()
{
    QTest::addColumn<bool>("isOfTheApplication");
    QTest::newRow("of the session") << false;
    QTest::newRow("of the application") << true;
}

void tst_DeviceControl::releaseThatFailsIsRepeatedAfterTheIdleTime()
{
    QFETCH(const bool, isOfTheApplication);
    startWithIdleTime(2s);
    QVERIFY(m_bench->addFault("ignore,code=0x0101,count=1"));
    QVERIFY(resultOf(callSwap()));
    if (isOfTheApplication)
        resultOf(wall().releaseControl());
    QTRY_VERIFY(!m_bench->hasFaults()); // first: the other client's question would get the fault
    QTRY_COMPARE(holder(), QString());
}

void tst_DeviceControl::controlIsKeptDuringATransfer()
{
    SessionBench::Options options = SessionBench::fastOptions();
    options.controlIdleTime = 200ms;
    start(options);
    QVERIFY(m_bench->addFault("hold,code=0xFA03,skip=1,count=1"));
    QSignalSpy finished(&wall(), &DeviceSession::callFinished);
    QStringList holders;
    connect(&wall(), &DeviceSession::callFinished, &wall(), [&] { holders << holder(); });
    ProtoModel::File::s_FileInfo file;
    file.fileType = 2;
    file.fileId = 7;
    file.general.name = "picture";
    const auto transfer = wall().files().send(file, "content");
    QVERIFY(resultOf(callSwap())); // begins the idle time
    QTRY_VERIFY(!m_bench->hasFaults());
    QVERIFY(Heartbeat().waitForBeats(50)); // longer than the idle time
    QVERIFY(!holder().isEmpty());
    QVERIFY(m_bench->releaseAnswers());
    QVERIFY(resultOf(transfer));
    QVERIFY(!holders.contains(QString()));
    QTRY_COMPARE(holder(), QString());
    QCOMPARE(finished.size(), 2); // the session's own request is not reported
}

void tst_DeviceControl::holderIsAPropertyWithASignal()
{
    QSignalSpy changed(&wall(), &DeviceSession::controlHolderChanged);
    QCOMPARE(wall().controlHolder(), QString());
    QVERIFY(otherRequests(ControlAction::Take));
    QTRY_COMPARE(changed.size(), 1);
    QCOMPARE(wall().controlHolder(), holder());
    QVERIFY(wall().controlHolder().startsWith(QLatin1String("127.0.0.1:")));
    QVERIFY(otherRequests(ControlAction::GiveUp));
    QTRY_COMPARE(changed.size(), 2);
    QCOMPARE(wall().controlHolder(), QString());
    QVERIFY(resultOf(wall().takeControl())); // its own control has no other holder
    QCOMPARE(wall().controlHolder(), QString());
    QCOMPARE(changed.size(), 2);
}

void tst_DeviceControl::holderIsKnownAfterConnecting()
{
    QVERIFY(otherRequests(ControlAction::Take));
    wall().close();
    wall().open();
    QTRY_COMPARE(wall().controlHolder(), holder());
    QVERIFY(wall().isControlledByOthers());
}

void tst_DeviceControl::refusalThatTheDeviceConfirmsLaterNamesTheHolder()
{
    QVERIFY(otherRequests(ControlAction::Take));
    m_bench->setTimeout(0x1107, 300ms);
    QVERIFY(m_bench->addFault("silent,code=0x1107,count=1"));
    const Outcome write = resultOf(callSwap());
    QCOMPARE(int(write.kind()), int(Outcome::Refused));
    QCOMPARE(write.reason(), QStringLiteral("the device is controlled by ") + holder());
}

void tst_DeviceControl::lostConnectionHasNoHolder()
{
    QVERIFY(otherRequests(ControlAction::Take));
    QTRY_VERIFY(!wall().controlHolder().isEmpty());
    wall().close();
    QCOMPARE(wall().controlHolder(), QString());
    QVERIFY(!wall().isControlledByOthers());
}

QTEST_GUILESS_MAIN(tst_DeviceControl)
#include "tst_devicecontrol.moc"
