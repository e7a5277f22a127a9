#include "upload.h"

#include <tavorobizmodel/device.h>
#include <tavorocontrol/file.h>
#include <tavoroctl/arguments/texts.h>
#include <tavoroctl/output/console.h>
#include <tavorossproxy/commandcodes.h>
#include <tavorossproxy/devicecommand.h>
#include <tavorossproxy/networkchannel.h>

#include <algorithm>

namespace Tavoro::Ctl {

using SSProxy::RequestOutcome;

Upload::Upload(Console &console, const Target &target, const ProtoModel::File::s_FileInfo &info)
    : m_console(console), m_target(target), m_info(info)
{
    constexpr quint32 most = 1 << 20; // for a device that announces a larger limit or none
    const quint32 limit = target.device->deviceBaseInfo().maxPacketSize;
    m_packetSize = limit == 0 ? most : std::min(limit, most);
}

bool Upload::run(ContentSource &content)
{
    const SSProxy::ExchangeWatch watch;
    quint8 lastTag = 0;
    const bool isSent = send(content, lastTag);
    m_lastExchange = watch.last();
    return isSent || (lastTag != 0 && confirmLastPacket(lastTag));
}

bool Upload::send(ContentSource &content, quint8 &lastTag)
{
    if (!Control::File(m_target.device).importFile({m_info}, m_error))
        return false;
    const auto length = static_cast<quint32>(m_info.size.length);
    const quint32 count = std::max(1u, (length + m_packetSize - 1) / m_packetSize);
    for (quint32 i = 0; i < count; ++i) {
        if (m_isCancelled) {
            m_error = Texts::tr("Interrupted.");
            return false;
        }
        const Request request = packet(count, i);
        request->body() = content.read(m_packetSize);
        const bool isSent = m_helper.sendSyncRequest(m_target.device, request, m_error, false);
        if (i + 1 == count)
            lastTag = request->head().lables;
        if (!isSent)
            return false;
        showProgress(count, i);
    }
    return true;
}

/// Control::File sends such packets too, but does not return their tags, which requestOutcome()
/// needs.
Upload::Request Upload::packet(quint32 count, quint32 index) const
{
    auto request = std::make_shared<SSProxy::DeviceRequestCommand>();
    SSProxy::PacketHead &head = request->head();
    head.type = static_cast<quint8>(SSProxy::CommandType::BinaryWrite);
    head.BC = SSProxy::baseCode(SSProxy::Command::FileImport);
    head.FC = SSProxy::functionCode(SSProxy::Command::FileImport);
    head.arg2[0] = static_cast<quint8>(m_info.fileType);
    head.arg2[1] = static_cast<quint8>(m_info.fileId);
    head.totalCount = count;
    head.sendCount = index;
    return request;
}

bool Upload::confirmLastPacket(quint8 tag)
{
    QString ignored;
    RequestOutcome outcome;
    if (m_target.channel->waitUntilReady(m_target.timeout, ignored))
        outcome = m_target.channel->requestOutcome(tag);
    switch (outcome.state) {
    case RequestOutcome::Done:
        m_lastExchange->status = outcome.status;
        return outcome.status == 0;
    case RequestOutcome::NotArrived:
        m_lastExchange->sent.reset();
        break;
    case RequestOutcome::UnderWay:
    case RequestOutcome::Unknown:
        m_error += QLatin1Char(' ') + Texts::tr("The device may have the file.");
        break;
    }
    return false;
}

void Upload::showProgress(quint32 count, quint32 index)
{
    const auto percent = static_cast<int>((index + 1) * quint64{100} / count);
    const qint64 sent = (index + qint64{1}) * m_packetSize;
    const qint64 total = m_info.size.length;
    if (m_pace.mayShow(percent))
        m_console.progress(
            {percent, QString::fromStdString(m_info.general.name), std::min(sent, total), total});
}

} // namespace Tavoro::Ctl
