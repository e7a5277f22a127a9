// Users, access lists and certificates, with the files that docs/gateway.md shows.

#include <support/common/messagecatcher.h>
#include <support/common/patience.h>
#include <support/tavorogate/gatebench.h>

#include <QFile>
#include <QJsonObject>
#include <QTcpServer>
#include <QTcpSocket>

using namespace Tavoro;
using Gate::BrokerConnection;
using Gate::BrokerMessage;
using Gate::Delivery;

namespace {

/// The block of the page that begins with \a firstLine.
QByteArray blockOfPage(const QByteArray &firstLine)
{
    QFile page(QStringLiteral(DOCS_DIR "/gateway.md"));
    if (!page.open(QIODevice::ReadOnly))
        return {};
    const QByteArray text = page.readAll();
    const auto begin = text.indexOf(firstLine);
    return begin < 0 ? QByteArray() : text.mid(begin, text.indexOf("```", begin) - begin);
}

/// Answers a client as a broker that accepts it and refuses its subscription.
void refuse(QTcpSocket &client)
{
    constexpr char connectPacket = 0x10;
    constexpr char subscribePacket = '\x82';
    const QByteArray packet = client.readAll();
    if (packet.startsWith(connectPacket))
        client.write(QByteArray::fromHex("2003000000"));
    else if (packet.startsWith(subscribePacket))
        client.write(QByteArray::fromHex("9004") + packet.mid(2, 2) + QByteArray::fromHex("0087"));
}

/// Runs a command in a folder. No word contains a blank.
void run(const QString &folder, const QString &command)
{
    QStringList words = command.split(QLatin1Char(' '));
    const QString program = words.takeFirst();
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.setWorkingDirectory(folder);
    process.start(program, words);
    if (!process.waitForFinished(60000) || process.exitCode() != 0)
        qFatal("%s failed: %s", qPrintable(command), process.readAll().constData());
}

} // namespace

class tst_GatewayAccess : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { m_bench.reset(); }

    void observersReadStateOnly();
    void operatorsCallTheirDeviceUnderTheirName();
    void answersArePrivate();
    void refusedMessageIsReportedWithItsTopic();
    void refusedSubscriptionIsReportedWithItsTopic();
    void wrongPasswordIsReported();
    void clientCertificateIsEnough();
    void unknownAuthorityIsRefused();
    void missingCertificateIsReported();

private:
    void startWithUsers();
    void startWithCertificates();
    void makeCertificate(const QString &name, const QByteArray &extension) const;
    QString path(const QString &name) const
    {
        return m_bench->broker.folder() + QLatin1Char('/') + name;
    }
    Gate::BrokerOptions optionsOf(const QString &user) const
    {
        Gate::BrokerOptions options = m_bench->clientOptions(user);
        options.user = user;
        options.password = "secret";
        return options;
    }
    Delivery publish(BrokerObserver &client, const BrokerMessage &message)
    {
        std::optional<Delivery> delivery;
        client.connection().publish(message, [&](Delivery now) { delivery = now; });
        return QTest::qWaitFor([&] { return delivery.has_value(); }, 30000) ? *delivery
                                                                            : Delivery::Lost;
    }
    static BrokerMessage swap(const QString &user, const QByteArray &correlation)
    {
        BrokerMessage message = BrokerObserver::callMessage(
            QStringLiteral("00000000000000A1"), user + QStringLiteral("/Device.writeSwap"),
            R"({"swap":{"swap":1}})", correlation);
        message.responseTopic = QStringLiteral("tavoro/answer/%1/1").arg(user);
        return message;
    }

    std::unique_ptr<GateBench> m_bench;
};

void tst_GatewayAccess::startWithUsers()
{
    m_bench = std::make_unique<GateBench>(
        GateBench::smallDevice(),
        "allow_anonymous false\npassword_file FOLDER/passwords\nacl_file FOLDER/acl\n");
    const QByteArray list = blockOfPage("# Access list");
    QVERIFY(!list.isEmpty());
    m_bench->broker.writeFile(QStringLiteral("acl"), list);
    m_bench->broker.writeFile(QStringLiteral("passwords"), {});
    for (const char *user : {"gate", "anna", "bob", "olga"})
        run(m_bench->broker.folder(),
            QStringLiteral("mosquitto_passwd -b passwords %1 secret").arg(QLatin1String(user)));
    m_bench->access.user = QStringLiteral("gate");
    m_bench->access.password = "secret";
    QVERIFY(m_bench->start());
}

