#pragma once

#include "keyedlist_p.h"
#include "objectid_p.h"

#include <tavorobizmodel/file.h>
#include <tavorobizmodel/interface.h>
#include <tavorobizmodel/layer.h>
#include <tavorobizmodel/screen.h>

#include <memory>
#include <mutex>
#include <unordered_map>
#include <vector>

namespace Tavoro::BizModel {

template <class Object>
using ObjectTable = KeyedList<ObjectId, std::shared_ptr<Object>, ObjectIdHash>;

using Interfaces = ObjectTable<Interface>;
using Screens = ObjectTable<Screen>;
using Layers = ObjectTable<Layer>;
using Files = ObjectTable<File>;

/// The objects of a device, and what they are to each other.
///
/// From an object to the one that its record names leads the identity: a layer finds its screen by
/// lookup. The other way round an index leads, which is made when the objects are. All members may
/// be called from any thread.
class DeviceContents {
public:
    using LayerList = std::vector<std::shared_ptr<Layer>>;

    void take(Interfaces interfaces);
    void take(Screens screens);
    void take(Layers layers);
    void take(Files files);

    Interfaces interfaces() const { return copyOf(m_interfaces); }
    Screens screens() const { return copyOf(m_screens); }
    Layers layers() const { return copyOf(m_layers); }
    Files files() const { return copyOf(m_files); }

    // clang-format off
    std::shared_ptr<Interface> findInterface(const ObjectId &id) const { return find(m_interfaces, id); }
    std::shared_ptr<Screen>    findScreen(const ObjectId &id) const    { return find(m_screens, id); }
    std::shared_ptr<Layer>     findLayer(const ObjectId &id) const     { return find(m_layers, id); }
    std::shared_ptr<File>      findFile(const ObjectId &id) const      { return find(m_files, id); }
    // clang-format on

    std::shared_ptr<Screen> screenOfOutput(const ObjectId &interface) const;
    LayerList layersOfScreen(const ObjectId &screen) const;
    LayerList layersShowing(const ObjectId &interface) const;

private:
    template <class Value>
    using Index = std::unordered_map<ObjectId, Value, ObjectIdHash>;

    template <class Table>
    Table copyOf(const Table &table) const
    {
        const std::lock_guard lock(m_mutex);
        return table;
    }

    template <class Object>
    std::shared_ptr<Object> find(const ObjectTable<Object> &table, const ObjectId &id) const
    {
        const std::lock_guard lock(m_mutex);
        return table.find(id).value_or(nullptr);
    }

    mutable std::mutex m_mutex;
    Interfaces m_interfaces; // guarded by m_mutex, as all below
    Screens m_screens;
    Layers m_layers;
    Files m_files;
    Index<std::shared_ptr<Screen>> m_screenOfOutput;
    Index<LayerList> m_layersOfScreen;
    Index<LayerList> m_layersOfInterface;
};

/// The identity of the interface that a layer shows, as far as it shows one.
std::optional<ObjectId> shownInterface(const ProtoModel::Layer::s_LayerFullDetail &layer);

} // namespace Tavoro::BizModel
