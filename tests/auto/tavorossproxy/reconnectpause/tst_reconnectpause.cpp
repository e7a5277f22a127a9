// How long the channel waits between two attempts to connect.

#include <support/tavorossproxy/channeltest.h>

#include <QTest>

using namespace Tavoro::SSProxy;
using namespace std::chrono_literals;

class tst_ReconnectPause : public ChannelTest {
    Q_OBJECT

private Q_SLOTS:
    void pauseDoublesAfterEachFailedAttempt();
    void refreshEndsThePause();

    void deviceThatClosesAtOnceIsReconnectedLessAndLessOften();
    void answerWithoutARequestDoesNotResetThePause();
    void answeredRequestResetsThePause();
    void connectionThatLastedResetsThePause();

private:
    /// Loses the connection or the attempt, and expects the next attempt after exactly \a pause.
    void expectPause(std::chrono::milliseconds pause);
};

void tst_ReconnectPause::expectPause(std::chrono::milliseconds pause)
{
    const int opened = m_peer->opened;
    m_peer->fail(QStringLiteral("cable pulled"));
    m_loop->advance(pause - 1ms);
    QCOMPARE(m_peer->opened, opened);
    m_loop->advance(1ms);
    QCOMPARE(m_peer->opened, opened + 1);
}

void tst_ReconnectPause::pauseDoublesAfterEachFailedAttempt()
{
    for (const auto pause : {250ms, 500ms, 1000ms, 2000ms, 4000ms, 8000ms, 10000ms, 10000ms})
        expectPause(pause);
}

void tst_ReconnectPause::refreshEndsThePause()
{
    m_peer->fail(QStringLiteral("Connection refused"));
    m_channel->reconnectNow();
    m_loop->run();
    QCOMPARE(m_peer->opened, 2);
    m_channel->reconnectNow(); // an attempt that is under way continues
    m_loop->run();
    QCOMPARE(m_peer->opened, 2);
}

void tst_ReconnectPause::deviceThatClosesAtOnceIsReconnectedLessAndLessOften()
{
    for (const auto pause : {250ms, 500ms, 1000ms, 2000ms, 4000ms, 8000ms, 10000ms, 10000ms}) {
        connectChannel();
        QVERIFY(m_channel->isHardwareReadFinished());
        expectPause(pause);
    }
}

void tst_ReconnectPause::answerWithoutARequestDoesNotResetThePause()
{
    expectPause(250ms);
    connectChannel();
    Wire::WireHead head;
    head.kind = 2;
    head.lables = 1;
    m_peer->send(head, "unsolicited");
    expectPause(500ms);
}

void tst_ReconnectPause::answeredRequestResetsThePause()
{
    expectPause(250ms);
    expectPause(500ms);
    connectChannel();
    auto caller = call(request());
    answer(nextRequest());
    QCOMPARE(caller.response()->status, quint16(0));
    expectPause(250ms);
    expectPause(500ms); // the attempt after that has answered nothing
}

void tst_ReconnectPause::connectionThatLastedResetsThePause()
{
    expectPause(250ms);
    connectChannel();
    m_loop->advance(9999ms);
    expectPause(500ms);
    connectChannel();
    m_loop->advance(10s);
    expectPause(250ms);
}

QTEST_APPLESS_MAIN(tst_ReconnectPause)
#include "tst_reconnectpause.moc"
