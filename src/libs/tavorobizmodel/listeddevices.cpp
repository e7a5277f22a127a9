#include "listeddevices_p.h"

#include "deviceidentity_p.h"
#include "deviceprivate_p.h"

#include <algorithm>
#include <functional>
#include <iterator>

namespace Tavoro::BizModel {

namespace {

/// Returns a predicate that is true for devices with the same identity as \a device.
auto sameAs(const Device &device)
{
    return [identity = DeviceIdentity::of(device)](const ListedDevices::DevicePtr &other) {
        return DeviceIdentity::of(*other) == identity;
    };
}

} // namespace

ListedDevices::DevicePtr ListedDevices::find(const Lookup &lookup)
{
    const std::lock_guard lock(m_mutex);
    if (const quint64 now = DevicePrivate::identityChanges; now != m_indexed) {
        m_indexed = now;
        m_index.clear();
        for (const DevicePtr &device : m_devices)
            addToIndex(device);
    }
    const auto place = m_index.find(lookup);
    return place == m_index.end() ? nullptr : place->second;
}

ListedDevices::Appended ListedDevices::append(const DevicePtr &device)
{
    const std::lock_guard lock(m_mutex);
    if (std::find(m_devices.begin(), m_devices.end(), device) != m_devices.end())
        return {};
    Appended result{true, {}};
    const auto isSame = sameAs(*device);
    const auto place = std::find_if(m_devices.begin(), m_devices.end(), isSame);
    const auto index = std::distance(m_devices.begin(), place);
    const auto end = std::stable_partition(place, m_devices.end(), std::not_fn(isSame));
    result.replaced.assign(end, m_devices.end());
    m_devices.erase(end, m_devices.end());
    m_devices.insert(m_devices.begin() + index, device);
    for (const DevicePtr &replaced : result.replaced) {
        DevicePrivate::get(*device).adopt(DevicePrivate::get(*replaced));
        DevicePrivate::get(*replaced).isListed = false;
    }
    addToIndex(device);
    if (!result.replaced.empty())
        invalidateIndex();
    return result;
}

bool ListedDevices::appendRestored(const DevicePtr &device)
{
    const std::lock_guard lock(m_mutex);
    const auto listed = std::find_if(m_devices.begin(), m_devices.end(), sameAs(*device));
    if (listed != m_devices.end()) {
        DevicePrivate::get(**listed).adopt(DevicePrivate::get(*device));
        return false;
    }
    m_devices.push_back(device);
    addToIndex(device);
    return true;
}

bool ListedDevices::remove(const DevicePtr &device)
{
    const std::lock_guard lock(m_mutex);
    const auto place = std::find(m_devices.begin(), m_devices.end(), device);
    if (place == m_devices.end())
        return false;
    m_devices.erase(place);
    DevicePrivate::get(*device).isListed = false;
    invalidateIndex();
    return true;
}

std::vector<ListedDevices::DevicePtr> ListedDevices::all() const
{
    const std::lock_guard lock(m_mutex);
    return m_devices;
}

/// Makes the next lookup rebuild the index.
void ListedDevices::invalidateIndex()
{
    m_index.clear();
    m_indexed = outOfDate;
}

/// The device is marked first: a change of its identity that is not in the index then makes the
/// index out of date.
void ListedDevices::addToIndex(const DevicePtr &device)
{
    DevicePrivate::get(*device).isListed = true;
    m_index.emplace(Lookup{device->IPAddress(), device->MAC(), device->sn()}, device);
}

} // namespace Tavoro::BizModel
