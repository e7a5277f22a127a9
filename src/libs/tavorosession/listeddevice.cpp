#include "listeddevice_p.h"

#include <tavorobizmodel/device.h>
#include <tavorobizmodel/devicelist.h>
#include <tavorocontrol/proto/deviceidentity.h>

namespace Tavoro::SessionInternal {

namespace {

/// Finds a device also at another address. Without an identity only the address identifies it.
std::shared_ptr<BizModel::Device> findListed(const BizModel::Device &wanted)
{
    auto *const list = BizModel::DeviceList::instance();
    const bool hasIdentity = !ProtoModel::identityKey(wanted.deviceBaseInfo()).empty();
    for (const auto &listed : list->devices()) {
        auto known = listed.lock();
        if (hasIdentity && known && known->sn() == wanted.sn() && known->MAC() == wanted.MAC())
            return known;
    }
    return list->findDevice(wanted.IPAddress(), wanted.MAC(), wanted.sn()).lock();
}

} // namespace

std::shared_ptr<BizModel::Device> listedDevice(const ProtoModel::DeviceBaseInfo &info,
                                               const DeviceHandler &created)
{
    constexpr unsigned short noNumberYet = 65535;
    auto device = std::make_shared<BizModel::Device>(noNumberYet, nullptr);
    device->setIPAddress(QString::fromStdString(info.ip));
    device->updateDeviceBaseInfo(info);
    if (auto known = findListed(*device))
        return known;
    device->setName(QString::fromStdString(info.name));
    device->setModelId(info.modelId);
    created(device);
    BizModel::DeviceList::instance()->append(device);
    return device;
}

} // namespace Tavoro::SessionInternal
