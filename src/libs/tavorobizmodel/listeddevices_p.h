#pragma once

#include <QString>
#include <QtGlobal>

#include <memory>
#include <mutex>
#include <unordered_map>
#include <vector>

namespace Tavoro::BizModel {

class Device;

/// The devices in the list, never two of one DeviceIdentity, and an index by which they are found.
/// Emits nothing. All members may be called from any thread.
class ListedDevices {
public:
    using DevicePtr = std::shared_ptr<Device>;

    /// What a device is found by.
    struct Lookup {
        QString ip;
        QString mac;
        QString sn;

        bool operator==(const Lookup &other) const
        {
            return ip == other.ip && mac == other.mac && sn == other.sn;
        }
    };

    /// How a device came into the list.
    struct Appended {
        bool isNew = false; ///< It was not in the list before.
        std::vector<DevicePtr> former; ///< Taken out, as they are the same device.
    };

    /// Null when no device matches.
    DevicePtr find(const Lookup &lookup);
    /// Adds \a device. It replaces one with the same identity, whose settings it adopts.
    Appended append(const DevicePtr &device);
    /// Adds a device of the last run. A device of this run with the same identity stays, and adopts
    /// its settings: the result is then false.
    bool appendRestored(const DevicePtr &device);
    /// Returns false when the device is not in the list.
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
    void forgetIndex();

    mutable std::mutex m_mutex;
    std::vector<DevicePtr> m_devices; // guarded by m_mutex, as all below
    std::unordered_map<Lookup, DevicePtr, LookupHash> m_index;
    quint64 m_indexed = 0; ///< The value of DevicePrivate::identityChanges that the index fits.
};

} // namespace Tavoro::BizModel
