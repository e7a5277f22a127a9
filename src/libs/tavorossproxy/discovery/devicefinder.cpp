#include "devicefinder_p.h"

#include <tavorossproxy/logging_p.h>

#include <tavorowire/discovery.h>

#include <algorithm>

namespace Tavoro::SSProxy::Internal {

DeviceFinder::DeviceFinder(std::shared_ptr<ChannelLoop> loop, std::unique_ptr<DatagramPort> port,
                           std::vector<DiscoveryTarget> targets, std::chrono::milliseconds interval)
    : m_loop(std::move(loop)),
      m_targets(std::move(targets)),
      m_interval(std::min<std::chrono::milliseconds>(interval, longestTime)),
      m_port(std::move(port)),
      m_strangers(*m_loop, std::chrono::seconds(1), [](quint64 count) {
          qCDebug(channelLog) << "No device: further datagrams" << count;
      })
{ }

bool DeviceFinder::start(Handler handler, QString &error)
{
    m_handler = std::move(handler);
    const auto receiver = [this](const QString &address, std::string_view datagram) {
        receive(address, datagram);
    };
    QString reason;
    if (!m_port->open(receiver, reason)) {
        error = tr("Devices cannot be looked for: %1.").arg(reason);
        m_port.reset();
        return false;
    }
    m_loop->attach(shared_from_this());
    sendRequests();
    if (m_interval.count() > 0)
        scheduleNext();
    return true;
}

void DeviceFinder::stop()
{
    m_loop->post([finder = shared_from_this()] {
        finder->m_port.reset();
        finder->m_loop->detach(finder.get());
    });
}

void DeviceFinder::ask()
{
    m_loop->post([finder = shared_from_this()] {
        if (finder->m_port)
            finder->sendRequests();
    });
}

void DeviceFinder::loopEnding()
{
    m_port.reset();
}

void DeviceFinder::sendRequests()
{
    const QByteArray request = Wire::encodeDiscoveryRequest();
    for (const DiscoveryTarget &target : m_targets)
        m_port->send(target.address, target.port, request);
    if (!m_targets.empty())
        return;
    for (const QString &address : m_port->broadcastAddresses())
        m_port->send(address, defaultDiscoveryPort, request);
}

void DeviceFinder::scheduleNext()
{
    m_loop->postAt(m_loop->clock().now() + m_interval, [weak = weak_from_this()] {
        const auto finder = weak.lock();
        if (!finder || !finder->m_port)
            return;
        finder->sendRequests();
        finder->scheduleNext();
    });
}

void DeviceFinder::receive(const QString &address, std::string_view datagram)
{
    ProtoModel::DeviceBaseInfo device;
    std::string error;
    if (!Wire::decodeDiscoveryAnswer(datagram, device, error)) {
        if (m_strangers.passes())
            qCDebug(channelLog) << "No device:" << address << error.c_str();
        return;
    }
    device.ip = address.toStdString(); // behind a translated address a device knows only its own
    m_handler(device);
}

} // namespace Tavoro::SSProxy::Internal