void tst_GatewayAccess::observersReadStateOnly()
{
    startWithUsers();
    BrokerObserver olga(optionsOf(QStringLiteral("olga")));
    QVERIFY(olga.start());
    QTRY_VERIFY(olga.retained().contains(QStringLiteral("tavoro/00000000000000A1/state/device")));
    QTRY_VERIFY(olga.retained().contains(QStringLiteral("tavoro/00000000000000A1/online")));
    QTRY_VERIFY(olga.retained().contains(QStringLiteral("tavoro/gateway/stage/online")));
    BrokerMessage state;
    state.topic = QStringLiteral("tavoro/00000000000000A1/state/device");
    state.isRetained = true;
    QCOMPARE(publish(olga, state), Delivery::Refused);
    QCOMPARE(publish(olga, swap(QStringLiteral("olga"), "1")), Delivery::Refused);
    QCOMPARE(publish(olga, swap(QStringLiteral("anna"), "2")), Delivery::Refused);
    const QString operation = QStringLiteral("Device.writeSwap");
    QVERIFY(m_bench->observer().audit(m_bench->serial, operation).isEmpty());
}

void tst_GatewayAccess::operatorsCallTheirDeviceUnderTheirName()
{
    startWithUsers();
    BrokerObserver anna(optionsOf(QStringLiteral("anna")));
    QVERIFY(anna.start());
    QCOMPARE(publish(anna, swap(QStringLiteral("anna"), "1")), Delivery::Accepted);
    QCOMPARE(anna.waitForAnswer("1").value(QStringLiteral("outcome")),
             QJsonValue(QStringLiteral("done")));
    const QString operation = QStringLiteral("Device.writeSwap");
    QTRY_COMPARE(anna.audit(m_bench->serial, operation).size(), 1);
    QCOMPARE(anna.audit(m_bench->serial, operation).first().value(QStringLiteral("user")),
             QJsonValue(QStringLiteral("anna")));
    QCOMPARE(publish(anna, swap(QStringLiteral("bob"), "2")), Delivery::Refused);
    BrokerMessage elsewhere = swap(QStringLiteral("anna"), "3");
    elsewhere.topic.replace(QStringLiteral("A1"), QStringLiteral("A2"));
    QCOMPARE(publish(anna, elsewhere), Delivery::Refused);
    BrokerMessage unnamed = swap(QStringLiteral("anna"), "4");
    unnamed.topic = QStringLiteral("tavoro/00000000000000A1/call/Device.writeSwap");
    QCOMPARE(publish(anna, unnamed), Delivery::Refused);
}

void tst_GatewayAccess::answersArePrivate()
{
    startWithUsers();
    BrokerObserver anna(optionsOf(QStringLiteral("anna")));
    BrokerObserver bob(optionsOf(QStringLiteral("bob")));
    QVERIFY(anna.start());
    QVERIFY(bob.start());
    QCOMPARE(publish(anna, swap(QStringLiteral("anna"), "1")), Delivery::Accepted);
    QVERIFY(!anna.waitForAnswer("1").isEmpty());
    // The state follows the answer; when it has arrived, so would the answer have.
    QTRY_COMPARE(bob.object(QStringLiteral("tavoro/00000000000000A1/state/device"))
                     .value(QStringLiteral("swap")),
                 QJsonValue(1));
    QVERIFY(bob.answers("1").isEmpty());
}

void tst_GatewayAccess::refusedMessageIsReportedWithItsTopic()
{
    startWithUsers();
    const MessageCatcher catcher;
    BrokerObserver olga(optionsOf(QStringLiteral("olga")));
    QVERIFY(olga.start());
    QCOMPARE(publish(olga, swap(QStringLiteral("olga"), "1")), Delivery::Refused);
    QCOMPARE(catcher.texts("tavoro.gate.broker", QtWarningMsg),
             QStringList{QStringLiteral("The broker refused a message to "
                                        "tavoro/00000000000000A1/call/olga/Device.writeSwap: "
                                        "Not authorized.")});
}

