// Steps that concern the screens and layers of the device.

#include "connection.h"
#include "steps.h"

#include <tavorobizmodel/device.h>
#include <tavorobizmodel/layer.h>
#include <tavorobizmodel/screen.h>
#include <tavorocontrol/file.h>
#include <tavorocontrol/layer.h>
#include <tavorocontrol/preset.h>
#include <tavorocontrol/screen.h>

using namespace Tavoro;

namespace {

constexpr int preview = 2;
constexpr int programme = 4;
constexpr int ordinaryLayer = 1;
constexpr qint32 movedTo = 640;

/// All steps use screen 1 and layer 1 of its two scenes.
ProtoModel::s_ScreenId mainScreen()
{
    return {1, BizModel::Enum::Screen::OrdinaryScreen};
}

ProtoModel::Layer::s_LayerIdentity layerOf(int scene)
{
    ProtoModel::Layer::s_LayerIdentity layer;
    static_cast<ProtoModel::s_ScreenId &>(layer) = mainScreen();
    layer.layerId = 1;
    layer.layerType = ordinaryLayer;
    layer.sceneType = scene;
    return layer;
}

/// The x position of the layer in the model; -1 if the model does not have it.
qint32 placeOf(const Connection &connection, int scene)
{
    const auto layer = connection.device()->findLayer(layerOf(scene)).lock();
    return layer ? layer->detail().window.x : -1;
}

ProtoModel::Screen::s_ScreenFullDetail screenOf(const Connection &connection)
{
    const auto identity = mainScreen();
    const auto screen =
        connection.device()->findScreen(identity.screenType, identity.screenId).lock();
    return screen ? screen->detail() : ProtoModel::Screen::s_ScreenFullDetail();
}

} // namespace

bool storesAPreset(Connection &connection)
{
    ProtoModel::File::s_CreatePresetFile preset;
    preset.fileType = BizModel::Enum::File::ScreenPreset;
    preset.fileId = 1;
    preset.general.name = "Opening";
    preset.screens = {mainScreen()};
    QString error;
    return Control::File(connection.device()).writeCreatePresetFile({preset}, error);
}

bool movesALayer(Connection &connection)
{
    const qint32 before = placeOf(connection, preview);
    ProtoModel::Layer::s_LayerWindow move;
    move.layerIdenti = layerOf(preview);
    move.window.x = movedTo;
    QString error;
    return before != movedTo && Control::Layer(connection.device()).writeWindow({move}, error)
        && placeOf(connection, preview) == before // Writes do not change the model.
        && connection.synchronise() && placeOf(connection, preview) == movedTo;
}

bool takes(Connection &connection)
{
    ProtoModel::Screen::s_SwitchEffect effect;
    static_cast<ProtoModel::s_ScreenId &>(effect) = mainScreen();
    QString error;
    return placeOf(connection, programme) != movedTo
        && Control::Screen(connection.device()).writeTake({effect}, error)
        && connection.synchronise() && placeOf(connection, programme) == movedTo;
}

bool freezesAndFadesToBlack(Connection &connection)
{
    const auto before = screenOf(connection);
    Control::Screen screen(connection.device());
    QString error;
    if (before.freeze != 0 || before.FTB.enable != 0
        || !screen.writeFreeze({{mainScreen(), 1}}, error)
        || !screen.writeFTB({{mainScreen(), {1, 10}}}, error) || !connection.synchronise())
        return false;
    const auto after = screenOf(connection);
    return after.freeze == 1 && after.FTB.enable == 1;
}

bool appliesThePreset(Connection &connection)
{
    ProtoModel::Preset::s_PresetPlay play;
    play.fileType = BizModel::Enum::File::ScreenPreset;
    play.fileId = 1;
    QString error;
    if (!Control::Preset(connection.device()).presetApply({play}, error)
        || !connection.synchronise())
        return false;
    const auto screen = screenOf(connection);
    return placeOf(connection, programme) != movedTo && placeOf(connection, preview) != movedTo
        && screen.freeze == 0 && screen.FTB.enable == 0;
}
