// Measures how long an operator waits for the device: a T-bar write over TCP to the simulated
// device in another process, from the call to its return, beside two bare blocking sockets in two
// processes that exchange frames of the same size. Logging is off.
//
//   alone          nothing else happens
//   100 idle       with 100 further channels that are connected and have nothing to do
//   500 idle       with 500 of them
//   to device      while the same channel writes a large file
//   from device    while the same channel reads a large file as a stream
//   reports        while the device sends 20,000 reports a second, which the model takes
//   busy           while both cores compute for other programs
//
// latencybenchmark [--case NAME] [--samples N] [--mebibytes N] [--json]
//
// Rounds of writes and of bare exchanges alternate. Each line is the duration that 50, 99 or 99.9 %
// of the exchanges do not exceed, beside that of its peer and the goal for the ratio. --case limits
// the run to one case, besides "alone".

#include "barepeer.h"
#include "loads.h"

#include <support/bench.h>
#include <support/deviceprocess.h>
#include <support/results.h>
#include <support/samples.h>

#include <tavorobizmodel/devicelist.h>
#include <tavorocontrol/autoreportmanager.h>
#include <tavorocontrol/proto/codec.h>
#include <tavorocontrol/screen.h>

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QLoggingCategory>
#include <QTemporaryDir>

#include <algorithm>
#include <functional>
#include <memory>
#include <thread>
#include <vector>

using namespace Tavoro;
using namespace Latency;
using Bench::Goal;
using Bench::numberOf;
using Bench::require;
using Bench::Samples;

namespace {

constexpr int headSize = 40;
constexpr int mostMebibytes = 1024;
constexpr std::size_t samplesPerRound = 500;
constexpr double allowedDelay = 1000; ///< Microseconds that a load may add to the p99.

/// Two positions, so that each write moves the bar. No take happens.
std::vector<ProtoModel::Screen::s_TBar> barAt(int percent)
{
    ProtoModel::Screen::s_TBar bar;
    bar.screenId = 1;
    bar.screenType = 1;
    bar.tbar.percent = percent;
    return {bar};
}

int requestSize()
{
    std::string body;
    ajson::encodeRecord(barAt(10), body);
    return headSize + static_cast<int>(body.size());
}

struct Wanted {
    QString only; ///< A case, or empty for all of them.
    std::size_t samples = 0;
    int mebibytes = 0;
    bool isJson = false;
};

/// The devices that the cases use. The idle channels lead to a device of their own, as in an
/// installation.
class Setup {
public:
    quint16 idlePort() const { return m_idleDevice.port(); }
    quint16 controlPort() const { return m_device.controlPort(); }
    std::weak_ptr<BizModel::Device> model() const { return m_route.model(); }

private:
    const QTemporaryDir m_folder;
    const Bench::DeviceProcess m_device{QStringLiteral(TAVOROSIM),
                                        {QStringLiteral("--files"), m_folder.path()}};
    const Bench::DeviceProcess m_idleDevice{QStringLiteral(TAVOROSIM), {}};
    const Bench::Route m_route{m_device.port()};
};

struct Durations {
    Samples writes;
    Samples bare;
};

/// A workload, and how it is compared.
struct Case {
    QString name;
    std::function<std::unique_ptr<Load>()> begin; ///< May be empty.
    std::function<void(const Durations &, const Durations &alone)> print;
};

class Benchmark {
public:
    Benchmark(const Wanted &wanted, const Setup &setup)
        : m_wanted(wanted),
          m_setup(setup),
          m_screen(setup.model(), nullptr),
          m_bare(
              {QStringLiteral("bare"), QString::number(requestSize()), QString::number(headSize)},
              requestSize(), headSize),
          m_printer(QStringLiteral("latency"), wanted.isJson)
    { }

    void run()
    {
        Durations alone;
        for (const Case &one : cases()) {
            if (!m_wanted.only.isEmpty() && one.begin && one.name != m_wanted.only)
                continue;
            const Durations durations = measure(one);
            if (!one.begin)
                alone = durations;
            one.print(durations, alone);
        }
    }

private:
    std::vector<Case> cases();
    Durations measure(const Case &one);
    void writeBar();
    void print(const QString &name, const Samples &value, const QString &peer,
               const Samples &peerValue, const std::vector<Goal> &goals) const;
    void printBesideBare(const QString &name, const Durations &durations,
                         const std::vector<Goal> &goals) const;
    void printBesideAlone(const QString &name, const Durations &durations,
                          const Durations &alone) const;
    void printDelay(const QString &name, const Durations &durations, const Durations &alone) const;

