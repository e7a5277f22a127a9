#pragma once

#include <tavorossproxy/devicechannel.h>

#include <memory>

namespace Tavoro::BizModel {
class Device;
}

namespace Tavoro::Ctl {

/// A model device by which the request path finds the channel of the device with this identity.
std::shared_ptr<BizModel::Device> makeModelDevice(const ProtoModel::DeviceBaseInfo &info);

} // namespace Tavoro::Ctl
