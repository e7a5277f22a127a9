#include "listeddevice_p.h"

#include <tavorobizmodel/device.h>
#include <tavorobizmodel/devicelist.h>

namespace Tavoro::SessionInternal {

std::shared_ptr<BizModel::Device> listedDevice(const ProtoModel::DeviceBaseInfo &info)
{
    constexpr unsigned short noNumberYet = 65535;
    auto device = std::make_shared<BizModel::Device>(noNumberYet, nullptr);
    device->setIPAddress(QString::fromStdString(info.ip));
    device->updateDeviceBaseInfo(info);
    auto known = BizModel::DeviceList::instance()
                     ->findDevice(device->IPAddress(), device->MAC(), device->sn())
                     .lock();
    if (known)
        return known;
    device->setName(QString::fromStdString(info.name));
    device->setModelId(info.modelId);
    BizModel::DeviceList::instance()->append(device);
    return device;
}

} // namespace Tavoro::SessionInternal
