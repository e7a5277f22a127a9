// Measures what many devices cost an application: 1, 10, 100 and 500 simulated devices in another
// process, each with a channel and synchronised into the model.
//
//   memory        allocated and resident memory for each device
//   threads       of the whole application
//   synchronise   time until all devices were read again, one after the other, for each device
//   idle          processor time while nothing but keep-alive happens
//   reporting     processor time while each device sends 20 reports a second
//   applied       reports that changed the model in that time, beside those that were sent
//
// fleetbenchmark [--devices N,N,...] [--seconds N] [--json]
//
// --seconds is the time of each of the last two measurements. Growth is compared with 10 devices.
// Linux only.

#include "descriptors.h"
#include "fleet.h"
#include "processcost.h"

#include <support/bench.h>
#include <support/fleetdevices.h>
#include <support/results.h>

#include <tavorocontrol/autoreportmanager.h>

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QLoggingCategory>
#include <QTimer>

#include <algorithm>

using namespace Bench;

namespace {

constexpr int reportRate = 20; ///< Reports of each device in a second.
constexpr int referenceSize = 10;
constexpr int leastSynchronised = 500; ///< Devices, so that the time is long enough to measure.
constexpr Goal linear{1.1, false};

struct Measured {
    int devices = 0;
    double heap = 0, resident = 0; ///< KiB for each device.
    int threads = 0;
    double synchronise = 0; ///< Milliseconds for each device.
    double idle = 0, reporting = 0; ///< Percent of one processor core.
    double sent = 0, applied = 0; ///< Reports.
};

double kibibytesEach(std::size_t before, std::size_t now, int devices)
{
    return (static_cast<double>(now) - static_cast<double>(before)) / 1024 / devices;
}

void processEvents(int milliseconds)
{
    QEventLoop loop;
    QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
    loop.exec();
}

/// The processor time of this process during \a milliseconds, in percent of that time.
double loadDuring(int milliseconds)
{
    QElapsedTimer timer;
    const double before = ProcessCost::now().seconds;
    timer.start();
    processEvents(milliseconds);
    return (ProcessCost::now().seconds - before) * 1e11 / static_cast<double>(timer.nsecsElapsed());
}

void measureReports(FleetDevices &devices, const Fleet &fleet, int milliseconds, Measured &result)
{
    devices.startReports(reportRate);
    result.reporting = loadDuring(milliseconds);
    const qint64 sent = devices.stopReports();
    QElapsedTimer patienceTimer;
    patienceTimer.start();
    while (fleet.applied() < sent && !patienceTimer.hasExpired(patience / 10))
        processEvents(10);
    result.sent = static_cast<double>(sent);
    result.applied = static_cast<double>(fleet.applied());
}

Measured measure(int count, int milliseconds)
{
    Measured result;
    result.devices = count;
    FleetDevices devices(QStringLiteral(FLEETDEVICES), count);
    const ProcessCost before = ProcessCost::now();
    Fleet fleet(devices.ports());
    fleet.synchronise(); // the first time creates what later ones use
    const int rounds = std::max(1, leastSynchronised / count);
    QElapsedTimer timer;
    timer.start();
    for (int round = 0; round < rounds; ++round)
        fleet.synchronise();
    result.synchronise = static_cast<double>(timer.nsecsElapsed()) / 1e6 / count / rounds;
    fleet.countReports();

    processEvents(100); // deferred deletions
    const ProcessCost after = ProcessCost::now();
    result.threads = after.threads;
    result.heap = kibibytesEach(before.heap, after.heap, count);
    result.resident = kibibytesEach(before.resident, after.resident, count);
    result.idle = loadDuring(milliseconds);
    measureReports(devices, fleet, milliseconds, result);
    return result;
}

void print(const ResultPrinter &printer, const Measured &result, const Measured *reference)
{
    const auto name = [&](const char *what) {
        return QStringLiteral("%1 devices: %2").arg(result.devices).arg(QLatin1String(what));
    };
    const auto printGrowth = [&](const char *what, const QString &unit, auto member, Goal goal) {
        Result row{name(what), static_cast<double>(result.*member), unit, {}, 0, {}};
        if (reference && reference->devices < result.devices) {
            row.peer = QStringLiteral("%1 devices").arg(reference->devices);
            row.peerValue = static_cast<double>(reference->*member);
            row.goal = goal;
        }
        printer.print(row);
    };
    const auto percent = QStringLiteral("% of a core");
    printGrowth("heap of each", QStringLiteral("KiB"), &Measured::heap, linear);
    printGrowth("resident memory of each", QStringLiteral("KiB"), &Measured::resident, {});
    printGrowth("threads", {}, &Measured::threads, {1.0, false});
    printGrowth("synchronising each", QStringLiteral("ms"), &Measured::synchronise, linear);
    printer.print({name("idle"), result.idle, percent, {}, 0, {2.0, false}});
    printer.print({name("reporting"), result.reporting, percent, {}, 0, {}});
    printer.print({name("reports applied"),
                   result.applied,
                   {},
                   QStringLiteral("sent"),
                   result.sent,
                   {1.0, true}});
}

} // namespace

int main(int argc, char *argv[])
{
    allowAllDescriptors();
    QCoreApplication application(argc, argv);
    QLoggingCategory::setFilterRules(QStringLiteral("tavoro.*=false"));
    QCommandLineParser parser;
    parser.addOption({QStringLiteral("devices"), QString(), QStringLiteral("N,N,..."),
                      QStringLiteral("1,10,100,500")});
    parser.addOption(
        {QStringLiteral("seconds"), QString(), QStringLiteral("N"), QStringLiteral("10")});
    parser.addOption({QStringLiteral("json"), QString()});
    parser.process(application);
    const int milliseconds = 1000 * numberOf(parser, "seconds", 1, 600);
    const ResultPrinter printer(QStringLiteral("fleet"), parser.isSet(QStringLiteral("json")));
    Tavoro::Control::AutoReportManager::instance();

    Measured reference;
    const QStringList sizes = parser.value(QStringLiteral("devices")).split(QLatin1Char(','));
    for (const QString &size : sizes) {
        require(size.toInt() > 0 && size.toInt() <= 1000,
                QStringLiteral("a fleet has 1 to 1000 devices"));
        const Measured result = measure(size.toInt(), milliseconds);
        if (result.devices == referenceSize)
            reference = result;
        print(printer, result, reference.devices > 0 ? &reference : nullptr);
    }
    return 0;
}
