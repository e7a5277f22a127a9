#include "exchangerunner_p.h"

#include "commands_p.h"
#include "exchangetable_p.h"
#include "requestkinds_p.h"
#include "requestsender_p.h"
#include "responsemonitor_p.h"
#include <tavorossproxy/logging_p.h>

#include <tavorossproxy/channelstatus.h>
#include <tavorossproxy/requestannouncement.h>

#include <algorithm>
#include <chrono>
#include <optional>
#include <utility>

namespace Tavoro::SSProxy::Internal {

ExchangeRunner::ExchangeRunner(EventLoop &loop, const ChannelOptions &options,
                               ExchangeTable &exchanges, RequestSender &sender,
                               ResponseMonitor &monitor, std::function<QString()> peerName)
    : m_loop(loop),
      m_options(options),
      m_exchanges(exchanges),
      m_sender(sender),
      m_monitor(monitor),
      m_peerName(std::move(peerName))
{ }

std::shared_ptr<DeviceResponseCommand> ExchangeRunner::run(DeviceRequestCommand &request)
{
    Exchange observed;
    auto response = exchange(request, observed);
    const PacketHead &head = request.head();
    observed.status = response->status;
    observed.type = static_cast<CommandType>(head.type);
    observed.code = static_cast<quint16>(head.BC << 8 | head.FC);
    observed.packet = head.sendCount;
    observed.packets = std::max(quint32{head.totalCount}, 1u); // a copy: the head is packed
    ExchangeWatch::report(std::move(observed));
    return response;
}

bool ExchangeRunner::acceptsRequests() const
{
    const quint16 refusal = m_exchanges.refusal();
    if (refusal == 0)
        return true;
    Exchange notSent;
    notSent.status = refusal;
    ExchangeWatch::report(std::move(notSent));
    return false;
}

/// Sets the members of \a observed that say whether and when the request was sent.
std::shared_ptr<DeviceResponseCommand> ExchangeRunner::exchange(DeviceRequestCommand &request,
                                                                Exchange &observed)
{
    const auto deadline = m_loop.clock().now()
        + std::min(ChannelOptions::Milliseconds(request.timeout()), m_options.maxRequestTime);
    request.head().lables = 0; // a refused request must not show the tag of an earlier exchange
    if (m_loop.isCurrentThread())
        return makeResponse(request.head(), CalledOnChannelThread);
    const auto ticket = m_exchanges.begin(request, deadline);
    if (ticket.refusal != 0)
        return makeResponse(request.head(), ticket.refusal);

    if (!maySend(ticket.head, deadline)) {
        m_exchanges.withdraw(ticket.head.lables);
        return makeResponse(request.head(), InvalidRequest);
    }
    request.head() = Wire::packetHead(ticket.head); // further packets copy the stream from here
    m_sender.submit(ticket.head, request.body());
    observed.time = std::chrono::steady_clock::now();
    m_sender.sendUnsent();
    std::optional<Wire::RequestId> sent;
    auto response = m_exchanges.await(ticket.head, deadline, &sent);
    if (sent)
        observed.sent = {sent->connection.client, sent->connection.number, sent->number};
    const quint64 elements = m_answerElements.add(ticket.head, *response);
    if (elements > m_options.maxElements)
        return refuseAnswer(ticket.head, elements);
    m_monitor.check(response->status);
    return response;
}

/// Announces the request, if the caller wants that. A request without a connection need not be
/// announced: it ends when it is submitted.
bool ExchangeRunner::maySend(const Wire::WireHead &request, Clock::TimePoint deadline)
{
    if (!RequestAnnouncement::isWanted() || !isDecisiveWrite(request))
        return true;
    const auto id = m_exchanges.reserveNumber(request.lables);
    const auto time =
        std::chrono::duration_cast<ChannelOptions::Milliseconds>(deadline - m_loop.clock().now());
    return !id
        || RequestAnnouncement::announce({id->connection.client, id->connection.number, id->number},
                                         time);
}

/// Ends the exchange. The caller requests no further packet of the answer.
std::shared_ptr<DeviceResponseCommand> ExchangeRunner::refuseAnswer(const Wire::WireHead &request,
                                                                    quint64 elements)
{
    qCWarning(channelLog) << "Answer refused from" << m_peerName() << "elements" << elements
                          << "limit" << m_options.maxElements;
    m_exchanges.endSplitRead(request.stream);
    return makeResponse(Wire::packetHead(request), WrongLength);
}

} // namespace Tavoro::SSProxy::Internal
