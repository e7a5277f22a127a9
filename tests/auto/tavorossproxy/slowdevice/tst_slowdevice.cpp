// Devices that send or read a frame slowly: bytes count as progress only if enough of them are
// transferred in time.

#include <tavorowire/frame.h>

#include <support/tavorossproxy/channeltest.h>

#include <QTest>

using namespace Tavoro::SSProxy;
using namespace std::chrono_literals;

class tst_SlowDevice : public ChannelTest {
    Q_OBJECT

private Q_SLOTS:
    void answerThatTricklesEndsTheConnectionWithItsRequest();
    void answerAtTheMinimumRateKeepsTheConnection();
    void tricklingFrameIsNotASignOfLife();
    void frameAtTheMinimumRateIsASignOfLife();
    void requestReadTooSlowlyEndsTheConnection();
    void requestReadAtTheMinimumRateKeepsTheConnection();
    void progressOfARequestCountsWhileAFrameTrickles();

private:
    /// The answer to the next request, with a body of \a size bytes.
    QByteArray longAnswer(std::size_t size)
    {
        return Wire::encodeFrame(Wire::responseHead(nextRequest()), std::string(size, 'x'));
    }
    /// Sends \a count bytes of \a frame from \a position on, and moves the position.
    void sendPart(const QByteArray &frame, int &position, int count)
    {
        m_peer->send(std::string_view(frame.constData() + position, std::size_t(count)));
        position += count;
    }
    /// Writes a body of \a size bytes to a device that reads nothing after its identity request.
    Call callWithUnreadBody(unsigned size)
    {
        connectChannel(size);
        m_peer->setReading(false);
        return call(request(0x1101, 2, std::string(size, 'x'), 600000));
    }
    bool hasUnsentBytes()
    {
        return m_loop->runUntil([this] { return m_peer->unsentBytes() > 0; });
    }
};

void tst_SlowDevice::answerThatTricklesEndsTheConnectionWithItsRequest()
{
    connectChannel();
    auto caller = call(request(0x1100, 1, {}, 10000));
    const QByteArray frame = longAnswer(1000);
    int position = 0;
    sendPart(frame, position, 40); // the head and the beginning of the body
    for (int i = 0; i < 20; ++i) {
        m_loop->advance(500ms);
        sendPart(frame, position, 1);
    }
    QCOMPARE(caller.response()->status, quint16(365));
    QVERIFY(!m_channel->isHardwareReadFinished());
    m_loop->run();
    QVERIFY(!m_peer->isOpen);
    m_loop->advance(250ms);
    QCOMPARE(m_peer->opened, 2);
}

void tst_SlowDevice::answerAtTheMinimumRateKeepsTheConnection()
{
    connectChannel();
    auto caller = call(request(0x1100, 1, {}, 19000));
    const QByteArray frame = longAnswer(100000);
    int position = 0;
    for (int second = 0; second < 19; ++second) {
        sendPart(frame, position, 1024);
        m_loop->advance(1s);
    }
    QCOMPARE(caller.response()->status, quint16(365));
    QVERIFY(m_channel->isHardwareReadFinished());
    sendPart(frame, position, int(frame.size()) - position);
    QCOMPARE(m_channel->statistics().lateAnswers, quint64(1));
}

void tst_SlowDevice::tricklingFrameIsNotASignOfLife()
{
    connectChannel();
    const QByteArray frame = Wire::encodeLinkFrame(Wire::FrameKind::Pong);
    for (int position = 0; position < 30;) {
        sendPart(frame, position, 1);
        QVERIFY(m_channel->isHardwareReadFinished());
        m_loop->advance(500ms);
    }
    QVERIFY(!m_channel->isHardwareReadFinished());
    QString error;
    QVERIFY(!m_channel->waitUntilReady(0, error));
    QCOMPARE(error,
             QStringLiteral("The device at wall:6630 cannot be reached: it stopped answering."));
}

void tst_SlowDevice::frameAtTheMinimumRateIsASignOfLife()
{
    connectChannel();
    Wire::WireHead head;
    head.kind = 3;
    const QByteArray frame = Wire::encodeFrame(head, std::string(50000, 'x'));
    for (int position = 0; position < 40000;) {
        sendPart(frame, position, 2048);
        m_loop->advance(2s);
    }
    QVERIFY(m_channel->isHardwareReadFinished());
}

void tst_SlowDevice::requestReadTooSlowlyEndsTheConnection()
{
    auto caller = callWithUnreadBody(64);
    QVERIFY(hasUnsentBytes());
    for (int taken = 0; taken < 30; ++taken) {
        QVERIFY(m_channel->isHardwareReadFinished());
        m_peer->takePart(1);
        m_loop->advance(500ms);
    }
    QVERIFY(!m_channel->isHardwareReadFinished());
    QCOMPARE(int(caller.response()->status), 364);
}

void tst_SlowDevice::requestReadAtTheMinimumRateKeepsTheConnection()
{
    auto caller = callWithUnreadBody(1 << 20);
    QVERIFY(hasUnsentBytes());
    for (int i = 0; i < 60; ++i) {
        m_peer->takePart(1024);
        m_loop->advance(1s);
    }
    QVERIFY(m_channel->isHardwareReadFinished());
    m_loop->advance(20s);
    QVERIFY(!m_channel->isHardwareReadFinished());
    QCOMPARE(int(caller.response()->status), 364);
}

void tst_SlowDevice::progressOfARequestCountsWhileAFrameTrickles()
{
    auto caller = callWithUnreadBody(1 << 20);
    QVERIFY(hasUnsentBytes());
    const QByteArray frame = Wire::encodeLinkFrame(Wire::FrameKind::Pong);
    for (int position = 0; position < 39;) {
        m_peer->takePart(1024);
        sendPart(frame, position, 1);
        m_loop->advance(1s);
    }
    QVERIFY(m_channel->isHardwareReadFinished());
    m_peer->fail(QStringLiteral("cable pulled"));
    QCOMPARE(int(caller.response()->status), 259);
}

QTEST_APPLESS_MAIN(tst_SlowDevice)
#include "tst_slowdevice.moc"
