// Measures how many reports per second the dispatcher applies to the model, with logging off.
//
//   power          the state of two power supplies
//   timing         the timing of one of 128 interfaces
//   allTimings     the timings of all of them in one report
//   transfer       the progress of one of 500 files
//   unhandled      a code without a handler: only the path to the handlers
//   dropped        reports while they are stopped
//
// The argument is the number of devices in the model's list; the last one reports. Each report
// differs from the previous one, so that the model changes and emits its signals.

#include <tavorobizmodel/device.h>
#include <tavorobizmodel/devicelist.h>
#include <tavorocontrol/autoreportmanager.h>
#include <tavorocontrol/proto/codec.h>
#include <tavorocontrol/proto/device.h>
#include <tavorocontrol/proto/file.h>
#include <tavorocontrol/proto/interface.h>
#include <tavorossproxy/commandcodes.h>
#include <tavorossproxy/devicechannel.h>
#include <tavorossproxy/devicecommand.h>
#include <tavorossproxy/devicemanager.h>

#include <QCoreApplication>
#include <QLoggingCategory>

#include <benchmark/benchmark.h>

#include <array>
#include <memory>
#include <string>
#include <vector>

using namespace Tavoro;
using SSProxy::Command;

namespace {

constexpr int interfaceCount = 128;
constexpr int fileCount = 500;
constexpr int fileType = 2;

/// A channel that reports refer to; it does nothing.
class QuietChannel final : public SSProxy::DeviceChannel {
public:
    explicit QuietChannel(int number)
    {
        m_info.ip = "192.0.2." + std::to_string(number);
        m_info.mac = {2, 0, 0x5E, 0x10, 0, static_cast<quint8>(number)};
    }

    std::shared_ptr<SSProxy::DeviceResponseCommand>
    sendSyncRequest(std::shared_ptr<SSProxy::DeviceRequestCommand> /*request*/) override
    {
        return nullptr;
    }
    ProtoModel::DeviceBaseInfo deviceBaseInfo() const override { return m_info; }
    bool isHardwareReadFinished() override { return true; }
    bool isMasterControl() override { return true; }
    void stopChannel() override { }

private:
    ProtoModel::DeviceBaseInfo m_info;
};

ProtoModel::s_InterfaceID interfaceId(int number)
{
    return {number / 4 + 1, number % 4 + 1, 0};
}

/// Keeps devices in the model's list until it is destroyed.
class Devices {
public:
    explicit Devices(int count)
    {
        for (int number = 1; number <= count; ++number) {
            m_channels.push_back(std::make_shared<QuietChannel>(number));
            const auto info = m_channels.back()->deviceBaseInfo();
            auto device =
                std::make_shared<BizModel::Device>(static_cast<unsigned short>(number), nullptr);
            device->updateDeviceBaseInfo(info);
            device->setIPAddress(QString::fromStdString(info.ip));
            fill(*device);
            m_devices.push_back(BizModel::DeviceList::instance()->append(device));
        }
    }
    ~Devices()
    {
        for (const auto &device : m_devices)
            BizModel::DeviceList::instance()->remove(device);
    }
    Devices(const Devices &) = delete;
    Devices &operator=(const Devices &) = delete;

    std::weak_ptr<SSProxy::DeviceChannel> reporting() const { return m_channels.back(); }

private:
    static void fill(BizModel::Device &device)
    {
        QString error;
        std::vector<ProtoModel::Interface::s_InterfaceDetail> interfaces(interfaceCount);
        for (int number = 0; number < interfaceCount; ++number)
            interfaces[static_cast<std::size_t>(number)].interfaceId = interfaceId(number);
        device.initModelData(interfaces, error);
        std::vector<ProtoModel::File::s_FileDetail> files(fileCount);
        for (int number = 0; number < fileCount; ++number) {
            files[static_cast<std::size_t>(number)].fileType = fileType + number / 250;
            files[static_cast<std::size_t>(number)].fileId = number % 250;
        }
        device.initModelData(files, error);
    }

