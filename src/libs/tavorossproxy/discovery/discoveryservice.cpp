#include "discoveryservice_p.h"

#include <tavorossproxy/logging_p.h>

#include <utility>

namespace Tavoro::SSProxy::Internal {

DiscoveryService::DiscoveryService(std::shared_ptr<EventLoop> loop, SocketFactory makeSocket,
                                   std::shared_ptr<DeviceTracker> tracker)
    : m_loop(std::move(loop)), m_makeSocket(std::move(makeSocket)), m_tracker(std::move(tracker))
{ }

void DiscoveryService::start(const DiscoveryOptions &options)
{
    m_loop->post([service = shared_from_this(), options] { service->startQuery(options); });
}

void DiscoveryService::stop()
{
    m_loop->post([service = shared_from_this()] { service->replaceQuery(nullptr); });
}

void DiscoveryService::refresh()
{
    m_loop->post([service = shared_from_this()] {
        service->m_tracker->forgetRemoved();
        if (service->m_query)
            service->m_query->sendNow();
    });
}

void DiscoveryService::startQuery(const DiscoveryOptions &options)
{
    auto next =
        std::make_shared<DiscoveryQuery>(m_loop, m_makeSocket(), options.targets, options.interval);
    const auto noteSeen = [tracker = m_tracker](const auto &device) {
        tracker->noteSeen(device);
    };
    QString error;
    if (!next->start(noteSeen, error)) {
        qCWarning(channelLog).noquote() << error;
        return;
    }
    m_tracker->setOptions(options);
    replaceQuery(std::move(next));
}

void DiscoveryService::replaceQuery(std::shared_ptr<DiscoveryQuery> next)
{
    m_query.swap(next);
    if (next)
        next->stop();
}

} // namespace Tavoro::SSProxy::Internal
