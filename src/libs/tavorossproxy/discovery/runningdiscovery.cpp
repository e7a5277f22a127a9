#include "runningdiscovery_p.h"

#include <tavorossproxy/io/eventloopthread_p.h>
#include <tavorossproxy/io/udpsocket_p.h>

#include <tavorossproxy/devicemanager.h>
#include <tavorossproxy/tcpdevicechannel.h>

#include <mutex>

namespace Tavoro::SSProxy::Internal {

namespace {

DeviceTracker::Channel openChannel(const ProtoModel::DeviceBaseInfo &device,
                                   const ChannelOptions &options)
{
    return openTcpDeviceChannel(QString::fromStdString(device.ip), device.tcpPort, options);
}

void emitFound(const DeviceTracker::Channel &channel)
{
    Q_EMIT DeviceManager::instance()->deviceChannelFound(std::weak_ptr<DeviceChannel>(channel));
}

std::shared_ptr<DiscoveryService> makeService(const std::shared_ptr<EventLoop> &loop)
{
    const auto makeSocket = [] {
        return std::make_unique<UdpSocket>();
    };
    const auto tracker =
        std::make_shared<DeviceTracker>(ChannelRegistry::ofManager(), &openChannel, &emitFound);
    return std::make_shared<DiscoveryService>(loop, makeSocket, tracker);
}

struct Running {
    std::mutex mutex;
    std::shared_ptr<DiscoveryService> service; // guarded by mutex; null before the first start
};

/// Never destroyed: the manager may be refreshed until the process ends.
Running &running()
{
    static auto *const running = new Running;
    return *running;
}

} // namespace

std::shared_ptr<DiscoveryService> runningDiscovery()
{
    const std::lock_guard<std::mutex> lock(running().mutex);
    return running().service;
}

/// A service ends with its thread, so a new thread gets a new service.
std::shared_ptr<DiscoveryService> ensureDiscovery()
{
    const std::shared_ptr<EventLoop> loop = EventLoopThread::instance();
    const std::lock_guard<std::mutex> lock(running().mutex);
    auto &service = running().service;
    if (!service || service->loop() != loop)
        service = makeService(loop);
    return service;
}

void refreshDiscovery()
{
    if (const auto service = runningDiscovery())
        service->refresh();
}

} // namespace Tavoro::SSProxy::Internal
