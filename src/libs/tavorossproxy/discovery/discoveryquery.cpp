#include "discoveryquery_p.h"

#include <tavorossproxy/logging_p.h>

#include <tavorowire/discovery.h>

#include <algorithm>

namespace Tavoro::SSProxy::Internal {

DiscoveryQuery::DiscoveryQuery(std::shared_ptr<EventLoop> loop,
                               std::unique_ptr<DatagramSocket> socket,
                               std::vector<DiscoveryTarget> targets,
                               std::chrono::milliseconds interval)
    : m_loop(std::move(loop)),
      m_targets(std::move(targets)),
      m_interval(std::min<std::chrono::milliseconds>(interval, maxDuration)),
      m_socket(std::move(socket)),
      m_invalidDatagrams(*m_loop, std::chrono::seconds(1), [](quint64 count) {
          qCDebug(channelLog) << "Ignored further discovery answers" << count;
      })
{ }

bool DiscoveryQuery::start(AnswerHandler handler, QString &error)
{
    m_handler = std::move(handler);
    const auto receiver = [this](const QString &address, std::string_view datagram) {
        receive(address, datagram);
    };
    QString reason;
    if (!m_socket->open(receiver, reason)) {
        error = tr("Cannot search for devices: %1.").arg(reason);
        m_socket.reset();
        return false;
    }
    m_loop->attach(shared_from_this());
    sendRequests();
    if (m_interval.count() > 0)
        scheduleNext();
    return true;
}

void DiscoveryQuery::stop()
{
    m_loop->post([query = shared_from_this()] {
        query->m_socket.reset();
        query->m_loop->detach(query.get());
    });
}

void DiscoveryQuery::sendNow()
{
    m_loop->post([query = shared_from_this()] {
        if (query->m_socket)
            query->sendRequests();
    });
}

void DiscoveryQuery::loopEnding()
{
    m_socket.reset();
}

void DiscoveryQuery::sendRequests()
{
    const QByteArray request = Wire::encodeDiscoveryRequest();
    for (const DiscoveryTarget &target : m_targets)
        m_socket->send(target.address, target.port, request);
    if (!m_targets.empty())
        return;
    for (const QString &address : m_socket->broadcastAddresses())
        m_socket->send(address, defaultDiscoveryPort, request);
}

void DiscoveryQuery::scheduleNext()
{
    m_loop->postAt(m_loop->clock().now() + m_interval, [weak = weak_from_this()] {
        const auto query = weak.lock();
        if (!query || !query->m_socket)
            return;
        query->sendRequests();
        query->scheduleNext();
    });
}

void DiscoveryQuery::receive(const QString &address, std::string_view datagram)
{
    ProtoModel::DeviceBaseInfo device;
    std::string error;
    if (!Wire::decodeDiscoveryAnswer(datagram, device, error)) {
        if (m_invalidDatagrams.passes())
            qCDebug(channelLog) << "Ignored a discovery answer from" << address << error.c_str();
        return;
    }
    device.ip = address.toStdString(); // with address translation the device reports another one
    m_handler(device);
}

} // namespace Tavoro::SSProxy::Internal
