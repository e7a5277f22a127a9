// Measures the cost of the request path, with a channel that answers immediately.
//
//   encode             a small record is encoded into its body
//   send               a request is made and given to the channel
//   encodeAndSend      both: the minimum
//   writeQuietly       the same write as an operation, with logging off and no status bar
//   writeShown         the same with a status bar that does nothing
//   writeLogged        the same with log lines that the message handler discards
//   readQuietly        a small read as an operation, logging off
//   readLogged
//   writeThroughFullManager   as writeQuietly, with as many channels as the argument
//
//   findChannel        parts of the path: the search for the channel of a device
//   sentence           label and sentence for the status bar
//
// "writeQuietly" minus "encodeAndSend" is the cost of the path. It does not grow with the body.

#include <tavorobizmodel/device.h>
#include <tavorobizmodel/devicelist.h>
#include <tavorocontrol/controlhelper.h>
#include <tavorocontrol/device.h>
#include <tavorocontrol/proto/codec.h>
#include <tavorossproxy/commandcodes.h>
#include <tavorossproxy/devicechannel.h>
#include <tavorossproxy/devicecommand.h>
#include <tavorossproxy/devicemanager.h>

#include <QLoggingCategory>

#include <benchmark/benchmark.h>

#include <memory>
#include <string>
#include <vector>

using namespace Tavoro;
using ProtoModel::Device::s_DeviceGroupInfos;
using ProtoModel::Device::s_swap;

namespace {

/// Answers every request immediately with the same body.
class InstantChannel : public SSProxy::DeviceChannel {
public:
    explicit InstantChannel(quint16 number)
    {
        m_info.ip = "192.0.2." + std::to_string(number);
        m_info.mac = {2, 0, 0x5E, 0x10, quint8(number >> 8), quint8(number & 0xFF)};
        m_info.maxPacketSize = 1 << 20;
        m_response->body() = R"({"groupInfos":[{"groupName":"hall","groupId":"1"}]})";
        m_response->head().type = static_cast<quint8>(SSProxy::CommandType::Read);
        m_response->head().totalCount = 1;
    }

    std::shared_ptr<SSProxy::DeviceResponseCommand>
    sendSyncRequest(std::shared_ptr<SSProxy::DeviceRequestCommand> request) override
    {
        benchmark::DoNotOptimize(request->body().data());
        return std::make_shared<SSProxy::DeviceResponseCommand>(*m_response);
    }
    ProtoModel::DeviceBaseInfo deviceBaseInfo() const override { return m_info; }
    bool isHardwareReadFinished() override { return true; }
    bool isMasterControl() override { return true; }
    void stopChannel() override { }

private:
    ProtoModel::DeviceBaseInfo m_info;
    const std::shared_ptr<SSProxy::DeviceResponseCommand> m_response =
        std::make_shared<SSProxy::DeviceResponseCommand>();
};

/// Devices with channels in the manager; requests go to the last one.
class Setup {
public:
    explicit Setup(int channelCount = 1)
    {
        for (int number = 1; number <= channelCount; ++number) {
            m_channels.push_back(std::make_shared<InstantChannel>(quint16(number)));
            SSProxy::DeviceManager::instance()->addDeviceChannel(m_channels.back());
        }
        const auto info = m_channels.back()->deviceBaseInfo();
        m_model->updateDeviceBaseInfo(info);
        m_model->setIPAddress(QString::fromStdString(info.ip));
        m_model->setName(QStringLiteral("benchmark"));
    }
    ~Setup()
    {
        for (const auto &channel : m_channels)
            SSProxy::DeviceManager::instance()->removeDeviceChannel(channel);
    }
    Setup(const Setup &) = delete;
    Setup &operator=(const Setup &) = delete;

    SSProxy::DeviceChannel &channel() { return *m_channels.back(); }
    const BizModel::Device &model() const { return *m_model; }
    Control::Device &device() { return m_device; }

private:
    std::vector<std::shared_ptr<InstantChannel>> m_channels;
    const std::shared_ptr<BizModel::Device> m_model =
        std::make_shared<BizModel::Device>(static_cast<unsigned short>(1), nullptr);
    Control::Device m_device{m_model, nullptr};
};

/// Switches the log lines of the library on or off until it is destroyed, and discards them.
class Logging {
public:
    explicit Logging(bool on) : m_handler(qInstallMessageHandler(&Logging::drop))
    {
        QLoggingCategory::setFilterRules(on ? QStringLiteral("tavoro.control=true")
                                            : QStringLiteral("tavoro.control=false"));
    }
    ~Logging()
    {
        QLoggingCategory::setFilterRules(QString());
        qInstallMessageHandler(m_handler);
    }
    Logging(const Logging &) = delete;
    Logging &operator=(const Logging &) = delete;

private:
    static void drop(QtMsgType, const QMessageLogContext &, const QString &) { }

