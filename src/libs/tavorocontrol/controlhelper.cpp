#include <tavorocontrol/controlhelper.h>

#include "exchange_p.h"
#include "packet_p.h"
#include "streamedread_p.h"

#include <tavorobizmodel/device.h>
#include <tavorobizmodel/devicelist.h>

namespace Tavoro::Control {

namespace {

using namespace Internal;
using BizModel::DeviceList;

using RequestPtr = std::shared_ptr<SSProxy::DeviceRequestCommand>;

/// Packets that a body takes. A channel that names no limit takes it in one.
quint32 packetCount(std::size_t size, quint32 limit)
{
    return limit == 0 ? 1 : static_cast<quint32>((size + limit - 1) / limit);
}

/// Fetches the packets behind the first one and appends them to \a result.
///
/// Kept: the counts of the further answers are not examined.
bool readFurtherPackets(const Exchange &exchange, SSProxy::DeviceChannel &channel,
                        const SSProxy::PacketHead &first, quint32 totalCount, std::string &result,
                        QString &error)
{
    for (quint32 i = 1; i < totalCount; ++i) {
        const Reply reply = exchangePacket(channel, packetRequest(first, totalCount, i));
        if (reply.failure == Failure::Offline)
            return exchange.fail(reply.failure, reply.status, error);
        if (reply.failure != Failure::None)
            return exchange.fail(reply.failure, reply.status, error, {i, totalCount});
        result += reply.response->body();
        Q_EMIT DeviceList::instance()->signalReadDataFromHWProgressChanged((i + 1.0) / totalCount);
    }
    return true;
}

bool writeOnePacket(const Exchange &exchange, SSProxy::DeviceChannel &channel, RequestPtr request,
                    QString &error)
{
    const Reply reply = exchangePacket(channel, std::move(request));
    if (reply.failure == Failure::Status)
        return exchange.failWrite(reply.status, error);
    return reply.failure == Failure::None || exchange.fail(reply.failure, reply.status, error);
}

/// Cuts the body into pieces of \a limit bytes. The caller's request itself is never sent.
bool writeManyPackets(const Exchange &exchange, SSProxy::DeviceChannel &channel,
                      const SSProxy::DeviceRequestCommand &whole, quint32 count, quint32 limit,
                      QString &error)
{
    for (quint32 i = 0; i < count; ++i) {
        const auto request = packetRequest(whole.head(), count, i);
        request->body() = whole.body().substr(std::size_t(i) * limit, limit);
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

ControlHelper::ControlHelper() = default;

ControlHelper::~ControlHelper() = default;

void ControlHelper::setCancelledState(bool cancelled)
{
    m_cancelled = cancelled;
}

bool ControlHelper::sendSyncRequest(std::weak_ptr<BizModel::Device> device, RequestPtr request,
                                    std::string &result, QString &error)
{
    if (!request)
        return refuseMissingRequest(error);
    Exchange exchange(Verb::Get, *request);
    Route route;
    if (!openRoute(exchange, device, *request, error, route))
        return false;
    if (!route.channel) {
        // Kept: a device that exists only in the model answers every read with nothing.
        exchange.logMissingChannel();
        result.clear();
        return true;
    }

    const Reply reply = exchangePacket(*route.channel, request);
    if (reply.failure != Failure::None)
        return exchange.fail(reply.failure, reply.status, error);
    const SSProxy::PacketHead head = reply.response->head();
    result = std::move(reply.response->body());
    const bool onePacket = quint64(head.sendCount) + 1 == head.totalCount;
    if (!onePacket
        && !readFurtherPackets(exchange, *route.channel, request->head(), head.totalCount, result,
                               error))
        return false;
    return exchange.succeedRead(head.type, result, onePacket);
}

bool ControlHelper::sendSyncRequest(std::weak_ptr<BizModel::Device> device, RequestPtr request,
                                    QString &error, bool showSuccess)
{
    if (!request)
        return refuseMissingRequest(error);
    Exchange exchange(Verb::Set, *request);
    Route route;
    if (!openRoute(exchange, device, *request, error, route))
        return false;
    if (!route.channel)
        return true; // Kept: a device that exists only in the model takes every write, and nothing
                     // is said of it.

    const quint32 limit = route.channel->deviceBaseInfo().maxPacketSize;
    const quint32 count = packetCount(request->body().size(), limit);
    const bool written = count < 2
        ? writeOnePacket(exchange, *route.channel, request, error)
        : writeManyPackets(exchange, *route.channel, *request, count, limit, error);
    return written && exchange.succeedWrite(showSuccess);
}

bool ControlHelper::sendSyncRequest(
    std::weak_ptr<BizModel::Device> device, RequestPtr request,
    std::function<void(bool, double, const std::string &, QString &)> callback)
{
    return StreamedRead(m_cancelled, std::move(callback)).run(device, request);
}

} // namespace Tavoro::Control
