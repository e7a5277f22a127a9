// What becomes of calls when a gateway misses what another one does. The test is the other gateway:
// it holds the lease of the device, and publishes and reads the records about calls.

#include <support/common/patience.h>
#include <support/tavorogate/gatebench.h>
#include <support/tavorosession/devicelog.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Tavoro;
using namespace std::chrono_literals;

namespace {

constexpr quint16 swapCode = 0x1107;
const QString operation = QStringLiteral("Device.writeSwap");
const QString claimTopic = QStringLiteral("tavoro/00000000000000A1/claim");
const QString lostTrack =
    QStringLiteral("the gateways have lost track of the call, and it may have been carried out");

QString hex(const QByteArray &correlation)
{
    return QString::fromLatin1(correlation.toHex());
}

} // namespace

class tst_GatewayGaps : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_bench = std::make_unique<GateBench>();
        m_bench->leaseSeconds = 10;
        QVERIFY(m_bench->startBroker());
    }
    void cleanup()
    {
        m_other.reset();
        m_bench.reset();
    }

    void callsAreClearedUpAfterAGap();
    void claimedCallWhoseEndWasMissedIsNotForgotten();
    void callThatTheWorkingGatewayHasNotReceivedIsAskedAbout();
    void workingGatewayAnswersQuestions();
    void claimStaysRetainedWhileAnotherCallIsAnswered();
    void faultyCallIsAnsweredByTheSuccessor();
    void faultyCallIsAnsweredOnce();
    void answerOfAnotherDeviceIsIgnored();
    void answerOfAnotherGatewayIsRepeated();

private:
    BrokerObserver &observer() { return m_bench->observer(); }
    void watch();
    void work();
    /// The other gateway ends, and the one that watches takes over.
    void takeOver()
    {
        QCOMPARE(m_other->channel->releaseLease().status, quint16(0));
        QTRY_COMPARE(m_bench->gateway->counters().activeDevices, quint64(1));
    }

    void call(const QByteArray &correlation) { observer().publish(callMessage(correlation)); }
    static Gate::BrokerMessage callMessage(const QByteArray &correlation)
    {
        return BrokerObserver::callMessage(QStringLiteral("00000000000000A1"), operation,
                                           R"({"swap":{"swap":1}})", correlation);
    }
    void publishRecord(const QString &state, const QByteArray &correlation,
                       const QJsonObject &more = {});
    void publishEnd(int sequence, const QByteArray &correlation)
    {
        publishRecord(QStringLiteral("ended"), correlation,
                      {{QStringLiteral("sequence"), sequence}});
    }
    QList<QJsonObject> records(const QString &state, const QByteArray &correlation);
    QStringList retainedStates();
    QJsonObject answerTo(const QByteArray &correlation)
    {
        return observer().waitForAnswer(correlation);
    }
    QString outcomeOf(const QByteArray &correlation)
    {
        return answerTo(correlation).value(QStringLiteral("outcome")).toString();
    }
    QString textOf(const QByteArray &correlation)
    {
        return answerTo(correlation).value(QStringLiteral("text")).toString();
    }
    int answers(const QByteArray &correlation)
    {
        return static_cast<int>(observer().answers(correlation).size());
    }

    std::unique_ptr<GateBench> m_bench;
    std::unique_ptr<TcpConnection> m_other;
};

/// The gateway watches, and receives calls.
void tst_GatewayGaps::watch()
{
    m_other = std::make_unique<TcpConnection>(m_bench->device->simulator->port());
    QCOMPARE(m_other->channel->takeLease(QStringLiteral("other"), 3600s).status, quint16(0));
    m_bench->startGateway();
    QTRY_COMPARE(m_bench->gateway->counters().readyDevices, quint64(1));
    const auto isSubscribed = [this] {
        observer().publish(BrokerObserver::callMessage(
            m_bench->serial, QStringLiteral("No.operation"), {}, "probe"));
        return m_bench->gateway->counters().receivedMessages > 0;
    };
    QTRY_VERIFY(isSubscribed());
}

/// The gateway works, and receives calls.
void tst_GatewayGaps::work()
{
    m_bench->startGateway();
    QTRY_COMPARE(m_bench->gateway->counters().activeDevices, quint64(1));
    QVERIFY(m_bench->waitForEqualStates());
}

void tst_GatewayGaps::publishRecord(const QString &state, const QByteArray &correlation,
                                    const QJsonObject &more)
{
    QJsonObject record{{QStringLiteral("instance"), QStringLiteral("other instance")},
                       {QStringLiteral("gateway"), QStringLiteral("other")},
                       {QStringLiteral("state"), state},
                       {QStringLiteral("operation"), operation},
                       {QStringLiteral("answerTopic"), observerAnswers},
                       {QStringLiteral("correlation"), hex(correlation)},
                       {QStringLiteral("outcome"), 0},
                       {QStringLiteral("text"), QStringLiteral("by the other one")}};
    for (auto each = more.constBegin(); each != more.constEnd(); ++each)
        record.insert(each.key(), each.value());
    Gate::BrokerMessage message;
    message.topic = claimTopic;
    message.payload = QJsonDocument(record).toJson();
    message.isRetained = more.contains(QStringLiteral("sequence"));
    observer().publish(message);
}

