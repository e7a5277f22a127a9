// Measures the speed of file transfers over loopback, compared with two bare sockets that move the
// same bytes in the same packets and also wait for each answer.
//
//   bareWrite      a head and a packet, which is discarded, are answered by a head
//   bareStore      as bareWrite, but the packets are joined in a string of reserved size
//   import         File::importFile and File::importFileBinary of a string
//   bareRead       a head is answered by a head and a packet, which is discarded
//   streamedRead   File::readBinary with a callback that discards the packets
//   bareGather     as bareRead, but the packets are joined in a string of reserved size
//   wholeRead      File::readBinary into a string
//
// transferbenchmark [--size MEBIBYTES] [--packet BYTES] [--rounds N] [--folder DIR] [--json]
//
// Each line is a workload: its best rate over the rounds in MiB per second, that of the sockets
// that do the same with the bytes, the ratio and its goal. The device runs in the same process on
// its own thread and keeps the file in memory, or in DIR.

#include <support/barepair.h>
#include <support/bench.h>
#include <support/results.h>

#include <tavorocontrol/file.h>

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QLoggingCategory>

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

using namespace Tavoro;
using Bench::numberOf;
using Bench::require;

namespace {

constexpr int fileType = 2;
constexpr int fileId = 1;

struct Wanted {
    qint64 length = 0; ///< Bytes of the file.
    int packetSize = 0;
    int rounds = 0;
    QString folder;
    bool isJson = false;
};

struct Workload {
    const char *name;
    std::size_t peer; ///< Index of the workload that it is compared with.
    double goal; ///< Least ratio to its peer; 0: no goal.
    std::function<void()> run;
    double best = 0; ///< Seconds.
};

Wanted wantedOf(const QStringList &arguments)
{
    QCommandLineParser parser;
    const auto add = [&parser](const char *name, const char *value, const char *usual) {
        parser.addOption(
            {QLatin1String(name), QString(), QLatin1String(value), QLatin1String(usual)});
    };
    add("size", "MEBIBYTES", "512");
    add("packet", "BYTES", "65536");
    add("rounds", "N", "3");
    add("folder", "DIR", "");
    parser.addOption(QCommandLineOption(QStringLiteral("json")));
    parser.process(arguments);
    return {qint64{numberOf(parser, "size", 1, 1024)} << 20,
            numberOf(parser, "packet", 1, 64 << 20), numberOf(parser, "rounds", 1, 100),
            parser.value(QStringLiteral("folder")), parser.isSet(QStringLiteral("json"))};
}

Sim::SimOptions simOptions(const Wanted &wanted)
{
    Sim::SimOptions options;
    options.packetSize = static_cast<quint32>(wanted.packetSize);
    options.filesFolder = wanted.folder;
    return options;
}

void importFile(Control::File &file, const std::string &content)
{
    ProtoModel::File::s_FileInfo info;
    info.fileType = fileType;
    info.fileId = fileId;
    info.general.name = "benchmark";
    info.size.length = static_cast<qint32>(content.size());
    QString error;
    require(file.importFile({info}, error), error);
    require(file.importFileBinary({fileId, fileType}, content, error), error);
}

void readStreamed(Control::File &file)
{
    const auto drop = [](bool ok, double, const std::string &, QString &error) {
        require(ok, error);
    };
    require(file.readBinary(fileType, fileId, drop), QStringLiteral("not read"));
}

void readWhole(Control::File &file, std::size_t length)
{
    std::string read;
    QString error;
    require(file.readBinary(fileType, fileId, read, error), error);
    require(read.size() == length, QStringLiteral("not the same length"));
}

std::vector<Workload> workloads(Control::File &file, const std::string &content,
                                const Wanted &wanted)
{
    const auto reads = Bench::bareReads(wanted.length, wanted.packetSize);
    const auto writes = Bench::bareWrites(wanted.length, wanted.packetSize);
    const auto gather = [&content, reads] {
        std::string read;
        Bench::runBarePair(reads, content, &read);
    };
    const auto store = [&content, writes] {
        std::string stored;
        Bench::runBarePair(writes, content, nullptr, &stored);
    };
    const auto dropWrites = [&content, writes] {
        Bench::runBarePair(writes, content);
    };
    const auto dropReads = [&content, reads] {
        Bench::runBarePair(reads, content);
    };
    const auto import = [&file, &content] {
        importFile(file, content);
    };
    const auto streamed = [&file] {
        readStreamed(file);
    };
    const auto whole = [&file, &content] {
        readWhole(file, content.size());
    };
    // clang-format off
    return {
    //   name            peer  goal  work
        {"bareWrite",    0,    0,    dropWrites},
        {"bareStore",    0,    0,    store},
        {"import",       1,    0.95, import},
        {"bareRead",     3,    0,    dropReads},
        {"streamedRead", 3,    1,    streamed},
        {"bareGather",   3,    0,    gather},
        {"wholeRead",    5,    0.95, whole},
    };
    // clang-format on
}

void measure(Workload &workload)
{
    QElapsedTimer timer;
    timer.start();
    workload.run();
    const double seconds = static_cast<double>(timer.nsecsElapsed()) / 1e9;
    workload.best = workload.best == 0 ? seconds : std::min(workload.best, seconds);
}

void print(const std::vector<Workload> &workloads, const Wanted &wanted)
{
    const Bench::ResultPrinter printer(QStringLiteral("transfer"), wanted.isJson);
    const double mebibytes = static_cast<double>(wanted.length) / (1 << 20);
    for (const Workload &workload : workloads) {
        const Workload &peer = workloads[workload.peer];
        const QString name = QStringLiteral("%1, packets of %2")
                                 .arg(QLatin1String(workload.name))
                                 .arg(wanted.packetSize);
        printer.print({name,
                       mebibytes / workload.best,
                       QStringLiteral("MiB/s"),
                       QLatin1String(peer.name),
                       mebibytes / peer.best,
                       {workload.goal, true}});
    }
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    QLoggingCategory::setFilterRules(QStringLiteral("tavoro.*=false"));
    const Wanted wanted = wantedOf(QCoreApplication::arguments());
    const Bench::LocalDevice device(simOptions(wanted));
    const Bench::Route route(device.port());
    Control::File file(route.model(), nullptr);
    std::string content(static_cast<std::size_t>(wanted.length), 'x');
    for (std::size_t at = 0; at < content.size(); at += 4093)
        content[at] = static_cast<char>(at); // All pieces differ.

    std::vector<Workload> all = workloads(file, content, wanted);
    for (int round = 0; round < wanted.rounds; ++round)
        std::for_each(all.begin(), all.end(), measure);
    print(all, wanted);
    return 0;
}
