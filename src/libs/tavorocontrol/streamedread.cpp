#include "streamedread_p.h"

#include "logging_p.h"

#include <tavorobizmodel/device.h>
#include <tavorocontrol/controlhelper.h>

namespace Tavoro::Control::Internal {

namespace {

constexpr char cancelledText[] =
    QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "Operation has been cancelled.");
constexpr char controlledByOthers[] =
    QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "The device is controlled by others.");

} // namespace

StreamedRead::StreamedRead(const std::atomic<bool> &cancelled, Callback callback)
    : m_cancelled(cancelled), m_callback(std::move(callback))
{ }

bool StreamedRead::run(const std::weak_ptr<BizModel::Device> &device,
                       const std::shared_ptr<SSProxy::DeviceRequestCommand> &request)
{
    if (m_cancelled) {
        m_error = ControlHelper::tr(cancelledText);
        qCWarning(controlLog) << m_error;
        return tellFailure();
    }
    if (!request) {
        refuseMissingRequest(m_error);
        return tellFailure();
    }
    Exchange exchange(Verb::Get, *request);
    m_exchange = &exchange;
    Route route;
    if (!openRoute(exchange, device, *request, m_error, route))
        return tellFailure();
    m_device = route.device.get();
    if (!route.channel) {
        // Kept: a device that exists only in the model has nothing to hand over, and that counts as
        // done.
        exchange.logMissingChannel();
        handOver(1.0, {});
        return true;
    }
    return readPackets(*route.channel, request);
}

bool StreamedRead::readPackets(SSProxy::DeviceChannel &channel,
                               const std::shared_ptr<SSProxy::DeviceRequestCommand> &request)
{
    if (!channel.isHardwareReadFinished())
        return fail({Failure::Offline, 0, nullptr});
    if (!mayGoOn(channel))
        return false;
    const Reply reply = judge(channel.sendSyncRequest(request));
    if (reply.failure != Failure::None)
        return fail(reply);

    const SSProxy::PacketHead answer = reply.response->head();
    const double progress = (answer.sendCount + 1.0) / answer.totalCount;
    if (quint64(answer.sendCount) + 1 == answer.totalCount) {
        m_exchange->succeedRead(answer.type, reply.response->body(), true);
        handOver(progress, reply.response->body());
        return true;
    }
    m_progress = progress;
    if (!mayGoOn(channel))
        return false;
    handOver(progress, reply.response->body());
    return readFurtherPackets(channel, request->head(), answer, takeBody(reply));
}

bool StreamedRead::readFurtherPackets(SSProxy::DeviceChannel &channel, SSProxy::PacketHead request,
                                      const SSProxy::PacketHead &answer, std::string data)
{
    const quint32 totalCount = answer.totalCount;
    for (quint32 i = 1; i < totalCount; ++i) {
        if (!mayGoOn(channel))
            return false;
        if (!channel.isHardwareReadFinished())
            return fail({Failure::Offline, 0, nullptr});
        data = std::string(); // so that no more than the packet on its way is held
        auto response = channel.sendSyncRequest(packetRequest(request, totalCount, i));
        if (!mayGoOn(channel))
            return false;
        const Reply reply = judge(std::move(response));
        if (reply.failure != Failure::None)
            return fail(reply, {i, totalCount});
        data = takeBody(reply);
        handOver((i + 1.0) / totalCount, data);
    }
    return m_exchange->succeedRead(answer.type, data, false);
}

bool StreamedRead::mayGoOn(SSProxy::DeviceChannel &channel)
{
    return isStillMaster(channel) && isNotCancelled();
}

bool StreamedRead::isStillMaster(SSProxy::DeviceChannel &channel)
{
    if (channel.isMasterControl())
        return true;
    m_error = ControlHelper::tr(controlledByOthers);
    qCWarning(controlLog) << m_error;
    return tellFailure();
}

bool StreamedRead::isNotCancelled()
{
    if (!m_cancelled)
        return true;
    m_error = ControlHelper::tr(cancelledText);
    qCWarning(controlLog) << QStringLiteral("%1%2").arg(QStringLiteral("TavoroCmd stopped :"),
                                                        m_error)
                          << m_device->name() << m_device->ipMacSn();
    return tellFailure();
}

void StreamedRead::handOver(double progress, const std::string &data)
{
    m_progress = progress;
    m_callback(true, progress, data, m_error);
}

bool StreamedRead::fail(const Reply &reply, PacketCount count)
{
    m_exchange->fail(reply.failure, reply.status, m_error, count);
    return tellFailure();
}

bool StreamedRead::tellFailure()
{
    m_callback(false, m_progress, {}, m_error);
    return false;
}

} // namespace Tavoro::Control::Internal