    const Wanted m_wanted;
    const Setup &m_setup;
    Control::Screen m_screen;
    BarePeer m_bare;
    const Bench::ResultPrinter m_printer;
    int m_percent = 10;
};

std::vector<Case> Benchmark::cases()
{
    const auto besideBare = [this](const QString &name, std::vector<Goal> goals) {
        return [this, name, goals](const Durations &durations, const Durations &) {
            printBesideBare(name, durations, goals);
        };
    };
    const auto besideAlone = [this](const QString &name) {
        return [this, name](const Durations &durations, const Durations &alone) {
            printBesideAlone(name, durations, alone);
        };
    };
    const auto delay = [this](const QString &name) {
        return [this, name](const Durations &durations, const Durations &alone) {
            printDelay(name, durations, alone);
        };
    };
    const auto idle = [this](int count) {
        return [this, count] {
            return std::make_unique<IdleChannels>(m_setup.idlePort(), count);
        };
    };
    const auto transfer = [this](Transfer::Direction direction) {
        return [this, direction] {
            return std::make_unique<Transfer>(m_setup.model(), direction, m_wanted.mebibytes);
        };
    };
    const auto storm = [this] {
        return std::make_unique<ReportStorm>(m_setup.controlPort(), 20000);
    };
    const auto busy = [] {
        return std::make_unique<BusyCores>();
    };
    const auto named = [](const char *name, const auto &begin, const auto &print) {
        const QString text = QLatin1String(name);
        return Case{text, begin, print(text)};
    };
    return {
        {QStringLiteral("alone"), {}, besideBare(QStringLiteral("alone"), {{1.8}, {1.5}, {}})},
        named("100 idle", idle(100), besideAlone),
        named("500 idle", idle(500), besideAlone),
        named("to device", transfer(Transfer::Direction::ToDevice), delay),
        named("from device", transfer(Transfer::Direction::FromDevice), delay),
        named("reports", storm, delay),
        {QStringLiteral("busy"), busy, besideBare(QStringLiteral("busy"), {{}, {3}, {}})},
    };
}

Durations Benchmark::measure(const Case &one)
{
    const std::unique_ptr<Load> load = one.begin ? one.begin() : nullptr;
    for (int warmUp = 0; warmUp < 200; ++warmUp) {
        m_bare.exchange();
        writeBar();
    }
    Durations durations;
    while (durations.writes.count() < m_wanted.samples) {
        for (std::size_t i = 0; i < samplesPerRound; ++i)
            durations.bare.add([this] { m_bare.exchange(); });
        for (std::size_t i = 0; i < samplesPerRound; ++i)
            durations.writes.add([this] { writeBar(); });
    }
    return durations;
}

void Benchmark::writeBar()
{
    m_percent = m_percent == 10 ? 90 : 10;
    QString error;
    require(m_screen.writeTBar(barAt(m_percent), error), error);
}

/// \a goals are those for the three statistics.
void Benchmark::print(const QString &name, const Samples &value, const QString &peer,
                      const Samples &peerValue, const std::vector<Goal> &goals) const
{
    constexpr double shares[] = {0.5, 0.99, 0.999};
    const char *const statistics[] = {"p50", "p99", "p99.9"};
    for (std::size_t i = 0; i < goals.size(); ++i)
        m_printer.print({name + QLatin1Char(' ') + QLatin1String(statistics[i]),
                         value.percentile(shares[i]), QStringLiteral("us"), peer,
                         peerValue.percentile(shares[i]), goals[i]});
}

void Benchmark::printBesideBare(const QString &name, const Durations &durations,
                                const std::vector<Goal> &goals) const
{
    print(name, durations.writes, QStringLiteral("bare sockets"), durations.bare, goals);
}

void Benchmark::printBesideAlone(const QString &name, const Durations &durations,
                                 const Durations &alone) const
{
    print(name, durations.writes, QStringLiteral("alone"), alone.writes, {{1.3}, {1.3}, {}});
}

/// The peer is the p99 without the load and the delay that a load may add.
void Benchmark::printDelay(const QString &name, const Durations &durations,
                           const Durations &alone) const
{
    printBesideBare(name, durations, {{}, {}, {}});
    m_printer.print({name + QStringLiteral(" p99"),
                     durations.writes.percentile(0.99),
                     QStringLiteral("us"),
                     QStringLiteral("alone + 1 ms"),
                     alone.writes.percentile(0.99) + allowedDelay,
                     {1}});
}

Wanted wantedOf(const QCoreApplication &application)
{
    QCommandLineParser parser;
    const auto add = [&parser](const char *name, const char *value, const char *usual) {
        parser.addOption(
            {QLatin1String(name), QString(), QLatin1String(value), QLatin1String(usual)});
    };
    add("case", "NAME", "");
    add("samples", "N", "20000");
    add("mebibytes", "N", "1024");
    parser.addOption(QCommandLineOption(QStringLiteral("json")));
    parser.process(application);
    return {parser.value(QStringLiteral("case")),
            static_cast<std::size_t>(numberOf(parser, "samples", 1, 10'000'000)),
            numberOf(parser, "mebibytes", 1, mostMebibytes), parser.isSet(QStringLiteral("json"))};
}

} // namespace

int main(int argc, char *argv[])
{
    const std::string role = argc > 1 ? argv[1] : "";
    if (role == "compute")
        return computeForever();
    if (role == "bare" && argc == 4)
        return serveBare(std::atoi(argv[2]), std::atoi(argv[3]));

    QCoreApplication application(argc, argv);
    QLoggingCategory::setFilterRules(QStringLiteral("tavoro.*=false"));
    const Wanted wanted = wantedOf(application);
    const Setup setup;
    BizModel::DeviceList::instance()->append(setup.model().lock());
    Control::AutoReportManager::instance(); // applies reports on this thread
    std::thread worker([&] {
        Benchmark(wanted, setup).run();
        QMetaObject::invokeMethod(&application, "quit", Qt::QueuedConnection);
    });
    const int status = QCoreApplication::exec();
    worker.join();
    BizModel::DeviceList::instance()->remove(setup.model());
    return status;
}
