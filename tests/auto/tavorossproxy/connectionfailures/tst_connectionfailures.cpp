// Requests whose connection ends or stalls before they are answered.

#include <support/tavorossproxy/channeltest.h>

#include <tavorowire/frame.h>

#include <QTest>

using namespace Tavoro::SSProxy;
using namespace std::chrono_literals;

class tst_ConnectionFailures : public ChannelTest {
    Q_OBJECT

private Q_SLOTS:
    void lostConnectionEndsAllRequests();
    void connectionThatEndsWithinAnAnswerIsReported();
    void stalledAnswerClosesTheConnection();
    void stalledHeadClosesTheConnection();
    void answerThatProgressesKeepsTheConnection();
    void noRequestTakesLongerThanTheChannelAllows();
    void stopEndsAllRequests();
    void endOfTheThreadEndsAllRequests();

private:
    /// Replaces the channel with a connected one with the present m_options.
    void reopenChannel()
    {
        m_channel.reset();
        m_loop->run();
        m_peer->opened = 0;
        openChannel();
        connectChannel();
    }
};

void tst_ConnectionFailures::lostConnectionEndsAllRequests()
{
    connectChannel();
    auto first = call(request());
    auto second = call(request());
    nextRequest();
    nextRequest();
    m_peer->fail(QStringLiteral("cable pulled"));
    QCOMPARE(first.response()->status, quint16(259));
    QCOMPARE(second.response()->status, quint16(259));
}

void tst_ConnectionFailures::connectionThatEndsWithinAnAnswerIsReported()
{
    connectChannel();
    auto first = call(request(0x1101));
    const auto head = nextRequest();
    auto second = call(request(0x1102));
    nextRequest();
    const QByteArray frame = Wire::encodeFrame(Wire::responseHead(head), "a body");
    m_peer->send(std::string_view(frame.constData(), 42));
    m_peer->fail(QStringLiteral("cable pulled"));
    QCOMPARE(first.response()->status, quint16(358));
    QCOMPARE(second.response()->status, quint16(259));
}

void tst_ConnectionFailures::stalledAnswerClosesTheConnection()
{
    m_options.stalledAnswerTimeout = 100ms;
    reopenChannel();
    auto caller = call(request(0x1100, 1, {}, 300));
    const QByteArray frame = Wire::encodeFrame(Wire::responseHead(nextRequest()), "a body");
    m_loop->advance(200ms);
    m_peer->send(std::string_view(frame.constData(), 42));
    m_loop->advance(100ms);
    QCOMPARE(caller.response()->status, quint16(365));
    QVERIFY(!m_channel->isHardwareReadFinished());
    m_loop->run();
    QVERIFY(!m_peer->isOpen);
    m_loop->advance(250ms);
    QCOMPARE(m_peer->opened, 2);
}

void tst_ConnectionFailures::stalledHeadClosesTheConnection()
{
    m_options.stalledAnswerTimeout = 100ms;
    reopenChannel();
    auto caller = call(request(0x1100, 1, {}, 300));
    nextRequest();
    m_peer->send(Wire::encodeLinkFrame(Wire::FrameKind::Ping).left(3).toStdString());
    m_loop->advance(300ms);
    QCOMPARE(caller.response()->status, quint16(260));
    QVERIFY(!m_channel->isHardwareReadFinished());
    m_loop->advance(250ms);
    QCOMPARE(m_peer->opened, 2);
}

void tst_ConnectionFailures::answerThatProgressesKeepsTheConnection()
{
    m_options.stalledAnswerTimeout = 100ms;
    m_options.minTransferRate = 10; // one byte in that time
    reopenChannel();
    auto caller = call(request(0x1100, 1, {}, 300));
    const QByteArray frame = Wire::encodeFrame(Wire::responseHead(nextRequest()), "a body");
    m_loop->advance(100ms);
    m_peer->send(std::string_view(frame.constData(), 42));
    m_loop->advance(101ms);
    m_peer->send(std::string_view(frame.constData() + 42, 1));
    m_loop->advance(99ms);
    QCOMPARE(caller.response()->status, quint16(365));
    QVERIFY(m_channel->isHardwareReadFinished());
    m_peer->send(std::string_view(frame.constData() + 43, 3));
    QCOMPARE(m_channel->statistics().lateAnswers, quint64(1));
}

void tst_ConnectionFailures::noRequestTakesLongerThanTheChannelAllows()
{
    m_options.maxRequestTime = 50ms;
    reopenChannel();
    auto caller = call(request(0x1100, 1, {}, 10000));
    nextRequest();
    m_loop->advance(50ms);
    QCOMPARE(caller.response()->status, quint16(260));
}

void tst_ConnectionFailures::stopEndsAllRequests()
{
    connectChannel();
    auto caller = call(request());
    nextRequest();
    m_channel->stopChannel();
    QCOMPARE(caller.response()->status, quint16(259));
}

void tst_ConnectionFailures::endOfTheThreadEndsAllRequests()
{
    connectChannel();
    auto caller = call(request());
    nextRequest();
    m_loop->end();
    QCOMPARE(caller.response()->status, quint16(264));
}

QTEST_APPLESS_MAIN(tst_ConnectionFailures)
#include "tst_connectionfailures.moc"
