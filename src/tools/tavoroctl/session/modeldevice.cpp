#include "modeldevice.h"

#include <tavorobizmodel/device.h>

#include <QString>

namespace Tavoro::Ctl {

std::shared_ptr<BizModel::Device> makeModelDevice(const ProtoModel::DeviceBaseInfo &info)
{
    constexpr unsigned short withoutNumber = 65535;
    auto device = std::make_shared<BizModel::Device>(withoutNumber, nullptr);
    device->setModelId(info.modelId);
    device->setIPAddress(QString::fromStdString(info.ip));
    device->setName(QString::fromStdString(info.name));
    device->updateDeviceBaseInfo(info);
    return device;
}

} // namespace Tavoro::Ctl
