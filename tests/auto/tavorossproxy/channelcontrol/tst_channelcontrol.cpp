// Which client holds control of the device, and requests for control.

#include <tavorowire/frame.h>

#include <support/common/messagecatcher.h>
#include <support/tavorossproxy/channeltest.h>

#include <QTest>

#include <atomic>
#include <thread>

using namespace Tavoro::SSProxy;
using namespace std::chrono_literals;

namespace {

constexpr quint16 controlCode = 0x0101;

/// An unsolicited report of the device: 0 the client may write, 1 another client holds control.
Wire::WireHead notice(quint8 state)
{
    Wire::WireHead head;
    head.kind = 3;
    head.type = 1;
    head.BC = 1;
    head.FC = 1;
    head.arg2[0] = state;
    return head;
}

} // namespace

class tst_ChannelControl : public ChannelTest {
    Q_OBJECT

private Q_SLOTS:
    void clientMayWriteUnlessOthersHoldControl();
    void identitySaysWhetherAnotherClientHoldsControl();
    void lossAndReturnOfControlAreReported();
    void frequentChangesOfControlAreReportedAtIntervals();
    void changeThatIsRevertedAtOnceIsNotReported();
    void controlIsNotEmittedAsAReport();
    void newConnectionReadsControlAgain();

    void actionTravelsInTheFirstArgument_data();
    void actionTravelsInTheFirstArgument();
    void grantedControlCountsWhenTheCallReturns();
    void givingUpLeavesTheStateToTheDevice();
    void refusalNamesTheHolder();
    void refusalWithoutANameNamesAnotherClient();
    void requestControlTakesAtMostTenSeconds();
    void deviceWithoutControlGrantsIt();
    void requestWithoutAConnectionReportsTheReason();
    void failureIsReportedInASentence_data();
    void failureIsReportedInASentence();
    void silenceIsReportedInASentence();

private:
    /// A caller on a thread of its own.
    struct ControlRequest {
        ~ControlRequest() { thread.join(); }

        std::atomic<bool> isDone{false};
        bool isGranted = false; // read when isDone
        QString error; // read when isDone
        std::thread thread;
    };
    void send(ControlRequest &request, ControlAction action);
    void refuse(const Wire::WireHead &request, quint8 status);
    void reopen();
    bool resultOf(ControlRequest &request);

    std::vector<bool> m_notified;
};

void tst_ChannelControl::send(ControlRequest &request, ControlAction action)
{
    request.thread = std::thread([this, &request, action] {
        request.isGranted = m_channel->requestControl(action, request.error);
        request.isDone = true;
        m_loop->wake();
    });
}

bool tst_ChannelControl::resultOf(ControlRequest &request)
{
    return m_loop->runUntil([&] { return request.isDone.load(); }) && request.isGranted;
}

void tst_ChannelControl::refuse(const Wire::WireHead &request, quint8 status)
{
    Wire::WireHead head = Wire::responseHead(request);
    head.status = status;
    m_peer->send(head);
}

void tst_ChannelControl::reopen()
{
    m_notified.clear();
    m_channel.reset();
    m_loop->run();
    m_channel = Internal::StreamChannel::open(
        QStringLiteral("wall:6630"), std::make_unique<ManualStream>(*m_peer), m_loop, m_options,
        [this](auto channel, auto report) { m_reports.emplace_back(channel, report); },
        [this](auto channel, bool isMaster) {
            QCOMPARE(channel.lock(), std::shared_ptr<DeviceChannel>(m_channel));
            QCOMPARE(m_channel->isMasterControl(), isMaster);
            m_notified.push_back(isMaster);
        });
    m_loop->run();
    connectChannel();
}

void tst_ChannelControl::clientMayWriteUnlessOthersHoldControl()
{
    QVERIFY(m_channel->isMasterControl());
    connectChannel();
    QVERIFY(m_channel->isMasterControl());
    m_peer->send(notice(1), "192.0.2.9:50000");
    QVERIFY(!m_channel->isMasterControl());
    m_peer->send(notice(0));
    QVERIFY(m_channel->isMasterControl());
}

void tst_ChannelControl::identitySaysWhetherAnotherClientHoldsControl()
{
    m_peer->accept();
    Wire::WireHead head;
    head.kind = 5;
    std::string held = identity();
    held.insert(1, R"("controlState":1,)");
    m_peer->send(head, held);
    QVERIFY(m_channel->isHardwareReadFinished());
    QVERIFY(!m_channel->isMasterControl());
}

