#pragma once

#include <tavorossproxy/devicechannel.h>

#include <functional>
#include <memory>

namespace Tavoro::BizModel {
class Device;
}

namespace Tavoro::Ctl {

/// A device that does not exist: its channel shows each request instead of sending it.
class DryRun {
public:
    using Show = std::function<void(const SSProxy::DeviceRequestCommand &request)>;

    /// \a show is called with each request, on the thread that makes it.
    explicit DryRun(Show show);
    ~DryRun();
    DryRun(const DryRun &) = delete;
    DryRun &operator=(const DryRun &) = delete;

    /// The device for calls. Writes succeed; reads get an empty answer, which they cannot decode.
    std::shared_ptr<BizModel::Device> device() const { return m_device; }

private:
    const std::shared_ptr<SSProxy::DeviceChannel> m_channel;
    const std::shared_ptr<BizModel::Device> m_device;
};

} // namespace Tavoro::Ctl
