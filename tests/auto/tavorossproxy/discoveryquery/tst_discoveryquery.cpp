// When discovery requests are sent, to which addresses, and how answers are read.

#include <tavorossproxy/discovery/discoveryquery_p.h>
#include <tavorowire/discovery.h>

#include <support/common/messagecatcher.h>
#include <support/tavorossproxy/manualdatagrams.h>
#include <support/tavorossproxy/manualloop.h>

#include <QTest>

using namespace Tavoro;
using namespace Tavoro::SSProxy;
using namespace std::chrono_literals;
using Internal::DiscoveryQuery;

class tst_DiscoveryQuery : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_loop->end(); } // the loop owns a query that is still running

    void datagramsAreAsDocumented();
    void targetsGetARequestAtOnceAndAfterEachInterval();
    void withoutTargetsEachCurrentNetworkGetsARequest();
    void withoutAnIntervalRequestsAreSentOnDemandOnly();
    void longestIntervalIsADay();
    void stoppedQuerySendsNothing();
    void queryWithoutASocketReportsWhy();
    void endOfTheThreadClosesTheSocket();
    void answerYieldsTheDeviceAndItsAddress();
    void invalidAnswerIsDropped_data();
    void invalidAnswerIsDropped();
    void invalidAnswersAreLoggedOnceASecond();

private:
    std::shared_ptr<DiscoveryQuery> start(const std::vector<DiscoveryTarget> &targets,
                                          std::chrono::milliseconds interval);

    std::shared_ptr<ManualLoop> m_loop;
    ManualNetwork m_network;
    std::vector<ProtoModel::DeviceBaseInfo> m_found;
    QString m_error;
};

void tst_DiscoveryQuery::init()
{
    m_loop = std::make_shared<ManualLoop>();
    m_network = {};
    m_found.clear();
}

std::shared_ptr<DiscoveryQuery>
tst_DiscoveryQuery::start(const std::vector<DiscoveryTarget> &targets,
                          std::chrono::milliseconds interval)
{
    auto query = std::make_shared<DiscoveryQuery>(
        m_loop, std::make_unique<ManualDatagramSocket>(m_network), targets, interval);
    m_error.clear();
    query->start([this](const auto &device) { m_found.push_back(device); }, m_error);
    return query;
}

void tst_DiscoveryQuery::datagramsAreAsDocumented()
{
    QCOMPARE(Wire::encodeDiscoveryRequest(), QByteArray("reqKELVORIN:"));
    QVERIFY(Wire::isDiscoveryRequest("reqKELVORIN:"));
    QVERIFY(Wire::isDiscoveryRequest("reqKELVORIN: of a later version"));
    QVERIFY(!Wire::isDiscoveryRequest("reqKELVORIN"));
    QVERIFY(!Wire::isDiscoveryRequest("rspKELVORIN:"));

    ProtoModel::DeviceBaseInfo device;
    device.name = "wall";
    device.tcpPort = 6630;
    device.slotModels = {1, 2, 3};
    const QByteArray answer = Wire::encodeDiscoveryAnswer(device);
    QVERIFY2(answer.startsWith("rspKELVORIN:{\"protocolVersion\":0,"), answer.constData());
    QVERIFY2(answer.contains("\"tcpPort\":6630,"), answer.constData());
    QVERIFY2(answer.contains("\"slotModels\":[]"), answer.constData());
}

void tst_DiscoveryQuery::targetsGetARequestAtOnceAndAfterEachInterval()
{
    const auto query =
        start({{QStringLiteral("192.0.2.7")}, {QStringLiteral("192.0.2.8"), 77}}, 5s);
    const QStringList round = {QStringLiteral("192.0.2.7:6631 reqKELVORIN:"),
                               QStringLiteral("192.0.2.8:77 reqKELVORIN:")};
    QCOMPARE(m_network.sent, round);
    m_loop->advance(4999ms);
    QCOMPARE(m_network.sent, round);
    m_loop->advance(1ms);
    QCOMPARE(m_network.sent, round + round);
    m_loop->advance(5s);
    QCOMPARE(m_network.sent, round + round + round);
    query->sendNow();
    m_loop->run();
    QCOMPARE(m_network.sent, round + round + round + round);
}

void tst_DiscoveryQuery::withoutTargetsEachCurrentNetworkGetsARequest()
{
    m_network.broadcasts = QStringList{QStringLiteral("192.0.2.255")};
    const auto query = start({}, 5s);
    QCOMPARE(m_network.sent, QStringList{QStringLiteral("192.0.2.255:6631 reqKELVORIN:")});
    m_network.broadcasts = QStringList{QStringLiteral("198.51.100.255")};
    m_loop->advance(5s);
    QCOMPARE(m_network.sent.size(), 2);
    QCOMPARE(m_network.sent.last(), QStringLiteral("198.51.100.255:6631 reqKELVORIN:"));
}

