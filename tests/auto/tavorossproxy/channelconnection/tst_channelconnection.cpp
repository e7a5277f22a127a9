// How the channel connects, reads the device's identity, monitors the connection with pings, and
// disconnects.

#include <tavorowire/frame.h>

#include <support/tavorossproxy/channeltest.h>

#include <QTest>

using namespace Tavoro::SSProxy;
using namespace std::chrono_literals;

class tst_ChannelConnection : public ChannelTest {
    Q_OBJECT

private Q_SLOTS:
    void identityRequestIsTheFirstFrame();
    void readyChannelKnowsTheIdentity();
    void addressIsThatOfTheConnection();
    void packetSizeIsLimitedByTheChannel();
    void invalidIdentityEndsTheConnection_data();
    void invalidIdentityEndsTheConnection();
    void identityInABrokenFrameEndsTheAttempt();
    void frameOfUnknownKindBeforeTheIdentityIsSkipped();
    void reportBeforeTheIdentityIsDropped();

    void failureToConnectIsReportedAsASentence();
    void connectAttemptEndsAfterItsTimeout();
    void identityTimeoutBeginsWithTheConnection();
    void deviceThatDoesNotIdentifyItselfIsReportedAsSuch();

    void silentDeviceIsPinged();
    void deviceThatStaysSilentIsDisconnected();
    void connectionIsClosedOnlyAfterAPing();
    void pingOfTheDeviceIsAnswered();

    void destroyedChannelDisconnects();
};

void tst_ChannelConnection::identityRequestIsTheFirstFrame()
{
    QCOMPARE(m_peer->opened, 1);
    m_peer->accept();
    QCOMPARE(m_peer->frames.size(), std::size_t(1));
    QCOMPARE(m_peer->frames[0].head.kind, quint8(4));
    const std::string connection = m_peer->frames[0].body;
    QCOMPARE(connection.substr(8), std::string("\1\0\0\0", 4));
    m_peer->fail(QStringLiteral("cable pulled"));
    m_peer->frames.clear();
    m_loop->advance(250ms);
    m_peer->accept();
    QCOMPARE(m_peer->frames[0].body, connection.substr(0, 8) + std::string("\2\0\0\0", 4));
    QVERIFY(!m_channel->isHardwareReadFinished());
}

void tst_ChannelConnection::readyChannelKnowsTheIdentity()
{
    connectChannel();
    QVERIFY(m_channel->isHardwareReadFinished());
    QVERIFY(m_channel->isMasterControl());
    const auto info = m_channel->deviceBaseInfo();
    QCOMPARE(info.name, std::string("wall"));
    QCOMPARE(info.modelId, quint16(0x7701));
    QCOMPARE(info.maxPacketSize, quint32(64));
    QCOMPARE(info.sn, (std::array<quint8, 8>{0x01, 0x23, 0x45, 0x67, 0x89, 0xAB, 0xCD, 0xEF}));
    QString error;
    QVERIFY(m_channel->waitUntilReady(0, error));
}

void tst_ChannelConnection::addressIsThatOfTheConnection()
{
    connectChannel();
    QCOMPARE(m_channel->deviceBaseInfo().ip, std::string("192.0.2.7"));
}

void tst_ChannelConnection::packetSizeIsLimitedByTheChannel()
{
    m_peer->accept();
    Wire::WireHead head;
    head.kind = 5;
    m_peer->send(head, identity(4294967295u));
    QCOMPARE(m_channel->deviceBaseInfo().maxPacketSize, quint32(64 << 20));
}

void tst_ChannelConnection::invalidIdentityEndsTheConnection_data()
{
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<int>("status");
    QTest::addColumn<QString>("sentence");
    QTest::newRow("packets of 0 bytes")
        << QByteArray::fromStdString(identity(0)) << 363
        << QStringLiteral(
               "The device at wall:6630 cannot be reached: it takes packets of 0 bytes.");
    QTest::newRow("no serial number")
        << QByteArray("{\"maxPacketSize\":64}") << 362
        << QStringLiteral("The device at wall:6630 cannot be reached: its identity cannot be read: "
                          "the serial number is not 16 hexadecimal digits.");
    const QByteArray version1 = QByteArray::fromStdString(identity());
    QTest::newRow("another protocol version")
        << QByteArray(version1).replace("\"protocolVersion\":1", "\"protocolVersion\":2") << 359
        << QStringLiteral(
               "The device at wall:6630 cannot be reached: it speaks protocol version 2, "
               "and only version 1 is supported.");
    QTest::newRow("no protocol version")
        << QByteArray(version1).replace("\"protocolVersion\":1,", "") << 359
        << QStringLiteral(
               "The device at wall:6630 cannot be reached: it speaks protocol version 0, "
               "and only version 1 is supported.");
}

void tst_ChannelConnection::invalidIdentityEndsTheConnection()
{
    QFETCH(QByteArray, body);
    QFETCH(int, status);
    QFETCH(QString, sentence);
    m_peer->accept();
    Wire::WireHead head;
    head.kind = 5;
    m_peer->send(head, body.toStdString());
    QVERIFY(!m_channel->isHardwareReadFinished());
    QVERIFY(!m_peer->isOpen);
    QCOMPARE(int(call(request()).response()->status), status);
    QString error;
    QVERIFY(!m_channel->waitUntilReady(0, error));
    QCOMPARE(error, sentence);
}

