// What a call comes to when the device or the network fails: the device's own word decides, and
// nothing is sent twice.

#include <support/tavorosession/devicelog.h>
#include <support/tavorosession/sessionbench.h>

#include <tavorocontrol/controlhelper.h>
#include <tavorocontrol/device.h>
#include <tavorocontrol/screen.h>

#include <QSignalSpy>

using namespace Tavoro;
using namespace std::chrono_literals;

namespace {

constexpr quint16 swapCode = 0x1107;

ProtoModel::Device::s_swap swapTo(quint8 value)
{
    ProtoModel::Device::s_swap swap;
    swap.swap = value;
    return swap;
}

} // namespace

class tst_CallOutcomes : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { start(SessionBench::fastOptions()); }
    void cleanup() { m_bench.reset(); }

    void refusalNamesItsReason();
    void refusalOfAnotherClientsControlIsReported();
    void callWithoutAConnectionIsNotSent_data();
    void callWithoutAConnectionIsNotSent();
    void waitingCallsAreNotSentAfterALoss();
    void lostAnswerIsResolvedByTheDevice_data();
    void lostAnswerIsResolvedByTheDevice();
    void requestThatNeverArrivedIsNotSent();
    void requestThatIsAnsweredTooLateIsDone();
    void requestThatIsNeverFinishedStaysUnknown();
    void restartedDeviceLeavesTheOutcomeUnknown();
    void outcomeIsUnknownAtOnceWithoutTimeToAsk();
    void splitWriteIsResolvedByItsLastPacket();
    void splitWriteWithoutItsLastPacketIsNotSent();
    void readWithoutAnAnswerIsUnknownAtOnce();
    void answerThatCannotBeDecodedIsUnknown();
    void laterCallsDoNotWaitForAnUnknownOne();

private:
    void start(const SessionBench::Options &options)
    {
        m_bench.reset();
        Sim::SimOptions device = SessionBench::smallDevice();
        device.packetSize = 4000;
        m_bench = std::make_unique<SessionBench>(options, device);
        QVERIFY(m_bench->openReady());
    }
    DeviceSession &wall() { return *m_bench->wall; }
    PendingCall<Outcome> callSwap(quint8 value = 0)
    {
        return wall().call(&Control::Device::writeSwap, swapTo(value));
    }
    /// What the device has.
    int deviceSwap()
    {
        const auto detail = resultOf(wall().call(&Control::Device::readDetails));
        return detail ? detail.record().swap : -1;
    }

    std::unique_ptr<SessionBench> m_bench;
};

void tst_CallOutcomes::refusalNamesItsReason()
{
    const Outcome outcome = resultOf(callSwap(7));
    QCOMPARE(int(outcome.kind()), int(Outcome::Refused));
    QCOMPARE(outcome.status(), quint16(4));
    QCOMPARE(outcome.reason(), QStringLiteral("a value is out of range"));
    QCOMPARE(outcome.text(),
             QStringLiteral("wall 1: %1 was refused: a value is out of range.")
                 .arg(outcome.operation()));
    QCOMPARE(outcome.operation(), Control::ControlHelper::commandLabel(0x11, 0x07));
}

void tst_CallOutcomes::refusalOfAnotherClientsControlIsReported()
{
    const TcpConnection other(m_bench->running->simulator->port());
    QString error;
    QVERIFY(other.channel->requestControl(SSProxy::ControlAction::Take, error));
    const Outcome outcome = resultOf(callSwap());
    QCOMPARE(int(outcome.kind()), int(Outcome::Refused));
    QCOMPARE(outcome.status(), quint16(67));
}

void tst_CallOutcomes::callWithoutAConnectionIsNotSent_data()
{
    QTest::addColumn<bool>("isClosed");
    QTest::newRow("closed") << true;
    QTest::newRow("lost") << false;
}

void tst_CallOutcomes::callWithoutAConnectionIsNotSent()
{
    QFETCH(bool, isClosed);
    DeviceLog log;
    if (isClosed)
        wall().close();
    else
        QVERIFY(m_bench->execute(QStringLiteral("switch 0")));
    QTRY_VERIFY(!wall().isReady());
    const Outcome outcome = resultOf(callSwap());
    QCOMPARE(int(outcome.kind()), int(Outcome::NotSent));
    QCOMPARE(outcome.reason(), wall().state().reason);
    QVERIFY(!outcome.reason().isEmpty());
    QVERIFY(m_bench->execute(QStringLiteral("switch 1")));
    wall().open();
    QTRY_VERIFY(wall().isReady());
    QVERIFY(log.writes(swapCode).isEmpty());
}

