// Two gateways share a device, each a process of its own. When one is killed or suspended during a
// storm of calls, each call is answered once and carried out at most once: the device's own log
// shows what has arrived.

#include <support/common/patience.h>
#include <support/tavorogate/brokerobserver.h>
#include <support/tavorogate/gateprocess.h>
#include <support/tavorogate/mosquittobroker.h>
#include <support/tavorogate/portrelay.h>
#include <support/tavorosession/devicelog.h>
#include <support/tavorosim/simulatedconnection.h>

#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

#include <array>
#include <csignal>
#include <memory>

using namespace Tavoro;

namespace {

constexpr int patience = 60000; ///< Milliseconds.
constexpr quint16 generalCode = 0x1101;
const QString serial = QStringLiteral("00000000000000A1");

Sim::SimOptions smallDevice()
{
    Sim::SimOptions options;
    options.inputs = 1;
    options.outputs = 1;
    options.screens = 1;
    options.layersPerScreen = 1;
    options.sn = {0, 0, 0, 0, 0, 0, 0, 0xA1};
    return options;
}

Gate::BrokerOptions observerOptions(quint16 port)
{
    Gate::BrokerOptions options;
    options.port = port;
    options.clientId = QStringLiteral("observer");
    return options;
}

/// Long enough that a gateway which only waits for the processor keeps its lease.
constexpr int leaseSeconds = 10;
const QByteArray worksText = "This gateway works for the device";
const QByteArray stopsText = "This gateway does not work for the device";

} // namespace

class tst_GatewayTakeover : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void oneGatewayIsActive();
    void stormSurvivesTheLossOfAGateway_data();
    void stormSurvivesTheLossOfAGateway();
    void stormSurvivesASuspendedGateway_data();
    void stormSurvivesASuspendedGateway();
    void callThatWasSentIsAnsweredByTheSuccessor();
    void gatewayThatContinuesTooLateDoesNotAnswer();
    void stoppedGatewayLetsTheOtherOneWorkAtOnce();
    void operatorsControlIsRespected();
    void deviceThatIsLostByAllGatewaysIsOffline();
    void deviceThatIsLostByOneGatewayIsOfflineUntilTheOtherOneWorks();

private:
    bool startGateways(int seconds) { return startGateways(seconds, m_device->simulator->port()); }
    bool startGateways(int seconds, quint16 portOfLeft);
    void switchEverythingOff();
    QJsonObject presence() const
    {
        return m_observer->object(QStringLiteral("tavoro/%1/online").arg(serial));
    }
    bool isOnline() const { return presence().value(QStringLiteral("online")).toBool(); }
    bool isOffline() const
    {
        return presence().value(QStringLiteral("online")) == QJsonValue(false);
    }
    QStringList presences() const;
    QString presentGateway() const
    {
        return presence().value(QStringLiteral("gateway")).toString();
    }
    bool waitForActive(const QString &name)
    {
        return QTest::qWaitFor([&] { return presentGateway() == name; }, patience);
    }
    void call(int number);
    int answered(int first, int last) const;
    void verifyCalls(int count);
    bool addFault(const char *rule)
    {
        return m_device->simulator->execute(QStringLiteral("fault add ") + QLatin1String(rule)).ok;
    }
    static QByteArray correlation(int number) { return "call " + QByteArray::number(number); }
    QString outcome(int number) const
    {
        const auto answers = m_observer->answers(correlation(number));
        return answers.isEmpty() ? QString()
                                 : QJsonDocument::fromJson(answers.first().payload)
                                       .object()
                                       .value(QStringLiteral("outcome"))
                                       .toString();
    }

    std::unique_ptr<MosquittoBroker> m_broker;
    std::unique_ptr<RunningSimulator> m_device;
    std::unique_ptr<BrokerObserver> m_observer;
    std::unique_ptr<DeviceLog> m_log;
    std::array<std::unique_ptr<GateProcess>, 2> m_gateways;
};

void tst_GatewayTakeover::init()
{
    m_broker = std::make_unique<MosquittoBroker>();
    QVERIFY(m_broker->start());
    m_device = std::make_unique<RunningSimulator>(smallDevice());
    m_observer = std::make_unique<BrokerObserver>(observerOptions(m_broker->port()));
    QVERIFY(m_observer->start());
    m_log = std::make_unique<DeviceLog>();
    QVERIFY(startGateways(leaseSeconds));
}

/// The first gateway is active, and the second one has subscribed.
bool tst_GatewayTakeover::startGateways(int seconds, quint16 portOfLeft)
{
    const quint16 port = m_device->simulator->port();
    m_gateways[0] =
        std::make_unique<GateProcess>(*m_broker, portOfLeft, QStringLiteral("left"), seconds);
    if (!waitForActive(QStringLiteral("left")))
        return false;
    m_gateways[1] =
        std::make_unique<GateProcess>(*m_broker, port, QStringLiteral("right"), seconds);
    return QTest::qWaitFor(
        [this] {
            return m_broker->hasSubscriber("tavorogate-right", "tavoro/00000000000000A1/call/#");
        },
        patience);
}

