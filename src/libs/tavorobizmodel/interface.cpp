#include "deviceprivate_p.h"
#include "inputcrop_p.h"
#include "objectprivate_p.h"

#include <tavorobizmodel/interface.h>
#include <tavorobizmodel/layer.h>

namespace Tavoro::BizModel {

using ProtoModel::Interface::s_InterfaceDetail;

class InterfacePrivate : public ObjectPrivate<s_InterfaceDetail> {
public:
    InterfacePrivate(Interface &interface, const s_InterfaceDetail &read,
                     std::weak_ptr<Device> owner)
        : ObjectPrivate(interface, read, std::move(owner)), id(read.interfaceId)
    { }

    DeviceContents::LayerList layers() const
    {
        const auto owner = device.lock();
        return owner ? DevicePrivate::contentsOf(*owner).layersShowing(objectId(id))
                     : DeviceContents::LayerList();
    }

    const ProtoModel::s_InterfaceID id;
};

Interface::Interface(const s_InterfaceDetail &detail, std::weak_ptr<Device> device)
    : d(std::make_unique<InterfacePrivate>(*this, detail, std::move(device)))
{
    d->change([](s_InterfaceDetail &known) {
        return fitCrop(known.crop, pictureSize(known.actualTiming));
    });
}

Interface::~Interface() = default;

bool Interface::assign(s_InterfaceDetail read, const UserSettings &settings)
{
    settings.restorePixels(UserSettings::CropOwner::Interface, objectId(d->id), 0, read.crop);
    fitCrop(read.crop, pictureSize(read.actualTiming));
    return d->assign(read);
}

void Interface::restoreCrop(const UserSettings &settings)
{
    d->change([&](s_InterfaceDetail &known) {
        settings.restorePixels(UserSettings::CropOwner::Interface, objectId(d->id), 0, known.crop);
        fitCrop(known.crop, pictureSize(known.actualTiming));
    });
}

ProtoModel::s_InterfaceID Interface::interfaceId() const
{
    return d->id;
}

s_InterfaceDetail Interface::detail() const
{
    return d->detail();
}

std::weak_ptr<Device> Interface::device() const
{
    return d->device;
}

std::weak_ptr<Screen> Interface::screen() const
{
    const auto owner = d->device.lock();
    return owner ? DevicePrivate::contentsOf(*owner).screenOfOutput(objectId(d->id)) : nullptr;
}

QList<std::weak_ptr<Layer>> Interface::layers() const
{
    return weakList(d->layers());
}

void Interface::setActualTiming(ProtoModel::s_TimingDetailBody timing)
{
    d->change([&](s_InterfaceDetail &known) {
        known.actualTiming = timing;
        return fitCrop(known.crop, pictureSize(timing));
    });
    d->notify(*this, &Interface::interfaceChanged);
}

void Interface::updateLayerInputCrop()
{
    const QSize picture = pictureSize(d->detail().actualTiming);
    for (const auto &layer : d->layers())
        layer->fitInputCrop(picture);
    d->notify(*this, &Interface::layerInputCropOutdated);
}

namespace {

/// Stores one part of the record of an interface, and emits interfaceChanged().
template <class Part>
void store(Interface &interface, InterfacePrivate &d, Part s_InterfaceDetail::*part,
           const Part &value)
{
    d.change([&](s_InterfaceDetail &known) { known.*part = value; });
    d.notify(interface, &Interface::interfaceChanged);
}

} // namespace

// clang-format off
void Interface::setGeneral(const ProtoModel::Interface::s_InterfaceGeneralBody &general) { store(*this, *d, &s_InterfaceDetail::general, general); }
void Interface::setColorDepth(ProtoModel::s_ColorDepthBody depth)                        { store(*this, *d, &s_InterfaceDetail::colorDepths, depth); }
void Interface::setColorSpace(ProtoModel::s_ColorSpaceBody space)                        { store(*this, *d, &s_InterfaceDetail::colorSpaces, space); }
void Interface::setColorRange(ProtoModel::s_ColorRangeBody range)                        { store(*this, *d, &s_InterfaceDetail::colorRanges, range); }
void Interface::setHDR(ProtoModel::s_HDRBody hdr)                                        { store(*this, *d, &s_InterfaceDetail::HDR, hdr); }
// clang-format on

} // namespace Tavoro::BizModel
