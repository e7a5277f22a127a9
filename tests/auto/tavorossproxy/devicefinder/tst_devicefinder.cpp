// What is sent to find devices, and when; and what is made of the answers.

#include <tavorossproxy/discovery/devicefinder_p.h>
#include <tavorowire/discovery.h>

#include <support/common/messagecatcher.h>
#include <support/tavorossproxy/manualdatagrams.h>
#include <support/tavorossproxy/manualloop.h>

#include <QTest>

using namespace Tavoro;
using namespace Tavoro::SSProxy;
using namespace std::chrono_literals;
using Internal::DeviceFinder;

class tst_DeviceFinder : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_loop->end(); } // a finder that looks on belongs to the loop

    void datagramsAreAsDocumented();
    void targetsAreAskedAtOnceAndAfterEachInterval();
    void withoutTargetsAllNetworksOfTheTimeAreAsked();
    void withoutAnIntervalOnlyWhoAsksIsHeard();
    void intervalWithoutEndIsADay();
    void stoppedFinderIsSilent();
    void finderWithoutAPortTellsWhy();
    void endOfTheThreadClosesThePort();
    void answerTellsTheDeviceAndWhereItIs();
    void whatIsNoAnswerIsDropped_data();
    void whatIsNoAnswerIsDropped();
    void floodOfThatIsToldOnceASecond();

private:
    std::shared_ptr<DeviceFinder> start(const std::vector<DiscoveryTarget> &targets,
                                        std::chrono::milliseconds interval);

    std::shared_ptr<ManualLoop> m_loop;
    ManualNetwork m_network;
    std::vector<ProtoModel::DeviceBaseInfo> m_found;
    QString m_error;
};

void tst_DeviceFinder::init()
{
    m_loop = std::make_shared<ManualLoop>();
    m_network = {};
    m_found.clear();
}

std::shared_ptr<DeviceFinder> tst_DeviceFinder::start(const std::vector<DiscoveryTarget> &targets,
                                                      std::chrono::milliseconds interval)
{
    auto finder = std::make_shared<DeviceFinder>(
        m_loop, std::make_unique<ManualDatagramPort>(m_network), targets, interval);
    m_error.clear();
    finder->start([this](const auto &device) { m_found.push_back(device); }, m_error);
    return finder;
}

void tst_DeviceFinder::datagramsAreAsDocumented()
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

void tst_DeviceFinder::targetsAreAskedAtOnceAndAfterEachInterval()
{
    const auto finder =
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
    finder->ask();
    m_loop->run();
    QCOMPARE(m_network.sent, round + round + round + round);
}

void tst_DeviceFinder::withoutTargetsAllNetworksOfTheTimeAreAsked()
{
    m_network.broadcasts = QStringList{QStringLiteral("192.0.2.255")};
    const auto finder = start({}, 5s);
    QCOMPARE(m_network.sent, QStringList{QStringLiteral("192.0.2.255:6631 reqKELVORIN:")});
    m_network.broadcasts = QStringList{QStringLiteral("198.51.100.255")};
    m_loop->advance(5s);
    QCOMPARE(m_network.sent.size(), 2);
    QCOMPARE(m_network.sent.last(), QStringLiteral("198.51.100.255:6631 reqKELVORIN:"));
}

void tst_DeviceFinder::withoutAnIntervalOnlyWhoAsksIsHeard()
{
    const auto finder = start({{QStringLiteral("192.0.2.7")}}, 0s);
    m_loop->advance(1h);
    QCOMPARE(m_network.sent.size(), 1);
    finder->ask();
    m_loop->run();
    QCOMPARE(m_network.sent.size(), 2);
}

void tst_DeviceFinder::intervalWithoutEndIsADay()
{
    const auto finder = start({{QStringLiteral("192.0.2.7")}}, std::chrono::milliseconds::max());
    m_loop->advance(23h);
    QCOMPARE(m_network.sent.size(), 1);
    m_loop->advance(1h);
    QCOMPARE(m_network.sent.size(), 2);
}

void tst_DeviceFinder::stoppedFinderIsSilent()
{
    const auto finder = start({{QStringLiteral("192.0.2.7")}}, 5s);
    QCOMPARE(m_network.ports, 1);
    finder->stop();
    finder->ask();
    m_loop->run();
    m_loop->advance(1min);
    QCOMPARE(m_network.ports, 0);
    QCOMPARE(m_network.sent.size(), 1);
}

void tst_DeviceFinder::finderWithoutAPortTellsWhy()
{
    m_network.failure = QStringLiteral("no more sockets");
    const auto finder = start({{QStringLiteral("192.0.2.7")}}, 5s);
    QCOMPARE(m_error, QStringLiteral("Devices cannot be looked for: no more sockets."));
    finder->ask();
    finder->stop();
    m_loop->advance(1min);
    QCOMPARE(m_network.sent, QStringList());
}

void tst_DeviceFinder::endOfTheThreadClosesThePort()
{
    const auto finder = start({}, 5s);
    m_loop->end();
    QCOMPARE(m_network.ports, 0);
    finder->ask();
    finder->stop();
}

void tst_DeviceFinder::answerTellsTheDeviceAndWhereItIs()
{
    const auto finder = start({}, 0s);
    m_network.deliver(QStringLiteral("192.0.2.7"),
                      R"(rspKELVORIN:{"sn":"0123456789ABCDEF","mac":"02005E100001",)"
                      R"("tcpPort":6630,"name":"wall","ip":"10.9.9.9"})");
    QCOMPARE(m_found.size(), std::size_t(1));
    QCOMPARE(m_found[0].ip, std::string("192.0.2.7")); // not what the device takes for its own
    QCOMPARE(m_found[0].tcpPort, quint16(6630));
    QCOMPARE(m_found[0].name, std::string("wall"));
    QCOMPARE(m_found[0].sn[7], quint8(0xEF));
}

void tst_DeviceFinder::whatIsNoAnswerIsDropped_data()
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

void tst_DeviceFinder::whatIsNoAnswerIsDropped()
{
    QFETCH(QByteArray, datagram);
    const auto finder = start({}, 0s);
    m_network.deliver(QStringLiteral("192.0.2.7"), datagram.toStdString());
    QVERIFY(m_found.empty());
}

void tst_DeviceFinder::floodOfThatIsToldOnceASecond()
{
    const auto finder = start({}, 0s);
    MessageCatcher messages;
    for (int i = 0; i < 100000; ++i)
        m_network.deliver(QStringLiteral("192.0.2.7"), "hello");
    QCOMPARE(messages.texts("tavoro.channel", QtDebugMsg).size(), 1);
    m_loop->advance(10s);
    QCOMPARE(messages.texts("tavoro.channel", QtDebugMsg).size(), 2);
    QCOMPARE(messages.texts("tavoro.channel", QtDebugMsg).last(),
             QStringLiteral("No device: further datagrams 99999"));
}

QTEST_GUILESS_MAIN(tst_DeviceFinder)
#include "tst_devicefinder.moc"
