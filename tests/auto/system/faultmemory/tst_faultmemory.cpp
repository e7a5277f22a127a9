// The heap after every fault of a device in every kind of operation.

#include <support/common/allocated.h>
#include <support/tavorosim/faultrows.h>
#include <support/tavorosim/operations.h>

#include <tavorocontrol/screen.h>

#include <QtTest>

#include <algorithm>
#include <array>
#include <memory>
#include <string>
#include <vector>

namespace {

// Limits of what the simulated device keeps. The oldest is dropped first.
constexpr int maxConnections = 64;
constexpr int maxStreams = 16; // answers in several packets, for each connection

// Faults that make it keep one more connection or answer.
constexpr FaultRow dropBefore{"drop-before", true, longTime, {}, ""};
constexpr FaultRow wrongIndex{"wrong-index", false, longTime, {}, ""};

/// Runs an operation with a fault, and then ends the fault.
void goWrong(FaultBench &bench, const FaultRow &fault, const Operation &operation)
{
    bench.addFault(QLatin1String(fault.fault) + QLatin1String(operation.rule));
    bench.run([&](QString &error) { return operation.run(bench, error); });
    // The request may time out before the device applies the fault.
    auto &simulator = *bench.sync.connection.simulator;
    QTRY_COMPARE(simulator.execute(QStringLiteral("fault list")).text, QString());
    bench.lift(fault.isLost);
    if (operation.isSynchronisation())
        QVERIFY(bench.awaitSave());
}

bool readScreens(FaultBench &bench, QString &error)
{
    std::vector<Tavoro::ProtoModel::Screen::s_ScreenFullDetail> screens;
    return Tavoro::Control::Screen(bench.device()).readDetails(-1, 0, -1, screens, error);
}

/// Makes the simulated device keep as many answers as it can. They are like those that \a operation
/// leaves.
void fillStreams(FaultBench &bench, const Operation &operation)
{
    Operation leaving = operation;
    if (operation.isSynchronisation()) { // the fault affects the screens
        leaving.name = "read of screens";
        leaving.run = readScreens;
    }
    for (int i = 0; i <= maxStreams; ++i)
        goWrong(bench, wrongIndex, leaving);
}

/// The allocated memory when everything that the last exchange started has ended.
Allocated allocatedAtRest(FaultBench &bench)
{
    constexpr int longest = 1000;
    constexpr int calm = 3; // checks in a row without a change
    const auto look = [&] {
        QTest::qWait(2); // reports arrive, and are logged
        bench.journal.clear();
        return Allocated::now();
    };
    Allocated last = look();
    for (int i = 0, unchanged = 0; i < longest && unchanged < calm; ++i) {
        const Allocated now = look();
        unchanged = now == last ? unchanged + 1 : 0;
        last = now;
    }
    return last;
}

} // namespace

class tst_FaultMemory : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void everyAllocationCounts();
    void nothingLeaks_data();
    void nothingLeaks();
    void cleanupTestCase();

private:
    void makeBench(std::chrono::milliseconds requestTime);

    std::chrono::milliseconds m_requestTime{0};
    std::unique_ptr<FaultBench> m_bench;
};

void tst_FaultMemory::initTestCase()
{
    makeBench(longTime);
}

/// Makes a bench whose requests take at most \a requestTime, and whose device remembers as many
/// connections as it can.
void tst_FaultMemory::makeBench(std::chrono::milliseconds requestTime)
{
    m_requestTime = requestTime;
    m_bench.reset(); // the process has one store
    m_bench = std::make_unique<FaultBench>(requestTime);
    for (int i = 0; i <= maxConnections; ++i)
        goWrong(*m_bench, dropBefore, operations[0]);
    m_bench->remember();
}

void tst_FaultMemory::cleanupTestCase()
{
    m_bench.reset();
}

void tst_FaultMemory::everyAllocationCounts()
{
    const Allocated before = allocatedAtRest(*m_bench);
    auto own = std::make_unique<std::string>(1000, 'x');
    const QByteArray ofALibrary(1000, 'x');
    const Allocated with = Allocated::now();
    QCOMPARE(with.blocks - before.blocks, qint64(3));
    QVERIFY(with.bytes - before.bytes > 2000);
    own.reset();
    QCOMPARE(Allocated::now().blocks - before.blocks, qint64(1));
}

void tst_FaultMemory::nothingLeaks_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("column");
    for (int row = 0; row < int(std::size(faultRows)); ++row) {
        for (int column = 0; column < operationCount; ++column)
            QTest::addRow("%s, %s", faultRows[row].fault, operations[column].name) << row << column;
    }
}

/// A round that leaks never returns to the former allocation. Some rounds without a leak do not
/// either, since queues grow and shrink; two that return are proof enough.
void tst_FaultMemory::nothingLeaks()
{
    constexpr int maxRounds = 40;
    QFETCH(int, row);
    QFETCH(int, column);
    const FaultRow &fault = faultRows[row];
    const Operation &operation = operations[column];
    if (fault.time != m_requestTime)
        makeBench(fault.time);
    if (!fault.isLost)
        fillStreams(*m_bench, operation);
    std::array<Allocated, maxRounds + 1> seen{allocatedAtRest(*m_bench)};
    int back = 0; // rounds that returned to the former allocation
    for (int round = 1; back < 2 && round <= maxRounds; ++round) {
        goWrong(*m_bench, fault, operation);
        m_bench->checkResources();
        const auto here = seen.begin() + round;
        *here = allocatedAtRest(*m_bench);
        back += std::any_of(seen.begin(), here,
                            [&](const Allocated &earlier) { return here->isAsIn(earlier); });
    }
    QVERIFY2(back == 2, qPrintable(seen[maxRounds].moreThan(seen[maxRounds - 1])));
}

QTEST_GUILESS_MAIN(tst_FaultMemory)
#include "tst_faultmemory.moc"