/// The next device has no lease, and the broker knows nothing about it.
void tst_GatewayTakeover::switchEverythingOff()
{
    m_gateways = {};
    m_device.reset();
    Gate::BrokerMessage nothing;
    nothing.topic = QStringLiteral("tavoro/%1/online").arg(serial);
    nothing.isRetained = true;
    m_observer->publish(nothing);
    QTRY_VERIFY(presence().isEmpty());
}

void tst_GatewayTakeover::cleanup()
{
    if (QTest::currentTestFailed()) {
        for (const auto &gateway : m_gateways) {
            if (gateway)
                qInfo().noquote() << gateway->name() << gateway->log();
        }
    }
    m_gateways = {};
    m_log.reset();
    m_observer.reset();
    m_device.reset();
    m_broker.reset();
}

/// Each call writes another name, so that the device's log shows which calls have arrived.
void tst_GatewayTakeover::call(int number)
{
    const QByteArray arguments = R"({"general":{"general":{"name":"call )"
        + QByteArray::number(number) + R"(","status":0}}})";
    m_observer->publish(BrokerObserver::callMessage(
        serial, QStringLiteral("Device.writeDeviceGeneral"), arguments, correlation(number)));
}

int tst_GatewayTakeover::answered(int first, int last) const
{
    int count = 0;
    for (int number = first; number <= last; ++number)
        count += !m_observer->answers(correlation(number)).isEmpty();
    return count;
}

/// The calls 1 to \a count were answered once each; those that were carried out have arrived once,
/// and the others never.
void tst_GatewayTakeover::verifyCalls(int count)
{
    const QString arrived = m_log->writes(generalCode).join(QLatin1Char('\n'));
    int done = 0;
    for (int number = 1; number <= count; ++number) {
        const QString name = QStringLiteral("\"call %1\"").arg(number);
        QVERIFY2(m_observer->answers(correlation(number)).size() == 1, qPrintable(name));
        const int times = static_cast<int>(arrived.count(name));
        QVERIFY2(times == (outcome(number) == QLatin1String("done") ? 1 : 0),
                 qPrintable(QStringLiteral("%1 arrived %2 times: %3")
                                .arg(name)
                                .arg(times)
                                .arg(outcome(number))));
        done += times;
    }
    QVERIFY2(done >= count - 1, qPrintable(QString::number(done))); // at most one was lost
}

void tst_GatewayTakeover::oneGatewayIsActive()
{
    for (int number = 1; number <= 20; ++number)
        call(number);
    QTRY_COMPARE_WITH_TIMEOUT(answered(1, 20), 20, patience);
    verifyCalls(20);
    QCOMPARE(m_gateways[0]->count(worksText), 1);
    QCOMPARE(m_gateways[1]->count(worksText), 0);
}

void tst_GatewayTakeover::stormSurvivesTheLossOfAGateway_data()
{
    QTest::addColumn<bool>("isActive");
    QTest::newRow("the active one") << true;
    QTest::newRow("the watching one") << false;
}

void tst_GatewayTakeover::stormSurvivesTheLossOfAGateway()
{
    QFETCH(const bool, isActive);
    constexpr int count = 120;
    for (int number = 1; number <= count; ++number)
        call(number);
    QTRY_VERIFY_WITH_TIMEOUT(answered(1, count) >= count / 4, patience);
    m_gateways[isActive ? 0 : 1]->signal(SIGKILL);
    QTRY_COMPARE_WITH_TIMEOUT(answered(1, count), count, patience);
    verifyCalls(count);
    QCOMPARE(outcome(count), QStringLiteral("done"));
}

void tst_GatewayTakeover::stormSurvivesASuspendedGateway_data()
{
    stormSurvivesTheLossOfAGateway_data();
}

/// The gateway continues when the other one has answered all calls of the first storm.
void tst_GatewayTakeover::stormSurvivesASuspendedGateway()
{
    QFETCH(const bool, isActive);
    constexpr int half = 120;
    for (int number = 1; number <= half; ++number)
        call(number);
    QTRY_VERIFY_WITH_TIMEOUT(answered(1, half) >= half / 4, patience);
    GateProcess &suspended = *m_gateways[isActive ? 0 : 1];
    suspended.signal(SIGSTOP);
    if (isActive)
        QVERIFY(waitForActive(QStringLiteral("right"))); // its lease has ended
    QTRY_COMPARE_WITH_TIMEOUT(answered(1, half), half, patience);
    suspended.signal(SIGCONT);
    if (isActive)
        QVERIFY(suspended.waitForLog(stopsText));
    for (int number = half + 1; number <= 2 * half; ++number)
        call(number);
    QTRY_COMPARE_WITH_TIMEOUT(answered(1, 2 * half), 2 * half, patience);
    verifyCalls(2 * half);
    QCOMPARE(m_gateways[1]->count(worksText), isActive ? 1 : 0);
}

