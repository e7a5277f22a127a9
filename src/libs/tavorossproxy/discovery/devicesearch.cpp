#include "devicesearch_p.h"

#include <tavorossproxy/logging_p.h>

#include <utility>

namespace Tavoro::SSProxy::Internal {

DeviceSearch::DeviceSearch(std::shared_ptr<ChannelLoop> loop, PortMaker makePort,
                           std::shared_ptr<ChannelKeeper> keeper)
    : m_loop(std::move(loop)), m_makePort(std::move(makePort)), m_keeper(std::move(keeper))
{ }

void DeviceSearch::start(const DiscoveryOptions &options)
{
    m_loop->post([search = shared_from_this(), options] { search->change(options); });
}

void DeviceSearch::stop()
{
    m_loop->post([search = shared_from_this()] { search->replaceFinder(nullptr); });
}

void DeviceSearch::refresh()
{
    m_loop->post([search = shared_from_this()] {
        search->m_keeper->readmit();
        if (search->m_finder)
            search->m_finder->ask();
    });
}

void DeviceSearch::change(const DiscoveryOptions &options)
{
    auto next =
        std::make_shared<DeviceFinder>(m_loop, m_makePort(), options.targets, options.interval);
    const auto take = [keeper = m_keeper](const auto &device) {
        keeper->take(device);
    };
    QString error;
    if (!next->start(take, error)) {
        qCWarning(channelLog).noquote() << error;
        return;
    }
    m_keeper->setOptions(options);
    replaceFinder(std::move(next));
}

void DeviceSearch::replaceFinder(std::shared_ptr<DeviceFinder> next)
{
    m_finder.swap(next);
    if (next)
        next->stop();
}

} // namespace Tavoro::SSProxy::Internal
