// Calls that are announced before they are sent, and outcomes of the calls of other programs.

#include <support/common/requestcommand.h>
#include <support/tavorosession/devicelog.h>
#include <support/tavorosession/sessionbench.h>
#include <support/tavorosim/commandcodes.h>

#include <tavorocontrol/controlhelper.h>
#include <tavorossproxy/requestannouncement.h>

#include <memory>
#include <optional>

using namespace Tavoro;
using namespace std::chrono_literals;

namespace {

constexpr quint16 swapCode = 0x1107;
const QString writeSwap = QStringLiteral("Device.writeSwap");
const QStringList swapOff{QStringLiteral(R"({"swap":0})")};

} // namespace

class tst_AnnouncedCalls : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_permission.reset();
        m_bench = std::make_unique<SessionBench>();
        QVERIFY(m_bench->openReady());
        m_other = std::make_unique<TcpConnection>(m_bench->running->simulator->port());
    }
    void cleanup()
    {
        m_permission.reset();
        m_other.reset();
        m_bench.reset();
    }

    void callWaitsForItsPermission();
    void refusedCallIsNotSent();
    void droppedPermissionRefuses();
    void firstDecisionCounts();
    void callWithoutADecisionEndsInTime();
    void readIsNotAnnounced();
    void callWithAFaultIsNotAnnounced();
    void laterCallsWait();
    void connectionThatIsLostMeanwhileEndsTheCall();
    void closedSessionDoesNotWaitForTheDecision();
    void outcomeOfAnotherProgramsCallIsKnown();
    void outcomeOfARefusedCallIsKnown();
    void outcomeOfACallThatWasNotSentIsKnown();
    void outcomeThatIsNotKnownAnyMoreIsUnknown();
    void outcomeWithoutAConnectionIsUnknown();
    void outcomeOfTheFormerHolderOfTheLeaseIsFinal();

private:
    using Call = PendingCall<Answer<std::string>>;

    DeviceSession &wall() { return *m_bench->wall; }
    /// Keeps the permission for the test.
    SendAnnouncement keeping()
    {
        return [this](const SendPermission &permission) {
            m_permission = permission;
        };
    }
    Call announced(const QStringList &arguments = swapOff)
    {
        return wall().callAnnounced(writeSwap, arguments, keeping());
    }
    bool waitForAnnouncement()
    {
        return QTest::qWaitFor([this] { return m_permission.has_value(); }, 60000);
    }
    /// Sends the call and returns its identity.
    SSProxy::RequestIdentity send()
    {
        const SSProxy::RequestIdentity id = m_permission->request();
        m_permission->send();
        return id;
    }
    int stateForOthers(const SSProxy::RequestIdentity &id)
    {
        return m_other->channel->outcomeOf(id).state;
    }
    /// The other program writes; the identity of its request.
    SSProxy::RequestIdentity writeOfOthers(const char *body = CommandCodes::swapOff)
    {
        const SSProxy::ExchangeWatch watch;
        m_other->channel->sendSyncRequest(requestCommand(2, swapCode, body));
        if (!watch.last() || !watch.last()->sent)
            qFatal("the request was not sent");
        return *watch.last()->sent;
    }

    std::unique_ptr<SessionBench> m_bench;
    std::unique_ptr<TcpConnection> m_other; ///< Another program.
    std::optional<SendPermission> m_permission;
};

void tst_AnnouncedCalls::callWaitsForItsPermission()
{
    DeviceLog log;
    const Call call = announced();
    QVERIFY(waitForAnnouncement());
    QVERIFY(!call.future().isFinished());
    QVERIFY(log.writes(swapCode).isEmpty());
    QCOMPARE(stateForOthers(m_permission->request()), int(SSProxy::RequestOutcome::NotArrived));
    const auto id = send();
    const auto answer = resultOf(call);
    QVERIFY2(answer, qPrintable(answer.text()));
    QCOMPARE(log.writes(swapCode), QStringList{QStringLiteral("{\"swap\":0}")});
    QCOMPARE(stateForOthers(id), int(SSProxy::RequestOutcome::Done));
}

