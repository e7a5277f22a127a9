// Calls through the broker: each is answered, and carried out at most once.

#include <support/common/patience.h>
#include <support/tavorogate/gatebench.h>
#include <support/tavorogate/portrelay.h>
#include <support/tavorosession/devicelog.h>

#include <QJsonObject>
#include <QSignalSpy>

using namespace Tavoro;

class tst_GatewayCalls : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        Sim::SimOptions device = GateBench::smallDevice();
        device.clockSpeed = 0; // "pass" moves the clock
        m_bench = std::make_unique<GateBench>(device);
        QVERIFY(m_bench->start());
    }
    void cleanup() { m_bench.reset(); }

    void writeIsCarriedOutAndAnswered();
    void readIsAnsweredWithItsRecord();
    void refusalHasStatusAndMeaning();
    void faultyCallIsNotSent_data();
    void faultyCallIsNotSent();
    void answerGoesOnlyToTopicsForAnswers();
    void callWithoutAResponseTopicIsCarriedOut();
    void retainedCallIsIgnored();
    void repeatedCallGetsTheSameAnswerAndIsNotCarriedOutAgain();
    void callThatIsRepeatedWhileItIsUnderWayIsAnsweredOnce();
    void correlationOfAnotherCallIsRefused();
    void expiredCallIsNotCarriedOut();
    void callWithoutAConnectionToTheDeviceIsNotSent();
    void answerFollowsWhenTheBrokerIsBack();
    void callIsRefusedWhileAnotherClientHasControl();
    void controlIsReleasedAfterACall();
    void takeFromTheCommandLineIsCarriedOut();
    void auditSaysWhoCalledWhatWithWhichOutcome();

private:
    BrokerObserver &observer() { return m_bench->observer(); }
    QJsonObject call(const char *operation, const QByteArray &arguments = {})
    {
        return observer().call(m_bench->serial, QLatin1String(operation), arguments);
    }
    Gate::BrokerMessage message(const char *operation, const QByteArray &arguments,
                                const QByteArray &correlation) const
    {
        return BrokerObserver::callMessage(m_bench->serial, QLatin1String(operation), arguments,
                                           correlation);
    }
    Gate::BrokerMessage swapMessage(const QByteArray &correlation) const
    {
        return message("Device.writeSwap", swapOn, correlation);
    }
    /// From now on the device answers when releaseAnswers() is called.
    void holdAnswers() { QVERIFY(m_bench->execute(QStringLiteral("fault add hold"))); }
    void releaseAnswers() { QVERIFY(m_bench->execute(QStringLiteral("fault clear"))); }
    QList<QJsonObject> swapAudit()
    {
        return observer().audit(m_bench->serial, QStringLiteral("Device.writeSwap"));
    }
    static QString textOf(const QJsonObject &answer)
    {
        return answer.value(QStringLiteral("text")).toString();
    }
    static QString outcomeOf(const QJsonObject &answer)
    {
        return answer.value(QStringLiteral("outcome")).toString();
    }

    const QByteArray swapOn = R"({"swap":{"swap":1}})";
    std::unique_ptr<GateBench> m_bench;
};

void tst_GatewayCalls::writeIsCarriedOutAndAnswered()
{
    observer().publish(swapMessage("1"));
    observer().waitForAnswer("1");
    QCOMPARE(observer().answers("1").first().payload,
             QByteArray(R"({"device":"00000000000000A1","meaning":"",)"
                        R"("operation":"Device.writeSwap","outcome":"done","status":0,)"
                        R"("text":"wall: device swap status information was carried out."})"));
    QCOMPARE(call("Device.readDetails")
                 .value(QStringLiteral("answer"))
                 .toObject()
                 .value(QStringLiteral("swap")),
             QJsonValue(1));
}

void tst_GatewayCalls::readIsAnsweredWithItsRecord()
{
    const QJsonObject answer = call("Device.readDeviceGroupInfo");
    QCOMPARE(outcomeOf(answer), QStringLiteral("done"));
    QCOMPARE(answer.value(QStringLiteral("answer")),
             QJsonValue(QJsonObject{{QStringLiteral("groupInfos"), QJsonArray()}}));
}

