// The retained topics of a device equal what the device answers to reads.

#include <support/common/patience.h>
#include <support/tavorogate/gatebench.h>

#include <QJsonObject>

using namespace Tavoro;

class tst_GatewayState : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_bench = std::make_unique<GateBench>();
        QVERIFY(m_bench->start());
    }
    void cleanup() { m_bench.reset(); }

    void eachObjectHasATopic();
    void recordIsTheJsonOfTheDevice();
    void reportChangesItsTopicOnly();
    void writeChangesItsTopicOnly();
    void removedObjectsLoseTheirTopics();
    void stateEqualsTheDeviceAfterAStorm();
    void stateEqualsTheDeviceAfterARestartOfTheBroker();
    void stateEqualsTheDeviceAfterARestartOfTheGateway();
    void restartedGatewayPublishesOnlyWhatDiffers();
    void stateEqualsTheDeviceAfterARestartOfTheDevice();
    void topicThatAnotherClientChangesIsRestored();
    void topicOfAnUnknownObjectIsRemoved();
    void holderOfControlIsPublished();

private:
    QString topic(const char *end) const
    {
        return QStringLiteral("tavoro/00000000000000A1/state/") + QLatin1String(end);
    }
    QJsonObject call(const char *operation, const QByteArray &arguments)
    {
        return m_bench->observer().call(m_bench->serial, QLatin1String(operation), arguments);
    }
    void freeze(int value)
    {
        const QByteArray arguments = R"({"screens":[{"screenId":1,"screenType":1,"freeze":)"
            + QByteArray::number(value) + "}]}";
        QCOMPARE(call("Screen.writeFreeze", arguments).value(QStringLiteral("outcome")),
                 QJsonValue(QStringLiteral("done")));
    }
    void storm();
    void publishRetained(const QString &topic, const QByteArray &payload)
    {
        Gate::BrokerMessage message;
        message.topic = topic;
        message.payload = payload;
        message.isRetained = true;
        m_bench->observer().publish(message);
    }

    std::unique_ptr<GateBench> m_bench;
};

void tst_GatewayState::eachObjectHasATopic()
{
    const QStringList names = m_bench->publishedState().keys();
    QCOMPARE(names.join(QLatin1Char(' ')),
             QStringLiteral("card/1 card/2 control cutout device interface/1/1/0 interface/1/2/0 "
                            "interface/2/1/0 interface/2/2/0 "
                            "layer/1/1/2/1/1 layer/1/1/2/2/0 layer/1/1/4/1/1 layer/1/1/4/2/0 "
                            "layer/2/2/2/1/1 layer/2/2/2/2/0 layer/2/2/4/1/1 layer/2/2/4/2/0 "
                            "loading power/1 power/2 screen/1/1 screen/2/2"));
}

void tst_GatewayState::recordIsTheJsonOfTheDevice()
{
    QCOMPARE(m_bench->observer().retained().value(topic("power/1")),
             QByteArray(R"({"powerId":1,"iSignal":1,"status":1})"));
}

void tst_GatewayState::reportChangesItsTopicOnly()
{
    m_bench->observer().forgetMessages();
    QVERIFY(m_bench->execute(QStringLiteral("power 2 0")));
    QTRY_COMPARE(m_bench->observer().retained().value(topic("power/2")),
                 QByteArray(R"({"powerId":2,"iSignal":0,"status":0})"));
    QCOMPARE(m_bench->observer().count(topic("")), 1);
}

void tst_GatewayState::writeChangesItsTopicOnly()
{
    m_bench->observer().forgetMessages();
    freeze(1);
    QTRY_COMPARE(m_bench->observer().object(topic("screen/1/1")).value(QStringLiteral("freeze")),
                 QJsonValue(1));
    QVERIFY(m_bench->waitForEqualStates());
    QCOMPARE(m_bench->observer().count(topic("screen/")), 1);
    QCOMPARE(m_bench->observer().count(topic("layer/")), 0);
    QCOMPARE(m_bench->observer().count(topic("interface/")), 0);
}

void tst_GatewayState::removedObjectsLoseTheirTopics()
{
    QVERIFY(m_bench->publishedState().contains(QStringLiteral("layer/1/1/2/1/1")));
    call("Layer.writeRemovedAll", R"({"screenId":1,"screenType":1})");
    QVERIFY(m_bench->waitForEqualStates());
    QVERIFY(!m_bench->publishedState().contains(QStringLiteral("layer/1/1/2/1/1")));
    QVERIFY(m_bench->publishedState().contains(QStringLiteral("layer/2/2/2/1/1")));
}

/// Many calls and reports without a pause.
void tst_GatewayState::storm()
{
    for (int i = 0; i < 200; ++i) {
        const QByteArray arguments = R"({"screens":[{"screenId":1,"screenType":1,"freeze":)"
            + QByteArray::number(i % 2) + "}]}";
        m_bench->observer().publish(
            BrokerObserver::callMessage(m_bench->serial, QStringLiteral("Screen.writeFreeze"),
                                        arguments, "storm " + QByteArray::number(i)));
        QVERIFY(m_bench->execute(QStringLiteral("power %1 %2").arg(1 + i % 2).arg(i % 3 > 0)));
        QVERIFY(m_bench->execute(QStringLiteral("depth 1 1 %1").arg(i % 2 ? 10 : 8)));
    }
}

