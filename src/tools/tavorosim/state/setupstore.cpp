#include "setupstore.h"

#include "simlog.h"

#include <tavorocontrol/proto/recordcodec.h>

#include <algorithm>
#include <optional>

namespace Tavoro::Sim {

using namespace ProtoModel;

/// A setup as it is kept.
struct StoredSetup {
    Device::s_DeviceDetail device;
    std::vector<Interface::s_InterfaceDetail> interfaces;
    std::vector<Screen::s_ScreenFullDetail> screens;
    std::vector<Layer::s_LayerFullDetail> layers;
    TAVORO_FIELDS(device, interfaces, screens, layers)
};

} // namespace Tavoro::Sim

TAVORO_CODEC(Tavoro::Sim::StoredSetup)

namespace Tavoro::Sim {

namespace {

const QString setupName = QStringLiteral("setup.json");

template <class Map>
auto valuesOf(const Map &map)
{
    std::vector<typename Map::mapped_type> values;
    values.reserve(map.size());
    for (const auto &[key, value] : map)
        values.push_back(value);
    return values;
}

Setup setupOf(const StoredSetup &stored)
{
    Setup setup;
    setup.device = stored.device;
    for (const auto &interface : stored.interfaces)
        setup.interfaces[keyOf(interface.interfaceId)] = interface;
    for (const auto &screen : stored.screens)
        setup.screens[keyOf(screen)] = screen;
    for (const auto &layer : stored.layers)
        setup.layers[keyOf(layer.layerIdenti)] = layer;
    return setup;
}

bool haveSameConnectors(const Setup &a, const Setup &b)
{
    return std::equal(a.interfaces.begin(), a.interfaces.end(), b.interfaces.begin(),
                      b.interfaces.end(), [](const auto &one, const auto &other) {
                          return one.first == other.first
                              && one.second.general.type == other.second.general.type;
                      });
}

} // namespace

bool keepSetup(const FileStore &files, const Setup &setup)
{
    const StoredSetup stored{setup.device, valuesOf(setup.interfaces), valuesOf(setup.screens),
                             valuesOf(setup.layers)};
    std::string text;
    ajson::encodeRecord(stored, text);
    return files.keepText(setupName, text);
}

bool fetchSetup(const FileStore &files, Setup &setup, QString &error)
{
    std::optional<std::string> text;
    if (!files.fetchText(setupName, text, error))
        return false;
    if (!text)
        return true;
    StoredSetup stored;
    std::string fault;
    if (!ajson::decodeRecord(*text, stored, fault)) {
        error = QStringLiteral("%1 is damaged: %2").arg(setupName, QString::fromStdString(fault));
        return false;
    }
    const Setup kept = setupOf(stored);
    if (haveSameConnectors(kept, setup))
        setup = kept;
    else
        qCWarning(simLog, "the setup that was saved is that of a device with other connectors");
    return true;
}

} // namespace Tavoro::Sim
