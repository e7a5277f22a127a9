// What other clients change without a report is found by a poll in the background.

#include <support/tavorosession/devicelog.h>
#include <support/tavorosession/sessionbench.h>

#include <tavorobizmodel/file.h>
#include <tavorobizmodel/screen.h>
#include <tavorocontrol/device.h>
#include <tavorossproxy/commandcodes.h>
#include <tavorossproxy/devicecommand.h>

#include <QSignalSpy>

using namespace Tavoro;
using namespace std::chrono_literals;
using SSProxy::Command;

class tst_BackgroundPoll : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void cleanup()
    {
        m_other.reset();
        m_bench.reset();
    }

    void changesOfOtherClientsAreFound_data();
    void changesOfOtherClientsAreFound();
    void onlyWhatDiffersIsSignalled();
    void pollIsOffByDefault();
    void failedPollChangesNoState();
    void pollContinuesAfterALoss();
    void pollPausesWhileTheDeviceIsRead();

private:
    void start(const PollIntervals &intervals)
    {
        SessionBench::Options options = SessionBench::fastOptions();
        options.poll = intervals;
        m_bench = std::make_unique<SessionBench>(options);
        QVERIFY(m_bench->openReady());
        connectOther();
    }
    static PollIntervals pollOfScreens()
    {
        PollIntervals intervals;
        intervals.screens = 20ms;
        return intervals;
    }
    void connectOther()
    {
        m_other = std::make_unique<TcpConnection>(m_bench->running->simulator->port());
    }
    /// Another client writes; the device reports none of these commands.
    bool otherWrites(Command command, const char *body)
    {
        const auto request = std::make_shared<SSProxy::DeviceRequestCommand>();
        SSProxy::PacketHead head = request->head();
        head.type = static_cast<quint8>(SSProxy::CommandType::Write);
        head.BC = SSProxy::baseCode(command);
        head.FC = SSProxy::functionCode(command);
        request->head() = head;
        request->body() = body;
        return m_other->channel->sendSyncRequest(request)->status == 0;
    }
    bool otherFreezes(bool isFrozen)
    {
        return otherWrites(Command::ScreenFreeze,
                           isFrozen ? R"([{"screenId":1,"screenType":1,"freeze":1}])"
                                    : R"([{"screenId":1,"screenType":1,"freeze":0}])");
    }
    DeviceSession &wall() { return *m_bench->wall; }
    std::shared_ptr<BizModel::Screen> screen() { return wall().device()->findScreen(1, 1).lock(); }

    std::unique_ptr<SessionBench> m_bench;
    std::unique_ptr<TcpConnection> m_other;
};

void tst_BackgroundPoll::changesOfOtherClientsAreFound_data()
{
    QTest::addColumn<int>("kind");
    QTest::newRow("device") << 0;
    QTest::newRow("screens") << 1;
    QTest::newRow("files") << 2;
}

void tst_BackgroundPoll::changesOfOtherClientsAreFound()
{
    QFETCH(int, kind);
    PollIntervals intervals;
    (kind == 0 ? intervals.device : kind == 1 ? intervals.screens : intervals.files) = 20ms;
    start(intervals);
    if (kind == 0) {
        QVERIFY(otherWrites(Command::DeviceSwap, R"({"swap":0})"));
        QTRY_COMPARE(int(wall().device()->deviceDetail().swap), 0);
    } else if (kind == 1) {
        QVERIFY(otherFreezes(true));
        QTRY_COMPARE(int(screen()->detail().freeze), 1);
    } else {
        QVERIFY(otherWrites(Command::FileCreatePreset,
                            R"([{"fileId":3,"fileType":6,"general":{"name":"p"},"screens":[]}])"));
        QTRY_VERIFY(!wall().device()->findFile(BizModel::Enum::File::ScreenPreset, 3).expired());
    }
    QVERIFY(wall().isReady());
}

void tst_BackgroundPoll::onlyWhatDiffersIsSignalled()
{
    start(pollOfScreens());
    const auto before = screen();
    QSignalSpy changed(before.get(), &BizModel::Screen::screenChanged);
    QSignalSpy device(wall().device().get(), &BizModel::Device::deviceDataChanged);
    QVERIFY(otherFreezes(true));
    QTRY_COMPARE(changed.size(), 1);
    QVERIFY(otherFreezes(false));
    QTRY_COMPARE(changed.size(), 2);
    QCOMPARE(screen(), before);
    QCOMPARE(device.size(), 0);
}

void tst_BackgroundPoll::pollIsOffByDefault()
{
    start({});
    DeviceLog log;
    QVERIFY(otherFreezes(true));
    Heartbeat heartbeat;
    QVERIFY(heartbeat.waitForBeats());
    QVERIFY(resultOf(wall().call(&Control::Device::readDetails)));
    QCOMPARE(log.codes().count(QStringLiteral("1300")), 0);
    QCOMPARE(int(screen()->detail().freeze), 0);
}

void tst_BackgroundPoll::failedPollChangesNoState()
{
    start(pollOfScreens());
    QSignalSpy states(&wall(), &DeviceSession::stateChanged);
    QSignalSpy details(&wall(), &DeviceSession::stateDetailsChanged);
    QSignalSpy calls(&wall(), &DeviceSession::callFinished);
    QVERIFY(m_bench->addFault("status=8,code=0x1300,count=3"));
    QTRY_VERIFY(!m_bench->hasFaults());
    QVERIFY(otherFreezes(true));
    QTRY_COMPARE(int(screen()->detail().freeze), 1);
    QCOMPARE(states.size(), 0);
    QCOMPARE(details.size(), 0);
    QCOMPARE(calls.size(), 0);
    QVERIFY(wall().isReady());
}

void tst_BackgroundPoll::pollContinuesAfterALoss()
{
    start(pollOfScreens());
    QSignalSpy states(&wall(), &DeviceSession::stateChanged);
    QVERIFY(m_bench->addFault("drop-request,code=0x1300,count=1"));
    QTRY_VERIFY(states.size() >= 3); // lost, reading, ready
    QTRY_VERIFY(wall().isReady());
    QTRY_VERIFY(otherFreezes(true));
    QTRY_COMPARE(int(screen()->detail().freeze), 1);
}

void tst_BackgroundPoll::pollPausesWhileTheDeviceIsRead()
{
    start(pollOfScreens());
    QVERIFY(m_bench->addFault("hold,code=0x1200,count=1"));
    wall().readAgain();
    QCOMPARE(int(wall().state().kind), int(DeviceState::Reading));
    QTRY_VERIFY(!m_bench->hasFaults()); // polls that were under way have ended
    DeviceLog log;
    QVERIFY(Heartbeat().waitForBeats()); // some intervals of the poll
    QVERIFY(m_bench->releaseAnswers());
    QTRY_VERIFY(wall().isReady());
    const QStringList codes = log.codes();
    const auto layers = codes.indexOf(QStringLiteral("1400"));
    QVERIFY(layers >= 0);
    QCOMPARE(codes.mid(0, layers).count(QStringLiteral("1300")), 1); // of the reading
}

QTEST_GUILESS_MAIN(tst_BackgroundPoll)
#include "tst_backgroundpoll.moc"
