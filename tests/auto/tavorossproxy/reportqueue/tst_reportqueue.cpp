// Which reports are delivered, which wait and which are dropped when receivers are slow.

#include <support/common/patience.h>

#include <tavorossproxy/channel/reportqueue_p.h>

#include <QTest>

#include <atomic>
#include <thread>

using namespace Tavoro::SSProxy;
using Internal::ReportQueue;

class tst_ReportQueue : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();

    void reportsAreDeliveredWhileThereIsRoom();
    void reportsBeyondTheLimitWaitInOrder();
    void oldestReportOfTheSameCodeIsDropped();
    void manyReportsOfOneCodeDoNotDisplaceOthers();
    void oldestOfAllIsDroppedIfEachHasItsOwnCode();
    void bytesAreLimited();
    void oneReportOfAnyLengthIsDelivered();
    void dropWaitingEmptiesTheQueue();
    void reportsMayOutliveTheQueue();
    void reportsAreReleasedOnOtherThreads();

private:
    void make(int count, qint64 bytes);
    /// Returns how many were dropped.
    int take(quint8 code, const std::string &body);
    /// The bodies of the pending reports, in their order.
    std::string taken() const;
    void release(std::size_t index) { m_taken[index].reset(); }

    std::unique_ptr<ReportQueue> m_queue;
    std::vector<std::shared_ptr<IDeviceCommand>> m_taken;
    std::atomic<int> m_woken{0};
};

void tst_ReportQueue::init()
{
    make(2, 1000);
}

void tst_ReportQueue::make(int count, qint64 bytes)
{
    m_taken.clear();
    m_woken = 0;
    m_queue = std::make_unique<ReportQueue>(
        ReportQueue::Limits{count, bytes},
        [this](std::shared_ptr<IDeviceCommand> report) { m_taken.push_back(std::move(report)); },
        [this] { ++m_woken; });
}

int tst_ReportQueue::take(quint8 code, const std::string &body)
{
    PacketHead head{};
    head.BC = 0x11;
    head.FC = code;
    return m_queue->take(head, body);
}

std::string tst_ReportQueue::taken() const
{
    std::string bodies;
    for (const auto &report : m_taken)
        bodies += report ? report->body() + ' ' : "- ";
    return bodies;
}

void tst_ReportQueue::reportsAreDeliveredWhileThereIsRoom()
{
    for (int i = 0; i < 10; ++i) {
        QCOMPARE(take(3, std::to_string(i)), 0);
        QCOMPARE(m_taken.back()->body(), std::to_string(i));
        QCOMPARE(m_taken.back()->head().FC, quint8(3));
        m_taken.back().reset();
    }
    QCOMPARE(m_woken.load(), 0);
}

void tst_ReportQueue::reportsBeyondTheLimitWaitInOrder()
{
    for (const char *body : {"a", "b", "c", "d"})
        QCOMPARE(take(3, body), 0);
    QCOMPARE(taken(), std::string("a b "));
    release(0);
    release(1);
    QCOMPARE(m_woken.load(), 1); // once is enough
    m_queue->deliverWaiting();
    QCOMPARE(taken(), std::string("- - c d "));
    release(2);
    QCOMPARE(m_woken.load(), 1); // nothing waits
    QCOMPARE(take(3, "e"), 0);
    QCOMPARE(taken(), std::string("- - - d e "));
}

void tst_ReportQueue::oldestReportOfTheSameCodeIsDropped()
{
    for (const char *body : {"a", "b", "c", "d"})
        take(3, body);
    QCOMPARE(take(3, "e"), 1);
    release(0);
    release(1);
    m_queue->deliverWaiting();
    QCOMPARE(taken(), std::string("- - d e "));
}

void tst_ReportQueue::manyReportsOfOneCodeDoNotDisplaceOthers()
{
    take(1, "a");
    take(1, "b");
    take(2, "other");
    int dropped = 0;
    for (int i = 0; i < 1000; ++i)
        dropped += take(1, std::to_string(i));
    QCOMPARE(dropped, 999);
    release(0);
    release(1);
    m_queue->deliverWaiting();
    QCOMPARE(taken(), std::string("- - other 999 "));
}

void tst_ReportQueue::oldestOfAllIsDroppedIfEachHasItsOwnCode()
{
    take(1, "a");
    take(1, "b");
    take(2, "two");
    take(3, "three");
    QCOMPARE(take(4, "four"), 1);
    release(0);
    release(1);
    m_queue->deliverWaiting();
    QCOMPARE(taken(), std::string("- - three four "));
}

void tst_ReportQueue::bytesAreLimited()
{
    make(100, 10);
    take(1, "123456");
    take(1, "123456"); // there was room when it arrived
    QCOMPARE(take(1, "aaaaaa"), 0);
    QCOMPARE(m_taken.size(), std::size_t(2));
    QCOMPARE(take(1, "bbbbbb"), 1);
    release(0);
    m_queue->deliverWaiting();
    QCOMPARE(taken(), std::string("- 123456 bbbbbb "));
}

void tst_ReportQueue::oneReportOfAnyLengthIsDelivered()
{
    make(0, 0);
    take(1, "long");
    QCOMPARE(taken(), std::string("long "));
    take(1, "next");
    release(0);
    m_queue->deliverWaiting();
    QCOMPARE(taken(), std::string("- next "));
}

void tst_ReportQueue::dropWaitingEmptiesTheQueue()
{
    for (const char *body : {"a", "b", "c"})
        take(3, body);
    m_queue->dropWaiting();
    release(0);
    m_queue->deliverWaiting();
    QCOMPARE(taken(), std::string("- b "));
}

void tst_ReportQueue::reportsMayOutliveTheQueue()
{
    take(3, "a");
    m_queue.reset();
    QCOMPARE(taken(), std::string("a "));
    release(0);
}

void tst_ReportQueue::reportsAreReleasedOnOtherThreads()
{
    constexpr int rounds = 20000;
    make(2, 1000);
    int dropped = 0;
    std::size_t passed = 0;
    const auto releaseElsewhere = [&] {
        passed += m_taken.size();
        std::thread([reports = std::move(m_taken)] {}).detach();
        m_taken.clear();
    };
    for (int i = 0; i < rounds; ++i) {
        dropped += take(3, "report");
        if (i % 100 == 0)
            releaseElsewhere();
        if (m_woken.exchange(0) > 0)
            m_queue->deliverWaiting();
    }
    // The thread that releases the last one wakes the queue; no report remains in it.
    const auto isThrough = [&] {
        if (m_woken.exchange(0) > 0)
            m_queue->deliverWaiting();
        releaseElsewhere();
        return passed + static_cast<std::size_t>(dropped) == std::size_t(rounds);
    };
    QTRY_VERIFY(isThrough());
}

QTEST_GUILESS_MAIN(tst_ReportQueue)
#include "tst_reportqueue.moc"
