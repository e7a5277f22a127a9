#include "sendwrite_p.h"

#include "exchangereporter_p.h"
#include "packet_p.h"
#include "requestpath_p.h"

#include <tavorobizmodel/device.h>
#include <tavorobizmodel/devicelist.h>

namespace Tavoro::Control::Internal {

namespace {

using BizModel::DeviceList;

using RequestPtr = std::shared_ptr<SSProxy::DeviceRequestCommand>;

/// Number of packets of a body. If the limit of the channel is 0, every body is one packet.
quint32 packetCount(std::size_t size, quint32 limit)
{
    return limit == 0 ? 1 : static_cast<quint32>((size + limit - 1) / limit);
}

bool writeOnePacket(const ExchangeReporter &reporter, SSProxy::DeviceChannel &channel,
                    const RequestPtr &request, const std::string &body, QString &error)
{
    if (&body != &request->body())
        request->body() = body;
    const Reply reply = sendPacket(channel, request);
    if (reply.failure == Failure::Status)
        return reporter.failWrite(reply.status, error);
    return reply.failure == Failure::None || reporter.fail(reply, error);
}

/// Splits the body into pieces of \a limit bytes. The caller's request itself is never sent.
/// \a head is a copy of its head, since a channel or a slot may change the request meanwhile.
bool writeManyPackets(const ExchangeReporter &reporter, SSProxy::DeviceChannel &channel,
                      const SSProxy::PacketHead head, const std::string &body, quint32 limit,
                      QString &error)
{
    const quint32 count = packetCount(body.size(), limit);
    std::string storage; // of the previous packet: new memory costs more than the copy
    for (quint32 i = 0; i < count; ++i) {
        const auto request = packetRequest(head, count, i);
        request->body() = std::move(storage);
        request->body().assign(body, std::size_t(i) * limit, limit);
        const Reply reply = sendPacket(channel, request);
        storage = request.use_count() == 1 ? std::move(request->body()) : std::string();
        const PacketCount packet{i + 1, count};
        if (reply.failure == Failure::Status)
            return reporter.failSplitWrite(reply.status, error, packet);
        if (reply.failure == Failure::Offline)
            return reporter.fail(reply, error);
        if (reply.failure != Failure::None)
            return reporter.fail(reply, error, packet);
        Q_EMIT DeviceList::instance()->signalSendData2HWProgressChanged((i + 1.0) / count);
    }
    return true;
}

} // namespace

bool sendWrite(const std::weak_ptr<BizModel::Device> &device, const RequestPtr &request,
               const std::string &body, QString &error, bool showSuccess)
{
    ExchangeReporter reporter(Verb::Set, *request);
    RequestPath path;
    if (!openRequestPath(reporter, device, *request, error, path))
        return false;
    // Kept: a device that exists only in the model accepts every write, and nothing is reported.
    if (!path.channel)
        return true;

    const quint32 limit = path.channel->deviceBaseInfo().maxPacketSize;
    const bool written = packetCount(body.size(), limit) < 2
        ? writeOnePacket(reporter, *path.channel, request, body, error)
        : writeManyPackets(reporter, *path.channel, request->head(), body, limit, error);
    return written && reporter.succeedWrite(showSuccess);
}

} // namespace Tavoro::Control::Internal