void tst_GatewayState::stateEqualsTheDeviceAfterAStorm()
{
    storm();
    QVERIFY(!m_bench->observer().waitForAnswer("storm 199").isEmpty());
    QVERIFY(m_bench->waitForEqualStates());
}

void tst_GatewayState::stateEqualsTheDeviceAfterARestartOfTheBroker()
{
    m_bench->broker.stop();
    QTRY_VERIFY(m_bench->observer().retained().isEmpty());
    QVERIFY(m_bench->execute(QStringLiteral("power 2 0")));
    QVERIFY(m_bench->broker.start());
    QVERIFY(m_bench->waitForEqualStates());
    QCOMPARE(m_bench->publishedState()
                 .value(QStringLiteral("power/2"))
                 .toObject()
                 .value(QStringLiteral("status")),
             QJsonValue(0));
}

void tst_GatewayState::stateEqualsTheDeviceAfterARestartOfTheGateway()
{
    call("Layer.writeRemovedAll", R"({"screenId":1,"screenType":1})");
    QVERIFY(m_bench->killGateway());
    QVERIFY(m_bench->execute(QStringLiteral("power 2 0")));
    m_bench->startGateway();
    QVERIFY(m_bench->waitForEqualStates());
    QVERIFY(!m_bench->publishedState().contains(QStringLiteral("layer/1/1/2/1/1")));
}

void tst_GatewayState::restartedGatewayPublishesOnlyWhatDiffers()
{
    QVERIFY(m_bench->killGateway());
    QVERIFY(m_bench->execute(QStringLiteral("power 2 0")));
    m_bench->observer().forgetMessages();
    m_bench->startGateway();
    QVERIFY(m_bench->waitForEqualStates());
    QCOMPARE(m_bench->observer().count(topic("power/2")), 1);
    QCOMPARE(m_bench->observer().count(topic("")), 1);
}

void tst_GatewayState::stateEqualsTheDeviceAfterARestartOfTheDevice()
{
    m_bench->switchDeviceOff();
    const QString online = QStringLiteral("tavoro/00000000000000A1/online");
    QTRY_COMPARE(m_bench->observer().object(online).value(QStringLiteral("online")),
                 QJsonValue(false));
    QVERIFY(m_bench->publishedState().contains(QStringLiteral("screen/2/2")));
    Sim::SimOptions options = m_bench->deviceOptions;
    options.screens = 1;
    m_bench->switchDeviceOn(options);
    QVERIFY(m_bench->waitForEqualStates());
    QVERIFY(!m_bench->publishedState().contains(QStringLiteral("screen/2/2")));
    QCOMPARE(m_bench->observer().object(online).value(QStringLiteral("online")), QJsonValue(true));
}

void tst_GatewayState::topicThatAnotherClientChangesIsRestored()
{
    m_bench->observer().forgetMessages();
    publishRetained(topic("power/1"), "{}");
    QTRY_COMPARE(m_bench->observer().messages(topic("power/1")).size(), 2);
    QCOMPARE(m_bench->observer().retained().value(topic("power/1")),
             QByteArray(R"({"powerId":1,"iSignal":1,"status":1})"));
    publishRetained(topic("power/1"), {});
    QTRY_COMPARE(m_bench->observer().messages(topic("power/1")).size(), 4);
    QCOMPARE(m_bench->observer().retained().value(topic("power/1")),
             QByteArray(R"({"powerId":1,"iSignal":1,"status":1})"));
}

void tst_GatewayState::topicOfAnUnknownObjectIsRemoved()
{
    publishRetained(topic("screen/1/77"), R"({"screenId":77})");
    QTRY_COMPARE(m_bench->observer().messages(topic("screen/1/77")).size(), 2);
    QVERIFY(!m_bench->publishedState().contains(QStringLiteral("screen/1/77")));
}

void tst_GatewayState::holderOfControlIsPublished()
{
    QCOMPARE(m_bench->observer().retained().value(topic("control")),
             QByteArray(R"({"holder":"","isHeldByOthers":false})"));
    const TcpConnection other(m_bench->device->simulator->port());
    QString error;
    QVERIFY(other.channel->requestControl(SSProxy::ControlAction::Take, error));
    QTRY_VERIFY(!m_bench->observer()
                     .object(topic("control"))
                     .value(QStringLiteral("holder"))
                     .toString()
                     .isEmpty());
    QCOMPARE(m_bench->observer().object(topic("control")).value(QStringLiteral("isHeldByOthers")),
             QJsonValue(true));
}

QTEST_GUILESS_MAIN(tst_GatewayState)
#include "tst_gatewaystate.moc"
