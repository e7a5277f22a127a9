#pragma once

#include <QHash>
#include <QString>
#include <QtGlobal>

#include <memory>
#include <mutex>
#include <unordered_map>
#include <vector>

namespace Tavoro::BizModel {

class Device;

/// The devices in the list, never two with the same DeviceIdentity, and an index of them. Emits no
/// signals. All members may be called from any thread.
class ListedDevices {
public:
    using DevicePtr = std::shared_ptr<Device>;

    /// The values by which a device is looked up.
    struct Lookup {
        QString ip;
        QString mac;
        QString sn;

        bool operator==(const Lookup &other) const
        {
            return ip == other.ip && mac == other.mac && sn == other.sn;
        }
    };

    /// What append() did.
    struct Appended {
        bool isNew = false; ///< The device object was not in the list before.
        std::vector<DevicePtr> replaced; ///< Objects with the same identity.
    };

    /// Returns the matching device; null if there is none.
    DevicePtr find(const Lookup &lookup);
    /// Adds \a device. It replaces a device with the same identity, and takes over its user
    /// settings.
    Appended append(const DevicePtr &device);
    /// Adds a device from the store. If the list holds a device with the same identity, that one
    /// stays and takes over the stored user settings, and the result is false.
    bool appendRestored(const DevicePtr &device);
    /// Returns false if the device is not in the list.
    bool remove(const DevicePtr &device);
    std::vector<DevicePtr> all() const;

private:
    struct LookupHash {
        std::size_t operator()(const Lookup &lookup) const
        {
            return qHash(lookup.ip, qHash(lookup.mac, qHash(lookup.sn)));
        }
    };

    static constexpr quint64 outOfDate = ~quint64(0);

    void addToIndex(const DevicePtr &device);
    void invalidateIndex();

    mutable std::mutex m_mutex;
    std::vector<DevicePtr> m_devices; // guarded by m_mutex, as all below
    std::unordered_map<Lookup, DevicePtr, LookupHash> m_index;
    /// The value of DevicePrivate::identityChanges for which the index was built.
    quint64 m_indexed = 0;
};

} // namespace Tavoro::BizModel
