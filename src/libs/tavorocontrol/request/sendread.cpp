#include "sendread_p.h"

#include "exchangereporter_p.h"
#include "packet_p.h"
#include "requestpath_p.h"

#include <tavorobizmodel/device.h>
#include <tavorobizmodel/devicelist.h>
#include <tavorocontrol/proto/contentmemory.h>

namespace Tavoro::Control::Internal {

namespace {

using BizModel::DeviceList;

/// Reads the packets after the first one and appends them to \a result. \a head is a copy of the
/// head of the caller's request, since a channel or a slot may change the request meanwhile.
///
/// Kept: the counts of the further answers are not examined.
bool readFurtherPackets(const ExchangeReporter &reporter, SSProxy::DeviceChannel &channel,
                        const SSProxy::PacketHead head, quint32 totalCount, std::string &result,
                        QString &error)
{
    const std::size_t announced = result.size() * totalCount;
    for (quint32 i = 1; i < totalCount; ++i) {
        const Reply reply = sendPacket(channel, packetRequest(head, totalCount, i));
        if (reply.failure == Failure::Offline)
            return reporter.fail(reply, error);
        if (reply.failure != Failure::None)
            return reporter.fail(reply, error, {i, totalCount});
        ProtoModel::reserveForContent(result, reply.response->body().size(), announced);
        result += reply.response->body();
        Q_EMIT DeviceList::instance()->signalReadDataFromHWProgressChanged((i + 1.0) / totalCount);
    }
    return true;
}

} // namespace

bool sendRead(const std::weak_ptr<BizModel::Device> &device,
              const std::shared_ptr<SSProxy::DeviceRequestCommand> &request, std::string &result,
              QString &error)
{
    ExchangeReporter reporter(Verb::Get, *request);
    RequestPath path;
    if (!openRequestPath(reporter, device, *request, error, path))
        return false;
    if (!path.channel) {
        // Kept: a device that exists only in the model answers every read with an empty body.
        reporter.logMissingChannel();
        result.clear();
        return true;
    }

    const Reply reply = sendPacket(*path.channel, request);
    if (reply.failure != Failure::None)
        return reporter.fail(reply, error);
    const SSProxy::PacketHead answer = reply.response->head();
    result = takeBody(reply);
    const bool onePacket = quint64(answer.sendCount) + 1 == answer.totalCount;
    if (!onePacket
        && !readFurtherPackets(reporter, *path.channel, request->head(), answer.totalCount, result,
                               error))
        return false;
    return reporter.succeedRead(answer.type, result, onePacket);
}

} // namespace Tavoro::Control::Internal
