// What an application does with a device, with nothing but the installed package: it finds one,
// reads it whole into the model, commands it and follows its reports. consumer PROGRAM starts a
// simulated device, consumer ADDRESS PORT takes one that is there.

#include "connection.h"
#include "simulator.h"

#include <tavorobizmodel/device.h>
#include <tavorobizmodel/file.h>
#include <tavorobizmodel/layer.h>
#include <tavorobizmodel/screen.h>
#include <tavorocontrol/autoreportmanager.h>
#include <tavorocontrol/auxiliary.h>
#include <tavorocontrol/device.h>
#include <tavorocontrol/file.h>
#include <tavorocontrol/layer.h>
#include <tavorocontrol/preset.h>
#include <tavorocontrol/proto/codec.h>
#include <tavorocontrol/screen.h>

#include <QCoreApplication>
#include <QLoggingCategory>

#include <iostream>

using namespace Tavoro;

namespace {

constexpr int preview = 2;
constexpr int programme = 4;
constexpr int ordinaryLayer = 1;
constexpr qint32 movedTo = 640;

/// The screen and the layers that are worked on: screen 1, layer 1 of its two scenes.
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

/// Where the model has the layer, -1 if it has none.
qint32 placeOf(const Connection &connection, int scene)
{
    const auto layer = connection.device()->findLayer(layerOf(scene)).lock();
    return layer ? layer->detail().window.x : -1;
}

bool readsIntoTheModel(Connection &connection)
{
    if (!connection.synchronise())
        return false;
    const auto device = connection.device();
    const auto screen = device->findScreen(mainScreen().screenType, mainScreen().screenId).lock();
    return device->isOnline() && device->isSyncDataSuccess() && !device->interfaces().isEmpty()
        && screen && !screen->layers().isEmpty() && !screen->outputs().isEmpty();
}

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
        && placeOf(connection, preview) == before // Writes leave the model alone.
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

bool appliesThePreset(Connection &connection)
{
    ProtoModel::Preset::s_PresetPlay play;
    play.fileType = BizModel::Enum::File::ScreenPreset;
    play.fileId = 1;
    QString error;
    return Control::Preset(connection.device()).presetApply({play}, error)
        && connection.synchronise() && placeOf(connection, programme) != movedTo
        && placeOf(connection, preview) != movedTo;
}

bool sendsAFileAndFetchesIt(Connection &connection)
{
    std::string content(300000, '\0');
    for (std::size_t i = 0; i < content.size(); ++i)
        content[i] = static_cast<char>(i * 31 + i / 256);
    ProtoModel::File::s_FileInfo info;
    info.fileType = BizModel::Enum::File::Logo;
    info.fileId = 3;
    info.general.name = "wall";
    info.size.length = static_cast<qint32>(content.size());

    Control::File files(connection.device());
    QString error;
    if (!files.importFile({info}, error) || !files.importFileBinary(info, content, error))
        return false;
    std::string fetched;
    const bool isFetched = files.readBinary(
        info.fileType, info.fileId,
        [&](bool, double, const std::string &data, QString &) { fetched += data; });
    if (!isFetched || fetched != content || !connection.synchronise())
        return false;
    const auto file = connection.device()->findFile(BizModel::Enum::File::Logo, info.fileId).lock();
    return file && file->detail().binary == content;
}

bool followsAnUpgrade(Connection &connection)
{
    Control::Auxiliary device(connection.device());
    ProtoModel::Auxiliary::s_UpgradeDetail upgrade;
    upgrade.filePath = "/firmware/2.bin";
    ProtoModel::Auxiliary::s_UpgradePercent progress;
    QString error;
    return device.setUgradeConfig(upgrade, error) && waitUntil([&] {
               progress = {};
               return !device.readUpgradeProgress(progress, error) || progress.rate == 100;
           })
        && progress.rate == 100 && progress.result == 0;
}

/// The device reports its groups to all its clients when one of them writes them.
bool followsReports(Connection &connection)
{
    const auto device = connection.device();
    ProtoModel::Device::s_DeviceGroupInfos groups;
    groups.groupInfos = {{"East", "7"}};
    bool isTold = false;
    const QObject context;
    QObject::connect(device.get(), &BizModel::Device::deviceDataChanged, &context,
                     [&](BizModel::Enum::Device::DataPart part) {
                         isTold |= part == BizModel::Enum::Device::Groups;
                     });
    QString error;
    return !device->findGroup("7") && Control::Device(device).writeDeviceGroupInfo(groups, error)
        && waitUntil([&] { return isTold; }) && device->findGroup("7")->groupName == "East";
}

bool printsRecords(Connection &connection)
{
    std::string text;
    ajson::encodeRecord(connection.device()->deviceDetail().groupInfos, text);
    return text == R"([{"groupName":"East","groupId":"7"}])";
}

struct Step {
    const char *name;
    bool (*run)(Connection &connection);
};

constexpr Step steps[] = {
    {"reads the device into the model", readsIntoTheModel},
    {"stores a preset", storesAPreset},
    {"moves a layer", movesALayer},
    {"takes", takes},
    {"applies the preset", appliesThePreset},
    {"sends a file and fetches it", sendsAFileAndFetchesIt},
    {"follows an upgrade", followsAnUpgrade},
    {"sees a report change the model", followsReports},
    {"prints records", printsRecords},
};

bool connectTo(const QStringList &arguments, Simulator &simulator, Connection &connection)
{
    if (arguments.size() > 2)
        return connection.open(arguments.at(1), static_cast<quint16>(arguments.at(2).toUInt()));
    return simulator.start(arguments.value(1))
        && connection.find(QStringLiteral("127.0.0.1"), simulator.discoveryPort());
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    QLoggingCategory::setFilterRules(QStringLiteral("tavoro.*=false"));
    Control::AutoReportManager::instance();
    Simulator simulator;
    Connection connection;
    if (!connectTo(QCoreApplication::arguments(), simulator, connection)) {
        std::cerr << "There is no device.\n";
        return 1;
    }
    for (const Step &step : steps) {
        const bool isDone = step.run(connection);
        std::cout << (isDone ? "done: " : "FAILED: ") << step.name << std::endl;
        if (!isDone)
            return 1;
    }
    return 0;
}
