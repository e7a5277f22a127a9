#include "upload.h"

#include <tavorobizmodel/device.h>
#include <tavorocontrol/file.h>
#include <tavoroctl/output/console.h>
#include <tavorossproxy/commandcodes.h>
#include <tavorossproxy/devicecommand.h>
#include <tavorossproxy/networkchannel.h>

#include <algorithm>
#include <utility>

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
    if (!Control::File(m_target.device).importFile({m_info}, m_error))
        return false;
    const auto length = static_cast<quint32>(m_info.size.length);
    const quint32 count = std::max(1u, (length + m_packetSize - 1) / m_packetSize);
    for (quint32 i = 0; i < count; ++i) {
        if (m_isCancelled) {
            m_error = QStringLiteral("Interrupted.");
            return false;
        }
        const Request request = packet(count, i);
        request->body() = content.read(m_packetSize);
        const bool isSent = m_helper.sendSyncRequest(m_target.device, request, m_error, false);
        const bool isLast = i + 1 == count;
        if (!isSent && !(isLast && confirmLastPacket(request->head().lables)))
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
        return outcome.status == 0;
    case RequestOutcome::NotArrived:
        break;
    case RequestOutcome::UnderWay:
    case RequestOutcome::Unknown:
        m_error += QStringLiteral(" The device may have the file.");
        break;
    }
    return false;
}

void Upload::showProgress(quint32 count, quint32 index)
{
    const auto percent = static_cast<int>((index + 1) * quint64{100} / count);
    if (std::exchange(m_percent, percent) != percent)
        m_console.progress(percent, QString::fromStdString(m_info.general.name));
}

} // namespace Tavoro::Ctl
