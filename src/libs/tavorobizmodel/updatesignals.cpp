#include "updatesignals_p.h"

#include <tavorobizmodel/device.h>
#include <tavorobizmodel/file.h>
#include <tavorobizmodel/interface.h>
#include <tavorobizmodel/layer.h>
#include <tavorobizmodel/screen.h>

namespace Tavoro::BizModel {

void UpdateSignals::addOutdatedCrops(const std::shared_ptr<Interface> &interface)
{
    m_interfacesOfOutdatedCrops.push_back(interface);
}

void UpdateSignals::emitSignals(Device &device) const
{
    const auto emitEach = [&device](const auto &objects, auto signal) {
        for (const auto &object : objects) {
            if (!device.signalsBlocked())
                Q_EMIT(object.get()->*signal)();
        }
    };
    for (const auto part : m_parts)
        Q_EMIT device.deviceDataChanged(part);
    emitEach(m_interfaces, &Interface::interfaceChanged);
    emitEach(m_screens, &Screen::screenChanged);
    emitEach(m_layers, &Layer::layerChanged);
    emitEach(m_files, &File::fileChanged);
    emitEach(m_interfacesOfOutdatedCrops, &Interface::layerInputCropOutdated);
}

} // namespace Tavoro::BizModel
