#include <tavorossproxy/devicediscovery.h>

#include <tavorossproxy/discovery/devicediscovery_p.h>
#include <tavorossproxy/discovery/devicesearch_p.h>
#include <tavorossproxy/io/channelthread_p.h>
#include <tavorossproxy/io/udpport_p.h>

#include <tavorossproxy/devicemanager.h>
#include <tavorossproxy/tcpdevicechannel.h>

#include <algorithm>
#include <condition_variable>
#include <mutex>

namespace Tavoro::SSProxy {

namespace {

using Internal::ChannelKeeper;
using Internal::ChannelThread;
using Internal::DeviceFinder;
using Internal::DeviceSearch;
using Milliseconds = std::chrono::milliseconds;

/// Pause between the requests of findDevices(): a datagram may be lost.
constexpr Milliseconds briefInterval{250};

/// By findDevices(): anybody on the network may answer, under as many names as he likes.
constexpr std::size_t mostFound = 1024;

std::shared_ptr<NetworkChannel> openChannel(const ProtoModel::DeviceBaseInfo &device,
                                            const ChannelOptions &options)
{
    return openTcpDeviceChannel(QString::fromStdString(device.ip), device.tcpPort, options);
}

void tellFound(const std::shared_ptr<NetworkChannel> &channel)
{
    Q_EMIT DeviceManager::instance()->deviceChannelFound(std::weak_ptr<DeviceChannel>(channel));
}

std::shared_ptr<DeviceSearch> makeSearch(const std::shared_ptr<ChannelThread> &thread)
{
    const auto makePort = [] {
        return std::make_unique<Internal::UdpPort>();
    };
    const auto keeper = std::make_shared<ChannelKeeper>(Internal::ChannelIndex::ofManager(),
                                                        &openChannel, &tellFound);
    return std::make_shared<DeviceSearch>(thread, makePort, keeper);
}

struct RunningSearch {
    std::mutex mutex;
    std::shared_ptr<DeviceSearch> search; // guarded by mutex; null before the first
};

/// Never destroyed, as the manager may be refreshed until the process ends.
RunningSearch &running()
{
    static auto *const running = new RunningSearch;
    return *running;
}

std::shared_ptr<DeviceSearch> runningSearch()
{
    const std::lock_guard<std::mutex> lock(running().mutex);
    return running().search;
}

/// That of the thread that runs now: the search before ended with the thread before.
std::shared_ptr<DeviceSearch> searchOf(const std::shared_ptr<ChannelThread> &thread)
{
    const std::lock_guard<std::mutex> lock(running().mutex);
    auto &search = running().search;
    if (!search || search->loop() != thread)
        search = makeSearch(thread);
    return search;
}

/// What the channels' thread hands over to one that waits.
class Findings {
public:
    void add(const ProtoModel::DeviceBaseInfo &device)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        const auto isSame = [&](const auto &known) {
            return known.sn == device.sn && known.mac == device.mac;
        };
        if (m_devices.size() < mostFound
            && std::none_of(m_devices.begin(), m_devices.end(), isSame))
            m_devices.push_back(device);
        m_changed.notify_all();
    }
    void fail(const QString &error)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_error = error;
        m_changed.notify_all();
    }
    /// On failure returns at once, with the sentence in \a error.
    std::vector<ProtoModel::DeviceBaseInfo> await(Milliseconds time, int enough, QString &error)
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        m_changed.wait_for(lock, time, [this, enough] {
            return !m_error.isEmpty()
                || (enough > 0 && m_devices.size() >= static_cast<std::size_t>(enough));
        });
        if (!m_error.isEmpty())
            error = m_error;
        return m_devices;
    }

private:
    std::mutex m_mutex; // guards what follows
    std::condition_variable m_changed;
    std::vector<ProtoModel::DeviceBaseInfo> m_devices;
    QString m_error;
};

} // namespace

void startDeviceDiscovery(const DiscoveryOptions &options)
{
    DeviceManager::instance(); // made here at the latest, so that its end is also the thread's
    searchOf(ChannelThread::instance())->start(options);
}

void stopDeviceDiscovery()
{
    if (const auto search = runningSearch())
        search->stop();
}

std::vector<ProtoModel::DeviceBaseInfo> findDevices(int milliseconds, int enough,
                                                    const std::vector<DiscoveryTarget> &targets)
{
    QString error;
    return findDevices(milliseconds, enough, targets, error);
}

std::vector<ProtoModel::DeviceBaseInfo> findDevices(int milliseconds, int enough,
                                                    const std::vector<DiscoveryTarget> &targets,
                                                    QString &error)
{
    DeviceManager::instance();
    const auto thread = ChannelThread::instance();
    const auto findings = std::make_shared<Findings>();
    const auto finder = std::make_shared<DeviceFinder>(
        thread, std::make_unique<Internal::UdpPort>(), targets, briefInterval);
    thread->post([findings, finder] {
        QString reason;
        if (!finder->start([findings](const auto &device) { findings->add(device); }, reason))
            findings->fail(reason);
    });
    auto devices = findings->await(Milliseconds(milliseconds), enough, error);
    finder->stop();
    return devices;
}

void Internal::refreshDiscovery()
{
    if (const auto search = runningSearch())
        search->refresh();
}

} // namespace Tavoro::SSProxy
