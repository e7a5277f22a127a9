#pragma once

#include "keyedlist_p.h"
#include "objectid_p.h"

#include <tavorobizmodel/file.h>
#include <tavorobizmodel/interface.h>
#include <tavorobizmodel/layer.h>
#include <tavorobizmodel/mvrscreen.h>
#include <tavorobizmodel/screen.h>

#include <QSize>

#include <memory>
#include <mutex>
#include <optional>
#include <unordered_map>
#include <vector>

namespace Tavoro::BizModel {

template <class Object>
using ObjectTable = KeyedList<ObjectId, std::shared_ptr<Object>, ObjectIdHash>;

using Interfaces = ObjectTable<Interface>;
using Screens = ObjectTable<Screen>;
using Layers = ObjectTable<Layer>;
using Files = ObjectTable<File>;

/// The objects of a device and their relations.
///
/// An object looks up another one, which its record names, by identity: for example a layer its
/// screen. For the opposite direction there are indexes, which are built with the objects. All
/// members may be called from any thread.
class DeviceContents {
public:
    using LayerList = std::vector<std::shared_ptr<Layer>>;

    /// What happens to the active screens when the screens are replaced.
    enum class ActiveScreens {
        AreCleared, ///< No screen and no multiviewer screen is active afterwards.
        AreKept, ///< A screen that is also among the new ones stays active.
    };

    void take(Interfaces interfaces);
    /// Returns whether a screen or a multiviewer screen that was active no longer is.
    bool take(Screens screens, ActiveScreens active);
    void take(Layers layers);
    void take(Files files);

    /// \name All of a kind, in the device's order
    /// @{
    auto interfaces() const { return listOf(m_interfaces); }
    auto screens() const { return listOf(m_screens); }
    auto layers() const { return listOf(m_layers); }
    auto files() const { return listOf(m_files); }
    /// @}

    // clang-format off
    std::shared_ptr<Interface> findInterface(const ObjectId &id) const { return find(m_interfaces, id); }
    std::shared_ptr<Screen>    findScreen(const ObjectId &id) const    { return find(m_screens, id); }
    std::shared_ptr<Layer>     findLayer(const ObjectId &id) const     { return find(m_layers, id); }
    std::shared_ptr<File>      findFile(const ObjectId &id) const      { return find(m_files, id); }
    // clang-format on

    /// \name Active screens
    /// Always screens of the device, or null.
    /// @{
    /// Makes \a screen the active multiviewer if it is one, otherwise the active screen; null makes
    /// no screen active. Returns false, and changes nothing, if the device does not have the
    /// screen.
    bool setActive(const std::shared_ptr<Screen> &screen);
    std::shared_ptr<Screen> activeScreen() const;
    std::shared_ptr<MVRScreen> activeMultiviewer() const;
    /// @}

    std::shared_ptr<Screen> screenOfOutput(const ObjectId &interface) const;
    LayerList layersOfScreen(const ObjectId &screen) const;
    LayerList layersShowing(const ObjectId &interface) const;

private:
    template <class Value>
    using Index = std::unordered_map<ObjectId, Value, ObjectIdHash>;

    template <class Object>
    std::vector<std::shared_ptr<Object>> listOf(const ObjectTable<Object> &table) const
    {
        const std::lock_guard lock(m_mutex);
        return table.values();
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
    std::shared_ptr<Screen> m_activeScreen;
    std::shared_ptr<MVRScreen> m_activeMultiviewer;
    Index<std::shared_ptr<Screen>> m_screenOfOutput;
    Index<LayerList> m_layersOfScreen;
    Index<LayerList> m_layersOfInterface;
};

/// Returns the identity of the interface that a layer shows; nothing if it shows none.
std::optional<ObjectId> shownInterface(const ProtoModel::Layer::s_LayerFullDetail &layer);

/// Returns the size in pixels of the picture that a layer shows; empty without a video signal.
QSize shownPicture(const DeviceContents &contents,
                   const ProtoModel::Layer::s_LayerFullDetail &layer);

// clang-format off
inline ObjectId objectId(const Interface &interface) { return objectId(interface.interfaceId()); }
inline ObjectId objectId(const Screen &screen)       { return objectId(ProtoModel::s_ScreenId{screen.screenId(), screen.screenType()}); }
inline ObjectId objectId(const Layer &layer)         { return objectId(layer.identity()); }
inline ObjectId objectId(const File &file)           { return objectId(file.identity()); }
// clang-format on

} // namespace Tavoro::BizModel