void tst_AnnouncedCalls::refusedCallIsNotSent()
{
    DeviceLog log;
    const Call call = announced();
    QVERIFY(waitForAnnouncement());
    m_permission->refuse();
    const auto answer = resultOf(call);
    QCOMPARE(int(answer.kind()), int(Outcome::NotSent));
    QVERIFY(answer.isCanceled());
    QVERIFY(resultOf(wall().callByName(QStringLiteral("Device.readDetails"))));
    QVERIFY(log.writes(swapCode).isEmpty());
}

void tst_AnnouncedCalls::droppedPermissionRefuses()
{
    DeviceLog log;
    const auto answer =
        resultOf(wall().callAnnounced(writeSwap, swapOff, [](const SendPermission &) {}));
    QCOMPARE(int(answer.kind()), int(Outcome::NotSent));
    QVERIFY(answer.isCanceled());
    QVERIFY(log.writes(swapCode).isEmpty());
}

void tst_AnnouncedCalls::firstDecisionCounts()
{
    const Call refused = announced();
    QVERIFY(waitForAnnouncement());
    const SendPermission copy = *m_permission;
    m_permission->refuse();
    copy.send();
    QCOMPARE(int(resultOf(refused).kind()), int(Outcome::NotSent));
    m_permission.reset();
    const Call sent = announced();
    QVERIFY(waitForAnnouncement());
    m_permission->send();
    m_permission->refuse();
    QVERIFY(resultOf(sent));
}

/// The time for the decision is that of the request.
void tst_AnnouncedCalls::callWithoutADecisionEndsInTime()
{
    m_bench->setTimeout(swapCode, 1s);
    DeviceLog log;
    const Call call = announced();
    QVERIFY(waitForAnnouncement());
    QCOMPARE(int(resultOf(call).kind()), int(Outcome::NotSent));
    m_permission->send(); // too late
    QVERIFY(resultOf(wall().callByName(QStringLiteral("Device.readDetails"))));
    QVERIFY(log.writes(swapCode).isEmpty());
}

void tst_AnnouncedCalls::readIsNotAnnounced()
{
    const auto answer =
        resultOf(wall().callAnnounced(QStringLiteral("Device.readDetails"), {}, keeping()));
    QVERIFY(answer);
    QVERIFY(!answer.record().empty());
    QVERIFY(!m_permission);
}

void tst_AnnouncedCalls::callWithAFaultIsNotAnnounced()
{
    const auto answer = resultOf(announced({QStringLiteral("seven")}));
    QCOMPARE(int(answer.kind()), int(Outcome::NotSent));
    QVERIFY(!answer.isCanceled());
    QVERIFY(!m_permission);
}

void tst_AnnouncedCalls::laterCallsWait()
{
    const Call first = announced();
    QVERIFY(waitForAnnouncement());
    const auto second = wall().callByName(writeSwap, {QStringLiteral(R"({"swap":1})")});
    DeviceLog log;
    send();
    QVERIFY(resultOf(first));
    QVERIFY(resultOf(second));
    QCOMPARE(log.writes(swapCode),
             QStringList({QStringLiteral("{\"swap\":0}"), QStringLiteral("{\"swap\":1}")}));
}

void tst_AnnouncedCalls::connectionThatIsLostMeanwhileEndsTheCall()
{
    DeviceLog log;
    const Call call = announced();
    QVERIFY(waitForAnnouncement());
    QVERIFY(m_bench->execute(QStringLiteral("switch 0")));
    QTRY_COMPARE(wall().state().kind, DeviceState::Lost);
    QVERIFY(m_bench->execute(QStringLiteral("switch 1")));
    m_permission->send();
    QCOMPARE(int(resultOf(call).kind()), int(Outcome::NotSent));
    QTRY_VERIFY(wall().isReady());
    QVERIFY(log.writes(swapCode).isEmpty());
}

void tst_AnnouncedCalls::closedSessionDoesNotWaitForTheDecision()
{
    const Call call = announced();
    QVERIFY(waitForAnnouncement());
    wall().close();
    QCOMPARE(int(resultOf(call).kind()), int(Outcome::Unknown));
    m_bench->session.reset(); // waits for the threads of its calls
}