/// An access list of mosquitto refuses messages only; brokers with roles also refuse subscriptions.
void tst_GatewayAccess::refusedSubscriptionIsReportedWithItsTopic()
{
    QTcpServer broker;
    QVERIFY(broker.listen(QHostAddress::LocalHost));
    connect(&broker, &QTcpServer::newConnection, &broker, [&broker] {
        QTcpSocket *const client = broker.nextPendingConnection();
        connect(client, &QTcpSocket::readyRead, client, [client] { refuse(*client); });
    });
    Gate::BrokerOptions options;
    options.port = broker.serverPort();
    options.clientId = QStringLiteral("stranger");
    const MessageCatcher catcher;
    BrokerObserver stranger(options);
    QVERIFY(stranger.start());
    QTRY_COMPARE(catcher.texts("tavoro.gate.broker", QtWarningMsg),
                 QStringList{QStringLiteral(
                     "The broker refused the subscription of tavoro/#: Not authorized.")});
}

void tst_GatewayAccess::wrongPasswordIsReported()
{
    startWithUsers();
    Gate::BrokerOptions options = optionsOf(QStringLiteral("anna"));
    options.password = "wrong";
    BrokerObserver anna(options);
    anna.connection().start();
    QTRY_COMPARE(anna.connection().reason(), QStringLiteral("Not authorized"));
}

/// Makes NAME.pem and NAME.key, signed by the authority.
void tst_GatewayAccess::makeCertificate(const QString &name, const QByteArray &extension) const
{
    m_bench->broker.writeFile(name + QStringLiteral(".ext"), extension);
    run(m_bench->broker.folder(),
        QStringLiteral("openssl req -newkey ec -pkeyopt ec_paramgen_curve:prime256v1 -nodes "
                       "-subj /CN=%1 -keyout %1.key -out %1.csr")
            .arg(name));
    run(m_bench->broker.folder(),
        QStringLiteral("openssl x509 -req -days 36500 -in %1.csr -CA ca.pem -CAkey ca.key "
                       "-CAcreateserial -extfile %1.ext -out %1.pem")
            .arg(name));
}

void tst_GatewayAccess::startWithCertificates()
{
    m_bench = std::make_unique<GateBench>(
        GateBench::smallDevice(),
        "allow_anonymous false\ncafile FOLDER/ca.pem\ncertfile FOLDER/broker.pem\n"
        "keyfile FOLDER/broker.key\nrequire_certificate true\nuse_identity_as_username true\n");
    run(m_bench->broker.folder(),
        QStringLiteral("openssl req -x509 -newkey ec -pkeyopt ec_paramgen_curve:prime256v1 -nodes "
                       "-days 36500 -subj /CN=authority -keyout ca.key -out ca.pem"));
    makeCertificate(QStringLiteral("broker"), "subjectAltName=IP:127.0.0.1\n");
    makeCertificate(QStringLiteral("gate"), "basicConstraints=CA:FALSE\n");
    m_bench->access.tls = {path(QStringLiteral("ca.pem")), path(QStringLiteral("gate.pem")),
                           path(QStringLiteral("gate.key"))};
    QVERIFY(m_bench->startBroker());
}

void tst_GatewayAccess::clientCertificateIsEnough()
{
    startWithCertificates();
    m_bench->startGateway();
    QVERIFY(m_bench->waitForEqualStates());
    QCOMPARE(
        m_bench->observer()
            .call(m_bench->serial, QStringLiteral("Device.writeSwap"), R"({"swap":{"swap":1}})")
            .value(QStringLiteral("outcome")),
        QJsonValue(QStringLiteral("done")));
}

void tst_GatewayAccess::unknownAuthorityIsRefused()
{
    startWithCertificates();
    Gate::BrokerOptions options = m_bench->clientOptions(QStringLiteral("stranger"));
    options.tls.authorities = options.tls.certificate;
    BrokerObserver stranger(options);
    stranger.connection().start();
    QTRY_VERIFY2(
        stranger.connection().reason().contains(QStringLiteral("certificate verify failed")),
        qPrintable(stranger.connection().reason()));
    QVERIFY(!stranger.connection().isConnected());
}

void tst_GatewayAccess::missingCertificateIsReported()
{
    startWithCertificates();
    Gate::BrokerOptions options = m_bench->clientOptions(QStringLiteral("stranger"));
    options.tls.certificate = QStringLiteral("/nowhere.pem");
    BrokerObserver stranger(options);
    stranger.connection().start();
    QTRY_VERIFY(stranger.connection().reason().startsWith(
        QStringLiteral("the certificates cannot be used: ")));
}

QTEST_GUILESS_MAIN(tst_GatewayAccess)
#include "tst_gatewayaccess.moc"
