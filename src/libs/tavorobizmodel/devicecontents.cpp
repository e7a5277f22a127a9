#include "devicecontents_p.h"

#include <tavorobizmodel/enums.h>

namespace Tavoro::BizModel {

std::optional<ObjectId> shownInterface(const ProtoModel::Layer::s_LayerFullDetail &layer)
{
    const auto &source = layer.source.general;
    if (source.type != Enum::Layer::InterfaceSource)
        return std::nullopt;
    return ObjectId{static_cast<qint32>(source.id >> 16),
                    static_cast<qint32>(source.id >> 8 & 0xFF),
                    static_cast<qint32>(source.id & 0xFF), 0, 0};
}

// In each of these the old objects go when the lock is gone, since their owners may be called then.

void DeviceContents::take(Interfaces interfaces)
{
    const std::lock_guard lock(m_mutex);
    std::swap(m_interfaces, interfaces);
}

void DeviceContents::take(Screens screens)
{
    Index<std::shared_ptr<Screen>> screenOfOutput;
    for (const auto &screen : screens.values()) {
        for (const auto &output : screen->detail().mosaic.outputs)
            screenOfOutput.emplace(objectId(output.interfaceId), screen);
    }
    const std::lock_guard lock(m_mutex);
    std::swap(m_screens, screens);
    m_screenOfOutput.swap(screenOfOutput);
}

void DeviceContents::take(Layers layers)
{
    Index<LayerList> ofScreen;
    Index<LayerList> ofInterface;
    for (const auto &layer : layers.values()) {
        const auto detail = layer->detail();
        ofScreen[objectId(screenOf(detail.layerIdenti))].push_back(layer);
        if (const auto shown = shownInterface(detail))
            ofInterface[*shown].push_back(layer);
    }
    const std::lock_guard lock(m_mutex);
    std::swap(m_layers, layers);
    m_layersOfScreen.swap(ofScreen);
    m_layersOfInterface.swap(ofInterface);
}

void DeviceContents::take(Files files)
{
    const std::lock_guard lock(m_mutex);
    std::swap(m_files, files);
}

std::shared_ptr<Screen> DeviceContents::screenOfOutput(const ObjectId &interface) const
{
    const std::lock_guard lock(m_mutex);
    const auto place = m_screenOfOutput.find(interface);
    return place == m_screenOfOutput.end() ? nullptr : place->second;
}

DeviceContents::LayerList DeviceContents::layersOfScreen(const ObjectId &screen) const
{
    const std::lock_guard lock(m_mutex);
    const auto place = m_layersOfScreen.find(screen);
    return place == m_layersOfScreen.end() ? LayerList() : place->second;
}

DeviceContents::LayerList DeviceContents::layersShowing(const ObjectId &interface) const
{
    const std::lock_guard lock(m_mutex);
    const auto place = m_layersOfInterface.find(interface);
    return place == m_layersOfInterface.end() ? LayerList() : place->second;
}

} // namespace Tavoro::BizModel