void tst_ChannelControl::lossAndReturnOfControlAreReported()
{
    reopen();
    MessageCatcher messages;
    m_peer->send(notice(1), "192.0.2.9:50000");
    m_peer->send(notice(1), "192.0.2.10:50000"); // a third client: no change for this one
    m_peer->send(notice(0));
    QVERIFY(m_channel->isMasterControl());
    m_loop->advance(1s);
    QCOMPARE(m_notified, (std::vector<bool>{false, true}));
    QCOMPARE(messages.texts("tavoro.channel", QtWarningMsg),
             QStringList{QStringLiteral("Others control \"wall:6630\" \"192.0.2.9:50000\"")});
    QCOMPARE(messages.texts("tavoro.channel", QtInfoMsg),
             QStringList{QStringLiteral("Nobody else controls \"wall:6630\"")});
}

void tst_ChannelControl::frequentChangesOfControlAreReportedAtIntervals()
{
    reopen();
    MessageCatcher messages;
    for (int i = 0; i < 50000; ++i) {
        m_peer->send(notice(1), "192.0.2.9:50000");
        m_peer->send(notice(0));
    }
    QCOMPARE(m_notified, (std::vector<bool>{false}));
    m_loop->advance(99ms);
    QCOMPARE(m_notified, (std::vector<bool>{false}));
    m_loop->advance(1ms);
    QCOMPARE(m_notified, (std::vector<bool>{false, true}));
    m_loop->advance(10s);
    QCOMPARE(m_notified, (std::vector<bool>{false, true}));
    const QStringList losses{
        QStringLiteral("Others control \"wall:6630\" \"192.0.2.9:50000\""),
        QStringLiteral("Control of \"wall:6630\" has changed often, times 99999")};
    QCOMPARE(messages.texts("tavoro.channel", QtWarningMsg), losses);
    QCOMPARE(messages.texts("tavoro.channel", QtInfoMsg),
             QStringList{QStringLiteral("Nobody else controls \"wall:6630\"")});
}

void tst_ChannelControl::changeThatIsRevertedAtOnceIsNotReported()
{
    reopen();
    m_peer->send(notice(1), "192.0.2.9:50000");
    m_peer->send(notice(0));
    m_peer->send(notice(1), "192.0.2.9:50000");
    m_loop->advance(10s);
    QCOMPARE(m_notified, (std::vector<bool>{false}));
    m_peer->send(notice(0)); // at once: the interval has passed
    QCOMPARE(m_notified, (std::vector<bool>{false, true}));
}

void tst_ChannelControl::controlIsNotEmittedAsAReport()
{
    connectChannel();
    m_peer->send(notice(1), "192.0.2.9:50000");
    QVERIFY(m_reports.empty());
    QCOMPARE(m_channel->statistics().reports, quint64(0));
}

void tst_ChannelControl::newConnectionReadsControlAgain()
{
    reopen();
    m_peer->send(notice(1), "192.0.2.9:50000");
    m_peer->fail(QStringLiteral("cable pulled"));
    QVERIFY(!m_channel->isMasterControl());
    m_loop->advance(250ms);
    connectChannel(); // its identity says that no other client holds control
    QVERIFY(m_channel->isMasterControl());
    QCOMPARE(m_notified, (std::vector<bool>{false, true}));
}

void tst_ChannelControl::actionTravelsInTheFirstArgument_data()
{
    QTest::addColumn<int>("action");
    QTest::addColumn<int>("argument");
    QTest::newRow("take") << int(ControlAction::Take) << 1;
    QTest::newRow("give up") << int(ControlAction::GiveUp) << 2;
    QTest::newRow("force") << int(ControlAction::Force) << 3;
}

void tst_ChannelControl::actionTravelsInTheFirstArgument()
{
    QFETCH(int, action);
    QFETCH(int, argument);
    connectChannel();
    ControlRequest asked;
    send(asked, static_cast<ControlAction>(action));
    const auto head = nextRequest();
    QCOMPARE(head.code(), controlCode);
    QCOMPARE(head.type, quint8(2));
    QCOMPARE(int(head.arg2[0]), argument);
    QCOMPARE(head.bodyLength, quint32(0));
    answer(head);
    QVERIFY(resultOf(asked));
    QCOMPARE(asked.error, QString());
}

