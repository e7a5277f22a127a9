#pragma once

#include <tavorossproxy/io/datagramsocket_p.h>
#include <tavorossproxy/io/eventloop_p.h>
#include <tavorossproxy/io/ratelimiter_p.h>

#include <tavorossproxy/devicediscovery.h>

#include <QCoreApplication>

#include <functional>
#include <memory>

namespace Tavoro::SSProxy::Internal {

/// Sends discovery requests at an interval, and passes on the identity of each device that answers.
///
/// | member           | thread     |
/// |------------------|------------|
/// | stop, sendNow    | any        |
/// | others           | the loop's |
class DiscoveryQuery final : public std::enable_shared_from_this<DiscoveryQuery>,
                             public EventLoop::Client {
    Q_DECLARE_TR_FUNCTIONS(Tavoro::SSProxy::Internal::DiscoveryQuery)

public:
    /// Called for each answer, on the loop's thread. \c ip of the device is the address that the
    /// answer came from.
    using AnswerHandler = std::function<void(const ProtoModel::DeviceBaseInfo &device)>;

    /// With an \a interval of 0, requests are sent only by start() and sendNow().
    DiscoveryQuery(std::shared_ptr<EventLoop> loop, std::unique_ptr<DatagramSocket> socket,
                   std::vector<DiscoveryTarget> targets, std::chrono::milliseconds interval);

    /// Sends the first requests. Returns false, with a sentence in \a error, if there is no socket
    /// for them.
    bool start(AnswerHandler handler, QString &error);
    void stop();
    /// Sends requests now, in addition to those at the interval.
    void sendNow();

private:
    void loopEnding() override;
    void sendRequests();
    void scheduleNext();
    void receive(const QString &address, std::string_view datagram);

    const std::shared_ptr<EventLoop> m_loop;
    const std::vector<DiscoveryTarget> m_targets;
    const std::chrono::milliseconds m_interval;
    std::unique_ptr<DatagramSocket> m_socket; ///< Null after the query has ended.
    AnswerHandler m_handler;
    RateLimiter m_invalidDatagrams; ///< Limits how often invalid datagrams are logged.
};

} // namespace Tavoro::SSProxy::Internal
