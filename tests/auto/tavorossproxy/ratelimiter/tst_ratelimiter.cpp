#include <tavorossproxy/io/ratelimiter_p.h>

#include <support/tavorossproxy/manualloop.h>

#include <QTest>

#include <vector>

using Tavoro::SSProxy::Internal::RateLimiter;
using namespace std::chrono_literals;

class tst_RateLimiter : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();

    void firstEventPassesAndFurtherOnesAreCounted();
    void eventAfterAQuietIntervalPasses();
    void countedEventsDoNotPass();
    void flushReportsTheCountAtOnce();
    void destroyedLimiterReportsNothing();

private:
    ManualLoop m_loop;
    std::vector<quint64> m_counts; ///< Reported counts.
    std::unique_ptr<RateLimiter> m_limiter;
};

void tst_RateLimiter::init()
{
    m_counts.clear();
    m_limiter = std::make_unique<RateLimiter>(m_loop, 1s,
                                              [this](quint64 count) { m_counts.push_back(count); });
}

void tst_RateLimiter::firstEventPassesAndFurtherOnesAreCounted()
{
    QVERIFY(m_limiter->passes());
    QVERIFY(!m_limiter->passes());
    m_loop.advance(999ms);
    QVERIFY(!m_limiter->passes());
    QVERIFY(m_counts.empty());
    m_loop.advance(1ms);
    QCOMPARE(m_counts, std::vector<quint64>{2});
    QVERIFY(!m_limiter->passes()); // the report begins the next interval
    m_loop.advance(1s);
    QCOMPARE(m_counts, (std::vector<quint64>{2, 1}));
}

void tst_RateLimiter::eventAfterAQuietIntervalPasses()
{
    QVERIFY(m_limiter->passes());
    m_loop.advance(1s);
    QVERIFY(m_limiter->passes());
    m_loop.advance(1s);
    QVERIFY(m_counts.empty());
}

void tst_RateLimiter::countedEventsDoNotPass()
{
    m_limiter->count(0);
    m_limiter->count(3);
    m_limiter->count(4);
    QVERIFY(m_counts.empty());
    m_loop.advance(1s);
    QCOMPARE(m_counts, std::vector<quint64>{7});
}

void tst_RateLimiter::flushReportsTheCountAtOnce()
{
    m_limiter->count(5);
    m_limiter->flush();
    QCOMPARE(m_counts, std::vector<quint64>{5});
    m_limiter->flush();
    m_loop.advance(1s);
    QCOMPARE(m_counts, std::vector<quint64>{5});
}

void tst_RateLimiter::destroyedLimiterReportsNothing()
{
    m_limiter->count(5);
    m_limiter.reset();
    m_loop.advance(1s);
    QVERIFY(m_counts.empty());
}

QTEST_APPLESS_MAIN(tst_RateLimiter)
#include "tst_ratelimiter.moc"
