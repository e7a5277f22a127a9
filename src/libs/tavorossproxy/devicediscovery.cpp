#include <tavorossproxy/devicediscovery.h>

#include "channelkeeper_p.h"
#include "channelthread_p.h"
#include "devicediscovery_p.h"
#include "devicefinder_p.h"
#include "udpport_p.h"

#include <tavorossproxy/devicemanager.h>
#include <tavorossproxy/tcpdevicechannel.h>
#include <tavorossproxy/wire/identity.h>

#include <algorithm>
#include <condition_variable>
#include <map>
#include <mutex>

namespace Tavoro::SSProxy {

namespace {

using Internal::ChannelKeeper;
using Internal::ChannelThread;
using Internal::DeviceFinder;
using Milliseconds = std::chrono::milliseconds;

/// Pause between the requests of findDevices(): a datagram may be lost.
constexpr Milliseconds briefInterval{250};

struct Discovery {
    std::shared_ptr<ChannelThread> thread;
    std::shared_ptr<DeviceFinder> finder; ///< Null while nobody looks for devices.
    std::shared_ptr<ChannelKeeper> keeper; ///< Lives on the channels' thread.
};

struct RunningDiscovery {
    std::mutex mutex;
    Discovery discovery; // guarded by mutex
};

/// Never destroyed, as the manager may be refreshed until the process ends.
RunningDiscovery &running()
{
    static auto *const running = new RunningDiscovery;
    return *running;
}

void run(Discovery next)
{
    {
        const std::lock_guard<std::mutex> lock(running().mutex);
        std::swap(running().discovery, next);
    }
    if (next.finder)
        next.finder->stop();
}

std::shared_ptr<NetworkChannel> openChannel(const ProtoModel::DeviceBaseInfo &device,
                                            const ChannelOptions &options)
{
    return openTcpDeviceChannel(QString::fromStdString(device.ip), device.tcpPort, options);
}

void tellFound(const std::shared_ptr<NetworkChannel> &channel)
{
    Q_EMIT DeviceManager::instance()->deviceChannelFound(std::weak_ptr<DeviceChannel>(channel));
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
        if (std::none_of(m_devices.begin(), m_devices.end(), isSame))
            m_devices.push_back(device);
        m_changed.notify_all();
    }
    std::vector<ProtoModel::DeviceBaseInfo> await(Milliseconds time, int enough)
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        m_changed.wait_for(lock, time, [this, enough] {
            return enough > 0 && m_devices.size() >= static_cast<std::size_t>(enough);
        });
        return m_devices;
    }

private:
    std::mutex m_mutex; // guards what follows
    std::condition_variable m_changed;
    std::vector<ProtoModel::DeviceBaseInfo> m_devices;
};

} // namespace

void startDeviceDiscovery(const DiscoveryOptions &options)
{
    DeviceManager::instance(); // made here at the latest, so that its end is also the thread's
    Discovery discovery;
    discovery.thread = ChannelThread::instance();
    discovery.keeper = std::make_shared<ChannelKeeper>(Internal::ChannelIndex::ofManager(), options,
                                                       &openChannel, &tellFound);
    discovery.finder = std::make_shared<DeviceFinder>(
        discovery.thread, std::make_unique<Internal::UdpPort>(), options.targets, options.interval);
    discovery.finder->start(
        [keeper = discovery.keeper](const auto &device) { keeper->take(device); });
    run(std::move(discovery));
}

void stopDeviceDiscovery()
{
    run({});
}

std::vector<ProtoModel::DeviceBaseInfo> findDevices(int milliseconds, int enough,
                                                    const std::vector<DiscoveryTarget> &targets)
{
    DeviceManager::instance();
    const auto findings = std::make_shared<Findings>();
    const auto finder = std::make_shared<DeviceFinder>(
        ChannelThread::instance(), std::make_unique<Internal::UdpPort>(), targets, briefInterval);
    finder->start([findings](const auto &device) { findings->add(device); });
    auto devices = findings->await(Milliseconds(milliseconds), enough);
    finder->stop();
    return devices;
}

void Internal::refreshDiscovery()
{
    Discovery discovery;
    {
        const std::lock_guard<std::mutex> lock(running().mutex);
        discovery = running().discovery;
    }
    if (!discovery.finder)
        return;
    discovery.thread->post([keeper = discovery.keeper] { keeper->readmit(); });
    discovery.finder->ask();
}

} // namespace Tavoro::SSProxy
