#include "setupstore.h"

#include "simlog.h"
#include "storedrecord.h"
#include "texts.h"

#include <tavorocontrol/proto/recordcodec.h>

#include <algorithm>
#include <optional>

namespace Tavoro::Sim {

using namespace ProtoModel;

/// A setup as it is stored.
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

bool saveSetup(FileStore &files, const FileChanges &changes, const Setup &setup)
{
    const StoredSetup stored{setup.device, valuesOf(setup.interfaces), valuesOf(setup.screens),
                             valuesOf(setup.layers)};
    return files.commit(changes, encodeStored(stored));
}

bool readSetup(FileStore &files, Setup &setup, QString &error)
{
    std::optional<QByteArray> record;
    if (!files.readSetup(record, error))
        return false;
    if (!record)
        return true;
    StoredSetup stored;
    if (!decodeStored(*record, stored, error)) {
        error = Texts::tr("the saved setup is damaged: %1").arg(error);
        return false;
    }
    const Setup saved = setupOf(stored);
    if (haveSameConnectors(saved, setup))
        setup = saved;
    else
        qCWarning(simLog, "the saved setup is that of a device with other connectors");
    return true;
}

} // namespace Tavoro::Sim
