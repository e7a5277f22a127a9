#include "layercommands.h"

#include "handlers_p.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace Tavoro::Sim {

using namespace ProtoModel;
using namespace ProtoModel::Layer;

namespace {

using Layers = std::map<LayerKey, s_LayerFullDetail>;

/// The range of the layers of \a screen, which are adjacent in the map.
std::pair<Layers::iterator, Layers::iterator> layersOf(Setup &setup, const s_ScreenId &screen)
{
    constexpr qint32 least = std::numeric_limits<qint32>::min();
    constexpr qint32 most = std::numeric_limits<qint32>::max();
    return {setup.layers.lower_bound({screen.screenType, screen.screenId, least, least, 0}),
            setup.layers.upper_bound({screen.screenType, screen.screenId, most, most, 255})};
}

bool exists(const SimState &state, const s_SourceGeneral &source)
{
    switch (source.type) {
    case NoSource:
    case FileSource:
        return true;
    case InputSource: {
        const auto *const interface = findInterface(state, source.id);
        return interface && interface->general.type == InputInterface;
    }
    case ScreenSource:
        return std::any_of(state.screens.begin(), state.screens.end(),
                           [&](const auto &entry) { return entry.second.screenId == source.id; });
    default:
        return false;
    }
}

DeviceStatus checkSource(const SimState &state, const s_LayerSourceBody &source)
{
    if (!exists(state, source.general))
        return DeviceStatus::NoSuchObject;
    return std::all_of(source.crop.begin(), source.crop.end(), isCrop)
        ? DeviceStatus::Success
        : DeviceStatus::ValueOutOfRange;
}

DeviceStatus checkIdentity(const SimState &state, const s_LayerIdentity &id)
{
    if (!find(state, static_cast<const s_ScreenId &>(id)))
        return DeviceStatus::NoSuchObject;
    const bool isValid =
        (id.sceneType == PreviewScene || id.sceneType == ProgrammeScene) && isUInt16(id.layerType);
    return isValid ? DeviceStatus::Success : DeviceStatus::ValueOutOfRange;
}

template <class Record>
DeviceStatus checkEnable(const SimState &state, const Record &layer)
{
    DeviceStatus status = checkIdentity(state, layer.layerIdenti);
    if (status == DeviceStatus::Success)
        status = checkSource(state, layer.source);
    if (status != DeviceStatus::Success)
        return status;
    const bool isValid = isUInt16(layer.zorder) && isLayerGeneral(layer.general)
        && isWindow(layer.window) && isBorder(layer.border);
    return isValid ? DeviceStatus::Success : DeviceStatus::ValueOutOfRange;
}

DeviceStatus checkEnableAll(const SimState &state, const s_LayerFullDetail &layer)
{
    const DeviceStatus status = checkEnable(state, layer);
    if (status != DeviceStatus::Success)
        return status;
    const bool isValid = isFlag(layer.selected) && isMask(layer.mask)
        && isTestColor(layer.testColor) && isPercent(layer.opacity)
        && isImageQuality(layer.imageQuality) && isShadow(layer.shadow) && isUMD(layer.UMD);
    return isValid ? DeviceStatus::Success : DeviceStatus::ValueOutOfRange;
}

/// Moves a layer to position \a zorder of its scene, and the layers there up.
void moveToZOrder(SimState &state, s_LayerFullDetail &layer, qint32 zorder)
{
    std::vector<s_LayerFullDetail *> above;
    const auto [first, last] = layersOf(state, layer.layerIdenti);
    for (auto other = first; other != last; ++other) {
        if (&other->second != &layer && other->second.zorder >= zorder
            && other->second.layerIdenti.sceneType == layer.layerIdenti.sceneType)
            above.push_back(&other->second);
    }
    std::sort(above.begin(), above.end(),
              [](const auto *a, const auto *b) { return a->zorder < b->zorder; });
    layer.zorder = zorder;
    for (s_LayerFullDetail *other : above) {
        if (other->zorder > zorder)
            break; // A gap: the layers above stay.
        other->zorder = ++zorder;
    }
}

void enableAll(SimState &state, const s_LayerFullDetail &wanted)
{
    s_LayerFullDetail &layer = state.layers[keyOf(wanted.layerIdenti)];
    layer = wanted;
    moveToZOrder(state, layer, wanted.zorder);
}

void enable(SimState &state, const s_LayerEnable &wanted)
{
    s_LayerFullDetail &layer = state.layers[keyOf(wanted.layerIdenti)];
    layer.layerIdenti = wanted.layerIdenti;
    layer.general = wanted.general;
    layer.source = wanted.source;
    layer.window = wanted.window;
    layer.border = wanted.border;
    moveToZOrder(state, layer, wanted.zorder);
}

DeviceStatus checkExists(const SimState &state, const s_LayerRemoved &layer)
{
    return find(state, layer.layerIdenti) ? DeviceStatus::Success : DeviceStatus::NoSuchObject;
}

DeviceStatus removeAll(SimState &state, const Request &request)
{
    s_ScreenId screen;
    screen.screenType = request.arg2[2];
    screen.screenId = request.arg2[3];
    if (!find(state, screen))
        return DeviceStatus::NoSuchObject;
    removeLayers(state, screen);
    return DeviceStatus::Success;
}

/// Takes the layers of one scene out of the state.
std::vector<s_LayerFullDetail> extractScene(SimState &state, const s_ScreenId &screen, qint32 scene)
{
    std::vector<s_LayerFullDetail> taken;
    auto [layer, last] = layersOf(state, screen);
    while (layer != last) {
        if (layer->second.layerIdenti.sceneType != scene) {
            ++layer;
            continue;
        }
        taken.push_back(std::move(layer->second));
        layer = state.layers.erase(layer);
    }
    return taken;
}

void insertScene(SimState &state, std::vector<s_LayerFullDetail> layers, qint32 scene)
{
    for (s_LayerFullDetail &layer : layers) {
        layer.layerIdenti.sceneType = scene;
        const LayerKey key = keyOf(layer.layerIdenti);
        state.layers.insert_or_assign(key, std::move(layer));
    }
}

} // namespace

