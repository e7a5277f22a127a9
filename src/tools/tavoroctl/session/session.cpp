#include "session.h"

#include "modeldevice.h"

#include <tavorobizmodel/device.h>
#include <tavoroctl/arguments/texts.h>
#include <tavorossproxy/devicemanager.h>
#include <tavorossproxy/tcpdevicechannel.h>
#include <tavorowire/hostandport.h>

#include <chrono>
#include <limits>

namespace Tavoro::Ctl {

namespace {

QString textOf(const Host &host)
{
    return SSProxy::Wire::hostAndPort(host.name, host.port);
}

/// Whether the request path would confuse the two devices.
bool isSameIdentity(const ProtoModel::DeviceBaseInfo &one, const ProtoModel::DeviceBaseInfo &other)
{
    return one.ip == other.ip && one.mac == other.mac && one.sn == other.sn;
}

} // namespace

Session::Session(const Limits &limits) : m_limits(limits)
{
    if (limits.request > 0)
        m_options.maxRequestTime = std::chrono::milliseconds(limits.request);
    // A person waits at the terminal while a device restarts.
    m_options.longestReconnectPause = std::chrono::seconds(1);
}

Session::~Session()
{
    for (const auto &[place, connection] : m_connections) {
        connection.channel->stopChannel();
        SSProxy::DeviceManager::instance()->removeDeviceChannel(connection.channel);
    }
}

void Session::acceptAnyPacketCount()
{
    m_options.maxPacketCount =
        std::numeric_limits<qint32>::max(); // The longest file, byte by byte.
}

std::shared_ptr<BizModel::Device> Session::device(const Host &host, QString &error)
{
    const auto known = m_connections.find({host.name, host.port});
    if (known != m_connections.end())
        return known->second.device;
    const auto channel = SSProxy::openTcpDeviceChannel(host.name, host.port, m_options);
    if (!channel->waitUntilReady(m_limits.ready, error)) {
        channel->stopChannel();
        return nullptr;
    }
    if (const auto twin = findTwin(host, *channel)) {
        error = Texts::tr("The devices at %1 and %2 report the same identity; a batch cannot "
                          "use both.")
                    .arg(textOf(*twin), textOf(host));
        channel->stopChannel();
        return nullptr;
    }
    SSProxy::DeviceManager::instance()->addDeviceChannel(channel);
    const Connection connection{channel, makeModelDevice(channel->deviceBaseInfo())};
    m_connections[{host.name, host.port}] = connection;
    return connection.device;
}

/// The same identity at the same port is the same device under another host name.
std::optional<Host> Session::findTwin(const Host &host,
                                      const SSProxy::NetworkChannel &channel) const
{
    const ProtoModel::DeviceBaseInfo info = channel.deviceBaseInfo();
    for (const auto &[place, connection] : m_connections) {
        if (place.second != host.port && isSameIdentity(connection.channel->deviceBaseInfo(), info))
            return Host{place.first, place.second};
    }
    return std::nullopt;
}

std::shared_ptr<SSProxy::NetworkChannel> Session::channel(const BizModel::Device &device) const
{
    for (const auto &[place, connection] : m_connections) {
        if (connection.device.get() == &device)
            return connection.channel;
    }
    return nullptr;
}

} // namespace Tavoro::Ctl
