#include <tavorossproxy/devicemanager.h>

#include <tavorossproxy/channel/channelregistry_p.h>
#include <tavorossproxy/discovery/runningdiscovery_p.h>
#include <tavorossproxy/io/eventloopthread_p.h>

#include <tavorossproxy/devicechannel.h>
#include <tavorossproxy/devicecommand.h>
#include <tavorossproxy/networkchannel.h>

namespace Tavoro::SSProxy {

class DeviceManagerPrivate {
public:
    const std::shared_ptr<Internal::ChannelRegistry> channels =
        Internal::ChannelRegistry::ofManager();
};

DeviceManager *DeviceManager::instance()
{
    static DeviceManager manager;
    return &manager;
}

DeviceManager::DeviceManager() : d(std::make_unique<DeviceManagerPrivate>())
{
    // Needed by receivers on other threads.
    qRegisterMetaType<std::weak_ptr<DeviceChannel>>(
        "std::weak_ptr<Tavoro::SSProxy::DeviceChannel>");
    qRegisterMetaType<std::shared_ptr<IDeviceCommand>>(
        "std::shared_ptr<Tavoro::SSProxy::IDeviceCommand>");
}

/// The channels' thread emits the manager's signals, so it must end first.
DeviceManager::~DeviceManager()
{
    Internal::EventLoopThread::stop();
}

/// All channels of this library are of one kind.
std::shared_ptr<DeviceChannel> DeviceManager::findTavoroDeviceChannel(const std::string &ip,
                                                                      const std::string &mac,
                                                                      const std::string &sn) const
{
    return findDeviceChannel(ip, mac, sn);
}

std::shared_ptr<DeviceChannel> DeviceManager::findDeviceChannel(const std::string &ip,
                                                                const std::string &mac,
                                                                const std::string &sn) const
{
    return d->channels->find(ip, mac, sn);
}

QList<std::weak_ptr<DeviceChannel>> DeviceManager::tavoroDeviceChannels() const
{
    QList<std::weak_ptr<DeviceChannel>> channels;
    for (const auto &channel : d->channels->all())
        channels.append(channel);
    return channels;
}

void DeviceManager::addDeviceChannel(std::shared_ptr<DeviceChannel> channel)
{
    if (channel)
        d->channels->add(std::move(channel));
}

void DeviceManager::removeDeviceChannel(std::shared_ptr<DeviceChannel> channel)
{
    d->channels->remove(channel);
}

void DeviceManager::refreshDeviceChannel()
{
    for (const auto &channel : d->channels->all()) {
        if (const auto network = std::dynamic_pointer_cast<NetworkChannel>(channel))
            network->reconnectNow();
    }
    Internal::refreshDiscovery();
}

bool DeviceManager::sendTavoroControlRequest(const QString &ip, const QString &mac,
                                             const QString &sn, QString &error)
{
    return sendTavoroControlRequest(ip, mac, sn, ControlAction::Take, error);
}

bool DeviceManager::sendTavoroControlRequest(const QString &ip, const QString &mac,
                                             const QString &sn, ControlAction action,
                                             QString &error)
{
    const auto channel = findDeviceChannel(ip.toStdString(), mac.toStdString(), sn.toStdString());
    if (!channel || !channel->isHardwareReadFinished()) {
        error = tr("The device at %1 is not connected.").arg(ip);
        return false;
    }
    if (const auto network = std::dynamic_pointer_cast<NetworkChannel>(channel))
        return network->requestControl(action, error);
    if (!channel->isMasterControl()) {
        error = tr("The device at %1 is controlled by another client.").arg(ip);
        return false;
    }
    return true;
}

} // namespace Tavoro::SSProxy
