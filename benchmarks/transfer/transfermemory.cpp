// Measures the memory of a streamed read, and of the simulated device that serves it.
//
//   transfermemory [--small MEBIBYTES] [--large MEBIBYTES] [--json]
//
// Starts tavorosim with a folder for its files. Then, first with a small and then with a large
// file, 16 and 1024 MiB by default: writes the file in pieces, reads it back as a stream, compares
// its checksum, and prints the peaks of the resident memory of both processes in KiB. Ends with
// status 1 if the large file raises a peak by more than a few packets. Linux only.

#include <support/bench.h>
#include <support/deviceprocess.h>
#include <support/results.h>

#include <tavorocontrol/file.h>
#include <tavorossproxy/devicemanager.h>
#include <tavorowire/checksums.h>

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QFile>
#include <QLoggingCategory>
#include <QTemporaryDir>

#include <string>

using namespace Tavoro;
using Bench::numberOf;
using Bench::require;

namespace {

constexpr int fileType = 2;
constexpr int fileId = 1;
constexpr int packetSize = 64 * 1024;
constexpr int packetsPerMebibyte = (1 << 20) / packetSize;
constexpr qint64 allowedGrowth = 1024; ///< KiB: a few packets.

/// The highest resident memory of a process so far, in KiB.
qint64 peakOf(qint64 pid)
{
    QFile status(QStringLiteral("/proc/%1/status").arg(pid));
    require(status.open(QIODevice::ReadOnly), status.errorString());
    const QByteArray text = status.readAll();
    const QByteArray line = text.mid(text.indexOf("VmHWM:"));
    return line.left(line.indexOf('\n')).simplified().split(' ').value(1).toLongLong();
}

/// The piece of the file with this number; all pieces differ.
std::string pieceOf(quint32 number)
{
    std::string piece(packetSize, static_cast<char>(number));
    piece.replace(0, sizeof number, reinterpret_cast<const char *>(&number), sizeof number);
    return piece;
}

/// Writes the file and returns its checksum.
quint32 writeFile(Control::File &file, int mebibytes)
{
    ProtoModel::File::s_FileInfo info;
    info.fileType = fileType;
    info.fileId = fileId;
    info.general.name = "memory";
    info.size.length = mebibytes << 20;
    QString error;
    require(file.importFile({info}, error), error);
    const auto count = static_cast<quint32>(mebibytes * packetsPerMebibyte);
    quint32 checksum = 0;
    for (quint32 number = 0; number < count; ++number) {
        const std::string piece = pieceOf(number);
        checksum = SSProxy::Wire::crc32(piece, checksum);
        require(file.writeFileBinary(piece, static_cast<BizModel::Enum::File::FileType>(fileType),
                                     fileId, count, number, error, false),
                error);
    }
    return checksum;
}

quint32 readFile(Control::File &file)
{
    quint32 checksum = 0;
    const auto sum = [&checksum](bool ok, double, const std::string &data, QString &error) {
        require(ok, error);
        checksum = SSProxy::Wire::crc32(data, checksum);
    };
    require(file.readBinary(fileType, fileId, sum), QStringLiteral("not read"));
    return checksum;
}

struct Peaks {
    qint64 reader = 0;
    qint64 device = 0;
};

Peaks transfer(Control::File &file, int mebibytes, const Bench::DeviceProcess &device)
{
    const quint32 written = writeFile(file, mebibytes);
    require(readFile(file) == written, QStringLiteral("not the same content"));
    return {peakOf(QCoreApplication::applicationPid()), peakOf(device.pid())};
}

/// Prints the peak with the large file. Returns false if it is too much above that with the small
/// one.
bool compare(const Bench::ResultPrinter &printer, const QString &name, qint64 small, qint64 large)
{
    printer.print({name,
                   double(large),
                   QStringLiteral("KiB"),
                   QStringLiteral("small file + %1 KiB").arg(allowedGrowth),
                   double(small + allowedGrowth),
                   {1.0}});
    return large <= small + allowedGrowth;
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    QLoggingCategory::setFilterRules(QStringLiteral("tavoro.*=false"));
    QCommandLineParser parser;
    parser.addOption(
        {QStringLiteral("small"), QString(), QStringLiteral("MEBIBYTES"), QStringLiteral("16")});
    parser.addOption(
        {QStringLiteral("large"), QString(), QStringLiteral("MEBIBYTES"), QStringLiteral("1024")});
    parser.addOption(QCommandLineOption(QStringLiteral("json")));
    parser.process(application);
    const int small = numberOf(parser, "small", 1, 2047);
    const int large = numberOf(parser, "large", 1, 2047);

    const QTemporaryDir folder;
    const Bench::DeviceProcess device(QStringLiteral(TAVOROSIM),
                                      {QStringLiteral("--files"), folder.path()});
    const Bench::Route route(device.port());
    Control::File file(route.model(), nullptr);
    const Peaks before = transfer(file, small, device);
    const Peaks after = transfer(file, large, device);
    const Bench::ResultPrinter printer(QStringLiteral("memory"),
                                       parser.isSet(QStringLiteral("json")));
    const bool readerIsFlat =
        compare(printer, QStringLiteral("peak of the reader"), before.reader, after.reader);
    const bool deviceIsFlat =
        compare(printer, QStringLiteral("peak of the device"), before.device, after.device);
    return readerIsFlat && deviceIsFlat ? 0 : 1;
}
