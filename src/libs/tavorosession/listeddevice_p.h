#pragma once

#include <tavorocontrol/proto/devicebaseinfo.h>

#include <memory>

namespace Tavoro::BizModel {
class Device;
}

namespace Tavoro::SessionInternal {

/// The device with this identity in the model's list. Adds it to the list if it is not there.
std::shared_ptr<BizModel::Device> listedDevice(const ProtoModel::DeviceBaseInfo &info);

} // namespace Tavoro::SessionInternal