void tst_AnnouncedCalls::outcomeOfAnotherProgramsCallIsKnown()
{
    const auto id = writeOfOthers();
    const Outcome outcome = resultOf(wall().outcomeOf(id, writeSwap));
    QCOMPARE(int(outcome.kind()), int(Outcome::Done));
    QCOMPARE(outcome.text(),
             QStringLiteral("wall 1: %1 was carried out.")
                 .arg(Control::ControlHelper::commandLabel(0x11, 0x07)));
}

void tst_AnnouncedCalls::outcomeOfARefusedCallIsKnown()
{
    const auto id = writeOfOthers(R"({"swap":7})");
    const Outcome outcome = resultOf(wall().outcomeOf(id));
    QCOMPARE(int(outcome.kind()), int(Outcome::Refused));
    QCOMPARE(outcome.status(), quint16(4));
    QCOMPARE(outcome.text(),
             QStringLiteral("wall 1: Request was refused: a value is out of range."));
}

void tst_AnnouncedCalls::outcomeOfACallThatWasNotSentIsKnown()
{
    SSProxy::RequestIdentity id;
    {
        const SSProxy::RequestAnnouncement announcement([&](const auto &announced, auto) {
            id = announced;
            return false;
        });
        m_other->channel->sendSyncRequest(requestCommand(2, swapCode, CommandCodes::swapOff));
    }
    const Outcome outcome = resultOf(wall().outcomeOf(id));
    QCOMPARE(int(outcome.kind()), int(Outcome::NotSent));
    QCOMPARE(outcome.reason(), QStringLiteral("the connection was lost"));
}

void tst_AnnouncedCalls::outcomeThatIsNotKnownAnyMoreIsUnknown()
{
    const auto id = writeOfOthers();
    QVERIFY(m_bench->execute(QStringLiteral("switch 0")));
    QTRY_COMPARE(wall().state().kind, DeviceState::Lost);
    const auto outcome = wall().outcomeOf(id); // waits for the connection
    QVERIFY(m_bench->execute(QStringLiteral("switch 1")));
    QCOMPARE(int(resultOf(outcome).kind()), int(Outcome::Unknown));
}

void tst_AnnouncedCalls::outcomeWithoutAConnectionIsUnknown()
{
    const auto id = writeOfOthers();
    QVERIFY(m_bench->execute(QStringLiteral("switch 0")));
    QTRY_COMPARE(wall().state().kind, DeviceState::Lost);
    const auto outcome = wall().outcomeOf(id);
    wall().close();
    QCOMPARE(int(resultOf(outcome).kind()), int(Outcome::Unknown));
}

/// The former holder has announced a call and is suspended before it sends it. When it continues,
/// its call is not carried out, as the device has said to the new holder.
void tst_AnnouncedCalls::outcomeOfTheFormerHolderOfTheLeaseIsFinal()
{
    DeviceLog log;
    const auto device = m_bench->running->simulator.get();
    QCOMPARE(m_other->channel->takeLease(QStringLiteral("former"), 1s).status, quint16(0));
    std::optional<Outcome> outcome;
    const SSProxy::RequestAnnouncement announcement([&](const SSProxy::RequestIdentity &id, auto) {
        device->execute(QStringLiteral("pass 1000"));
        if (resultOf(wall().takeLease(QStringLiteral("new"), 60s)))
            outcome = resultOf(wall().outcomeOf(id));
        return true;
    });
    const auto response = m_other->channel->sendSyncRequest(
        requestCommand(2, swapCode, CommandCodes::swapOff, 60000));
    QCOMPARE(response->status, quint16(259));
    QVERIFY(outcome);
    QCOMPARE(int(outcome->kind()), int(Outcome::NotSent));
    QVERIFY(resultOf(wall().callByName(QStringLiteral("Device.readDetails"))));
    QVERIFY(log.writes(swapCode).isEmpty());
}

QTEST_GUILESS_MAIN(tst_AnnouncedCalls)
#include "tst_announcedcalls.moc"
