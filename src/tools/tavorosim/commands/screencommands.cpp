#include "screencommands.h"

#include "handlers_p.h"
#include "layercommands.h"

#include <algorithm>
#include <set>

namespace Tavoro::Sim {

using namespace ProtoModel;
using namespace ProtoModel::Screen;

namespace {

using Screens = std::map<ScreenKey, s_ScreenFullDetail>;

constexpr qint32 endOfTBar = 100;
constexpr qint32 maxScreenType = 4;

/// Whether another screen than \a screen shows something on \a output.
bool isTaken(const Screens &screens, const s_ScreenId &screen, const s_InterfaceID &output)
{
    return std::any_of(screens.begin(), screens.end(), [&](const auto &entry) {
        const std::vector<s_MosaicOutput> &outputs = entry.second.mosaic.outputs;
        return entry.first != keyOf(screen)
            && std::any_of(outputs.begin(), outputs.end(), [&](const s_MosaicOutput &other) {
                   return keyOf(other.interfaceId) == keyOf(output);
               });
    });
}

DeviceStatus checkShape(const s_Enable &wanted)
{
    const bool isValid = wanted.screenType >= 1 && wanted.screenType <= maxScreenType
        && isMosaic(wanted.mosaic) && isPhysicalSize(wanted.physicalSize);
    return isValid ? DeviceStatus::Success : DeviceStatus::ValueOutOfRange;
}

void enable(Screens &screens, const s_Enable &wanted)
{
    s_ScreenFullDetail &screen = screens[keyOf(wanted)];
    static_cast<s_ScreenId &>(screen) = wanted;
    screen.mosaic = wanted.mosaic;
    screen.general = wanted.general;
    screen.physicalSize = wanted.physicalSize;
    screen.layout = wanted.layout;
}

DeviceStatus checkScreen(const SimState &state, const s_ScreenId &id)
{
    return find(state, id) ? DeviceStatus::Success : DeviceStatus::NoSuchObject;
}

void take(SimState &state, const s_ScreenId &screen)
{
    if (state.device.swap != 0)
        swapScenes(state, screen);
    else
        copyPreviewToProgramme(state, screen);
}

} // namespace

DeviceStatus checkOutputs(const Setup &setup, const s_ScreenId &screen, const s_Mosaic &mosaic)
{
    std::set<InterfaceKey> used;
    for (const s_MosaicOutput &output : mosaic.outputs) {
        const auto *const interface = find(setup, output.interfaceId);
        if (!interface || interface->general.type != OutputInterface)
            return DeviceStatus::NoSuchObject;
        if (!used.insert(keyOf(output.interfaceId)).second)
            return DeviceStatus::ValueOutOfRange;
        if (isTaken(setup.screens, screen, output.interfaceId))
            return DeviceStatus::Busy;
    }
    return DeviceStatus::Success;
}

std::string readScreens(const SimState &state, const Request &request)
{
    std::vector<s_ScreenFullDetail> list;
    for (const auto &[key, screen] : state.screens) {
        if (matches(screen.screenId, request.arg2[3])
            && matchesType(screen.screenType, request.arg2[2]))
            list.push_back(screen);
    }
    return encoded(list);
}

DeviceStatus writeScreenEnable(SimState &state, const Request &request, Reports & /*reports*/)
{
    std::vector<s_Enable> list;
    if (!decoded(request.body, list))
        return DeviceStatus::MalformedBody;
    // Of a list, each screen must fit beside those before it, so it is tried on a copy.
    Setup setup = state;
    for (const s_Enable &wanted : list) {
        DeviceStatus status = checkShape(wanted);
        if (status == DeviceStatus::Success)
            status = checkOutputs(setup, wanted, wanted.mosaic);
        if (status != DeviceStatus::Success)
            return status;
        enable(setup.screens, wanted);
    }
    state.screens = std::move(setup.screens);
    return DeviceStatus::Success;
}

DeviceStatus writeScreenDeleted(SimState &state, const Request &request, Reports & /*reports*/)
{
    return writeEach<s_ScreenId>(state, request, checkScreen,
                                 [](SimState &now, const s_ScreenId &screen) {
                                     now.screens.erase(keyOf(screen));
                                     removeLayers(now, screen);
                                 });
}

DeviceStatus writeTake(SimState &state, const Request &request, Reports & /*reports*/)
{
    return writeEach<s_SwitchEffect>(
        state, request, checkMember<&s_SwitchEffect::switchEffect, isSwitchEffect>, take);
}

DeviceStatus writeTBar(SimState &state, const Request &request, Reports & /*reports*/)
{
    const auto isInside = [](const SimState &now, const s_TBar &record) {
        const DeviceStatus status = checkScreen(now, record);
        if (status != DeviceStatus::Success)
            return status;
        return isPercent(record.tbar.percent) ? DeviceStatus::Success
                                              : DeviceStatus::ValueOutOfRange;
    };
    return writeEach<s_TBar>(state, request, isInside, [](SimState &now, const s_TBar &record) {
        s_TBarBody &tbar = find(now, identityOf(record))->tbar;
        const bool arrives = tbar.percent < endOfTBar && record.tbar.percent == endOfTBar;
        tbar = record.tbar;
        if (arrives)
            take(now, record);
    });
}

DeviceStatus writeScreenZelk(SimState &state, const Request &request, Reports &reports)
{
    std::vector<s_ScreenZeLKFull> changed;
    const auto isSwitch = [](const SimState &now, const s_ScreenZeLKFull &record) {
        const DeviceStatus status = checkScreen(now, record);
        if (status != DeviceStatus::Success)
            return status;
        return isFlag(record.screenZeLK.enable) ? DeviceStatus::Success
                                                : DeviceStatus::ValueOutOfRange;
    };
    const DeviceStatus status = writeEach<s_ScreenZeLKFull>(
        state, request, isSwitch, [&](SimState &now, const s_ScreenZeLKFull &record) {
            s_ScreenZeLK &feature = find(now, identityOf(record))->screenZeLK;
            feature.enable = record.screenZeLK.enable;
            feature.status = feature.enable; // It takes effect at once.
            changed.push_back(record);
            changed.back().screenZeLK = feature;
        });
    if (!changed.empty())
        reports.push_back({request.command, encoded(changed)});
    return status;
}

Report reportScreenGenlock(const SimState &state)
{
    std::vector<s_ScreenGenlockBody> list;
    for (const auto &[key, screen] : state.screens) {
        s_ScreenGenlockBody element;
        static_cast<s_ScreenId &>(element) = screen;
        element.genlockSignal.status = state.device.genlockSignal.status;
        list.push_back(element);
    }
    return {Command::ScreenGenlock, encoded(list)};
}

} // namespace Tavoro::Sim
