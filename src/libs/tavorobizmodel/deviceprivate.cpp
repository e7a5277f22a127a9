#include "deviceprivate_p.h"
#include "inputcrop_p.h"

namespace Tavoro::BizModel {

void DevicePrivate::keepInterfaceCrops()
{
    for (const auto &interface : contents.interfaces())
        settings->keepCrops(UserSettings::CropOwner::Interface, objectId(interface->interfaceId()),
                            {interface->detail().crop});
}

void DevicePrivate::keepLayerCrops()
{
    for (const auto &layer : contents.layers())
        settings->keepCrops(UserSettings::CropOwner::Layer, objectId(layer->identity()),
                            layer->detail().source.crop);
}

void DevicePrivate::adopt(DevicePrivate &former)
{
    former.keepInterfaceCrops();
    former.keepLayerCrops();
    settings->adopt(*former.settings);
    for (const auto &interface : contents.interfaces())
        interface->restoreCrop(*settings);
    for (const auto &layer : contents.layers()) {
        layer->restoreCrops(*settings);
        if (const auto source = layer->source().lock())
            layer->fitCrops(pictureSize(source->detail().actualTiming));
    }
}

} // namespace Tavoro::BizModel
