#pragma once

#include "devicetracker_p.h"
#include "discoveryquery_p.h"

#include <functional>
#include <memory>

namespace Tavoro::SSProxy::Internal {

/// Runs a DiscoveryQuery while discovery is started, and passes its answers to the DeviceTracker.
/// The tracker outlives the queries, so that a device keeps its channel when discovery is
/// restarted.
///
/// | member                  | thread     |
/// |-------------------------|------------|
/// | start, stop, refresh    | any        |
/// | others                  | the loop's |
class DiscoveryService final : public std::enable_shared_from_this<DiscoveryService> {
public:
    /// Creates a socket, without opening it.
    using SocketFactory = std::function<std::unique_ptr<DatagramSocket>()>;

    DiscoveryService(std::shared_ptr<EventLoop> loop, SocketFactory makeSocket,
                     std::shared_ptr<DeviceTracker> tracker);

    /// Starts discovery, or continues it with other \a options. On failure logs the reason and
    /// continues with the previous options.
    void start(const DiscoveryOptions &options);
    void stop();
    /// Readmits removed devices, and sends requests now if discovery is started.
    void refresh();

    const std::shared_ptr<EventLoop> &loop() const { return m_loop; }

private:
    void startQuery(const DiscoveryOptions &options);
    void replaceQuery(std::shared_ptr<DiscoveryQuery> next);

    const std::shared_ptr<EventLoop> m_loop;
    const SocketFactory m_makeSocket;
    const std::shared_ptr<DeviceTracker> m_tracker;
    std::shared_ptr<DiscoveryQuery> m_query; ///< Null while discovery is stopped.
};

} // namespace Tavoro::SSProxy::Internal
