#include <tavorossproxy/devicediscovery.h>

#include <tavorossproxy/discovery/founddevices_p.h>
#include <tavorossproxy/discovery/runningdiscovery_p.h>
#include <tavorossproxy/io/eventloopthread_p.h>
#include <tavorossproxy/io/udpsocket_p.h>

#include <tavorossproxy/devicemanager.h>

namespace Tavoro::SSProxy {

namespace {

/// Pause between the requests of findDevices(): a datagram may be lost.
constexpr std::chrono::milliseconds briefInterval{250};

} // namespace

void startDeviceDiscovery(const DiscoveryOptions &options)
{
    DeviceManager::instance(); // constructed here at the latest: its destruction ends the thread
    Internal::ensureDiscovery()->start(options);
}

void stopDeviceDiscovery()
{
    if (const auto service = Internal::runningDiscovery())
        service->stop();
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
    DeviceManager::instance(); // as above
    const auto thread = Internal::EventLoopThread::instance();
    const auto found = std::make_shared<Internal::FoundDevices>();
    const auto query = std::make_shared<Internal::DiscoveryQuery>(
        thread, std::make_unique<Internal::UdpSocket>(), targets, briefInterval);
    thread->post([found, query] {
        QString reason;
        if (!query->start([found](const auto &device) { found->add(device); }, reason))
            found->fail(reason);
    });
    auto devices = found->await(std::chrono::milliseconds(milliseconds), enough, error);
    query->stop();
    return devices;
}

} // namespace Tavoro::SSProxy
