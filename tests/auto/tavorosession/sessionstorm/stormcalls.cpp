#include "stormcalls.h"

#include <tavorobizmodel/device.h>
#include <tavorobizmodel/layer.h>
#include <tavorocontrol/device.h>
#include <tavorocontrol/file.h>
#include <tavorocontrol/interface.h>
#include <tavorocontrol/layer.h>
#include <tavorocontrol/screen.h>

#include <string>

using namespace Tavoro;

namespace {

using OneCall = PendingCall<Outcome> (*)(DeviceSession &, StormRandom &);

/// A screen with the members that identify it; one of three does not exist.
template <class Record>
Record onScreen(StormRandom &random)
{
    Record record;
    record.screenId = static_cast<quint8>(random.number(3) + 1);
    record.screenType = record.screenId;
    return record;
}

PendingCall<Outcome> swap(DeviceSession &wall, StormRandom &random)
{
    ProtoModel::Device::s_swap swap;
    swap.swap = static_cast<quint8>(random.number(3));
    return wall.call(&Control::Device::writeSwap, swap);
}

PendingCall<Outcome> rename(DeviceSession &wall, StormRandom &random)
{
    ProtoModel::Device::s_General general;
    general.general.name = "wall " + std::to_string(random.number(1000));
    return wall.call(&Control::Device::writeDeviceGeneral, general);
}

PendingCall<Outcome> take(DeviceSession &wall, StormRandom &random)
{
    return wall.call(&Control::Screen::writeTake,
                     {onScreen<ProtoModel::Screen::s_SwitchEffect>(random)});
}

PendingCall<Outcome> freeze(DeviceSession &wall, StormRandom &random)
{
    auto freeze = onScreen<ProtoModel::Screen::s_Freeze>(random);
    freeze.freeze = static_cast<quint8>(random.number(2));
    return wall.call(&Control::Screen::writeFreeze, {freeze});
}

PendingCall<Outcome> protect(DeviceSession &wall, StormRandom &random)
{
    ProtoModel::Interface::s_HDCP hdcp;
    static_cast<ProtoModel::s_InterfaceID &>(hdcp) = {1, random.number(3) + 1, 0};
    hdcp.hdcp.enable = random.chance(2);
    return wall.call(&Control::Interface::writeHDCP, {hdcp});
}

PendingCall<Outcome> nameInterface(DeviceSession &wall, StormRandom &random)
{
    ProtoModel::Interface::s_General general;
    static_cast<ProtoModel::s_InterfaceID &>(general) = {1, random.number(3) + 1, 0};
    general.general.name = "input " + std::to_string(random.number(100));
    return wall.call(&Control::Interface::writeInterfaceGeneral, {general});
}

PendingCall<Outcome> moveWindow(DeviceSession &wall, StormRandom &random)
{
    ProtoModel::Layer::s_LayerWindow moved;
    if (const auto device = wall.device(); device && !device->layers().isEmpty()) {
        const auto layers = device->layers();
        const auto layer = layers[random.number(static_cast<int>(layers.size()))].lock();
        moved.layerIdenti = layer->identity();
        moved.window = layer->detail().window;
    }
    moved.window.x = random.number(500);
    return wall.call(&Control::Layer::writeWindow, {moved});
}

PendingCall<Outcome> removeLayers(DeviceSession &wall, StormRandom &random)
{
    const auto screen = onScreen<ProtoModel::s_ScreenId>(random);
    return wall.call(&Control::Layer::writeRemovedAll, screen.screenId, screen.screenId);
}

PendingCall<Outcome> createPreset(DeviceSession &wall, StormRandom &random)
{
    ProtoModel::File::s_CreatePresetFile preset;
    preset.fileType = 6;
    preset.fileId = random.number(4);
    return wall.call(&Control::File::writeCreatePresetFile, {preset});
}

PendingCall<Outcome> deleteFile(DeviceSession &wall, StormRandom &random)
{
    ProtoModel::File::s_DeleteFile file;
    file.fileType = 6;
    file.fileId = random.number(4);
    return wall.call(&Control::File::writeDeleteFiles, {file});
}

constexpr OneCall calls[] = {swap,         rename,        take,       freeze,
                             protect,      nameInterface, moveWindow, moveWindow,
                             removeLayers, createPreset,  deleteFile};

} // namespace

PendingCall<Outcome> callAny(DeviceSession &wall, StormRandom &random)
{
    return random.pick(calls)(wall, random);
}

PendingCall<Outcome> dragTBar(DeviceSession &wall, StormRandom &random)
{
    auto bar = onScreen<ProtoModel::Screen::s_TBar>(random);
    bar.tbar.percent = random.number(101);
    return wall.callLatest(QStringLiteral("tbar"), &Control::Screen::writeTBar, {bar});
}
