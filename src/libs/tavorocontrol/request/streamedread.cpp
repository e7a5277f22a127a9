#include "streamedread_p.h"

#include "exchangereporter_p.h"
#include "packet_p.h"
#include "requestpath_p.h"
#include "translation_p.h"

#include <tavorobizmodel/device.h>
#include <tavorocontrol/logging_p.h>

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
        m_error = translated(cancelledText);
        qCWarning(controlLog) << m_error;
        return deliverFailure();
    }
    if (!request) {
        refuseMissingRequest(m_error);
        return deliverFailure();
    }
    ExchangeReporter reporter(Verb::Get, *request);
    m_reporter = &reporter;
    RequestPath path;
    if (!openRequestPath(reporter, device, *request, m_error, path))
        return deliverFailure();
    m_device = path.device.get();
    if (!path.channel) {
        // Kept: a device that exists only in the model has no data, and the read succeeds.
        reporter.logMissingChannel();
        deliverPacket(1.0, {});
        return true;
    }
    return readPackets(*path.channel, request);
}

bool StreamedRead::readPackets(SSProxy::DeviceChannel &channel,
                               const std::shared_ptr<SSProxy::DeviceRequestCommand> &request)
{
    if (!channel.isHardwareReadFinished())
        return fail({Failure::Offline, 0, nullptr});
    if (!mayContinue(channel))
        return false;
    Reply reply = classify(channel.sendSyncRequest(request));
    if (reply.failure != Failure::None)
        return fail(reply);

    const SSProxy::PacketHead answer = reply.response->head();
    const double progress = (answer.sendCount + 1.0) / answer.totalCount;
    if (quint64(answer.sendCount) + 1 == answer.totalCount) {
        m_reporter->succeedRead(answer.type, reply.response->body(), true);
        deliverPacket(progress, reply.response->body());
        return true;
    }
    m_progress = progress;
    if (!mayContinue(channel))
        return false;
    deliverPacket(progress, reply.response->body());
    return readFurtherPackets(channel, request->head(), answer, std::move(reply));
}

/// Reads the packets after the first one. \a answer is the head of the first packet and \a reply
/// its outcome. \a head is a copy of the head of the caller's request, made after the first call of
/// the callback, which may change the request.
bool StreamedRead::readFurtherPackets(SSProxy::DeviceChannel &channel, SSProxy::PacketHead head,
                                      const SSProxy::PacketHead &answer, Reply reply)
{
    const quint32 totalCount = answer.totalCount;
    for (quint32 i = 1; i < totalCount; ++i) {
        if (!mayContinue(channel))
            return false;
        if (!channel.isHardwareReadFinished())
            return fail({Failure::Offline, 0, nullptr});
        reply = {}; // frees the last packet before the next one arrives
        auto response = channel.sendSyncRequest(packetRequest(head, totalCount, i));
        if (!mayContinue(channel))
            return false;
        reply = classify(std::move(response));
        if (reply.failure != Failure::None)
            return fail(reply, {i, totalCount});
        deliverPacket((i + 1.0) / totalCount, reply.response->body());
    }
    return m_reporter->succeedRead(answer.type, reply.response->body(), false);
}

bool StreamedRead::mayContinue(SSProxy::DeviceChannel &channel)
{
    return isStillMaster(channel) && isNotCancelled();
}

bool StreamedRead::isStillMaster(SSProxy::DeviceChannel &channel)
{
    if (channel.isMasterControl())
        return true;
    m_error = translated(controlledByOthers);
    qCWarning(controlLog) << m_error;
    return deliverFailure();
}

bool StreamedRead::isNotCancelled()
{
    if (!m_cancelled)
        return true;
    m_error = translated(cancelledText);
    qCWarning(controlLog) << QStringLiteral("%1%2").arg(QStringLiteral("TavoroCmd stopped :"),
                                                        m_error)
                          << m_device->name() << m_device->ipMacSn();
    return deliverFailure();
}

void StreamedRead::deliverPacket(double progress, const std::string &data)
{
    m_progress = progress;
    m_callback(true, progress, data, m_error);
}

bool StreamedRead::fail(const Reply &reply, PacketCount count)
{
    m_reporter->fail(reply, m_error, count);
    return deliverFailure();
}

bool StreamedRead::deliverFailure()
{
    m_callback(false, m_progress, {}, m_error);
    return false;
}

} // namespace Tavoro::Control::Internal
