#include "deviceprivate_p.h"
#include "inputcrop_p.h"
#include "objectprivate_p.h"

#include <tavorobizmodel/layer.h>

namespace Tavoro::BizModel {

using ProtoModel::Layer::s_LayerFullDetail;

namespace {

void restorePixels(s_LayerFullDetail &layer, const UserSettings &settings)
{
    auto &crops = layer.source.crop;
    for (std::size_t i = 0; i < crops.size(); ++i)
        settings.restorePixels(UserSettings::CropOwner::Layer, objectId(layer.layerIdenti), i,
                               crops[i]);
}

/// Returns true if the pixels of a crop changed.
bool fitPixels(s_LayerFullDetail &layer, const QSize &picture)
{
    bool any = false;
    for (auto &crop : layer.source.crop)
        any = fitCrop(crop, picture) || any;
    return any;
}

} // namespace

class LayerPrivate : public ObjectPrivate<s_LayerFullDetail> {
public:
    LayerPrivate(Layer &layer, const s_LayerFullDetail &read, std::weak_ptr<Device> owner)
        : ObjectPrivate(layer, read, std::move(owner)), identity(read.layerIdenti)
    { }

    const ProtoModel::Layer::s_LayerIdentity identity;
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
    const auto shown = d->read(shownInterface);
    return owner && shown ? DevicePrivate::contentsOf(*owner).findInterface(*shown) : nullptr;
}

bool Layer::assign(s_LayerFullDetail read, const UserSettings &settings, const QSize &picture)
{
    restorePixels(read, settings);
    fitPixels(read, picture);
    return d->assign(read);
}

void Layer::restoreCrops(const UserSettings &settings)
{
    d->change([&](s_LayerFullDetail &known) { restorePixels(known, settings); });
}

bool Layer::fitCrops(const QSize &picture)
{
    return d->change([&](s_LayerFullDetail &known) { return fitPixels(known, picture); });
}

void Layer::fitInputCrop(const QSize &picture)
{
    if (fitCrops(picture))
        d->notify(*this, &Layer::layerChanged);
}

} // namespace Tavoro::BizModel
