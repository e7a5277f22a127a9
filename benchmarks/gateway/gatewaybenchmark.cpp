// Measures the gateway to MQTT: the same simulated devices on one gateway, and divided among
// several. Devices, broker and gateways are processes of their own; this one measures.
//
//   start       time until the state of all devices is on the broker, and its size
//   memory      resident memory of all gateways together, and of the broker, after the start
//   idle        processor time and traffic while nothing happens
//   write       time from a call to its answer, one call at a time. The peer is a call through a
//               DeviceSession of this process, to a device that has no gateway
//   load        each device always has a call of this kind under way
//   changes     each device sends reports, and each report changes a topic
//
// "Packets" and "traffic" are what the broker counts, with acknowledgements; traffic is received
// and sent. This process is the only subscriber besides the gateways.
//
// gatewaybenchmark [--devices N] [--gateways N,N,...] [--seconds N] [--samples N] [--json]
//
// --seconds is the time of each of idle, load and changes. Linux only.

#include "directcalls.h"
#include "workloads.h"

#include <fleet/descriptors.h>
#include <support/bench.h>
#include <support/results.h>

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QLoggingCategory>

#include <map>
#include <string>

using namespace Bench;

namespace {

constexpr int reportRate = 20; ///< Reports of each device in a second.

struct Settings {
    int devices = 0, milliseconds = 0, samples = 0;
};

/// Prints the results for a number of gateways beside those of the first number.
class Table {
public:
    explicit Table(bool asJson) : m_printer(QStringLiteral("gateway"), asJson) { }

    void begin(int gateways)
    {
        m_title = gateways == 1 ? QStringLiteral("1 gateway")
                                : QStringLiteral("%1 gateways").arg(gateways);
        if (m_firstTitle.isEmpty())
            m_firstTitle = m_title;
    }
    void add(const char *what, double value, const char *unit)
    {
        Result row{name(what), value, QString::fromUtf8(unit), {}, 0, {}};
        const auto [first, isFirst] = m_first.emplace(what, value);
        if (!isFirst && first->second > 0) {
            row.peer = m_firstTitle;
            row.peerValue = first->second;
        }
        m_printer.print(row);
    }
    void addBeside(const char *what, double value, const char *unit, const char *peer,
                   double peerValue) const
    {
        m_printer.print(
            {name(what), value, QString::fromUtf8(unit), QString::fromUtf8(peer), peerValue, {}});
    }

private:
    QString name(const char *what) const
    {
        return QStringLiteral("%1: %2").arg(m_title, QLatin1String(what));
    }

    const ResultPrinter m_printer;
    QString m_title, m_firstTitle;
    std::map<std::string, double> m_first;
};

void measureStart(Table &table, Site &site, int gatewayCount, int devices)
{
    const StateLoad load = start(site, gatewayCount);
    table.add("start", load.seconds, "s");
    table.add("topics of each device", static_cast<double>(site.client.stateTopics()) / devices,
              "");
    table.add("state of each device", load.bytes / 1024 / devices, "KiB");
    const double gateways = site.gateways->usage().resident;
    table.add("memory of the gateways", gateways, "MiB");
    table.add("memory of each gateway", gateways / gatewayCount, "MiB");
    table.add("memory of the broker", site.broker.usage().resident, "MiB");
}

void measureIdle(Table &table, Site &site, const Settings &settings)
{
    const Cost cost = idle(site, settings.milliseconds);
    table.add("idle, gateways", 100 * cost.gateways / cost.seconds, "% of a core");
    table.add("idle, broker", 100 * cost.broker / cost.seconds, "% of a core");
    table.add("idle, traffic of each device",
              cost.totals.bytes / cost.totalsSeconds / settings.devices, "byte/s");
}

void measureWrites(const Table &table, Site &site, DirectCalls &direct, int samples)
{
    Samples viaGateway, directly;
    callInTurn(site, direct, samples, viaGateway, directly);
    table.addBeside("write p50", viaGateway.percentile(0.5), "us", "direct call",
                    directly.percentile(0.5));
    table.addBeside("write p99", viaGateway.percentile(0.99), "us", "direct call",
                    directly.percentile(0.99));
}

void measureCallLoad(Table &table, Site &site, int milliseconds)
{
    const CallLoad load = callAll(site, milliseconds);
    const auto calls = static_cast<double>(load.durations.count());
    table.add("load, calls", calls / load.seconds, "1/s");
    table.add("load, write p50", load.durations.percentile(0.5) / 1000, "ms");
    table.add("load, write p99", load.durations.percentile(0.99) / 1000, "ms");
    table.add("load, packets to the broker for a call", load.cost.totals.received / calls, "");
    table.add("load, packets from the broker for a call", load.cost.totals.sent / calls, "");
    table.add("load, traffic for a call", load.cost.totals.bytes / calls, "byte");
    table.add("load, gateways for a call", 1e6 * load.cost.gateways / calls, "us");
    table.add("load, broker for a call", 1e6 * load.cost.broker / calls, "us");
}

void measureChanges(Table &table, Site &site, int milliseconds)
{
    const StateLoad load = report(site, reportRate, milliseconds);
    table.addBeside("changes, published", load.messages, "", "reports", load.sent);
    table.add("changes, messages", load.messages / load.seconds, "1/s");
    table.add("changes, traffic for a message", load.cost.totals.bytes / load.messages, "byte");
    table.add("changes, gateways for a message", 1e6 * load.cost.gateways / load.messages, "us");
    table.add("changes, broker for a message", 1e6 * load.cost.broker / load.messages, "us");
}

void measure(Table &table, int gatewayCount, DirectCalls &direct, const Settings &settings)
{
    table.begin(gatewayCount);
    Site site(settings.devices);
    measureStart(table, site, gatewayCount, settings.devices);
    measureIdle(table, site, settings);
    measureWrites(table, site, direct, settings.samples);
    measureCallLoad(table, site, settings.milliseconds);
    measureChanges(table, site, settings.milliseconds);
}

void addOption(QCommandLineParser &parser, const char *name, const char *value)
{
    parser.addOption({QLatin1String(name), QString(), QStringLiteral("N"), QLatin1String(value)});
}

} // namespace

int main(int argc, char *argv[])
{
    allowAllDescriptors();
    QCoreApplication application(argc, argv);
    QLoggingCategory::setFilterRules(QStringLiteral("tavoro.*=false"));
    QCommandLineParser parser;
    addOption(parser, "devices", "200");
    addOption(parser, "gateways", "1,4");
    addOption(parser, "seconds", "5");
    addOption(parser, "samples", "100");
    parser.addOption({QStringLiteral("json"), QString()});
    parser.process(application);
    const Settings settings{numberOf(parser, "devices", 1, 1000),
                            1000 * numberOf(parser, "seconds", 1, 600),
                            numberOf(parser, "samples", 1, 100000)};

    Table table(parser.isSet(QStringLiteral("json")));
    DirectCalls direct;
    const QStringList counts = parser.value(QStringLiteral("gateways")).split(QLatin1Char(','));
    for (const QString &count : counts) {
        require(count.toInt() > 0 && count.toInt() <= settings.devices,
                QStringLiteral("each gateway needs a device"));
        measure(table, count.toInt(), direct, settings);
    }
    return 0;
}
