// What a device reports of itself, and what is known of it as a whole.

#include "device_p.h"

#include <optional>
#include <utility>

namespace Tavoro::BizModel {

using Part = DevicePrivate::Part;

namespace {

using ProtoModel::Screen::s_ScreenGenlockBody;

/// A screen without a record has the default one.
bool isOther(const std::optional<s_ScreenGenlockBody> &before,
             const std::optional<s_ScreenGenlockBody> &now)
{
    const auto status = [](const std::optional<s_ScreenGenlockBody> &genlock) {
        return genlock.value_or(s_ScreenGenlockBody()).genlockSignal.status;
    };
    return status(before) != status(now);
}

} // namespace

void Device::setDeviceProcess(ProtoModel::Auxiliary::s_DeviceProcess process)
{
    d->change(Part::Process, [&](DeviceState &state) { state.process = std::move(process); });
}

void Device::setGenlockOnStatus(const ProtoModel::Device::s_GenlockSignalBody &signal)
{
    d->change(Part::GenlockSignal,
              [&](DeviceState &state) { state.detail.genlockSignal = signal; });
}

void Device::updateInterfaceRelation(const std::vector<ProtoModel::Device::s_Relation> &relations)
{
    d->change(Part::InterfaceRelations,
              [&](DeviceState &state) { state.detail.interfaceRelation.relation = relations; });
}

void Device::updateDeviceGroupInfo(const ProtoModel::Device::s_DeviceGroupInfoBody &group)
{
    d->change(Part::Groups, [&](DeviceState &state) { state.groups.assign(group.groupId, group); });
}

void Device::updateSubCard(const std::vector<ProtoModel::Device::s_subcardBody> &subcards)
{
    d->change(Part::Subcards, [&](DeviceState &state) {
        for (const auto &card : subcards)
            state.subcards.assign(card.slotId, card);
    });
}

void Device::setPower(const std::vector<ProtoModel::Device::s_PowerBody> &powers)
{
    d->change(Part::Powers, [&](DeviceState &state) {
        state.powers.clear();
        for (const auto &power : powers)
            state.powers.assign(power.powerId, power);
    });
}

bool Device::updateCutoutRGB(const ProtoModel::s_RGB &color, QString & /*error*/)
{
    d->settings->setCutout(color);
    d->tell(Part::CutoutRGB);
    return true;
}

void Device::setScreenGenlocks(const std::vector<ProtoModel::Screen::s_ScreenGenlockBody> &genlocks)
{
    ScreenGenlocks now;
    for (const auto &genlock : genlocks)
        now.assign(objectId(genlock), genlock);
    ScreenGenlocks before;
    d->change(Part::ScreenGenlocks,
              [&](DeviceState &state) { before = std::exchange(state.screenGenlocks, now); });
    if (signalsBlocked())
        return;
    const auto screens = d->contents.screens();
    for (const auto &screen : screens) {
        const ObjectId id =
            objectId(ProtoModel::s_ScreenId{screen->screenId(), screen->screenType()});
        if (isOther(before.find(id), now.find(id)))
            Q_EMIT screen->screenChanged();
    }
}

bool Device::updateSlotModelData(const ProtoModel::Device::s_subcards &reported,
                                 const ProtoModel::Device::s_DeviceDetail &detail, QString &error)
{
    KeyedList<int, ProtoModel::Device::s_subcardBody> read;
    for (const auto &card : detail.subcards)
        read.assign(card.slotId, card);
    std::vector<ProtoModel::Device::s_subcardBody> cards;
    for (const auto &report : reported.subcards) {
        const auto card = read.find(report.slotId);
        if (!card) {
            error = tr("The device has no slot %1").arg(report.slotId);
            return false;
        }
        cards.push_back(*card);
    }
    updateSubCard(cards);
    return true;
}

ProtoModel::Device::s_DeviceDetail Device::deviceDetail() const
{
    return d->read([](const DeviceState &state) {
        auto detail = state.detail;
        detail.subcards = state.subcards.values();
        detail.powers = state.powers.values();
        detail.groupInfos = state.groups.values();
        return detail;
    });
}

std::vector<ProtoModel::Screen::s_ScreenGenlockBody> Device::screenGenlocks() const
{
    return d->read([](const DeviceState &state) { return state.screenGenlocks.values(); });
}

std::optional<ProtoModel::Device::s_subcardBody> Device::findSubcard(int slotId) const
{
    return d->read([&](const DeviceState &state) { return state.subcards.find(slotId); });
}

std::optional<ProtoModel::Device::s_PowerBody> Device::findPower(int powerId) const
{
    return d->read([&](const DeviceState &state) { return state.powers.find(powerId); });
}

std::optional<ProtoModel::Device::s_DeviceGroupInfoBody>
Device::findGroup(const std::string &groupId) const
{
    return d->read([&](const DeviceState &state) { return state.groups.find(groupId); });
}

} // namespace Tavoro::BizModel
