#pragma once

#include <tavorossproxy/devicechannel.h>
#include <tavorossproxy/devicecommand.h>

#include <QString>

#include <memory>

namespace Tavoro::BizModel {
class Device;
}

namespace Tavoro::Control::Internal {

class ExchangeReporter;

/// The device and the channel of one exchange. Keeps both alive while the exchange lasts.
struct RequestPath {
    std::shared_ptr<BizModel::Device> device;
    /// Null for a device that exists only in the model.
    std::shared_ptr<SSProxy::DeviceChannel> channel;
};

/// The channel of a device; null if it has none.
std::shared_ptr<SSProxy::DeviceChannel> channelOf(const BizModel::Device &device);

/// Starts an exchange: locks the device, logs the request, sets its timeout from the device's
/// table, and finds the channel. If the device is gone, reports that and returns false.
bool openRequestPath(ExchangeReporter &reporter, const std::weak_ptr<BizModel::Device> &device,
                     SSProxy::DeviceRequestCommand &request, QString &error, RequestPath &path);

} // namespace Tavoro::Control::Internal
