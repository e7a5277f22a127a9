#include "reportdelivery_p.h"

#include <tavorossproxy/logging_p.h>

#include <tavorowire/wirehead.h>

#include <utility>

namespace Tavoro::SSProxy::Internal {

ReportDelivery::ReportDelivery(std::shared_ptr<EventLoop> loop, const ChannelOptions &options,
                               std::function<QString()> peerName, Handler handler)
    : m_peerName(std::move(peerName)),
      m_lifetime(std::make_shared<ReportDelivery *>(this)),
      m_queue(
          {options.maxPendingReports, options.maxPendingReportBytes},
          [this, handler = std::move(handler)](std::shared_ptr<IDeviceCommand> report) {
              ++m_delivered;
              handler(std::move(report));
          },
          makeWake(loop)),
      m_droppedLines(*loop, logInterval, [this](quint64 count) { logDropped(count); })
{ }

/// Reports may be released on any thread, and after the channel was destroyed.
std::function<void()> ReportDelivery::makeWake(std::shared_ptr<EventLoop> loop) const
{
    const auto deliver = [lifetime = std::weak_ptr<ReportDelivery *>(m_lifetime)] {
        if (const auto self = lifetime.lock())
            (*self)->m_queue.deliverWaiting();
    };
    return [loop = std::move(loop), deliver] {
        loop->post(deliver);
    };
}

void ReportDelivery::take(Wire::FrameEvent &&report)
{
    const int dropped = m_queue.take(Wire::packetHead(report.head), std::move(report.body));
    m_dropped += static_cast<quint64>(dropped);
    m_droppedLines.count(static_cast<quint64>(dropped));
}

void ReportDelivery::stop()
{
    m_lifetime.reset();
    m_queue.dropWaiting();
    m_droppedLines.flush();
}

void ReportDelivery::logDropped(quint64 count) const
{
    qCWarning(channelLog) << "Too many reports from" << m_peerName() << "dropped" << count;
}

} // namespace Tavoro::SSProxy::Internal