void tst_ChannelConnection::identityInABrokenFrameEndsTheAttempt()
{
    m_peer->accept();
    Wire::WireHead head;
    head.kind = 5;
    QByteArray frame = Wire::encodeFrame(head, identity());
    frame.back() = '?';
    m_peer->send(frame.toStdString());
    QVERIFY(!m_peer->isOpen);
    QCOMPARE(int(call(request()).response()->status), 361);
}

void tst_ChannelConnection::frameOfUnknownKindBeforeTheIdentityIsSkipped()
{
    m_peer->accept();
    Wire::WireHead head;
    head.kind = 8;
    m_peer->send(head, "a greeting");
    QVERIFY(m_peer->isOpen);
    head.kind = 5;
    m_peer->send(head, identity());
    QVERIFY(m_channel->isHardwareReadFinished());
}

void tst_ChannelConnection::reportBeforeTheIdentityIsDropped()
{
    m_peer->accept();
    Wire::WireHead head;
    head.kind = 3;
    m_peer->send(head, "{}");
    QVERIFY(m_reports.empty());
}

void tst_ChannelConnection::failureToConnectIsReportedAsASentence()
{
    m_peer->fail(QStringLiteral("Connection refused"));
    QString error;
    std::thread waiter([&] { m_channel->waitUntilReady(2000, error); });
    m_loop->awaitWaiting(1);
    m_loop->advance(2s);
    waiter.join();
    QCOMPARE(error,
             QStringLiteral("The device at wall:6630 cannot be reached: Connection refused."));
}

void tst_ChannelConnection::connectAttemptEndsAfterItsTimeout()
{
    m_loop->advance(4999ms);
    QVERIFY(m_peer->isOpen);
    m_loop->advance(1ms);
    QVERIFY(!m_peer->isOpen);
    m_loop->advance(250ms);
    QVERIFY(m_peer->isOpen);
    QCOMPARE(m_peer->opened, 2);
}

void tst_ChannelConnection::identityTimeoutBeginsWithTheConnection()
{
    m_loop->advance(3s);
    m_peer->accept();
    m_loop->advance(4999ms);
    QVERIFY(m_peer->isOpen);
    m_loop->advance(1ms);
    QVERIFY(!m_peer->isOpen);
}

/// The device has as long to identify itself as callers wait by default.
void tst_ChannelConnection::deviceThatDoesNotIdentifyItselfIsReportedAsSuch()
{
    const auto sentence = QStringLiteral(
        "The device at wall:6630 cannot be reached: it did not identify itself in time.");
    m_peer->accept();
    QString early;
    QVERIFY(!m_channel->waitUntilReady(0, early));
    QCOMPARE(early, sentence);

    QString error;
    std::thread waiter([&] { m_channel->waitUntilReady(5000, error); });
    m_loop->awaitWaiting(1);
    m_loop->advance(5s);
    waiter.join();
    QCOMPARE(error, sentence);
    QVERIFY(!m_peer->isOpen);
}

void tst_ChannelConnection::silentDeviceIsPinged()
{
    connectChannel();
    m_loop->advance(4999ms);
    QVERIFY(m_peer->frames.empty());
    for (int i = 0; i < 10; ++i) {
        m_loop->advance(i == 0 ? 1ms : 5000ms);
        QCOMPARE(m_peer->frames.size(), std::size_t(1));
        QCOMPARE(m_peer->frames[0].head.kind, quint8(6));
        m_peer->frames.clear();
        m_peer->send(Wire::encodeLinkFrame(Wire::FrameKind::Pong).toStdString());
    }
    QVERIFY(m_channel->isHardwareReadFinished());
}

void tst_ChannelConnection::deviceThatStaysSilentIsDisconnected()
{
    connectChannel();
    auto caller = call(request(0x1100, 1, {}, 60000));
    const QByteArray frame = Wire::encodeFrame(Wire::responseHead(nextRequest()), "a body");
    m_peer->send(std::string_view(frame.constData(), 38)); // the rest never arrives
    m_loop->advance(14999ms);
    QVERIFY(m_channel->isHardwareReadFinished());
    m_loop->advance(1ms);
    QVERIFY(!m_channel->isHardwareReadFinished());
    QCOMPARE(caller.response()->status, quint16(364));
    QVERIFY(!m_peer->isOpen);
}

void tst_ChannelConnection::connectionIsClosedOnlyAfterAPing()
{
    m_options.keepAliveTimeout = 0ms;
    m_channel.reset();
    m_loop->run();
    openChannel();
    connectChannel();
    m_peer->frames.clear();
    m_loop->advance(5s);
    QCOMPARE(m_peer->frames.size(), std::size_t(1));
    QVERIFY(m_channel->isHardwareReadFinished());
    m_loop->advance(5s);
    QVERIFY(!m_channel->isHardwareReadFinished());
}

void tst_ChannelConnection::pingOfTheDeviceIsAnswered()
{
    connectChannel();
    m_peer->send(Wire::encodeLinkFrame(Wire::FrameKind::Ping, 77).toStdString());
    QCOMPARE(m_peer->frames.size(), std::size_t(1));
    QCOMPARE(m_peer->frames[0].head.kind, quint8(7));
    QCOMPARE(m_peer->frames[0].head.lables, quint8(77));
}

void tst_ChannelConnection::destroyedChannelDisconnects()
{
    connectChannel();
    m_channel.reset();
    QVERIFY(m_peer->isOpen); // until the loop runs
    m_loop->run();
    QVERIFY(!m_peer->isOpen);
    m_loop->advance(60s);
    QCOMPARE(m_peer->opened, 1);
}

QTEST_APPLESS_MAIN(tst_ChannelConnection)
#include "tst_channelconnection.moc"
