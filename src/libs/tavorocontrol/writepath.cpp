#include "writepath_p.h"

#include "exchange_p.h"
#include "packet_p.h"

#include <tavorobizmodel/device.h>
#include <tavorobizmodel/devicelist.h>

namespace Tavoro::Control::Internal {

namespace {

using BizModel::DeviceList;

using RequestPtr = std::shared_ptr<SSProxy::DeviceRequestCommand>;

/// Packets that a body takes. A channel that names no limit takes it in one.
quint32 packetCount(std::size_t size, quint32 limit)
{
    return limit == 0 ? 1 : static_cast<quint32>((size + limit - 1) / limit);
}

bool writeOnePacket(const Exchange &exchange, SSProxy::DeviceChannel &channel,
                    const RequestPtr &request, const std::string &body, QString &error)
{
    if (&body != &request->body())
        request->body() = body;
    const Reply reply = exchangePacket(channel, request);
    if (reply.failure == Failure::Status)
        return exchange.failWrite(reply.status, error);
    return reply.failure == Failure::None || exchange.fail(reply.failure, reply.status, error);
}

/// Cuts the body into pieces of \a limit bytes. The caller's request itself is never sent. \a whole
/// is its head, copied once: a channel or a slot may change the request meanwhile.
bool writeManyPackets(const Exchange &exchange, SSProxy::DeviceChannel &channel,
                      const SSProxy::PacketHead whole, const std::string &body, quint32 limit,
                      QString &error)
{
    const quint32 count = packetCount(body.size(), limit);
    for (quint32 i = 0; i < count; ++i) {
        const auto request = packetRequest(whole, count, i);
        request->body().assign(body, std::size_t(i) * limit, limit);
        const Reply reply = exchangePacket(channel, request);
        const PacketCount packet{i + 1, count};
        if (reply.failure == Failure::Status)
            return exchange.failSplitWrite(reply.status, error, packet);
        if (reply.failure == Failure::Offline)
            return exchange.fail(reply.failure, reply.status, error);
        if (reply.failure != Failure::None)
            return exchange.fail(reply.failure, reply.status, error, packet);
        Q_EMIT DeviceList::instance()->signalSendData2HWProgressChanged((i + 1.0) / count);
    }
    return true;
}

} // namespace

bool sendWrite(const std::weak_ptr<BizModel::Device> &device, const RequestPtr &request,
               const std::string &body, QString &error, bool showSuccess)
{
    Exchange exchange(Verb::Set, *request);
    Route route;
    if (!openRoute(exchange, device, *request, error, route))
        return false;
    if (!route.channel)
        return true; // Kept: a device that exists only in the model takes every write, and nothing
                     // is said of it.

    const quint32 limit = route.channel->deviceBaseInfo().maxPacketSize;
    const bool written = packetCount(body.size(), limit) < 2
        ? writeOnePacket(exchange, *route.channel, request, body, error)
        : writeManyPackets(exchange, *route.channel, request->head(), body, limit, error);
    return written && exchange.succeedWrite(showSuccess);
}

} // namespace Tavoro::Control::Internal