void tst_CallOutcomes::waitingCallsAreNotSentAfterALoss()
{
    QVERIFY(m_bench->addFault("drop-before,code=0x1107,count=1"));
    DeviceLog log;
    const auto first = callSwap();
    QList<PendingCall<Outcome>> waiting;
    for (int i = 0; i < 10; ++i)
        waiting << wall().call(&Control::Device::writeDeviceGeneral,
                               ProtoModel::Device::s_General());
    for (const auto &call : qAsConst(waiting)) {
        const Outcome outcome = resultOf(call);
        QCOMPARE(int(outcome.kind()), int(Outcome::NotSent));
        QVERIFY(!outcome.reason().isEmpty());
    }
    QVERIFY(resultOf(first));
    QTRY_VERIFY(wall().isReady());
    QVERIFY(log.writes(0x1101).isEmpty());
}

void tst_CallOutcomes::lostAnswerIsResolvedByTheDevice_data()
{
    QTest::addColumn<QString>("fault");
    QTest::addColumn<int>("value");
    QTest::addColumn<int>("kind");
    QTest::addColumn<int>("status");
    // clang-format off
    QTest::newRow("carried out, connection lost")   << "drop-before"    << 0 << int(Outcome::Done)    << 0;
    QTest::newRow("refused, connection lost")       << "drop-before"    << 7 << int(Outcome::Refused) << 4;
    QTest::newRow("carried out, part of an answer") << "drop-within"    << 0 << int(Outcome::Done)    << 0;
    QTest::newRow("carried out, no answer")         << "silent"         << 0 << int(Outcome::Done)    << 0;
    QTest::newRow("refused, no answer")             << "silent"         << 7 << int(Outcome::Refused) << 4;
    QTest::newRow("carried out, invalid answer")    << "wrong-checksum" << 0 << int(Outcome::Done)    << 0;
    QTest::newRow("carried out, other code")        << "wrong-code"     << 0 << int(Outcome::Done)    << 0;
    // clang-format on
}

void tst_CallOutcomes::lostAnswerIsResolvedByTheDevice()
{
    QFETCH(QString, fault);
    QFETCH(int, value);
    QFETCH(int, kind);
    QFETCH(int, status);
    m_bench->setTimeout(swapCode, 300ms); // some faults leave the request without an answer
    QVERIFY(m_bench->addFault(qPrintable(fault + QStringLiteral(",code=0x1107,count=1"))));
    DeviceLog log;
    const Outcome outcome = resultOf(callSwap(static_cast<quint8>(value)));
    QCOMPARE(int(outcome.kind()), kind);
    QCOMPARE(int(outcome.status()), status);
    QTRY_VERIFY(wall().isReady());
    QCOMPARE(deviceSwap(), value == 0 ? 0 : 1);
    QVERIFY(log.writes(swapCode).size() <= 1); // the device does not log what it leaves unanswered
}

void tst_CallOutcomes::requestThatNeverArrivedIsNotSent()
{
    // The device is off before the request reaches it, and back with its memory of requests.
    QVERIFY(m_bench->addFault("hold,code=0x1100,count=1"));
    const auto held = wall().call(&Control::Device::readDetails);
    QVERIFY(m_bench->execute(QStringLiteral("switch 0")));
    const Outcome outcome = resultOf(callSwap());
    QCOMPARE(int(outcome.kind()), int(Outcome::NotSent));
    resultOf(held);
}

void tst_CallOutcomes::requestThatIsAnsweredTooLateIsDone()
{
    m_bench->setTimeout(swapCode, 300ms);
    QVERIFY(m_bench->addFault("hold,code=0x1107,count=1"));
    DeviceLog log;
    QVERIFY(resultOf(callSwap()));
    QVERIFY(m_bench->releaseAnswers());
    QCOMPARE(deviceSwap(), 0); // this answer follows the late one
    QCOMPARE(log.writes(swapCode).size(), 1);
}