    const QtMessageHandler m_handler;
};

std::shared_ptr<SSProxy::DeviceRequestCommand> swapRequest()
{
    auto request = std::make_shared<SSProxy::DeviceRequestCommand>();
    request->head().type = static_cast<quint8>(SSProxy::CommandType::Write);
    request->head().BC = SSProxy::baseCode(SSProxy::Command::DeviceSwap);
    request->head().FC = SSProxy::functionCode(SSProxy::Command::DeviceSwap);
    return request;
}

void encode(benchmark::State &state)
{
    const s_swap swap{1};
    for (auto _ : state) {
        std::string body;
        ajson::encodeRecord(swap, body);
        benchmark::DoNotOptimize(body.data());
    }
}
BENCHMARK(encode);

void send(benchmark::State &state)
{
    Setup setup;
    for (auto _ : state) {
        const auto request = swapRequest();
        request->body() = R"({"swap":1})";
        benchmark::DoNotOptimize(setup.channel().sendSyncRequest(request));
    }
}
BENCHMARK(send);

void encodeAndSend(benchmark::State &state)
{
    Setup setup;
    const s_swap swap{1};
    for (auto _ : state) {
        const auto request = swapRequest();
        ajson::encodeRecord(swap, request->body());
        benchmark::DoNotOptimize(setup.channel().sendSyncRequest(request));
    }
}
BENCHMARK(encodeAndSend);

void write(benchmark::State &state, bool logged, int channelCount)
{
    const Logging logging(logged);
    Setup setup(channelCount);
    const s_swap swap{1};
    QString error;
    for (auto _ : state) {
        if (!setup.device().writeSwap(swap, error))
            state.SkipWithError(qPrintable(error));
    }
}

void read(benchmark::State &state, bool logged)
{
    const Logging logging(logged);
    Setup setup;
    QString error;
    for (auto _ : state) {
        s_DeviceGroupInfos groups;
        if (!setup.device().readDeviceGroupInfo(groups, error))
            state.SkipWithError(qPrintable(error));
    }
}

void writeQuietly(benchmark::State &state)
{
    write(state, false, 1);
}
BENCHMARK(writeQuietly);

void writeShown(benchmark::State &state)
{
    QObject statusBar;
    QObject::connect(BizModel::DeviceList::instance(),
                     &BizModel::DeviceList::signalShowStatusBarMsg, &statusBar, [] {});
    write(state, false, 1);
}
BENCHMARK(writeShown);

void writeLogged(benchmark::State &state)
{
    write(state, true, 1);
}
BENCHMARK(writeLogged);

void readQuietly(benchmark::State &state)
{
    read(state, false);
}
BENCHMARK(readQuietly);

void readLogged(benchmark::State &state)
{
    read(state, true);
}
BENCHMARK(readLogged);

void writeThroughFullManager(benchmark::State &state)
{
    write(state, false, static_cast<int>(state.range(0)));
}
BENCHMARK(writeThroughFullManager)->Arg(1)->Arg(10)->Arg(100);

void findChannel(benchmark::State &state)
{
    const Setup setup;
    const std::string ip = setup.model().IPAddress().toStdString();
    const std::string mac = setup.model().MAC().toStdString();
    const std::string sn = setup.model().sn().toStdString();
    for (auto _ : state) {
        benchmark::DoNotOptimize(
            SSProxy::DeviceManager::instance()->findTavoroDeviceChannel(ip, mac, sn));
    }
}
BENCHMARK(findChannel);

void sentence(benchmark::State &state)
{
    for (auto _ : state) {
        benchmark::DoNotOptimize(Control::ControlHelper::tr("Set %1 successfully.")
                                     .arg(Control::ControlHelper::commandLabel(0x11, 0x07)));
    }
}
BENCHMARK(sentence);

} // namespace

BENCHMARK_MAIN();
