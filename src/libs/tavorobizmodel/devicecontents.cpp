#include "devicecontents_p.h"

#include "inputcrop_p.h"

#include <tavorobizmodel/enums.h>

#include <utility>

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

QSize shownPicture(const DeviceContents &contents,
                   const ProtoModel::Layer::s_LayerFullDetail &layer)
{
    const auto shown = shownInterface(layer);
    const auto interface = shown ? contents.findInterface(*shown) : nullptr;
    return interface ? pictureSize(interface->detail().actualTiming) : QSize();
}

// Each function destroys the old objects after the mutex was released, since their destructors may
// run code of the application.

void DeviceContents::take(Interfaces interfaces)
{
    const std::lock_guard lock(m_mutex);
    std::swap(m_interfaces, interfaces);
}

bool DeviceContents::take(Screens screens, ActiveScreens active)
{
    std::shared_ptr<Screen> activeScreen;
    std::shared_ptr<MVRScreen> activeMultiviewer;
    Index<std::shared_ptr<Screen>> screenOfOutput;
    for (const auto &screen : screens.values()) {
        for (const auto &output : screen->detail().mosaic.outputs)
            screenOfOutput.emplace(objectId(output.interfaceId), screen);
    }
    const std::lock_guard lock(m_mutex);
    std::swap(m_screens, screens);
    m_screenOfOutput.swap(screenOfOutput);
    const auto isKept = [&](const std::shared_ptr<Screen> &screen) {
        return active == ActiveScreens::AreKept && screen
            && m_screens.find(objectId(*screen)) == screen;
    };
    if (!isKept(m_activeScreen))
        m_activeScreen.swap(activeScreen);
    if (!isKept(m_activeMultiviewer))
        m_activeMultiviewer.swap(activeMultiviewer);
    return activeScreen || activeMultiviewer;
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

bool DeviceContents::setActive(const std::shared_ptr<Screen> &screen)
{
    auto multiviewer = std::dynamic_pointer_cast<MVRScreen>(screen);
    const std::lock_guard lock(m_mutex);
    if (screen && m_screens.find(objectId(*screen)) != screen)
        return false;
    if (multiviewer)
        m_activeMultiviewer = std::move(multiviewer);
    else
        m_activeScreen = screen;
    return true;
}

std::shared_ptr<Screen> DeviceContents::activeScreen() const
{
    const std::lock_guard lock(m_mutex);
    return m_activeScreen;
}

std::shared_ptr<MVRScreen> DeviceContents::activeMultiviewer() const
{
    const std::lock_guard lock(m_mutex);
    return m_activeMultiviewer;
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