    std::vector<std::shared_ptr<QuietChannel>> m_channels;
    std::vector<std::weak_ptr<BizModel::Device>> m_devices;
};

template <class Record>
std::shared_ptr<SSProxy::IDeviceCommand> reportOf(Command command, const Record &record)
{
    auto report = std::make_shared<SSProxy::DeviceResponseCommand>();
    report->head().type = static_cast<quint8>(SSProxy::CommandType::Read);
    report->head().BC = SSProxy::baseCode(command);
    report->head().FC = SSProxy::functionCode(command);
    ajson::encodeRecord(record, report->body());
    return report;
}

using Pair = std::array<std::shared_ptr<SSProxy::IDeviceCommand>, 2>;

/// Lets the last device send the reports in turn.
void report(benchmark::State &state, const Pair &reports)
{
    const Devices devices(static_cast<int>(state.range(0)));
    auto *const manager = SSProxy::DeviceManager::instance();
    const auto channel = devices.reporting();
    std::size_t turn = 0;
    for (auto _ : state) {
        Q_EMIT manager->parseDeviceAutoReportFinished(channel, reports[turn]);
        turn = 1 - turn;
    }
    state.SetItemsProcessed(state.iterations());
}

std::vector<ProtoModel::Interface::s_ActualTimingDetail> timings(int first, int count, int refresh)
{
    std::vector<ProtoModel::Interface::s_ActualTimingDetail> list;
    for (int number = first; number < first + count; ++number) {
        ProtoModel::Interface::s_ActualTimingDetail timing;
        static_cast<ProtoModel::s_InterfaceID &>(timing) = interfaceId(number);
        timing.actualTiming.refresh = refresh;
        list.push_back(timing);
    }
    return list;
}

Pair powerReports()
{
    const auto make = [](qint32 status) {
        return reportOf(Command::DevicePower,
                        ProtoModel::Device::s_Powers{{{1, 1, 1}, {2, 1, status}}});
    };
    return {make(0), make(1)};
}

Pair timingReports(int first, int count)
{
    return {reportOf(Command::InterfaceActualTiming, timings(first, count, 50)),
            reportOf(Command::InterfaceActualTiming, timings(first, count, 60))};
}

Pair transferReports()
{
    const auto make = [](qint32 percent) {
        ProtoModel::File::s_FileTransPercent progress;
        progress.fileType = fileType;
        progress.fileId = 249;
        progress.percent = percent;
        return reportOf(Command::FileTransferProgress, std::vector{progress});
    };
    return {make(10), make(20)};
}

void power(benchmark::State &state)
{
    report(state, powerReports());
}
BENCHMARK(power)->Arg(1)->Arg(100);

void timing(benchmark::State &state)
{
    report(state, timingReports(interfaceCount - 1, 1));
}
BENCHMARK(timing)->Arg(1)->Arg(100);

void allTimings(benchmark::State &state)
{
    report(state, timingReports(0, interfaceCount));
}
BENCHMARK(allTimings)->Arg(1);

void transfer(benchmark::State &state)
{
    report(state, transferReports());
}
BENCHMARK(transfer)->Arg(1)->Arg(100);

void unhandled(benchmark::State &state)
{
    const auto unhandledReport = reportOf(Command::LayerDetail, ProtoModel::Device::s_Powers());
    report(state, {unhandledReport, unhandledReport});
}
BENCHMARK(unhandled)->Arg(1)->Arg(100);

void dropped(benchmark::State &state)
{
    Control::AutoReportManager::instance()->setIsStopAutoReport(true);
    report(state, powerReports());
    Control::AutoReportManager::instance()->setIsStopAutoReport(false);
}
BENCHMARK(dropped)->Arg(1);

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    QLoggingCategory::setFilterRules(QStringLiteral("tavoro.*=false"));
    Control::AutoReportManager::instance();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
