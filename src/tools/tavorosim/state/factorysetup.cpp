#include "factorysetup.h"

#include <QByteArray>

#include <algorithm>
#include <deque>
#include <iterator>

namespace Tavoro::Sim {

using namespace ProtoModel;

namespace {

constexpr int connectorsPerCard = 4;
constexpr qint32 width = 1920;
constexpr qint32 height = 1080;
constexpr qint32 blendWidth = 128; ///< Pixels that two outputs of the mosaic share.

/// Cards and connectors by their kinds.
struct CardKind {
    InterfaceType type;
    qint32 modelId;
    qint32 connectorType;
    const char *name;
};
constexpr CardKind inputCard = {InputInterface, 0x7710, 1, "Input"};
constexpr CardKind outputCard = {OutputInterface, 0x7720, 2, "Output"};

/// 1920 by 1080 at 60 pictures a second.
s_TimingDetailBody fullHd()
{
    s_TimingDetailBody timing;
    timing.refresh = 60;
    timing.horizontal = {width, 88, 44, 1, 2200};
    timing.vertical = {height, 4, 5, 1, 1125};
    return timing;
}

Interface::s_InterfaceDetail makeInterface(const CardKind &kind, const s_InterfaceID &id,
                                           int number)
{
    Interface::s_InterfaceDetail interface;
    interface.interfaceId = id;
    interface.general.type = kind.type;
    interface.general.name = std::string(kind.name) + ' ' + std::to_string(number);
    interface.general.nameGB2312 = interface.general.name;
    interface.colorDepths.actualColorDepth = 8;
    interface.presetTiming = fullHd();
    interface.actualTiming = fullHd();
    return interface;
}

/// Plugs cards with \a count connectors of one kind into the next slots.
void plugCards(Setup &setup, const CardKind &kind, int count)
{
    for (int number = 1; number <= count; ++number) {
        const int connector = (number - 1) % connectorsPerCard + 1;
        if (connector == 1) {
            Device::s_subcardBody card;
            card.slotId = static_cast<qint32>(setup.device.subcards.size()) + 1;
            card.modelId = kind.modelId;
            card.cardType = kind.type;
            card.online = 1;
            setup.device.subcards.push_back(card);
        }
        Device::s_subcardBody &card = setup.device.subcards.back();
        card.connectors.push_back({connector, kind.connectorType, 0, 0, 0});
        const s_InterfaceID id{card.slotId, connector, 0};
        setup.interfaces[keyOf(id)] = makeInterface(kind, id, number);
    }
}

void setUpDevice(Device::s_DeviceDetail &device, const DeviceOptions &options)
{
    device.general = {options.name.toStdString(), 1};
    device.swap = 1;
    device.genlock = {InternalGenlock, 0};
    device.genlockSignal = {1, 1};
    device.powers = {{1, 1, 1}, {2, 1, 1}};
    Device::s_NetworkBody network;
    const QByteArray mac(reinterpret_cast<const char *>(options.mac.data()),
                         static_cast<int>(options.mac.size()));
    network.MAC = mac.toHex(':').toUpper().toStdString();
    network.ip = options.address.toString().toStdString();
    device.networks = {network};
}

/// The outputs that no screen has yet, in the order of their places.
using FreeOutputs = std::deque<s_InterfaceID>;

FreeOutputs outputsOf(const Setup &setup)
{
    FreeOutputs outputs;
    for (const auto &[key, interface] : setup.interfaces) {
        if (interface.general.type == OutputInterface)
            outputs.push_back(interface.interfaceId);
    }
    return outputs;
}

/// Lays up to \a rows times \a columns outputs out, neighbours sharing \a overlap pixels.
Screen::s_Mosaic makeMosaic(FreeOutputs &outputs, int rows, int columns, qint32 overlap)
{
    Screen::s_Mosaic mosaic;
    mosaic.type = overlap > 0 ? 1 : 0;
    mosaic.splice = {rows, columns};
    mosaic.window = {0, 0, columns * width - (columns - 1) * overlap,
                     rows * height - (rows - 1) * overlap};
    mosaic.refOutputPara.timing = fullHd();
    for (int place = 0; place < rows * columns && !outputs.empty(); ++place) {
        const qint32 x = place % columns * (width - overlap);
        const qint32 y = place / columns * (height - overlap);
        Screen::s_MosaicOutput output;
        output.interfaceId = outputs.front();
        output.pos = {x, y};
        output.crop = {x, y, width, height};
        if (overlap > 0) {
            // One blend for each edge: left, top, right, bottom.
            const bool edges[] = {x > 0, y > 0, place % columns < columns - 1,
                                  place / columns < rows - 1};
            for (qint32 edge = 0; edge < 4; ++edge)
                output.feather.push_back({edges[edge] ? 1 : 0, edge, 220, overlap});
        }
        mosaic.outputs.push_back(output);
        outputs.pop_front();
    }
    return mosaic;
}

struct ScreenKind {
    qint32 type;
    int rows;
    int columns;
    qint32 overlap;
    const char *name;
};

// clang-format off
constexpr ScreenKind firstScreens[] = {
//   type rows columns overlap     name
    {1,   1,   2,      0,          "Main"},
    {2,   2,   2,      blendWidth, "Blend"},
    {3,   1,   1,      0,          "Multiviewer"},
    {4,   1,   1,      0,          "Auxiliary"},
};
constexpr ScreenKind furtherScreen = {1, 1, 1, 0, "Screen"};
// clang-format on

void addScreen(Setup &setup, FreeOutputs &outputs, int number)
{
    const bool isFirst = number <= static_cast<int>(std::size(firstScreens));
    const ScreenKind &kind = isFirst ? firstScreens[number - 1] : furtherScreen;
    Screen::s_ScreenFullDetail screen;
    screen.screenId = static_cast<quint8>(number);
    screen.screenType = kind.type;
    screen.general.name = isFirst ? kind.name : kind.name + (' ' + std::to_string(number));
    screen.general.nameGB2312 = screen.general.name;
    screen.general.index = number;
    screen.mosaic = makeMosaic(outputs, kind.rows, kind.columns, kind.overlap);
    screen.physicalSize.width = screen.mosaic.window.width;
    screen.physicalSize.height = screen.mosaic.window.height;
    setup.screens[keyOf(screen)] = screen;
}

/// One layer of a row of equal windows; the lowest is the background.
Layer::s_LayerFullDetail makeLayer(const Screen::s_ScreenFullDetail &screen, SceneType scene,
                                   int number, const DeviceOptions &options)
{
    const Screen::s_Rect &whole = screen.mosaic.window;
    const bool isBackground = number == 0;
    Layer::s_LayerFullDetail layer;
    static_cast<s_ScreenId &>(layer.layerIdenti) = screen;
    layer.layerIdenti.layerId = static_cast<quint8>(number);
    layer.layerIdenti.layerType = isBackground ? BackgroundLayer : MixingLayer;
    layer.layerIdenti.sceneType = scene;
    layer.zorder = number;
    layer.general.name = isBackground ? "Background" : "Layer " + std::to_string(number);
    layer.general.isBackground = isBackground ? 1 : 0;

    // The preview shows the inputs in the reverse order, so that a take can be seen.
    const int input = number % options.inputs;
    const int shown = scene == ProgrammeScene ? input : options.inputs - 1 - input;
    const s_InterfaceID id{shown / connectorsPerCard + 1, shown % connectorsPerCard + 1, 0};
    layer.source.general = {InputSource, packedId(id)};
    layer.source.crop.push_back({});

    const int windows = std::max(1, options.layersPerScreen - 1);
    const qint32 windowWidth = std::max(1, whole.width / windows);
    layer.window = isBackground
        ? whole
        : Screen::s_Rect{(number - 1) * windowWidth, 0, windowWidth, whole.height};
    if (!isBackground) {
        layer.border.enable = 1;
        layer.mask = {1, 0, 0, 0, 8}; // Cuts the captions of broadcasters away.
        layer.UMD = {{0, 1, {}}, {1, 0, {}}};
    }
    return layer;
}

void addLayers(Setup &setup, const Screen::s_ScreenFullDetail &screen, const DeviceOptions &options)
{
    for (const SceneType scene : {PreviewScene, ProgrammeScene}) {
        for (int number = 0; number < options.layersPerScreen; ++number) {
            const Layer::s_LayerFullDetail layer = makeLayer(screen, scene, number, options);
            setup.layers[keyOf(layer.layerIdenti)] = layer;
        }
    }
}

} // namespace

Setup makeFactorySetup(const DeviceOptions &options)
{
    Setup setup;
    setUpDevice(setup.device, options);
    plugCards(setup, inputCard, options.inputs);
    plugCards(setup, outputCard, options.outputs);
    FreeOutputs outputs = outputsOf(setup);
    for (int number = 1; number <= options.screens; ++number)
        addScreen(setup, outputs, number);
    for (const auto &[key, screen] : setup.screens)
        addLayers(setup, screen, options);
    return setup;
}

} // namespace Tavoro::Sim