/// The records with this state about a call, from any gateway.
QList<QJsonObject> tst_GatewayGaps::records(const QString &state, const QByteArray &correlation)
{
    QList<QJsonObject> found;
    const auto messages = observer().messages(claimTopic);
    for (const Gate::BrokerMessage &message : messages) {
        const QJsonObject record = QJsonDocument::fromJson(message.payload).object();
        if (record.value(QStringLiteral("state")).toString() == state
            && record.value(QStringLiteral("correlation")).toString() == hex(correlation))
            found << record;
    }
    return found;
}

/// State and correlation of the records in the sequence about writes, in their order.
QStringList tst_GatewayGaps::retainedStates()
{
    QStringList found;
    const auto messages = observer().messages(claimTopic);
    for (const Gate::BrokerMessage &message : messages) {
        const QJsonObject record = QJsonDocument::fromJson(message.payload).object();
        if (record.value(QStringLiteral("sequence")).toInt() > 0
            && record.value(QStringLiteral("operation")).toString() == operation)
            found << record.value(QStringLiteral("state")).toString() + QLatin1Char(' ')
                    + QString::fromLatin1(QByteArray::fromHex(
                        record.value(QStringLiteral("correlation")).toString().toLatin1()));
    }
    return found;
}

/// The other gateway reports one call as answered and one as waiting, and is then lost.
void tst_GatewayGaps::callsAreClearedUpAfterAGap()
{
    watch();
    const DeviceLog log;
    for (const char *correlation : {"answered", "waiting", "lost"})
        call(correlation);
    publishEnd(1, "before");
    publishEnd(3, "after");
    for (const char *correlation : {"answered", "waiting", "lost"}) {
        QTRY_VERIFY(!records(QStringLiteral("asked"), correlation).isEmpty());
        QCOMPARE(records(QStringLiteral("asked"), correlation)
                     .first()
                     .value(QStringLiteral("isDoubtful")),
                 QJsonValue(true));
    }
    publishRecord(QStringLiteral("answered"), "answered");
    publishRecord(QStringLiteral("waiting"), "waiting");
    takeOver();
    QCOMPARE(outcomeOf("waiting"), QStringLiteral("done"));
    QCOMPARE(outcomeOf("lost"), QStringLiteral("unknown"));
    QCOMPARE(textOf("lost"), lostTrack);
    QCOMPARE(log.writes(swapCode).size(), 1);
    QCOMPARE(answers("answered"), 0);
    call("answered");
    QCOMPARE(textOf("answered"), QStringLiteral("by the other one"));
    call("lost");
    QTRY_COMPARE(answers("lost"), 2);
    QCOMPARE(observer().answers("lost").last().payload, observer().answers("lost").first().payload);
    QCOMPARE(answers("waiting"), 1);
    QCOMPARE(log.writes(swapCode).size(), 1);
}

void tst_GatewayGaps::claimedCallWhoseEndWasMissedIsNotForgotten()
{
    watch();
    const DeviceLog log;
    call("1");
    publishRecord(QStringLiteral("claimed"), "1", {{QStringLiteral("sequence"), 1}});
    publishEnd(3, "other");
    QTRY_VERIFY(!records(QStringLiteral("asked"), "1").isEmpty());
    takeOver();
    QCOMPARE(outcomeOf("1"), QStringLiteral("unknown"));
    QCOMPARE(log.writes(swapCode), QStringList());
}

/// A gateway that works may have had no connection to the broker when the call arrived.
void tst_GatewayGaps::callThatTheWorkingGatewayHasNotReceivedIsAskedAbout()
{
    watch();
    Gate::BrokerMessage expiring = callMessage("1");
    expiring.expirySeconds = 1;
    observer().publish(expiring);
    QTRY_VERIFY(!records(QStringLiteral("asked"), "1").isEmpty());
    const QJsonObject question = records(QStringLiteral("asked"), "1").first();
    QCOMPARE(question.value(QStringLiteral("isDoubtful")), QJsonValue(false));
    QCOMPARE(question.value(QStringLiteral("operation")), QJsonValue(operation));
    QCOMPARE(question.value(QStringLiteral("answerTopic")), QJsonValue(observerAnswers));
    QCOMPARE(question.value(QStringLiteral("gateway")), QJsonValue(QStringLiteral("stage")));
    publishEnd(1, "1");
    takeOver();
    call("2");
    QCOMPARE(outcomeOf("2"), QStringLiteral("done"));
    QCOMPARE(answers("1"), 0);
}