/// The device carries the call out, but its answer is lost with the gateway.
void tst_GatewayTakeover::callThatWasSentIsAnsweredByTheSuccessor()
{
    QVERIFY(addFault("silent,code=0x1101,count=1"));
    call(1);
    call(2);
    QTRY_COMPARE_WITH_TIMEOUT(m_log->writes(generalCode).size(), 1, patience);
    m_gateways[0]->signal(SIGKILL);
    QTRY_COMPARE_WITH_TIMEOUT(answered(1, 2), 2, patience);
    verifyCalls(2);
    QCOMPARE(outcome(1), QStringLiteral("done"));
    QCOMPARE(outcome(2), QStringLiteral("done"));
    QCOMPARE(m_gateways[1]->count("Asking the device"), 1);
}

void tst_GatewayTakeover::gatewayThatContinuesTooLateDoesNotAnswer()
{
    QVERIFY(addFault("silent,code=0x1101,count=1"));
    call(1);
    QTRY_COMPARE_WITH_TIMEOUT(m_log->writes(generalCode).size(), 1, patience);
    m_gateways[0]->signal(SIGSTOP);
    QTRY_COMPARE_WITH_TIMEOUT(answered(1, 1), 1, patience);
    m_gateways[0]->signal(SIGCONT);
    QVERIFY(m_gateways[0]->waitForLog(stopsText));
    m_gateways[1]->signal(SIGKILL); // now the first one gets the lease again
    QVERIFY(m_gateways[0]->waitForLog(worksText, 2));
    call(2);
    QTRY_COMPARE_WITH_TIMEOUT(answered(1, 2), 2, patience);
    verifyCalls(2);
}

void tst_GatewayTakeover::stoppedGatewayLetsTheOtherOneWorkAtOnce()
{
    switchEverythingOff();
    m_device = std::make_unique<RunningSimulator>(smallDevice());
    QVERIFY(startGateways(600));
    m_gateways[0]->signal(SIGTERM);
    QVERIFY(m_gateways[0]->waitForEnd());
    QVERIFY(waitForActive(QStringLiteral("right")));
    call(1);
    QTRY_COMPARE_WITH_TIMEOUT(answered(1, 1), 1, patience);
    verifyCalls(1);
}

/// The lease does not lock an operator out: the gateway's call is refused instead.
void tst_GatewayTakeover::operatorsControlIsRespected()
{
    const TcpConnection operatorConnection(m_device->simulator->port());
    QString error;
    QVERIFY2(operatorConnection.channel->requestControl(SSProxy::ControlAction::Take, error),
             qPrintable(error));
    call(1);
    QTRY_COMPARE_WITH_TIMEOUT(answered(1, 1), 1, patience);
    QCOMPARE(outcome(1), QStringLiteral("refused"));
}

/// What gateways have published about the device, without repetitions: "left: true".
QStringList tst_GatewayTakeover::presences() const
{
    QStringList found;
    const auto messages = m_observer->messages(QStringLiteral("tavoro/%1/online").arg(serial));
    for (const Gate::BrokerMessage &message : messages) {
        const QJsonObject record = QJsonDocument::fromJson(message.payload).object();
        const QString text = record.value(QStringLiteral("gateway")).toString()
            + (record.value(QStringLiteral("online")).toBool() ? QStringLiteral(": true")
                                                               : QStringLiteral(": false"));
        if (found.isEmpty() || found.last() != text)
            found << text;
    }
    return found;
}

void tst_GatewayTakeover::deviceThatIsLostByAllGatewaysIsOffline()
{
    QVERIFY(isOnline());
    Sim::SimOptions options = smallDevice();
    options.port = m_device->simulator->port();
    m_device.reset();
    QTRY_VERIFY(isOffline());
    QCOMPARE(presentGateway(), QStringLiteral("left"));
    QVERIFY(!presence().value(QStringLiteral("reason")).toString().isEmpty());
    m_device = std::make_unique<RunningSimulator>(options);
    QTRY_VERIFY(isOnline());
}

/// The lease does not end with the connection of its holder.
void tst_GatewayTakeover::deviceThatIsLostByOneGatewayIsOfflineUntilTheOtherOneWorks()
{
    switchEverythingOff();
    m_device = std::make_unique<RunningSimulator>(smallDevice());
    PortRelay relay(m_device->simulator->port());
    QVERIFY(startGateways(leaseSeconds, relay.port()));
    QTRY_VERIFY(isOnline());
    m_observer->forgetMessages();
    relay.block();
    relay.cut();
    QTRY_VERIFY(isOffline());
    QCOMPARE(presentGateway(), QStringLiteral("left"));
    QVERIFY(waitForActive(QStringLiteral("right")));
    relay.unblock();
    m_gateways[1]->signal(SIGKILL);
    QVERIFY(waitForActive(QStringLiteral("left")));
    QCOMPARE(presences(),
             (QStringList{QStringLiteral("left: false"), QStringLiteral("right: true"),
                          QStringLiteral("left: true")}));
    m_gateways = {};
}

QTEST_GUILESS_MAIN(tst_GatewayTakeover)
#include "tst_gatewaytakeover.moc"
