#include "transferjob_p.h"

#include <tavorossproxy/devicecommand.h>
#include <tavorossproxy/exchangewatch.h>

#include <algorithm>
#include <iterator>

namespace Tavoro::SessionInternal {

FetchJob::FetchJob(std::shared_ptr<PendingOperation> call, std::shared_ptr<CallTracker> callTracker,
                   const ProtoModel::s_FileIdentity &file, qint64 expectedSize,
                   std::unique_ptr<ContentTarget> content)
    : TransferJob(std::move(call), std::move(callTracker), SSProxy::Command::FileExport),
      m_file(file),
      m_expectedSize(expectedSize),
      m_content(std::move(content))
{ }

CallResult FetchJob::attempt()
{
    QString error;
    if (!m_content->open(error))
        return notSent(error);
    CallResult fetched = fetchPackets();
    if (fetched.kind == Outcome::Done && !m_content->commit(error))
        return notSent(error);
    return fetched;
}

CallResult FetchJob::fetchPackets()
{
    CallResult fetched;
    quint32 count = 1;
    qint64 done = 0;
    std::string body;
    for (quint32 i = 0; i < count; ++i) {
        QString error;
        if (operation->isCanceled())
            return notSent(NotSentReason::Canceled);
        quint32 packetsOfAnswer = 1;
        fetched = fetchPacket(i == 0 ? 0 : count, i, body, packetsOfAnswer);
        if (fetched.kind != Outcome::Done)
            return fetched;
        if (!m_content->write(body, error))
            return notSent(error);
        if (i == 0)
            count = packetsOfAnswer;
        const auto length = static_cast<qint64>(body.size());
        done += length;
        const qint64 estimate =
            m_expectedSize > 0 ? m_expectedSize : done + (count - i - 1) * length;
        tracker->setDone(done, i + 1 == count ? done : std::max(done, estimate));
    }
    return fetched;
}

/// Fetches one packet. The answer to the first one says how many there are.
CallResult FetchJob::fetchPacket(quint32 count, quint32 index, std::string &body,
                                 quint32 &packetsOfAnswer)
{
    const auto request = std::make_shared<SSProxy::DeviceRequestCommand>();
    SSProxy::PacketHead head = request->head();
    head.type = static_cast<quint8>(SSProxy::CommandType::BinaryRead);
    head.BC = SSProxy::baseCode(SSProxy::Command::FileExport);
    head.FC = SSProxy::functionCode(SSProxy::Command::FileExport);
    head.arg2[0] = static_cast<quint8>(m_file.fileType);
    head.arg2[1] = static_cast<quint8>(m_file.fileId);
    // The channel has marked the first request; the others belong to the same exchange.
    std::copy(std::begin(m_first.opaque18), std::end(m_first.opaque18), head.opaque18);
    head.opaque35 = m_first.opaque35;
    head.totalCount = count;
    head.sendCount = index;
    request->head() = head;

    const SSProxy::ExchangeWatch watch;
    const auto answer = target->channel->sendSyncRequest(request);
    if (index == 0)
        m_first = request->head();
    const bool ok = answer && answer->status == 0;
    if (ok) {
        const SSProxy::PacketHead answered = answer->head();
        packetsOfAnswer = std::max(quint32{answered.totalCount}, 1u);
        body = std::move(answer->body());
    }
    return resultOf(ok, {}, watch);
}

} // namespace Tavoro::SessionInternal