void tst_DiscoveryQuery::withoutAnIntervalRequestsAreSentOnDemandOnly()
{
    const auto query = start({{QStringLiteral("192.0.2.7")}}, 0s);
    m_loop->advance(1h);
    QCOMPARE(m_network.sent.size(), 1);
    query->sendNow();
    m_loop->run();
    QCOMPARE(m_network.sent.size(), 2);
}

void tst_DiscoveryQuery::longestIntervalIsADay()
{
    const auto query = start({{QStringLiteral("192.0.2.7")}}, std::chrono::milliseconds::max());
    m_loop->advance(23h);
    QCOMPARE(m_network.sent.size(), 1);
    m_loop->advance(1h);
    QCOMPARE(m_network.sent.size(), 2);
}

void tst_DiscoveryQuery::stoppedQuerySendsNothing()
{
    const auto query = start({{QStringLiteral("192.0.2.7")}}, 5s);
    QCOMPARE(m_network.sockets, 1);
    query->stop();
    query->sendNow();
    m_loop->run();
    m_loop->advance(1min);
    QCOMPARE(m_network.sockets, 0);
    QCOMPARE(m_network.sent.size(), 1);
}

void tst_DiscoveryQuery::queryWithoutASocketReportsWhy()
{
    m_network.failure = QStringLiteral("no more sockets");
    const auto query = start({{QStringLiteral("192.0.2.7")}}, 5s);
    QCOMPARE(m_error, QStringLiteral("Cannot search for devices: no more sockets."));
    query->sendNow();
    query->stop();
    m_loop->advance(1min);
    QCOMPARE(m_network.sent, QStringList());
}

void tst_DiscoveryQuery::endOfTheThreadClosesTheSocket()
{
    const auto query = start({}, 5s);
    m_loop->end();
    QCOMPARE(m_network.sockets, 0);
    query->sendNow();
    query->stop();
}

void tst_DiscoveryQuery::answerYieldsTheDeviceAndItsAddress()
{
    const auto query = start({}, 0s);
    m_network.deliver(QStringLiteral("192.0.2.7"),
                      R"(rspKELVORIN:{"sn":"0123456789ABCDEF","mac":"02005E100001",)"
                      R"("tcpPort":6630,"name":"wall","ip":"10.9.9.9"})");
    QCOMPARE(m_found.size(), std::size_t(1));
    QCOMPARE(m_found[0].ip, std::string("192.0.2.7")); // not the address that the device reports
    QCOMPARE(m_found[0].tcpPort, quint16(6630));
    QCOMPARE(m_found[0].name, std::string("wall"));
    QCOMPARE(m_found[0].sn[7], quint8(0xEF));
}

void tst_DiscoveryQuery::invalidAnswerIsDropped_data()
{
    QTest::addColumn<QByteArray>("datagram");
    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("a request") << QByteArray("reqKELVORIN:");
    QTest::newRow("no identity") << QByteArray("rspKELVORIN:");
    QTest::newRow("cut off") << QByteArray("rspKELVORIN:{\"sn\":\"0123");
    QTest::newRow("no port") << QByteArray(
        "rspKELVORIN:{\"sn\":\"0123456789ABCDEF\",\"mac\":\"02005E100001\"}");
    QTest::newRow("no serial number")
        << QByteArray("rspKELVORIN:{\"mac\":\"02005E100001\",\"tcpPort\":6630}");
}

void tst_DiscoveryQuery::invalidAnswerIsDropped()
{
    QFETCH(QByteArray, datagram);
    const auto query = start({}, 0s);
    m_network.deliver(QStringLiteral("192.0.2.7"), datagram.toStdString());
    QVERIFY(m_found.empty());
}

void tst_DiscoveryQuery::invalidAnswersAreLoggedOnceASecond()
{
    const auto query = start({}, 0s);
    MessageCatcher messages;
    for (int i = 0; i < 100000; ++i)
        m_network.deliver(QStringLiteral("192.0.2.7"), "hello");
    QCOMPARE(messages.texts("tavoro.channel", QtDebugMsg).size(), 1);
    m_loop->advance(10s);
    QCOMPARE(messages.texts("tavoro.channel", QtDebugMsg).size(), 2);
    QCOMPARE(messages.texts("tavoro.channel", QtDebugMsg).last(),
             QStringLiteral("Ignored further discovery answers 99999"));
}

QTEST_GUILESS_MAIN(tst_DiscoveryQuery)
#include "tst_discoveryquery.moc"
