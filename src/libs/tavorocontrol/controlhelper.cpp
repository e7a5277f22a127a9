#include <tavorocontrol/controlhelper.h>

#include "exchange_p.h"
#include "packet_p.h"
#include "streamedread_p.h"
#include "writepath_p.h"

#include <tavorobizmodel/device.h>
#include <tavorobizmodel/devicelist.h>

#include <algorithm>

namespace Tavoro::Control {

namespace {

using namespace Internal;
using BizModel::DeviceList;

using RequestPtr = std::shared_ptr<SSProxy::DeviceRequestCommand>;

/// Makes room for \a more bytes. What was announced is believed up to the length of the longest
/// packet, and then up to many times of what has come: a true announcement saves nearly all the
/// copying, and a false one costs addresses, not memory.
void makeRoom(std::string &result, std::size_t more, std::size_t announced)
{
    constexpr std::size_t believedAtOnce = 64u << 20;
    const std::size_t needed = result.size() + more;
    const std::size_t believed = std::min(announced, std::max(believedAtOnce, 16 * result.size()));
    if (needed > result.capacity() && needed <= believed)
        result.reserve(believed);
}

/// Reads the packets after the first one and appends them to \a result. \a first is the head of the
/// caller's request, copied once: a channel or a slot may change the request meanwhile.
///
/// Kept: the counts of the further answers are not examined.
bool readFurtherPackets(const Exchange &exchange, SSProxy::DeviceChannel &channel,
                        const SSProxy::PacketHead first, quint32 totalCount, std::string &result,
                        QString &error)
{
    const std::size_t announced = result.size() * totalCount;
    for (quint32 i = 1; i < totalCount; ++i) {
        const Reply reply = exchangePacket(channel, packetRequest(first, totalCount, i));
        if (reply.failure == Failure::Offline)
            return exchange.fail(reply.failure, reply.status, error);
        if (reply.failure != Failure::None)
            return exchange.fail(reply.failure, reply.status, error, {i, totalCount});
        makeRoom(result, reply.response->body().size(), announced);
        result += reply.response->body();
        Q_EMIT DeviceList::instance()->signalReadDataFromHWProgressChanged((i + 1.0) / totalCount);
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
    result = takeBody(reply);
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
    return sendWrite(device, request, request->body(), error, showSuccess);
}

bool ControlHelper::sendSyncRequest(
    std::weak_ptr<BizModel::Device> device, RequestPtr request,
    std::function<void(bool, double, const std::string &, QString &)> callback)
{
    return StreamedRead(m_cancelled, std::move(callback)).run(device, request);
}

} // namespace Tavoro::Control