void tst_GatewayCalls::refusalHasStatusAndMeaning()
{
    const QJsonObject answer =
        call("Screen.writeFreeze", R"({"screens":[{"screenId":9,"screenType":1,"freeze":1}]})");
    QCOMPARE(outcomeOf(answer), QStringLiteral("refused"));
    QCOMPARE(answer.value(QStringLiteral("status")), QJsonValue(3));
    QCOMPARE(answer.value(QStringLiteral("meaning")),
             QJsonValue(QStringLiteral("the body or the filters name an object that does not "
                                       "exist")));
}

void tst_GatewayCalls::faultyCallIsNotSent_data()
{
    QTest::addColumn<QString>("operation");
    QTest::addColumn<QByteArray>("arguments");
    QTest::addColumn<QString>("text");
    const auto row = [](const char *name, const char *operation, const char *arguments,
                        const char *text) {
        QTest::newRow(name) << QString::fromLatin1(operation) << QByteArray(arguments)
                            << QString::fromLatin1(text);
    };
    const char *const tooLarge =
        "wall: device swap status information was not sent: Device.writeSwap, argument 1: line 1, "
        "column 9: 300 would be sent as 44; the range is 0 to 255.";
    // clang-format off
    row("unknown operation", "Screen.take",        "",                       "unknown operation \"Screen.take\"");
    row("too many levels",   "anna/Screen/take",   "",                       "the topic must end with OPERATION or USER/OPERATION");
    row("not JSON",          "Device.writeSwap",   "{",                      "the message is not valid JSON: unterminated object (at byte 1)");
    row("not an object",     "Device.writeSwap",   "[]",                     "the message must be a JSON object with the arguments by name");
    row("missing argument",  "Device.writeSwap",   "{}",                     "the argument \"swap\" is missing");
    row("unknown argument",  "Device.readDetails", R"({"x":1})",             "Device.readDetails has no argument \"x\"");
    row("value too large",   "Device.writeSwap",   R"({"swap":{"swap":300}})", tooLarge);
    // clang-format on
}

void tst_GatewayCalls::faultyCallIsNotSent()
{
    QFETCH(QString, operation);
    QFETCH(QByteArray, arguments);
    QFETCH(QString, text);
    const DeviceLog log;
    const QJsonObject answer = observer().call(m_bench->serial, operation, arguments);
    QCOMPARE(outcomeOf(answer), QStringLiteral("not-sent"));
    QCOMPARE(textOf(answer), text);
    QCOMPARE(log.writes(0x1107), QStringList());
}

/// Callers must not make the gateway publish where they may not publish themselves.
void tst_GatewayCalls::answerGoesOnlyToTopicsForAnswers()
{
    Gate::BrokerMessage elsewhere = swapMessage("2");
    elsewhere.responseTopic = QStringLiteral("tavoro/00000000000000A1/state/device");
    observer().publish(elsewhere);
    Gate::BrokerMessage toAnother = swapMessage("3");
    toAnother.topic = QStringLiteral("tavoro/00000000000000A1/call/anna/Device.writeSwap");
    toAnother.responseTopic = QStringLiteral("tavoro/answer/bob/1");
    observer().publish(toAnother);
    QTRY_COMPARE(swapAudit().size(), 2);
    const auto records = swapAudit();
    QCOMPARE(textOf(records.at(0)),
             QStringLiteral("the response topic must begin with tavoro/answer/"));
    QCOMPARE(textOf(records.at(1)),
             QStringLiteral("the response topic must begin with tavoro/answer/anna/"));
    QVERIFY(observer().answers("2").isEmpty());
    QVERIFY(observer().answers("3").isEmpty());
}

void tst_GatewayCalls::callWithoutAResponseTopicIsCarriedOut()
{
    Gate::BrokerMessage silent = swapMessage({});
    silent.qos = 0;
    silent.responseTopic.clear();
    observer().connection().publish(silent);
    QTRY_COMPARE(observer()
                     .object(QStringLiteral("tavoro/00000000000000A1/state/device"))
                     .value(QStringLiteral("swap")),
                 QJsonValue(1));
}

void tst_GatewayCalls::retainedCallIsIgnored()
{
    QVERIFY(m_bench->killGateway());
    Gate::BrokerMessage retained = swapMessage("4");
    retained.isRetained = true;
    observer().publish(retained);
    m_bench->startGateway();
    QVERIFY(m_bench->waitForEqualStates());
    QVERIFY(observer().answers("4").isEmpty());
}

