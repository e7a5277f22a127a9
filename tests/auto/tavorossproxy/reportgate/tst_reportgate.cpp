// Which reports pass, which wait and which are dropped when those who take them are slow.

#include <tavorossproxy/channel/reportgate_p.h>

#include <QTest>

#include <atomic>
#include <thread>

using namespace Tavoro::SSProxy;
using Internal::ReportGate;

class tst_ReportGate : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();

    void reportsPassWhileTheyAreTaken();
    void reportsBeyondTheLimitWaitInTheirOrder();
    void oldestOfTheSameCodeIsDropped();
    void floodOfOneKindDoesNotDisplaceOthers();
    void oldestOfAllIsDroppedWhereEachIsTheLastOfItsKind();
    void bytesAreLimitedToo();
    void oneReportAlwaysPassesHoweverLong();
    void forgottenReportsAreGone();
    void reportsMayOutliveTheGate();
    void reportsAreLetGoOfOnOtherThreads();

private:
    void make(int count, qint64 bytes);
    /// Returns how many were dropped.
    int take(quint8 code, const std::string &body);
    /// The bodies of those on their way, in their order.
    std::string taken() const;
    void letGo(std::size_t index) { m_taken[index].reset(); }

    std::unique_ptr<ReportGate> m_gate;
    std::vector<std::shared_ptr<IDeviceCommand>> m_taken;
    std::atomic<int> m_woken{0};
};

void tst_ReportGate::init()
{
    make(2, 1000);
}

void tst_ReportGate::make(int count, qint64 bytes)
{
    m_taken.clear();
    m_woken = 0;
    m_gate = std::make_unique<ReportGate>(
        ReportGate::Limits{count, bytes},
        [this](std::shared_ptr<IDeviceCommand> report) { m_taken.push_back(std::move(report)); },
        [this] { ++m_woken; });
}

int tst_ReportGate::take(quint8 code, const std::string &body)
{
    PacketHead head{};
    head.BC = 0x11;
    head.FC = code;
    return m_gate->take(head, body);
}

std::string tst_ReportGate::taken() const
{
    std::string bodies;
    for (const auto &report : m_taken)
        bodies += report ? report->body() + ' ' : "- ";
    return bodies;
}

void tst_ReportGate::reportsPassWhileTheyAreTaken()
{
    for (int i = 0; i < 10; ++i) {
        QCOMPARE(take(3, std::to_string(i)), 0);
        QCOMPARE(m_taken.back()->body(), std::to_string(i));
        QCOMPARE(m_taken.back()->head().FC, quint8(3));
        m_taken.back().reset();
    }
    QCOMPARE(m_woken.load(), 0);
}

void tst_ReportGate::reportsBeyondTheLimitWaitInTheirOrder()
{
    for (const char *body : {"a", "b", "c", "d"})
        QCOMPARE(take(3, body), 0);
    QCOMPARE(taken(), std::string("a b "));
    letGo(0);
    letGo(1);
    QCOMPARE(m_woken.load(), 1); // once is enough
    m_gate->deliverWaiting();
    QCOMPARE(taken(), std::string("- - c d "));
    letGo(2);
    QCOMPARE(m_woken.load(), 1); // nothing waits
    QCOMPARE(take(3, "e"), 0);
    QCOMPARE(taken(), std::string("- - - d e "));
}

void tst_ReportGate::oldestOfTheSameCodeIsDropped()
{
    for (const char *body : {"a", "b", "c", "d"})
        take(3, body);
    QCOMPARE(take(3, "e"), 1);
    letGo(0);
    letGo(1);
    m_gate->deliverWaiting();
    QCOMPARE(taken(), std::string("- - d e "));
}

void tst_ReportGate::floodOfOneKindDoesNotDisplaceOthers()
{
    take(1, "a");
    take(1, "b");
    take(2, "other");
    int dropped = 0;
    for (int i = 0; i < 1000; ++i)
        dropped += take(1, std::to_string(i));
    QCOMPARE(dropped, 999);
    letGo(0);
    letGo(1);
    m_gate->deliverWaiting();
    QCOMPARE(taken(), std::string("- - other 999 "));
}

void tst_ReportGate::oldestOfAllIsDroppedWhereEachIsTheLastOfItsKind()
{
    take(1, "a");
    take(1, "b");
    take(2, "two");
    take(3, "three");
    QCOMPARE(take(4, "four"), 1);
    letGo(0);
    letGo(1);
    m_gate->deliverWaiting();
    QCOMPARE(taken(), std::string("- - three four "));
}

void tst_ReportGate::bytesAreLimitedToo()
{
    make(100, 10);
    take(1, "123456");
    take(1, "123456"); // there was room when it came
    QCOMPARE(take(1, "aaaaaa"), 0);
    QCOMPARE(m_taken.size(), std::size_t(2));
    QCOMPARE(take(1, "bbbbbb"), 1);
    letGo(0);
    m_gate->deliverWaiting();
    QCOMPARE(taken(), std::string("- 123456 bbbbbb "));
}

void tst_ReportGate::oneReportAlwaysPassesHoweverLong()
{
    make(0, 0);
    take(1, "long");
    QCOMPARE(taken(), std::string("long "));
    take(1, "next");
    letGo(0);
    m_gate->deliverWaiting();
    QCOMPARE(taken(), std::string("- next "));
}

void tst_ReportGate::forgottenReportsAreGone()
{
    for (const char *body : {"a", "b", "c"})
        take(3, body);
    m_gate->forgetWaiting();
    letGo(0);
    m_gate->deliverWaiting();
    QCOMPARE(taken(), std::string("- b "));
}

void tst_ReportGate::reportsMayOutliveTheGate()
{
    take(3, "a");
    m_gate.reset();
    QCOMPARE(taken(), std::string("a "));
    letGo(0);
}

void tst_ReportGate::reportsAreLetGoOfOnOtherThreads()
{
    constexpr int rounds = 20000;
    make(2, 1000);
    int dropped = 0;
    std::size_t passed = 0;
    const auto letGoElsewhere = [&] {
        passed += m_taken.size();
        std::thread([reports = std::move(m_taken)] {}).detach();
        m_taken.clear();
    };
    for (int i = 0; i < rounds; ++i) {
        dropped += take(3, "report");
        if (i % 100 == 0)
            letGoElsewhere();
        if (m_woken.exchange(0) > 0)
            m_gate->deliverWaiting();
    }
    // Whoever lets go of the last one wakes the gate; none is left behind.
    const auto isThrough = [&] {
        if (m_woken.exchange(0) > 0)
            m_gate->deliverWaiting();
        letGoElsewhere();
        return passed + static_cast<std::size_t>(dropped) == std::size_t(rounds);
    };
    QTRY_VERIFY(isThrough());
}

QTEST_GUILESS_MAIN(tst_ReportGate)
#include "tst_reportgate.moc"