void tst_CallOutcomes::requestThatIsNeverFinishedStaysUnknown()
{
    SessionBench::Options options = SessionBench::fastOptions();
    options.outcomeTime = 600ms;
    start(options);
    QVERIFY(m_bench->addFault("drop-request,code=0x1107,count=1")); // its outcome stays "under way"
    const Outcome outcome = resultOf(callSwap());
    QCOMPARE(int(outcome.kind()), int(Outcome::Unknown));
    QCOMPARE(outcome.reason(), QStringLiteral("the connection was lost"));
    QCOMPARE(
        outcome.text(),
        QStringLiteral("wall 1: %1 may or may not have been carried out: the connection was lost.")
            .arg(outcome.operation()));
    QTRY_VERIFY(wall().isReady());
    QCOMPARE(deviceSwap(), 1);
}

void tst_CallOutcomes::restartedDeviceLeavesTheOutcomeUnknown()
{
    QVERIFY(m_bench->addFault("silent,code=0x1107,count=1"));
    const auto call = callSwap();
    QTRY_VERIFY(
        m_bench->execute(QStringLiteral("fault list"))
        && m_bench->running->simulator->execute(QStringLiteral("fault list")).text.isEmpty());
    QVERIFY(m_bench->execute(QStringLiteral("switch 0"))); // it forgets all requests
    QVERIFY(m_bench->execute(QStringLiteral("switch 1")));
    const Outcome outcome = resultOf(call);
    QCOMPARE(int(outcome.kind()), int(Outcome::Unknown));
}

void tst_CallOutcomes::outcomeIsUnknownAtOnceWithoutTimeToAsk()
{
    SessionBench::Options options = SessionBench::fastOptions();
    options.outcomeTime = 0ms;
    start(options);
    QVERIFY(m_bench->addFault("drop-before,code=0x1107,count=1"));
    QCOMPARE(int(resultOf(callSwap()).kind()), int(Outcome::Unknown));
}

void tst_CallOutcomes::splitWriteIsResolvedByItsLastPacket()
{
    QVERIFY(m_bench->addFault("drop-before,code=0x1302,skip=1,count=1"));
    ProtoModel::Screen::s_General general;
    general.screenId = 1;
    general.screenType = 1;
    const std::vector<ProtoModel::Screen::s_General> many(60, general); // two packets
    QVERIFY(resultOf(wall().call(&Control::Screen::writeScreenGeneral, many)));
}

void tst_CallOutcomes::splitWriteWithoutItsLastPacketIsNotSent()
{
    QVERIFY(m_bench->addFault("drop-before,code=0x1302,count=1"));
    ProtoModel::Screen::s_General general;
    general.screenId = 1;
    general.screenType = 1;
    const std::vector<ProtoModel::Screen::s_General> many(60, general);
    const Outcome outcome = resultOf(wall().call(&Control::Screen::writeScreenGeneral, many));
    QCOMPARE(int(outcome.kind()), int(Outcome::NotSent));
    QCOMPARE(outcome.reason(),
             QStringLiteral("the connection was lost before the last packet was sent"));
}

void tst_CallOutcomes::readWithoutAnAnswerIsUnknownAtOnce()
{
    QVERIFY(m_bench->addFault("drop-before,code=0x1100,count=1"));
    QVERIFY(m_bench->addFault("drop-before,code=identity")); // it does not come back
    const auto answer = resultOf(wall().call(&Control::Device::readDetails));
    QCOMPARE(int(answer.kind()), int(Outcome::Unknown));
    QVERIFY(m_bench->execute(QStringLiteral("fault clear")));
    QTRY_VERIFY(wall().isReady());
}

void tst_CallOutcomes::answerThatCannotBeDecodedIsUnknown()
{
    QVERIFY(m_bench->addFault("truncate,code=0x1100,count=1"));
    const auto answer = resultOf(wall().call(&Control::Device::readDetails));
    QCOMPARE(int(answer.kind()), int(Outcome::Unknown));
    QVERIFY2(answer.reason().startsWith(QStringLiteral("Decode json failed")),
             qPrintable(answer.reason()));
}

void tst_CallOutcomes::laterCallsDoNotWaitForAnUnknownOne()
{
    SessionBench::Options options = SessionBench::fastOptions();
    options.outcomeTime = 10min;
    start(options);
    m_bench->setTimeout(swapCode, 300ms);
    QVERIFY(m_bench->addFault("ignore,code=0x1107,count=1")); // its outcome stays "under way"
    const auto unknown = callSwap();
    QVERIFY(resultOf(wall().call(&Control::Device::readDetails)));
    QVERIFY(!unknown.future().isFinished());
}

QTEST_GUILESS_MAIN(tst_CallOutcomes)
#include "tst_calloutcomes.moc"
