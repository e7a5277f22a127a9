// What the device reports of its own accord: the part of ChannelCore that lets no flood of it pass.

#include "channelcore_p.h"
#include <tavorossproxy/logging_p.h>

#include <tavorowire/frame.h>

namespace Tavoro::SSProxy::Internal {

void ChannelCore::makeReportGate()
{
    const ReportGate::Limits limits{m_options.maxPendingReports, m_options.maxPendingReportBytes};
    const auto receiver = [this](std::shared_ptr<IDeviceCommand> report) {
        ++m_reports;
        m_handlers.report(std::move(report));
    };
    const auto wake = [loop = m_loop, weak = weak_from_this()] {
        loop->post([weak] {
            if (const auto core = weak.lock())
                core->m_reportGate->deliverWaiting();
        });
    };
    m_reportGate = std::make_unique<ReportGate>(limits, receiver, wake);
}

void ChannelCore::takeReport(Wire::FrameEvent &&report)
{
    const int dropped = m_reportGate->take(Wire::packetHead(report.head), std::move(report.body));
    m_droppedReports += static_cast<quint64>(dropped);
    m_drops->count(static_cast<quint64>(dropped));
}

void ChannelCore::tellDropped(quint64 count)
{
    qCWarning(channelLog) << "Too many reports from" << peerName() << "dropped" << count;
}

} // namespace Tavoro::SSProxy::Internal
