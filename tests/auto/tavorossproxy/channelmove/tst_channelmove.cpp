// A device that moves to another address, and another device at its former address.

#include <support/tavorossproxy/channeltest.h>

#include <QTest>

using namespace Tavoro::SSProxy;
using namespace std::chrono_literals;

class tst_ChannelMove : public ChannelTest {
    Q_OBJECT

private Q_SLOTS:
    void disconnectedChannelConnectsWhereItsDeviceWasSeen();
    void connectingChannelTriesTheNewAddress();
    void sightingAtTheSameAddressEndsThePause();
    void connectedChannelKeepsItsAddress();
    void stoppedChannelStaysStopped();
    void errorNamesTheNewAddress();
    void addressesWithColonsAreInBrackets();
    void onlyTheExpectedDeviceIsAccepted();
    void anyDeviceIsAcceptedIfNoneIsExpected();
    void addressAndExpectedDeviceAreKnownBeforeConnecting();

private:
    void move(const char *host)
    {
        m_channel->moveTo(QString::fromLatin1(host), 6630);
        m_loop->run();
    }
};

void tst_ChannelMove::disconnectedChannelConnectsWhereItsDeviceWasSeen()
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

void tst_ChannelMove::connectingChannelTriesTheNewAddress()
{
    move("192.0.2.99");
    QCOMPARE(m_peer->opened, 2);
    QVERIFY(m_peer->isOpen);
    move("192.0.2.99"); // the attempt continues
    QCOMPARE(m_peer->opened, 2);
    m_loop->advance(4999ms); // it has the whole time of an attempt
    QVERIFY(m_peer->isOpen);
}

void tst_ChannelMove::sightingAtTheSameAddressEndsThePause()
{
    move("192.0.2.99");
    m_peer->fail(QStringLiteral("Connection refused"));
    move("192.0.2.99");
    QCOMPARE(m_peer->opened, 3);
}

void tst_ChannelMove::connectedChannelKeepsItsAddress()
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

void tst_ChannelMove::errorNamesTheNewAddress()
{
    move("192.0.2.99");
    m_peer->fail(QStringLiteral("Connection refused"));
    QString error;
    QVERIFY(!m_channel->waitUntilReady(0, error));
    QCOMPARE(error,
             QStringLiteral("The device at 192.0.2.99:6630 cannot be reached: "
                            "Connection refused."));
}

void tst_ChannelMove::addressesWithColonsAreInBrackets()
{
    move("2001:db8::1");
    m_peer->fail(QStringLiteral("Connection refused"));
    QString error;
    QVERIFY(!m_channel->waitUntilReady(0, error));
    QCOMPARE(error,
             QStringLiteral("The device at [2001:db8::1]:6630 cannot be reached: "
                            "Connection refused."));
}

void tst_ChannelMove::onlyTheExpectedDeviceIsAccepted()
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

void tst_ChannelMove::anyDeviceIsAcceptedIfNoneIsExpected()
{
    QVERIFY(m_options.identity.empty());
    connectChannel();
    QVERIFY(m_channel->isHardwareReadFinished());
}

void tst_ChannelMove::addressAndExpectedDeviceAreKnownBeforeConnecting()
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
