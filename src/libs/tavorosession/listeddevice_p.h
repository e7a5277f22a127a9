#pragma once

#include <tavorocontrol/proto/devicebaseinfo.h>

#include <functional>
#include <memory>

namespace Tavoro::BizModel {
class Device;
}

namespace Tavoro::SessionInternal {

using DeviceHandler = std::function<void(const std::shared_ptr<BizModel::Device> &device)>;

/// The device with this identity in the model's list. Adds it to the list if it is not there, and
/// calls \a created before.
std::shared_ptr<BizModel::Device> listedDevice(const ProtoModel::DeviceBaseInfo &info,
                                               const DeviceHandler &created);

} // namespace Tavoro::SessionInternal