void tst_GatewayCalls::repeatedCallGetsTheSameAnswerAndIsNotCarriedOutAgain()
{
    const DeviceLog log;
    observer().publish(swapMessage("5"));
    QCOMPARE(outcomeOf(observer().waitForAnswer("5")), QStringLiteral("done"));
    observer().publish(swapMessage("5"));
    observer().publish(swapMessage("5"));
    QTRY_COMPARE(observer().answers("5").size(), 3);
    QCOMPARE(observer().answers("5").last().payload, observer().answers("5").first().payload);
    QCOMPARE(log.writes(0x1107).size(), 1);
    QCOMPARE(m_bench->gateway->counters().repeatedCalls, quint64(2));
}

void tst_GatewayCalls::callThatIsRepeatedWhileItIsUnderWayIsAnsweredOnce()
{
    const DeviceLog log;
    holdAnswers();
    observer().publish(swapMessage("6"));
    observer().publish(swapMessage("6"));
    QTRY_COMPARE(m_bench->gateway->counters().repeatedCalls, quint64(1));
    releaseAnswers();
    QCOMPARE(outcomeOf(observer().waitForAnswer("6")), QStringLiteral("done"));
    call("Device.readDeviceGroupInfo"); // A second answer would have arrived before this one.
    QCOMPARE(observer().answers("6").size(), 1);
    QCOMPARE(log.writes(0x1107).size(), 1);
}

void tst_GatewayCalls::correlationOfAnotherCallIsRefused()
{
    observer().publish(swapMessage("7"));
    QCOMPARE(outcomeOf(observer().waitForAnswer("7")), QStringLiteral("done"));
    observer().publish(message("Device.writeSwap", R"({"swap":{"swap":0}})", "7"));
    QTRY_COMPARE(observer().answers("7").size(), 2);
    QVERIFY(observer().answers("7").last().payload.contains(
        "the correlation data belongs to another call"));
}

/// The second call waits for the first one until it has expired.
void tst_GatewayCalls::expiredCallIsNotCarriedOut()
{
    const DeviceLog log;
    holdAnswers();
    observer().publish(message("Device.readDeviceGroupInfo", {}, "8"));
    Gate::BrokerMessage expiring = swapMessage("9");
    expiring.expirySeconds = 1;
    observer().publish(expiring);
    const QDeadlineTimer expiry(1500);
    Gate::BrokerMessage lasting = swapMessage("10");
    lasting.expirySeconds = 600;
    observer().publish(lasting);
    QTRY_VERIFY(observer().messages(lasting.topic).size() == 2 && expiry.hasExpired());
    releaseAnswers();
    QCOMPARE(textOf(observer().waitForAnswer("9")), QStringLiteral("the message has expired"));
    QCOMPARE(outcomeOf(observer().waitForAnswer("10")), QStringLiteral("done"));
    QCOMPARE(log.writes(0x1107).size(), 1);
}

void tst_GatewayCalls::callWithoutAConnectionToTheDeviceIsNotSent()
{
    m_bench->switchDeviceOff();
    QTRY_COMPARE(m_bench->gateway->counters().readyDevices, quint64(0));
    QCOMPARE(outcomeOf(call("Device.writeSwap", swapOn)), QStringLiteral("not-sent"));
}

/// The client is back before the gateway: the broker keeps no answers for absent clients.
void tst_GatewayCalls::answerFollowsWhenTheBrokerIsBack()
{
    PortRelay relay(m_bench->broker.port());
    QVERIFY(m_bench->stopGateway());
    m_bench->gatewayPort = relay.port();
    m_bench->startGateway();
    QVERIFY(m_bench->waitForEqualStates());
    holdAnswers();
    const quint64 received = m_bench->gateway->counters().receivedMessages;
    const quint64 done = m_bench->gateway->counters().calls.at(Outcome::Done);
    observer().publish(swapMessage("11"));
    QTRY_COMPARE(m_bench->gateway->counters().receivedMessages, received + 1);
    relay.block();
    m_bench->broker.stop();
    QTRY_VERIFY(!m_bench->gateway->counters().isBrokerConnected);
    releaseAnswers();
    QTRY_COMPARE(m_bench->gateway->counters().calls.at(Outcome::Done), done + 1);
    QCOMPARE(m_bench->gateway->counters().unansweredMessages,
             quint64(2)); // the answer and its audit record
    QVERIFY(m_bench->broker.start());
    QVERIFY(observer().waitForConnection());
    relay.unblock();
    QCOMPARE(outcomeOf(observer().waitForAnswer("11")), QStringLiteral("done"));
    m_bench->gateway.reset();
}

