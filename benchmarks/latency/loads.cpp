#include "loads.h"

#include <support/bench.h>

#include <tavorocontrol/file.h>
#include <tavorossproxy/tcpdevicechannel.h>

#include <QCoreApplication>
#include <QTcpSocket>

#include <algorithm>
#include <chrono>
#include <unistd.h>

namespace Latency {

using namespace Tavoro;
using Bench::require;

namespace {

constexpr int fileType = 2;
constexpr int fileId = 1;
constexpr int pieceSize = 64 << 10;
constexpr int piecesPerMebibyte = (1 << 20) / pieceSize;

void announce(Control::File &file, int mebibytes)
{
    ProtoModel::File::s_FileInfo info;
    info.fileType = fileType;
    info.fileId = fileId;
    info.general.name = "latency";
    info.size.length = mebibytes << 20;
    QString error;
    require(file.importFile({info}, error), error);
}

/// Writes the file once, or until \a isEnding.
void write(Control::File &file, int mebibytes, const std::atomic<bool> &isEnding)
{
    const std::string piece(pieceSize, 'p');
    const auto count = static_cast<quint32>(mebibytes * piecesPerMebibyte);
    QString error;
    announce(file, mebibytes);
    for (quint32 number = 0; number < count && !isEnding; ++number)
        require(file.writeFileBinary(piece, static_cast<BizModel::Enum::File::FileType>(fileType),
                                     fileId, count, number, error, false),
                error);
}

/// Reads the file once, or until \a isEnding.
void read(Control::File &file, const std::atomic<bool> &isEnding)
{
    file.readBinary(fileType, fileId, [&](bool ok, double, const std::string &, QString &error) {
        require(ok || isEnding, error);
        file.setCancelledState(isEnding);
    });
}

} // namespace

int computeForever()
{
    const auto parent = ::getppid();
    volatile unsigned number = 0;
    while (true) {
        for (int i = 0; i < 10'000'000; ++i)
            number = number * 1664525 + 1013904223;
        if (::getppid() != parent)
            return 0;
    }
}

BusyCores::BusyCores()
{
    for (unsigned core = 0; core < std::thread::hardware_concurrency(); ++core) {
        m_processes.push_back(std::make_unique<QProcess>());
        m_processes.back()->start(QCoreApplication::applicationFilePath(),
                                  {QStringLiteral("compute")});
        require(m_processes.back()->waitForStarted(), QStringLiteral("no process for a core"));
    }
}

BusyCores::~BusyCores()
{
    for (const auto &process : m_processes) {
        process->kill();
        process->waitForFinished();
    }
}

IdleChannels::IdleChannels(quint16 port, int count)
{
    for (int number = 0; number < count; ++number)
        m_channels.push_back(SSProxy::openTcpDeviceChannel(QStringLiteral("127.0.0.1"), port));
    QString error;
    for (const auto &channel : m_channels)
        require(channel->waitUntilReady(Bench::patience, error), error);
}

IdleChannels::~IdleChannels()
{
    for (const auto &channel : m_channels)
        channel->stopChannel();
}

Transfer::Transfer(const std::weak_ptr<BizModel::Device> &model, Direction direction, int mebibytes)
{
    m_thread = std::thread([this, model, direction, mebibytes] {
        Control::File file(model, nullptr);
        while (!m_isEnding && direction == Direction::ToDevice)
            write(file, mebibytes, m_isEnding);
        while (!m_isEnding)
            read(file, m_isEnding);
    });
}

Transfer::~Transfer()
{
    m_isEnding = true;
    m_thread.join();
}

ReportStorm::ReportStorm(quint16 controlPort, int perSecond)
    : m_thread([this, controlPort, perSecond] { run(controlPort, perSecond); })
{ }

ReportStorm::~ReportStorm()
{
    m_isEnding = true;
    m_thread.join();
}

/// Each millisecond sends the commands for it. Commands that are late are not made up for in one
/// go: the device would report in bursts.
void ReportStorm::run(quint16 controlPort, int perSecond) const
{
    QTcpSocket console;
    console.connectToHost(QHostAddress::LocalHost, controlPort);
    require(console.waitForConnected(Bench::patience), console.errorString());
    QByteArray commands;
    for (int number = 0; number < std::max(perSecond / 1000, 1); ++number)
        commands += number % 2 == 0 ? "power 1 0\n" : "power 1 1\n";
    auto next = std::chrono::steady_clock::now();
    while (!m_isEnding) {
        console.write(commands);
        console.flush();
        next = std::max(next + std::chrono::milliseconds(1), std::chrono::steady_clock::now());
        std::this_thread::sleep_until(next);
        console.waitForReadyRead(0);
        console.readAll();
    }
}

} // namespace Latency
