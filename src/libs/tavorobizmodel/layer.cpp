#include "deviceprivate_p.h"
#include "inputcrop_p.h"
#include "objectprivate_p.h"

#include <tavorobizmodel/layer.h>

namespace Tavoro::BizModel {

using ProtoModel::Layer::s_LayerFullDetail;

class LayerPrivate : public ObjectPrivate<s_LayerFullDetail> {
public:
    LayerPrivate(Layer &layer, const s_LayerFullDetail &read, std::weak_ptr<Device> owner)
        : ObjectPrivate(layer, read, std::move(owner)),
          identity(read.layerIdenti),
          shown(shownInterface(read))
    { }

    const ProtoModel::Layer::s_LayerIdentity identity;
    const std::optional<ObjectId> shown;
};

Layer::Layer(const s_LayerFullDetail &detail, std::weak_ptr<Device> device)
    : d(std::make_unique<LayerPrivate>(*this, detail, std::move(device)))
{ }

Layer::~Layer() = default;

ProtoModel::Layer::s_LayerIdentity Layer::identity() const
{
    return d->identity;
}

s_LayerFullDetail Layer::detail() const
{
    return d->detail();
}

std::weak_ptr<Device> Layer::device() const
{
    return d->device;
}

std::weak_ptr<Screen> Layer::screen() const
{
    const auto owner = d->device.lock();
    return owner ? DevicePrivate::contentsOf(*owner).findScreen(objectId(screenOf(d->identity)))
                 : nullptr;
}

std::weak_ptr<Interface> Layer::source() const
{
    const auto owner = d->device.lock();
    return owner && d->shown ? DevicePrivate::contentsOf(*owner).findInterface(*d->shown) : nullptr;
}

void Layer::restoreCrops(const UserSettings &settings)
{
    d->change([&](s_LayerFullDetail &known) {
        auto &crops = known.source.crop;
        for (std::size_t i = 0; i < crops.size(); ++i)
            settings.restorePixels(UserSettings::CropOwner::Layer, objectId(d->identity), i,
                                   crops[i]);
    });
}

bool Layer::fitCrops(const QSize &picture)
{
    return d->change([&](s_LayerFullDetail &known) {
        bool any = false;
        for (auto &crop : known.source.crop)
            any = fitCrop(crop, picture) || any;
        return any;
    });
}

void Layer::fitInputCrop(const QSize &picture)
{
    if (fitCrops(picture))
        d->notify(*this, &Layer::layerChanged);
}

} // namespace Tavoro::BizModel
