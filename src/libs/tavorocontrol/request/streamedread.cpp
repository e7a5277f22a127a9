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
        return callWithFailure();
    }
    if (!request) {
        refuseMissingRequest(m_error);
        return callWithFailure();
    }
    ExchangeReporter reporter(Verb::Get, *request);
    m_reporter = &reporter;
    RequestPath path;
    if (!openRequestPath(reporter, device, *request, m_error, path))
        return callWithFailure();
    m_device = path.device.get();
    if (!path.channel) {
        // Kept: a device that exists only in the model has nothing to hand over, and that counts as
        // done.
        reporter.logMissingChannel();
        handOver(1.0, {});
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
    const Reply reply = judge(channel.sendSyncRequest(request));
    if (reply.failure != Failure::None)
        return fail(reply);

    const SSProxy::PacketHead answer = reply.response->head();
    const double progress = (answer.sendCount + 1.0) / answer.totalCount;
    if (quint64(answer.sendCount) + 1 == answer.totalCount) {
        m_reporter->succeedRead(answer.type, reply.response->body(), true);
        handOver(progress, reply.response->body());
        return true;
    }
    m_progress = progress;
    if (!mayContinue(channel))
        return false;
    handOver(progress, reply.response->body());
    return readFurtherPackets(channel, request->head(), answer, takeBody(reply));
}

bool StreamedRead::readFurtherPackets(SSProxy::DeviceChannel &channel, SSProxy::PacketHead request,
                                      const SSProxy::PacketHead &answer, std::string data)
{
    const quint32 totalCount = answer.totalCount;
    for (quint32 i = 1; i < totalCount; ++i) {
        if (!mayContinue(channel))
            return false;
        if (!channel.isHardwareReadFinished())
            return fail({Failure::Offline, 0, nullptr});
        data = std::string(); // so that no more than the packet on its way is held
        auto response = channel.sendSyncRequest(packetRequest(request, totalCount, i));
        if (!mayContinue(channel))
            return false;
        const Reply reply = judge(std::move(response));
        if (reply.failure != Failure::None)
            return fail(reply, {i, totalCount});
        data = takeBody(reply);
        handOver((i + 1.0) / totalCount, data);
    }
    return m_reporter->succeedRead(answer.type, data, false);
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
    return callWithFailure();
}

bool StreamedRead::isNotCancelled()
{
    if (!m_cancelled)
        return true;
    m_error = translated(cancelledText);
    qCWarning(controlLog) << QStringLiteral("%1%2").arg(QStringLiteral("TavoroCmd stopped :"),
                                                        m_error)
                          << m_device->name() << m_device->ipMacSn();
    return callWithFailure();
}

void StreamedRead::handOver(double progress, const std::string &data)
{
    m_progress = progress;
    m_callback(true, progress, data, m_error);
}

bool StreamedRead::fail(const Reply &reply, PacketCount count)
{
    m_reporter->fail(reply, m_error, count);
    return callWithFailure();
}

bool StreamedRead::callWithFailure()
{
    m_callback(false, m_progress, {}, m_error);
    return false;
}

} // namespace Tavoro::Control::Internal
