#include "deviceprivate_p.h"
#include "objectprivate_p.h"

#include <tavorobizmodel/screen.h>

namespace Tavoro::BizModel {

using ProtoModel::Screen::s_ScreenFullDetail;

class ScreenPrivate : public ObjectPrivate<s_ScreenFullDetail> {
public:
    ScreenPrivate(Screen &screen, const s_ScreenFullDetail &read, std::weak_ptr<Device> owner)
        : ObjectPrivate(screen, read, std::move(owner)), id(read)
    { }

    const ProtoModel::s_ScreenId id;
};

Screen::Screen(const s_ScreenFullDetail &detail, std::weak_ptr<Device> device)
    : d(std::make_unique<ScreenPrivate>(*this, detail, std::move(device)))
{ }

Screen::~Screen() = default;

unsigned char Screen::screenId() const
{
    return d->id.screenId;
}

Enum::Screen::ScreenType Screen::screenType() const
{
    return static_cast<Enum::Screen::ScreenType>(d->id.screenType);
}

s_ScreenFullDetail Screen::detail() const
{
    return d->detail();
}

std::weak_ptr<Device> Screen::device() const
{
    return d->device;
}

QList<std::weak_ptr<Layer>> Screen::layers() const
{
    const auto owner = d->device.lock();
    return owner ? weakList(DevicePrivate::contentsOf(*owner).layersOfScreen(objectId(d->id)))
                 : QList<std::weak_ptr<Layer>>();
}

QList<std::weak_ptr<Interface>> Screen::outputs() const
{
    QList<std::weak_ptr<Interface>> list;
    const auto owner = d->device.lock();
    if (!owner)
        return list;
    const auto detail = d->detail();
    for (const auto &output : detail.mosaic.outputs) {
        const auto interface = owner->findInterface(output.interfaceId);
        if (!interface.expired())
            list.append(interface);
    }
    return list;
}

int Screen::genlockStatus() const
{
    const auto owner = d->device.lock();
    if (!owner)
        return 0;
    const auto genlock = DevicePrivate::get(*owner).records.findScreenGenlock(objectId(d->id));
    return genlock ? genlock->genlockSignal.status : 0;
}

bool Screen::assign(const s_ScreenFullDetail &read)
{
    return d->assign(read);
}

void Screen::setScreenZelk(const ProtoModel::Screen::s_ScreenZeLK &zelk)
{
    d->change([&](s_ScreenFullDetail &known) { known.screenZeLK = zelk; });
    notifyChange();
}

void Screen::notifyChange()
{
    d->notify(*this, &Screen::screenChanged);
}

} // namespace Tavoro::BizModel
