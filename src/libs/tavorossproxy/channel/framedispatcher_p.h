#pragma once

#include "channellink_p.h"

#include <tavorossproxy/channeloptions.h>

namespace Tavoro::SSProxy::Internal {

class DeviceControl;
class ExchangeTable;
class InvalidFrames;
class ReportDelivery;
class ResponseMonitor;

/// Passes the frames of a device to the parts of the channel that use them.
class FrameDispatcher final : public ChannelLink::FrameHandler {
public:
    struct Receivers {
        ExchangeTable &exchanges;
        DeviceControl &control;
        ReportDelivery &reports;
        InvalidFrames &invalidFrames;
        ResponseMonitor &monitor;
    };

    FrameDispatcher(const ChannelOptions &options, const Receivers &receivers)
        : m_options(options), m_receivers(receivers)
    { }

private:
    void frameReceived(Wire::FrameEvent &&event) override;
    void answerReceived(Wire::FrameEvent &&answer) override;
    void frameStarted(const Wire::WireHead &head) override;
    void frameProgressed(Clock::TimePoint lastProgress) override;

    const ChannelOptions &m_options;
    const Receivers m_receivers;
};

} // namespace Tavoro::SSProxy::Internal
