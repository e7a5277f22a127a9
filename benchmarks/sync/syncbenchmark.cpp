// Measures the synchronisation of a large device: 64 inputs, 64 outputs, 32 screens, 4,000 layers
// and 500 files of 256 KiB, read from the simulated device over loopback with DeviceList.
//
//   synchronisation   from the call to the signal that it is finished
//   wire              the part of it between requests and their answers
//   decode            the same JSON, decoded again
//   model             the same records, applied to a device of the model again
//   rest              the rest of the synchronisation: requests, texts, joining, threads
//   bare              two bare sockets move the same bytes in the same packets
//   bare, kept        the same, but the answers are joined in a string of reserved size
//
// syncbenchmark [--scale N] [--rounds N] [--process] [--json]
//
// The device runs on a thread of this process, or with --process in a process of its own.
// --scale 10 multiplies everything by ten, but a device has 255 screens at most. Each line is the
// best of the rounds in milliseconds. The last lines compare the synchronisation with the bare
// sockets and the decoding, and with what no synchronisation can do without: sockets that keep the
// bytes, the decoding and the model.

#include "recordingchannel.h"

#include <support/bench.h>
#include <support/deviceprocess.h>
#include <support/results.h>

#include <tavorobizmodel/devicelist.h>
#include <tavorocontrol/devicelist.h>
#include <tavorocontrol/file.h>
#include <tavorocontrol/proto/codec.h>
#include <tavorocontrol/proto/device.h>
#include <tavorocontrol/proto/interface.h>
#include <tavorocontrol/proto/layer.h>
#include <tavorocontrol/proto/screen.h>
#include <tavorossproxy/devicemanager.h>

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QLoggingCategory>

#include <algorithm>
#include <cstdio>
#include <memory>

using namespace Tavoro;
using Bench::numberOf;
using Bench::require;
using SSProxy::Command;
using SSProxy::DeviceManager;

