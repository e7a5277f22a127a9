#pragma once

#include "channelkeeper_p.h"
#include "devicefinder_p.h"

#include <functional>
#include <memory>

namespace Tavoro::SSProxy::Internal {

/// Looks for devices while it is started, and keeps their channels. Which devices are known
/// outlives each search, so that a device keeps its one channel when another search follows.
///
/// | member                  | thread           |
/// |-------------------------|------------------|
/// | start, stop, refresh    | any              |
/// | the rest                | that of the loop |
class DeviceSearch final : public std::enable_shared_from_this<DeviceSearch> {
public:
    /// Makes a port that is not open yet.
    using PortMaker = std::function<std::unique_ptr<DatagramPort>()>;

    DeviceSearch(std::shared_ptr<ChannelLoop> loop, PortMaker makePort,
                 std::shared_ptr<ChannelKeeper> keeper);

    /// Goes on with \a options in place of those before. When it cannot, it goes on with those
    /// before, and the log tells why.
    void start(const DiscoveryOptions &options);
    void stop();
    /// Lets removed devices in again and asks now.
    void refresh();

    const std::shared_ptr<ChannelLoop> &loop() const { return m_loop; }

private:
    void change(const DiscoveryOptions &options);
    void replaceFinder(std::shared_ptr<DeviceFinder> next);

    const std::shared_ptr<ChannelLoop> m_loop;
    const PortMaker m_makePort;
    const std::shared_ptr<ChannelKeeper> m_keeper;
    std::shared_ptr<DeviceFinder> m_finder; ///< Null while nobody looks for devices.
};

} // namespace Tavoro::SSProxy::Internal