void tst_GatewayCalls::callIsRefusedWhileAnotherClientHasControl()
{
    const TcpConnection other(m_bench->device->simulator->port());
    QString error;
    QString holder;
    QVERIFY(other.channel->requestControl(SSProxy::ControlAction::Take, error));
    QVERIFY(other.channel->readControlHolder(holder));
    const QJsonObject answer = call("Device.writeSwap", swapOn);
    QCOMPARE(outcomeOf(answer), QStringLiteral("refused"));
    QCOMPARE(answer.value(QStringLiteral("status")), QJsonValue(67));
    QCOMPARE(textOf(answer),
             QStringLiteral("wall: device swap status information was refused: the device is "
                            "controlled by %1.")
                 .arg(holder));
    QVERIFY(m_bench->execute(QStringLiteral("power 2 0")));
    QTRY_COMPARE(observer()
                     .object(QStringLiteral("tavoro/00000000000000A1/state/power/2"))
                     .value(QStringLiteral("status")),
                 QJsonValue(0));
}

void tst_GatewayCalls::controlIsReleasedAfterACall()
{
    const TcpConnection other(m_bench->device->simulator->port());
    const auto holder = [&] {
        QString name = QStringLiteral("unknown");
        other.channel->readControlHolder(name);
        return name;
    };
    QCOMPARE(holder(), QString());
    QCOMPARE(outcomeOf(call("Device.writeSwap", swapOn)), QStringLiteral("done"));
    QTRY_COMPARE_WITH_TIMEOUT(holder(), QString(), 30000);
}

void tst_GatewayCalls::takeFromTheCommandLineIsCarriedOut()
{
    const QByteArray take = R"({"screens":[{"screenId":1,"screenType":1,)"
                            R"("switchEffect":{"time":5,"direction":0,"type":1}}]})";
    QProcess client;
    client.start(QStringLiteral("mosquitto_pub"),
                 {QStringLiteral("-p"), QString::number(m_bench->broker.port()),
                  QStringLiteral("-V"), QStringLiteral("5"), QStringLiteral("-q"),
                  QStringLiteral("1"), QStringLiteral("-t"),
                  QStringLiteral("tavoro/00000000000000A1/call/Screen.writeTake"),
                  QStringLiteral("-D"), QStringLiteral("publish"), QStringLiteral("response-topic"),
                  QStringLiteral("tavoro/answer/me"), QStringLiteral("-D"),
                  QStringLiteral("publish"), QStringLiteral("correlation-data"),
                  QStringLiteral("take 1"), QStringLiteral("-m"), QString::fromLatin1(take)});
    QCOMPARE(outcomeOf(observer().waitForAnswer("take 1")), QStringLiteral("done"));
    QTRY_COMPARE(client.state(), QProcess::NotRunning);
    QCOMPARE(client.exitCode(), 0);
}

void tst_GatewayCalls::auditSaysWhoCalledWhatWithWhichOutcome()
{
    Gate::BrokerMessage named = swapMessage("12");
    named.userProperties = {{QStringLiteral("user"), QStringLiteral("bob")}};
    observer().publish(named);
    Gate::BrokerMessage verified = swapMessage("13");
    verified.topic = QStringLiteral("tavoro/00000000000000A1/call/anna/Device.writeSwap");
    verified.responseTopic = QStringLiteral("tavoro/answer/anna/1");
    observer().publish(verified);
    QTRY_COMPARE(swapAudit().size(), 2);
    QJsonObject first = swapAudit().first();
    const QJsonObject second = swapAudit().last();
    QVERIFY(QDateTime::fromString(first.take(QStringLiteral("time")).toString(), Qt::ISODateWithMs)
                .isValid());
    QCOMPARE(QJsonDocument(first).toJson(QJsonDocument::Compact),
             QByteArray(R"({"arguments":{"swap":{"swap":1}},"correlation":"3132",)"
                        R"("device":"00000000000000A1","gateway":"stage","isUserVerified":false,)"
                        R"("operation":"Device.writeSwap","outcome":"done","status":0,)"
                        R"("text":"wall: device swap status information was carried out.",)"
                        R"("user":"bob"})"));
    QCOMPARE(second.value(QStringLiteral("user")), QJsonValue(QStringLiteral("anna")));
    QCOMPARE(second.value(QStringLiteral("isUserVerified")), QJsonValue(true));
}

QTEST_GUILESS_MAIN(tst_GatewayCalls)
#include "tst_gatewaycalls.moc"