void tst_GatewayGaps::workingGatewayAnswersQuestions()
{
    work();
    QVERIFY(m_bench->execute(QStringLiteral("fault add hold,code=0x1107")));
    call("1");
    call("2");
    QTRY_COMPARE(records(QStringLiteral("claimed"), "1").size(), 1);
    publishRecord(QStringLiteral("asked"), "1");
    publishRecord(QStringLiteral("asked"), "2");
    QTRY_COMPARE(records(QStringLiteral("waiting"), "1").size(), 1);
    QTRY_COMPARE(records(QStringLiteral("waiting"), "2").size(), 1);
    QVERIFY(m_bench->execute(QStringLiteral("fault clear")));
    QCOMPARE(outcomeOf("2"), QStringLiteral("done"));
    publishRecord(QStringLiteral("asked"), "1");
    QTRY_COMPARE(records(QStringLiteral("answered"), "1").size(), 1);
    QCOMPARE(
        records(QStringLiteral("answered"), "1").first().value(QStringLiteral("text")).toString(),
        textOf("1"));
    publishRecord(QStringLiteral("asked"), "3", {{QStringLiteral("isDoubtful"), true}});
    QCOMPARE(outcomeOf("3"), QStringLiteral("unknown"));
    QCOMPARE(textOf("3"), lostTrack);
    publishRecord(QStringLiteral("asked"), "4", {{QStringLiteral("isDoubtful"), false}});
    QCOMPARE(outcomeOf("4"), QStringLiteral("not-sent"));
    QCOMPARE(textOf("4"),
             QStringLiteral("the gateway that works for the device has not received the call"));
    QCOMPARE(answers("1"), 1);
}

/// A successor finds the claim of a call that was sent only in the last record.
void tst_GatewayGaps::claimStaysRetainedWhileAnotherCallIsAnswered()
{
    work();
    QVERIFY(m_bench->execute(QStringLiteral("fault add hold,code=0x1107")));
    call("1");
    QTRY_COMPARE(retainedStates(), QStringList{QStringLiteral("claimed 1")});
    publishRecord(QStringLiteral("asked"), "2");
    QCOMPARE(outcomeOf("2"), QStringLiteral("not-sent"));
    QTRY_COMPARE(records(QStringLiteral("answered"), "2").size(), 1);
    QVERIFY(m_bench->execute(QStringLiteral("fault clear")));
    QCOMPARE(outcomeOf("1"), QStringLiteral("done"));
    QTRY_COMPARE(retainedStates(),
                 (QStringList{QStringLiteral("claimed 1"), QStringLiteral("ended 1")}));
}

void tst_GatewayGaps::faultyCallIsAnsweredByTheSuccessor()
{
    watch();
    Gate::BrokerMessage faulty = callMessage("1");
    faulty.payload = "{}";
    observer().publish(faulty);
    publishEnd(1, "before");
    publishEnd(3, "after");
    QTRY_VERIFY(!records(QStringLiteral("asked"), "1").isEmpty());
    takeOver();
    QCOMPARE(outcomeOf("1"), QStringLiteral("not-sent"));
    QCOMPARE(textOf("1"), QStringLiteral("the argument \"swap\" is missing"));
}

/// A gateway that works reports the end of a faulty call to the others.
void tst_GatewayGaps::faultyCallIsAnsweredOnce()
{
    work();
    Gate::BrokerMessage faulty = callMessage("1");
    faulty.payload = "{}";
    observer().publish(faulty);
    QCOMPARE(outcomeOf("1"), QStringLiteral("not-sent"));
    QTRY_COMPARE(records(QStringLiteral("ended"), "1").size(), 1);
    observer().publish(faulty);
    QTRY_COMPARE(answers("1"), 2);
    QCOMPARE(observer().answers("1").last().payload, observer().answers("1").first().payload);
    QCOMPARE(records(QStringLiteral("ended"), "1").size(), 1);
}

/// A caller may use the same correlation data for calls of several devices.
void tst_GatewayGaps::answerOfAnotherDeviceIsIgnored()
{
    watch();
    call("1");
    Gate::BrokerMessage answer;
    answer.topic = observerAnswers;
    answer.correlation = "1";
    answer.payload = R"({"device":"00000000000000A2","outcome":"done","status":0,"text":"x"})";
    observer().publish(answer);
    QTRY_COMPARE(answers("1"), 1);
    takeOver();
    QTRY_COMPARE(answers("1"), 2);
    QVERIFY(observer().answers("1").last().payload.contains(R"("device":"00000000000000A1")"));
}

void tst_GatewayGaps::answerOfAnotherGatewayIsRepeated()
{
    watch();
    const DeviceLog log;
    call("1");
    Gate::BrokerMessage answer;
    answer.topic = observerAnswers;
    answer.correlation = "1";
    answer.payload = R"({"answer":[1,{"x":2}],"device":"00000000000000A1","meaning":"",)"
                     R"("operation":"Device.writeSwap","outcome":"done","status":0,"text":"x"})";
    observer().publish(answer);
    QTRY_COMPARE(answers("1"), 1);
    takeOver();
    call("1");
    QTRY_COMPARE(answers("1"), 2);
    QCOMPARE(observer().answers("1").last().payload, answer.payload);
    QCOMPARE(log.writes(swapCode), QStringList());
}

QTEST_GUILESS_MAIN(tst_GatewayGaps)
#include "tst_gatewaygaps.moc"
