#include <tavorossproxy/channel/answerwaits_p.h>

#include <support/tavorossproxy/manualloop.h>

#include <QTest>

#include <thread>

using namespace Tavoro::SSProxy::Internal;
using namespace std::chrono_literals;

/// Waits without a reader; callerreads has those with one.
class tst_AnswerWaits : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { m_waits = std::make_unique<AnswerWaits>(m_clock, nullptr); }
    void noCallerReadsWithoutAReader();
    void waitThatHasEndedDoesNotBlock();
    void waitBlocksUntilItEnds();
    void waitBlocksUntilTheDeadline();
    void endOfOneWaitLeavesTheOthersBlocked();

private:
    /// Waits on a thread of its own until \a deadline.
    std::thread await(AnswerWaits::Wait &wait, Clock::TimePoint deadline);
    void end(AnswerWaits::Wait &wait);

    ManualLoop m_clock;
    std::mutex m_mutex;
    std::unique_ptr<AnswerWaits> m_waits;
};

std::thread tst_AnswerWaits::await(AnswerWaits::Wait &wait, Clock::TimePoint deadline)
{
    return std::thread([this, &wait, deadline] {
        std::unique_lock<std::mutex> lock(m_mutex);
        m_waits->await(wait, lock, deadline);
    });
}

void tst_AnswerWaits::end(AnswerWaits::Wait &wait)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_waits->end(wait);
}

void tst_AnswerWaits::noCallerReadsWithoutAReader()
{
    const AnswerWaits::Wait wait;
    const std::lock_guard<std::mutex> lock(m_mutex);
    QVERIFY(!m_waits->beginReading(wait));
}

void tst_AnswerWaits::waitThatHasEndedDoesNotBlock()
{
    AnswerWaits::Wait wait;
    end(wait);
    std::unique_lock<std::mutex> lock(m_mutex);
    m_waits->await(wait, lock, m_clock.now() + 1h);
    QVERIFY(wait.hasEnded);
}

void tst_AnswerWaits::waitBlocksUntilItEnds()
{
    AnswerWaits::Wait wait;
    std::thread caller = await(wait, m_clock.now() + 1h);
    m_clock.awaitWaiting(1);
    end(wait);
    caller.join();
    QVERIFY(wait.hasEnded);
}

void tst_AnswerWaits::waitBlocksUntilTheDeadline()
{
    AnswerWaits::Wait wait;
    std::thread caller = await(wait, m_clock.now() + 10s);
    m_clock.awaitWaiting(1);
    m_clock.advance(10s);
    caller.join();
    QVERIFY(!wait.hasEnded);
}

void tst_AnswerWaits::endOfOneWaitLeavesTheOthersBlocked()
{
    AnswerWaits::Wait first, second;
    std::thread firstCaller = await(first, m_clock.now() + 1h);
    m_clock.awaitWaiting(1);
    std::thread secondCaller = await(second, m_clock.now() + 1h);
    m_clock.awaitWaiting(2);
    end(second);
    secondCaller.join();
    QVERIFY(!first.hasEnded);
    end(first);
    firstCaller.join();
}

QTEST_APPLESS_MAIN(tst_AnswerWaits)
#include "tst_answerwaits.moc"
