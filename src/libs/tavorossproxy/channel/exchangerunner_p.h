#pragma once

#include "answerelements_p.h"
#include <tavorossproxy/io/eventloop_p.h>

#include <tavorossproxy/channeloptions.h>
#include <tavorossproxy/devicecommand.h>
#include <tavorossproxy/exchangewatch.h>
#include <tavorowire/wirehead.h>

#include <QString>

#include <functional>
#include <memory>

namespace Tavoro::SSProxy::Internal {

class ExchangeTable;
class RequestSender;
class ResponseMonitor;

/// Makes the exchanges of callers, each on the thread of its caller.
class ExchangeRunner {
public:
    /// \a peerName returns the device's name for the log.
    ExchangeRunner(EventLoop &loop, const ChannelOptions &options, ExchangeTable &exchanges,
                   RequestSender &sender, ResponseMonitor &monitor,
                   std::function<QString()> peerName);

    /// Returns false if requests are refused now, and reports the refusal to the ExchangeWatch of
    /// the caller. An operation calls this before each request, and sends nothing if it returns
    /// false. Without the report, the watch would still show an earlier exchange.
    bool acceptsRequests() const;
    /// See DeviceChannel::sendSyncRequest(). Reports the exchange to the ExchangeWatch of the
    /// caller.
    std::shared_ptr<DeviceResponseCommand> run(DeviceRequestCommand &request);

private:
    std::shared_ptr<DeviceResponseCommand> exchange(DeviceRequestCommand &request,
                                                    Exchange &observed);
    bool maySend(const Wire::WireHead &request, Clock::TimePoint deadline);
    std::shared_ptr<DeviceResponseCommand> refuseAnswer(const Wire::WireHead &request,
                                                        quint64 elements);

    EventLoop &m_loop;
    const ChannelOptions &m_options;
    ExchangeTable &m_exchanges;
    RequestSender &m_sender;
    ResponseMonitor &m_monitor;
    const std::function<QString()> m_peerName;
    AnswerElements m_answerElements;
};

} // namespace Tavoro::SSProxy::Internal
