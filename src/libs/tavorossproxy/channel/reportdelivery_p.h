#pragma once

#include "reportqueue_p.h"
#include <tavorossproxy/io/ratelimiter_p.h>

#include <tavorossproxy/channeloptions.h>
#include <tavorowire/frameparser.h>

#include <QString>

#include <atomic>
#include <functional>
#include <memory>

namespace Tavoro::SSProxy::Internal {

/// Delivers the reports of a device to a handler, counts them, and logs how many were dropped.
///
/// | member              | thread                                                   |
/// |---------------------|----------------------------------------------------------|
/// | delivered, dropped  | any                                                      |
/// | the others          | that of the loop; reports may be released on any thread  |
class ReportDelivery {
public:
    using Handler = ReportQueue::Receiver;

    /// \a peerName returns the device's name for the log.
    ReportDelivery(std::shared_ptr<EventLoop> loop, const ChannelOptions &options,
                   std::function<QString()> peerName, Handler handler);

    void take(Wire::FrameEvent &&report);
    /// Drops the waiting reports, and logs the dropped reports that were not logged yet. Do not
    /// call take() afterwards.
    void stop();

    quint64 delivered() const { return m_delivered; }
    quint64 dropped() const { return m_dropped; }

private:
    std::function<void()> makeWake(std::shared_ptr<EventLoop> loop) const;
    void logDropped(quint64 count) const;

    const std::function<QString()> m_peerName;
    /// Points at this object until stop(); posted calls hold it weakly.
    std::shared_ptr<ReportDelivery *> m_lifetime;
    ReportQueue m_queue;
    RateLimiter m_droppedLines; ///< Limits how often dropped reports are logged.
    std::atomic<quint64> m_delivered{0};
    std::atomic<quint64> m_dropped{0};
};

} // namespace Tavoro::SSProxy::Internal
