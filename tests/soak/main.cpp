// Operates many devices at once: operations from several threads, synchronisations, reports, and
// devices that disconnect and return. During a long round the heap must stop growing. After each
// round everything is destroyed, and the process must hold what it held after the first round.
//
// soak [--devices N] [--rounds N] [--seconds N] [--seed N]

#include "census.h"
#include "fleet.h"
#include "operators.h"
#include "plan.h"

#include <tavorobizmodel/devicelist.h>
#include <tavorocontrol/autoreportmanager.h>
#include <tavorocontrol/devicelist.h>

#include <QCoreApplication>
#include <QLoggingCategory>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <vector>

using namespace Tavoro;

namespace {

constexpr int operatorThreads = 4;
constexpr int restingThreads = 2; ///< The main thread and the thread of all channels.
constexpr std::size_t heapTolerance = 256 * 1024; ///< Allocators and Qt's caches vary by this much.
constexpr int longRound = 20; ///< Seconds after which the heap of a round is stable.
constexpr std::size_t heapOfWork = 2 << 20; ///< Variation caused by requests that are not finished.

struct Round {
    Operators::Counts operations;
    int synchronised = 0;
    int notSynchronised = 0;
    quint64 reports = 0;
    int refused = 0; ///< Disturbances that the device refused.
    std::vector<std::size_t> heaps; ///< Samples in the order of time.

    /// The growth of the heap from the second quarter to the last.
    std::size_t growth() const
    {
        const auto quarter = static_cast<std::ptrdiff_t>(heaps.size() / 4);
        if (quarter == 0)
            return 0;
        const std::size_t early =
            *std::max_element(heaps.begin() + quarter, heaps.begin() + 2 * quarter);
        const std::size_t late = *std::max_element(heaps.end() - quarter, heaps.end());
        return late > early ? late - early : 0;
    }
};

/// Reads one device after the other into the model until it is destroyed.
class Synchroniser : public QObject {
public:
    Synchroniser(const Fleet &fleet, Round &round) : m_fleet(fleet), m_round(round), m_list(nullptr)
    {
        connect(&m_list, &Control::DeviceList::signalReadDeviceDetailFinished, this,
                [this](bool success) {
                    ++(success ? m_round.synchronised : m_round.notSynchronised);
                    QTimer::singleShot(0, this, [this] { readNext(); });
                });
        readNext();
    }

private:
    void readNext()
    {
        QString error;
        if (!m_list.readDeviceDetail(m_fleet.model(m_next++), error))
            QTimer::singleShot(1, this, [this] { readNext(); }); // The device is disconnected.
    }

    const Fleet &m_fleet;
    Round &m_round;
    Control::DeviceList m_list;
    std::size_t m_next = 0;
};

void run(const Plan &plan, unsigned seed, Round &round)
{
    Fleet fleet(plan.devices);
    const Synchroniser synchroniser(fleet, round);
    const Operators operators(fleet, operatorThreads, seed, round.operations);
    std::mt19937 random(seed);
    QTimer disturbing;
    QObject::connect(&disturbing, &QTimer::timeout,
                     [&] { round.refused += fleet.disturb(random) ? 0 : 1; });
    disturbing.start(5);
    QTimer switching;
    QObject::connect(&switching, &QTimer::timeout, [&] { fleet.switchOne(random); });
    switching.start(100);
    QTimer looking;
    QObject::connect(&looking, &QTimer::timeout,
                     [&] { round.heaps.push_back(Census::taken().heap); });
    looking.start(100);
    QTimer::singleShot(plan.seconds * 1000, QCoreApplication::instance(), &QCoreApplication::quit);
    QCoreApplication::exec();
    round.reports = fleet.reports();
}

bool hasWorked(const Round &round)
{
    return round.operations.done > 0 && round.operations.failed > 0 && round.operations.silent == 0
        && round.synchronised > 0 && round.reports > 0 && round.refused == 0;
}

bool isFlat(const Plan &plan, const Round &round, const Census &before, const Census &now)
{
    const bool stoppedGrowing = plan.seconds < longRound || round.growth() <= heapOfWork;
    return stoppedGrowing && now.threads <= before.threads && now.files <= before.files
        && now.heap <= before.heap + heapTolerance;
}

void print(int number, const Round &round, const Census &census)
{
    std::printf("round %d: %d operations done, %d failed with a text, %d without; %d devices "
                "synchronised, %d failed; %llu reports; %d disturbances refused; heap grew by %zu "
                "KiB; afterwards %d threads, %d files, %zu KiB of heap\n",
                number, round.operations.done.load(), round.operations.failed.load(),
                round.operations.silent.load(), round.synchronised, round.notSynchronised,
                static_cast<unsigned long long>(round.reports), round.refused,
                round.growth() / 1024, census.threads, census.files, census.heap / 1024);
    std::fflush(stdout);
}

/// The number of the first failed round; 0 if all passed.
int soak(const Plan &plan)
{
    Census before{};
    for (int number = 1; number <= plan.rounds; ++number) {
        Round round;
        run(plan, plan.seed + static_cast<unsigned>(number), round);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
        const Census now = Census::takenAtRest(restingThreads);
        print(number, round, now);
        if (number == 1)
            before = now;
        if (!hasWorked(round) || !isFlat(plan, round, before, now))
            return number;
    }
    return 0;
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    QLoggingCategory::setFilterRules(QStringLiteral("*=false"));
    Control::AutoReportManager::instance();
    QString fault;
    const auto plan = readPlan(QCoreApplication::arguments(), fault);
    if (!plan) {
        std::fputs(qUtf8Printable(QStringLiteral("soak: %1\n").arg(fault)), stderr);
        return 2;
    }
    const int wrongRound = soak(*plan);
    if (wrongRound != 0)
        std::printf("Round %d leaked resources, or did not do its work.\n", wrongRound);
    return wrongRound == 0 ? 0 : 1;
}