namespace {

constexpr int filesPerType = 250;
constexpr int firstFileType = 16;
constexpr std::size_t fileSize = 256u << 10;

/// The best of the rounds, in milliseconds.
class Best {
public:
    void take(double milliseconds)
    {
        m_best = m_best < 0 ? milliseconds : std::min(m_best, milliseconds);
    }
    double value() const { return m_best; }

private:
    double m_best = -1;
};

struct Results {
    Best synchronisation, wire, decode, model, bare, bareKept;
};

template <class Work>
double millisecondsOf(Work work)
{
    QElapsedTimer timer;
    timer.start();
    work();
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

Sim::SimOptions largeDevice(int scale)
{
    Sim::SimOptions options;
    options.inputs = 64 * scale;
    options.outputs = 64 * scale;
    options.screens = std::min(32 * scale, 255);
    options.layersPerScreen = (4000 * scale + 2 * options.screens - 1) / (2 * options.screens);
    return options;
}

QStringList argumentsOf(const Sim::SimOptions &options)
{
    QStringList arguments;
    const auto add = [&arguments](const char *name, int value) {
        arguments << QLatin1String(name) << QString::number(value);
    };
    add("--inputs", options.inputs);
    add("--outputs", options.outputs);
    add("--screens", options.screens);
    add("--layers-per-screen", options.layersPerScreen);
    return arguments;
}

/// The device, on a thread of this process or in a process of its own.
class LargeDevice {
public:
    LargeDevice(int scale, bool inProcess)
    {
        if (inProcess)
            m_process = std::make_unique<Bench::DeviceProcess>(QStringLiteral(TAVOROSIM),
                                                               argumentsOf(largeDevice(scale)));
        else
            m_local = std::make_unique<Bench::LocalDevice>(largeDevice(scale));
    }
    quint16 port() const { return m_process ? m_process->port() : m_local->port(); }

private:
    std::unique_ptr<Bench::DeviceProcess> m_process;
    std::unique_ptr<Bench::LocalDevice> m_local;
};

void importFiles(Control::File &files, int count)
{
    std::vector<ProtoModel::File::s_FileInfo> announced(static_cast<std::size_t>(count));
    for (int number = 0; number < count; ++number) {
        auto &file = announced[static_cast<std::size_t>(number)];
        file.fileType = firstFileType + number / filesPerType;
        file.fileId = number % filesPerType;
        file.general.name = "file " + std::to_string(number);
        file.size.length = static_cast<qint32>(fileSize);
    }
    QString error;
    require(files.importFile(announced, error), error);
    for (const auto &file : announced) {
        const std::string content(fileSize, static_cast<char>('a' + file.fileId % 26));
        require(files.importFileBinary({file.fileId, file.fileType}, content, error), error);
    }
}

void synchronise(const BizModel::Device &model)
{
    Control::DeviceList list(nullptr);
    QEventLoop loop;
    bool success = false;
    QObject::connect(&list, &Control::DeviceList::signalReadDeviceDetailFinished, &loop,
                     [&](bool ok) {
                         success = ok;
                         loop.quit();
                     });
    QString error;
    require(list.readDeviceDetail(model.IPAddress(), model.MAC(), model.sn(), error), error);
    loop.exec();
    require(success, QStringLiteral("not synchronised"));
}

/// The records that a synchronisation reads.
struct Records {
    ProtoModel::Device::s_DeviceDetail device;
    std::vector<ProtoModel::Interface::s_InterfaceDetail> interfaces;
    std::vector<ProtoModel::Screen::s_ScreenFullDetail> screens;
    std::vector<ProtoModel::Layer::s_LayerFullDetail> layers;
    std::vector<ProtoModel::File::s_FileDetail> files;
};

template <class Record>
void decodeAnswer(const RecordingChannel &channel, Command command, Record &record)
{
    std::string error;
    const auto answer = channel.answers().find(static_cast<quint16>(command));
    require(answer != channel.answers().end() && ajson::decodeRecord(answer->second, record, error),
            QStringLiteral("not decoded"));
}

void decode(const RecordingChannel &channel, Records &records)
{
    decodeAnswer(channel, Command::DeviceDetail, records.device);
    decodeAnswer(channel, Command::InterfaceDetail, records.interfaces);
    decodeAnswer(channel, Command::ScreenDetail, records.screens);
    decodeAnswer(channel, Command::LayerDetail, records.layers);
    decodeAnswer(channel, Command::FileDetail, records.files);
    require(!records.interfaces.empty() && !records.screens.empty() && !records.layers.empty()
                && !records.files.empty(),
            QStringLiteral("nothing decoded"));
}

void feed(const Records &records, const ProtoModel::DeviceBaseInfo &info)
{
    BizModel::Device device(1, nullptr);
    device.updateDeviceBaseInfo(info);
    QString error;
    require(device.initModelData(records.device, error)
                && device.initModelData(records.interfaces, error)
                && device.initModelData(records.files, error)
                && device.initModelData(records.screens, error)
                && device.initModelData(records.layers, error),
            error);
}

void runRound(const std::shared_ptr<RecordingChannel> &channel, const BizModel::Device &model,
              Results &results)
{
    channel->clear();
    results.synchronisation.take(millisecondsOf([&] { synchronise(model); }));
    results.wire.take(channel->seconds() * 1e3);
    auto *const list = BizModel::DeviceList::instance();
    list->remove(list->findDevice(model.IPAddress(), model.MAC(), model.sn()));

    Records records;
    results.decode.take(millisecondsOf([&] { decode(*channel, records); }));
    for (auto &file : records.files)
        file.binary.assign(fileSize, 'x');
    results.model.take(millisecondsOf([&] { feed(records, channel->deviceBaseInfo()); }));
    const std::string source(fileSize, 's');
    results.bare.take(millisecondsOf([&] { Bench::runBarePair(channel->exchanges(), source); }));
    results.bareKept.take(millisecondsOf([&] {
        std::string kept;
        Bench::runBarePair(channel->exchanges(), source, &kept);
    }));
}

void print(const Results &results, const RecordingChannel &channel)
{
    qint64 bytes = 0;
    for (const Bench::BareExchange &exchange : channel.exchanges())
        bytes += exchange.request + exchange.answer;
    const double whole = results.synchronisation.value();
    const double rest =
        whole - results.wire.value() - results.decode.value() - results.model.value();
    qint64 json = 0;
    for (const auto &[code, answer] : channel.answers())
        json += static_cast<qint64>(answer.size());
    std::printf("%zu exchanges, %.1f MiB, %.1f MiB of it JSON\n", channel.exchanges().size(),
                static_cast<double>(bytes) / (1 << 20), static_cast<double>(json) / (1 << 20));
    std::printf("synchronisation %9.1f ms\n", whole);
    std::printf("  wire          %9.1f ms\n", results.wire.value());
    std::printf("  decode        %9.1f ms\n", results.decode.value());
    std::printf("  model         %9.1f ms\n", results.model.value());
    std::printf("  rest          %9.1f ms\n", rest);
    std::printf("bare            %9.1f ms\n", results.bare.value());
    std::printf("bare, kept      %9.1f ms\n", results.bareKept.value());
}

void compare(const Results &results, const QString &name, bool asJson)
{
    constexpr Bench::Goal goal{1.1};
    const Bench::ResultPrinter printer(QStringLiteral("sync"), asJson);
    const double whole = results.synchronisation.value();
    const double decode = results.decode.value();
    printer.print({name, whole, QStringLiteral("ms"), QStringLiteral("bare + decode"),
                   results.bare.value() + decode, goal});
    printer.print({name,
                   whole,
                   QStringLiteral("ms"),
                   QStringLiteral("bare, kept + decode + model"),
                   results.bareKept.value() + decode + results.model.value(),
                   {}});
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    QLoggingCategory::setFilterRules(QStringLiteral("tavoro.*=false"));
    QCommandLineParser parser;
    parser.addOption(
        {QStringLiteral("scale"), QString(), QStringLiteral("N"), QStringLiteral("1")});
    parser.addOption(
        {QStringLiteral("rounds"), QString(), QStringLiteral("N"), QStringLiteral("3")});
    parser.addOption(QCommandLineOption(QStringLiteral("process")));
    parser.addOption(QCommandLineOption(QStringLiteral("json")));
    parser.process(application);
    const bool hasProcess = parser.isSet(QStringLiteral("process"));
    const bool isJson = parser.isSet(QStringLiteral("json"));
    const int scale = numberOf(parser, "scale", 1, 10);
    const int rounds = numberOf(parser, "rounds", 1, 10);

    const LargeDevice device(scale, hasProcess);
    const Bench::Route route(device.port());
    const auto model = route.model().lock();
    Control::File files(model, nullptr);
    importFiles(files, 500 * scale);

    const auto channel = std::make_shared<RecordingChannel>(route.channel());
    DeviceManager::instance()->removeDeviceChannel(route.channel());
    DeviceManager::instance()->addDeviceChannel(channel);
    Results results;
    for (int round = 0; round < rounds; ++round)
        runRound(channel, *model, results);
    if (!isJson)
        print(results, *channel);
    compare(results,
            QStringLiteral("synchronisation x%1, device %2")
                .arg(scale)
                .arg(hasProcess ? QStringLiteral("process") : QStringLiteral("thread")),
            isJson);
    DeviceManager::instance()->removeDeviceChannel(channel);
    return 0;
}
