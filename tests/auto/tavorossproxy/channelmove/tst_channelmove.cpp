// A device that moves, and another one in its place.

#include <support/tavorossproxy/channeltest.h>

#include <QTest>

using namespace Tavoro::SSProxy;
using namespace std::chrono_literals;

class tst_ChannelMove : public ChannelTest {
    Q_OBJECT

private Q_SLOTS:
    void lostChannelConnectsWhereItsDeviceWasSeen();
    void channelThatConnectsTurnsToTheNewPlace();
    void sightingAtTheSamePlaceEndsThePause();
    void channelWithAConnectionStaysWhereItIs();
    void stoppedChannelStaysStopped();
    void sentenceNamesTheNewPlace();
    void addressesWithColonsStandInBrackets();
    void onlyTheDeviceThatIsDueIsTaken();
    void anyDeviceIsTakenWhereNoneIsDue();
    void placeAndDueDeviceAreKnownBeforeItConnects();

private:
    void move(const char *host)
    {
        m_channel->moveTo(QString::fromLatin1(host), 6630);
        m_loop->run();
    }
};

void tst_ChannelMove::lostChannelConnectsWhereItsDeviceWasSeen()
{
    connectChannel();
    m_peer->fail(QStringLiteral("cable pulled"));
    move("192.0.2.99");
    QCOMPARE(m_peer->opened, 2);
    QCOMPARE(m_peer->place, QStringLiteral("192.0.2.99:6630"));
    m_peer->accept("192.0.2.99");
    Wire::WireHead head;
    head.kind = 5;
    m_peer->send(head, identity());
    QVERIFY(m_channel->isHardwareReadFinished());
    QCOMPARE(m_channel->deviceBaseInfo().ip, std::string("192.0.2.99"));
}

void tst_ChannelMove::channelThatConnectsTurnsToTheNewPlace()
{
    move("192.0.2.99");
    QCOMPARE(m_peer->opened, 2);
    QVERIFY(m_peer->isOpen);
    move("192.0.2.99"); // the attempt goes on
    QCOMPARE(m_peer->opened, 2);
    m_loop->advance(4999ms); // it has its whole time
    QVERIFY(m_peer->isOpen);
}

void tst_ChannelMove::sightingAtTheSamePlaceEndsThePause()
{
    move("192.0.2.99");
    m_peer->fail(QStringLiteral("Connection refused"));
    move("192.0.2.99");
    QCOMPARE(m_peer->opened, 3);
}

void tst_ChannelMove::channelWithAConnectionStaysWhereItIs()
{
    connectChannel();
    move("192.0.2.99");
    QVERIFY(m_peer->isOpen);
    QCOMPARE(m_peer->place, QString());
    QVERIFY(m_channel->isHardwareReadFinished());
}

void tst_ChannelMove::stoppedChannelStaysStopped()
{
    m_channel->stopChannel();
    move("192.0.2.99");
    QCOMPARE(m_peer->opened, 1);
}

void tst_ChannelMove::sentenceNamesTheNewPlace()
{
    move("192.0.2.99");
    m_peer->fail(QStringLiteral("Connection refused"));
    QString error;
    QVERIFY(!m_channel->waitUntilReady(0, error));
    QCOMPARE(error,
             QStringLiteral("The device at 192.0.2.99:6630 cannot be reached: "
                            "Connection refused."));
}

void tst_ChannelMove::addressesWithColonsStandInBrackets()
{
    move("2001:db8::1");
    m_peer->fail(QStringLiteral("Connection refused"));
    QString error;
    QVERIFY(!m_channel->waitUntilReady(0, error));
    QCOMPARE(error,
             QStringLiteral("The device at [2001:db8::1]:6630 cannot be reached: "
                            "Connection refused."));
}

void tst_ChannelMove::onlyTheDeviceThatIsDueIsTaken()
{
    m_channel.reset();
    m_loop->run();
    m_options.identity = "0123456789ABCDEE";
    openChannel();
    connectChannel(); // its serial number ends with EF
    QVERIFY(!m_channel->isHardwareReadFinished());
    QVERIFY(!m_peer->isOpen);
    QString error;
    QVERIFY(!m_channel->waitUntilReady(0, error));
    QCOMPARE(error,
             QStringLiteral("The device at wall:6630 cannot be reached: another device is there."));
    QCOMPARE(call(request()).response()->status, quint16(259));

    m_channel.reset();
    m_loop->run();
    m_options.identity = "0123456789ABCDEF";
    openChannel();
    connectChannel();
    QVERIFY(m_channel->isHardwareReadFinished());
}

void tst_ChannelMove::anyDeviceIsTakenWhereNoneIsDue()
{
    QVERIFY(m_options.identity.empty());
    connectChannel();
    QVERIFY(m_channel->isHardwareReadFinished());
}

void tst_ChannelMove::placeAndDueDeviceAreKnownBeforeItConnects()
{
    QCOMPARE(m_channel->expectedIdentity(), std::string());
    QVERIFY(m_channel->connectsTo(QStringLiteral("wall"), 6630));
    QVERIFY(!m_channel->connectsTo(QStringLiteral("wall"), 6631));
    QVERIFY(!m_channel->connectsTo(QStringLiteral("192.0.2.99"), 6630));
    move("192.0.2.99");
    QVERIFY(m_channel->connectsTo(QStringLiteral("192.0.2.99"), 6630));
    QVERIFY(!m_channel->connectsTo(QStringLiteral("wall"), 6630));

    m_options.identity = "0123456789ABCDEF";
    m_channel.reset();
    m_loop->run();
    openChannel();
    QCOMPARE(m_channel->expectedIdentity(), std::string("0123456789ABCDEF"));
}

QTEST_APPLESS_MAIN(tst_ChannelMove)
#include "tst_channelmove.moc"