void tst_ChannelControl::grantedControlCountsWhenTheCallReturns()
{
    reopen();
    m_peer->send(notice(1), "192.0.2.9:50000");
    ControlRequest asked;
    send(asked, ControlAction::Force);
    answer(nextRequest());
    QVERIFY(resultOf(asked));
    QVERIFY(m_channel->isMasterControl());
    m_loop->advance(100ms);
    QCOMPARE(m_notified, (std::vector<bool>{false, true}));
}

void tst_ChannelControl::givingUpLeavesTheStateToTheDevice()
{
    connectChannel();
    m_peer->send(notice(1), "192.0.2.9:50000");
    ControlRequest asked;
    send(asked, ControlAction::GiveUp);
    answer(nextRequest());
    QVERIFY(resultOf(asked));
    QVERIFY(!m_channel->isMasterControl());
}

void tst_ChannelControl::refusalNamesTheHolder()
{
    connectChannel();
    ControlRequest asked;
    send(asked, ControlAction::Take);
    refuse(nextRequest(), 67);
    const auto question = nextRequest();
    QCOMPARE(question.code(), controlCode);
    QCOMPARE(question.type, quint8(1));
    answer(question, "192.0.2.9:50000");
    QVERIFY(!resultOf(asked));
    QCOMPARE(asked.error,
             QStringLiteral("The device at wall:6630 is controlled by 192.0.2.9:50000."));
}

void tst_ChannelControl::refusalWithoutANameNamesAnotherClient()
{
    connectChannel();
    ControlRequest asked;
    send(asked, ControlAction::Take);
    refuse(nextRequest(), 67);
    answer(nextRequest()); // the holder has disconnected in the meantime
    QVERIFY(!resultOf(asked));
    QCOMPARE(asked.error,
             QStringLiteral("The device at wall:6630 is controlled by another client."));
}

void tst_ChannelControl::requestControlTakesAtMostTenSeconds()
{
    connectChannel();
    ControlRequest mine;
    send(mine, ControlAction::Take);
    const auto request = nextRequest();
    m_loop->advance(6s);
    refuse(request, 67);
    nextRequest();
    m_loop->advance(3999ms);
    QVERIFY(!mine.isDone);
    m_loop->advance(1ms);
    QVERIFY(!resultOf(mine));
    QCOMPARE(mine.error,
             QStringLiteral("The device at wall:6630 is controlled by another client."));
}

void tst_ChannelControl::deviceWithoutControlGrantsIt()
{
    connectChannel();
    ControlRequest asked;
    send(asked, ControlAction::Force);
    refuse(nextRequest(), 1);
    QVERIFY(resultOf(asked));
    QCOMPARE(asked.error, QString());
}

void tst_ChannelControl::requestWithoutAConnectionReportsTheReason()
{
    ControlRequest asked;
    send(asked, ControlAction::Take);
    QVERIFY(!resultOf(asked));
    QCOMPARE(asked.error,
             QStringLiteral("The device at wall:6630 cannot be reached: no connection yet."));
}

void tst_ChannelControl::failureIsReportedInASentence_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<int>("status");
    QTest::addColumn<QString>("reason");
    QTest::newRow("status of the device")
        << int(controlCode) << 5 << QStringLiteral("the device refuses (5)");
    QTest::newRow("answer to something else")
        << 0x1100 << 0 << QStringLiteral("its answer is not valid (357)");
}

void tst_ChannelControl::failureIsReportedInASentence()
{
    QFETCH(int, code);
    QFETCH(int, status);
    QFETCH(QString, reason);
    connectChannel();
    ControlRequest asked;
    send(asked, ControlAction::Take);
    Wire::WireHead head = nextRequest();
    head.BC = static_cast<quint8>(code >> 8);
    head.FC = static_cast<quint8>(code & 0xFF);
    refuse(head, static_cast<quint8>(status));
    QVERIFY(!resultOf(asked));
    QCOMPARE(asked.error,
             QStringLiteral("Could not take control of the device at wall:6630: %1.").arg(reason));
}

void tst_ChannelControl::silenceIsReportedInASentence()
{
    connectChannel();
    ControlRequest asked;
    send(asked, ControlAction::Take);
    nextRequest();
    m_loop->awaitWaiting(1);
    m_loop->advance(10s);
    QVERIFY(!resultOf(asked));
    QCOMPARE(asked.error,
             QStringLiteral("Could not take control of the device at wall:6630: "
                            "no answer in time (260)."));
}

QTEST_APPLESS_MAIN(tst_ChannelControl)
#include "tst_channelcontrol.moc"
