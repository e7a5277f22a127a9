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
// transferbenchmark [--size MEBIBYTES] [--packet BYTES] [--rounds N] [--folder DIR]
//
// Each line is a workload: its best rate over the rounds in MiB per second, the microseconds per
// packet, and the ratio to the bareWrite or bareRead above it. The device runs in the
// same process on its own thread and keeps the file in memory, or in DIR.

#include <support/barepair.h>
#include <support/bench.h>

#include <tavorocontrol/file.h>

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QLoggingCategory>

#include <algorithm>
#include <cstdio>
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
};

struct Workload {
    const char *name;
    bool isBare; ///< The reference for the workloads after it.
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
    parser.process(arguments);
    return {qint64{numberOf(parser, "size", 1, 1024)} << 20,
            numberOf(parser, "packet", 1, 64 << 20), numberOf(parser, "rounds", 1, 100),
            parser.value(QStringLiteral("folder"))};
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
    return {
        {"bareWrite", true, dropWrites},
        {"bareStore", false, store},
        {"import", false,
         [&] {
             importFile(file, content);
         }},
        {"bareRead", true, dropReads},
        {"streamedRead", false,
         [&] {
             readStreamed(file);
         }},
        {"bareGather", false, gather},
        {"wholeRead", false,
         [&] {
             readWhole(file, content.size());
         }},
    };
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
    const double mebibytes = static_cast<double>(wanted.length) / (1 << 20);
    const double packets = static_cast<double>(wanted.length) / wanted.packetSize;
    double bare = 0;
    for (const Workload &workload : workloads) {
        if (workload.isBare)
            bare = workload.best;
        std::printf("%-13s %8.0f MiB/s %9.1f us/packet %6.2f\n", workload.name,
                    mebibytes / workload.best, workload.best / packets * 1e6, bare / workload.best);
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