std::string readLayers(const SimState &state, const Request &request)
{
    std::vector<s_LayerFullDetail> list;
    for (const auto &[key, layer] : state.layers) {
        const s_LayerIdentity &id = layer.layerIdenti;
        if (matches(id.screenId, request.arg2[3]) && matchesType(id.screenType, request.arg2[2])
            && matches(id.sceneType, request.arg2[1]) && matches(id.layerType, request.arg2[0]))
            list.push_back(layer);
    }
    return encoded(list);
}

DeviceStatus writeLayerEnableAll(SimState &state, const Request &request, Reports & /*reports*/)
{
    return writeEach<s_LayerFullDetail>(state, request, checkEnableAll, enableAll);
}

DeviceStatus writeLayerEnable(SimState &state, const Request &request, Reports & /*reports*/)
{
    return writeEach<s_LayerEnable>(state, request, checkEnable<s_LayerEnable>, enable);
}

DeviceStatus writeLayerZOrder(SimState &state, const Request &request, Reports & /*reports*/)
{
    return writeEach<s_LayerZorder>(state, request, checkMember<&s_LayerZorder::zorder, isUInt16>,
                                    [](SimState &now, const s_LayerZorder &record) {
                                        moveToZOrder(now, *find(now, record.layerIdenti),
                                                     record.zorder);
                                    });
}

DeviceStatus writeLayerSource(SimState &state, const Request &request, Reports & /*reports*/)
{
    const auto check = [](const SimState &now, const s_LayerSource &record) {
        return find(now, record.layerIdenti) ? checkSource(now, record.source)
                                             : DeviceStatus::NoSuchObject;
    };
    return writeEach<s_LayerSource>(state, request, check,
                                    [](SimState &now, const s_LayerSource &record) {
                                        find(now, record.layerIdenti)->source = record.source;
                                    });
}

DeviceStatus writeLayerRemoved(SimState &state, const Request &request, Reports & /*reports*/)
{
    if (request.arg2[0] == noRestriction && request.arg2[1] == noRestriction)
        return removeAll(state, request);
    return writeEach<s_LayerRemoved>(state, request, checkExists,
                                     [](SimState &now, const s_LayerRemoved &layer) {
                                         now.layers.erase(keyOf(layer.layerIdenti));
                                     });
}

void removeLayers(Setup &setup, const s_ScreenId &screen)
{
    const auto [first, last] = layersOf(setup, screen);
    setup.layers.erase(first, last);
}

void swapScenes(SimState &state, const s_ScreenId &screen)
{
    std::vector<s_LayerFullDetail> preview = extractScene(state, screen, PreviewScene);
    insertScene(state, extractScene(state, screen, ProgrammeScene), PreviewScene);
    insertScene(state, std::move(preview), ProgrammeScene);
}

void copyPreviewToProgramme(SimState &state, const s_ScreenId &screen)
{
    std::vector<s_LayerFullDetail> preview = extractScene(state, screen, PreviewScene);
    extractScene(state, screen, ProgrammeScene);
    insertScene(state, preview, PreviewScene);
    insertScene(state, std::move(preview), ProgrammeScene);
}

} // namespace Tavoro::Sim
