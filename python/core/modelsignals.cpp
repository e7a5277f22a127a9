#include "modelsignals.h"

#include <tavorobizmodel/device.h>
#include <tavorobizmodel/file.h>
#include <tavorobizmodel/interface.h>
#include <tavorobizmodel/layer.h>
#include <tavorobizmodel/screen.h>

#include <QObject>

#include <utility>

namespace Tavoro::Python {

namespace {

constexpr int allScreens = 0x1E; // A bit for each kind.

template <class Object>
void followEach(const QList<std::weak_ptr<Object>> &objects, void (Object::*signal)(),
                const QObject *context, const std::function<void()> &changed)
{
    for (const std::weak_ptr<Object> &weak : objects) {
        if (const auto object = weak.lock())
            QObject::connect(object.get(), signal, context, changed);
    }
}

/// Whether the part is a list of objects.
bool isList(BizModel::Enum::Device::DataPart part)
{
    using namespace BizModel::Enum::Device;
    return part == Interfaces || part == Screens || part == Layers || part == Files;
}

} // namespace

ModelSignals::ModelSignals(std::function<void()> changed) : m_changed(std::move(changed)) { }
ModelSignals::~ModelSignals() = default;

void ModelSignals::follow(const std::shared_ptr<BizModel::Device> &device)
{
    m_device = device;
    m_deviceContext = std::make_unique<QObject>();
    if (device) {
        QObject::connect(device.get(), &BizModel::Device::deviceDataChanged, m_deviceContext.get(),
                         [this](BizModel::Enum::Device::DataPart part) {
                             if (isList(part))
                                 followObjects();
                             m_changed();
                         });
    }
    followObjects();
}

void ModelSignals::followObjects()
{
    m_objectsContext = std::make_unique<QObject>();
    const auto device = m_device.lock();
    if (!device)
        return;
    const QObject *const context = m_objectsContext.get();
    followEach(device->interfaces(), &BizModel::Interface::interfaceChanged, context, m_changed);
    followEach(device->screens(allScreens), &BizModel::Screen::screenChanged, context, m_changed);
    followEach(device->layers(), &BizModel::Layer::layerChanged, context, m_changed);
    followEach(device->files(), &BizModel::File::fileChanged, context, m_changed);
}

} // namespace Tavoro::Python
