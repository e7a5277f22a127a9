#include "devicebuilder_p.h"

#include "deviceprivate_p.h"
#include "makeobjects_p.h"

#include <tavorobizmodel/mvrscreen.h>

#include <memory>
#include <utility>

namespace Tavoro::BizModel {

using ProtoModel::Device::s_DeviceDetail;
using ProtoModel::File::s_FileDetail;
using ProtoModel::Interface::s_InterfaceDetail;
using ProtoModel::Layer::s_LayerFullDetail;
using ProtoModel::Screen::s_ScreenFullDetail;

DeviceBuilder::DeviceBuilder(Device &device) : m_device(device), m_d(DevicePrivate::get(device)) { }

void DeviceBuilder::build(const s_DeviceDetail &detail)
{
    m_d.write(
        [&](DeviceState &state) { state.name = QString::fromStdString(detail.general.name); });
    m_d.records.replace(indexed(detail, m_faults));
    m_d.notify(DevicePrivate::Part::Detail);
}

void DeviceBuilder::build(const std::vector<s_InterfaceDetail> &details)
{
    m_d.keepInterfaceCrops();
    const auto interfaces =
        makeObjects<Interface>(details, m_faults, [this](const s_InterfaceDetail &detail) {
            auto interface = std::make_shared<Interface>(detail, m_device.weak_from_this());
            interface->restoreCrop(*m_d.settings);
            return interface;
        });
    m_d.contents.take(interfaces);
    for (const auto &interface : interfaces.values())
        interface->updateLayerInputCrop(); // for layers that were built before the interfaces
    m_d.notify(DevicePrivate::Part::Interfaces);
}

void DeviceBuilder::build(const std::vector<s_FileDetail> &details)
{
    m_d.contents.take(makeObjects<File>(details, m_faults, [this](const s_FileDetail &detail) {
        return std::make_shared<File>(detail, m_device.weak_from_this());
    }));
    m_d.notify(DevicePrivate::Part::Files);
}

void DeviceBuilder::build(const std::vector<s_ScreenFullDetail> &details)
{
    const auto make = [&](const s_ScreenFullDetail &detail) {
        for (const auto &output : detail.mosaic.outputs) {
            if (!m_d.contents.findInterface(objectId(output.interfaceId)))
                m_faults.addMissingOutput(detail, output.interfaceId);
        }
        return makeScreen(detail, m_device.weak_from_this(), m_d.settings);
    };
    const bool wasActive = m_d.contents.take(makeObjects<Screen>(details, m_faults, make),
                                             DeviceContents::ActiveScreens::AreCleared);
    m_d.notify(DevicePrivate::Part::Screens);
    if (wasActive)
        m_d.notify(DevicePrivate::Part::ActiveScreens);
}

void DeviceBuilder::build(const std::vector<s_LayerFullDetail> &details)
{
    const auto make = [&](const s_LayerFullDetail &detail) -> std::shared_ptr<Layer> {
        if (!m_d.contents.findScreen(objectId(screenOf(detail.layerIdenti)))) {
            m_faults.addMissingScreen(detail.layerIdenti);
            return nullptr;
        }
        auto layer = std::make_shared<Layer>(detail, m_device.weak_from_this());
        layer->restoreCrops(*m_d.settings);
        layer->fitCrops(shownPicture(m_d.contents, detail));
        return layer;
    };
    m_d.keepLayerCrops();
    m_d.contents.take(makeObjects<Layer>(details, m_faults, make));
    m_d.notify(DevicePrivate::Part::Layers);
}

} // namespace Tavoro::BizModel
