#include "device_p.h"
#include "deviceidentity_p.h"
#include "savedevicedatathread_p.h"

#include <tavorobizmodel/devicelist.h>
#include <tavorobizmodel/savedevicedatathread.h>

#include <QCoreApplication>
#include <QStandardPaths>

#include <algorithm>
#include <functional>
#include <iterator>
#include <mutex>
#include <tuple>
#include <unordered_map>

namespace Tavoro::BizModel {

namespace {

using DevicePtr = std::shared_ptr<Device>;

/// What a device is found by.
struct DeviceKey {
    QString ip;
    QString mac;
    QString sn;

    bool operator==(const DeviceKey &other) const
    {
        return ip == other.ip && mac == other.mac && sn == other.sn;
    }
};

struct DeviceKeyHash {
    std::size_t operator()(const DeviceKey &key) const
    {
        return qHash(key.ip, qHash(key.mac, qHash(key.sn)));
    }
};

void closeStoreOfApplication()
{
    DeviceList::instance()->closeDeviceStore();
}

} // namespace

class DeviceListPrivate {
public:
    DevicePtr find(const DeviceKey &key)
    {
        const std::lock_guard lock(m_mutex);
        if (const quint64 now = DevicePrivate::identityChanges; now != m_indexed) {
            m_indexed = now;
            m_index.clear();
            for (const DevicePtr &device : m_devices)
                addToIndex(device);
        }
        const auto place = m_index.find(key);
        return place == m_index.end() ? nullptr : place->second;
    }

    /// How a device came into the list.
    struct Appended {
        bool isNew = false; ///< It was not in the list before.
        std::vector<DevicePtr> former; ///< Taken out, as they are the same device.
    };

    /// Takes \a device into the list, in the place of one with the same identity, whose settings it
    /// adopts.
    Appended append(const DevicePtr &device)
    {
        const std::lock_guard lock(m_mutex);
        if (std::find(m_devices.begin(), m_devices.end(), device) != m_devices.end())
            return {};
        Appended result{true, {}};
        const auto isSame = sameAs(*device);
        const auto place = std::find_if(m_devices.begin(), m_devices.end(), isSame);
        const auto index = std::distance(m_devices.begin(), place);
        const auto end = std::stable_partition(place, m_devices.end(), std::not_fn(isSame));
        result.former.assign(end, m_devices.end());
        m_devices.erase(end, m_devices.end());
        m_devices.insert(m_devices.begin() + index, device);
        for (const DevicePtr &former : result.former)
            DevicePrivate::of(*device).settings->adopt(*DevicePrivate::of(*former).settings);
        if (result.former.empty())
            addToIndex(device);
        else
            forgetIndex();
        return result;
    }

    /// Takes a device of the last run into the list. One of this run stays, and adopts its
    /// settings: the result is false then.
    bool appendRestored(const DevicePtr &device)
    {
        const std::lock_guard lock(m_mutex);
        const auto listed = std::find_if(m_devices.begin(), m_devices.end(), sameAs(*device));
        if (listed != m_devices.end()) {
            DevicePrivate::of(**listed).settings->adopt(*DevicePrivate::of(*device).settings);
            return false;
        }
        m_devices.push_back(device);
        addToIndex(device);
        return true;
    }

    bool remove(const DevicePtr &device)
    {
        const std::lock_guard lock(m_mutex);
        const auto place = std::find(m_devices.begin(), m_devices.end(), device);
        if (place == m_devices.end())
            return false;
        m_devices.erase(place);
        forgetIndex();
        return true;
    }

    std::vector<DevicePtr> devices() const
    {
        const std::lock_guard lock(m_mutex);
        return m_devices;
    }

    /// A function of this class, since it is the saver's friend.
    static SaveDeviceDataThreadPrivate &partOf(SaveDeviceDataThread &saver) { return *saver.d; }

    SaveDeviceDataThread saver;

private:
    static constexpr quint64 outOfDate = ~quint64(0);

    static std::function<bool(const DevicePtr &)> sameAs(const Device &device)
    {
        return [identity = DeviceIdentity::of(device)](const DevicePtr &other) {
            return DeviceIdentity::of(*other) == identity;
        };
    }

    /// Has the next lookup make the index again.
    void forgetIndex()
    {
        m_index.clear();
        m_indexed = outOfDate;
    }

    void addToIndex(const DevicePtr &device)
    {
        m_index.emplace(DeviceKey{device->IPAddress(), device->MAC(), device->sn()}, device);
    }

    mutable std::mutex m_mutex;
    std::vector<DevicePtr> m_devices; // guarded by m_mutex, as all below
    std::unordered_map<DeviceKey, DevicePtr, DeviceKeyHash> m_index;
    quint64 m_indexed = 0; // the value of DevicePrivate::identityChanges that the index is made for
};

DeviceList *DeviceList::instance()
{
    static DeviceList list;
    return &list;
}

DeviceList::DeviceList() : d(std::make_unique<DeviceListPrivate>())
{
    qRegisterMetaType<Enum::StatusBarMsgType>();
    qRegisterMetaType<Enum::FramelessMessageBoxMsgType>();
    qRegisterMetaType<Enum::Device::DataPart>();
    qRegisterMetaType<std::weak_ptr<Device>>("std::weak_ptr<Tavoro::BizModel::Device>");
    qRegisterMetaType<std::vector<ProtoModel::File::s_FileTransPercent>>(
        "std::vector<Tavoro::ProtoModel::File::s_FileTransPercent>");
}

DeviceList::~DeviceList()
{
    closeDeviceStore();
}

std::weak_ptr<Device> DeviceList::findDevice(const QString &ip, const QString &mac,
                                             const QString &sn) const
{
    return d->find({ip, mac, sn});
}

std::weak_ptr<Device> DeviceList::append(std::shared_ptr<Device> device)
{
    if (!device)
        return {};
    const auto appended = d->append(device);
    for (const DevicePtr &former : appended.former)
        Q_EMIT signalDeviceRemoved(former);
    if (appended.isNew)
        Q_EMIT signalDeviceAppended(device);
    return device;
}

QList<std::weak_ptr<Device>> DeviceList::devices() const
{
    return weakList(d->devices());
}

bool DeviceList::remove(const std::weak_ptr<Device> &device)
{
    const auto known = device.lock();
    if (!known || !d->remove(known))
        return false;
    DeviceListPrivate::partOf(d->saver).askToForget(*known);
    Q_EMIT signalDeviceRemoved(device);
    return true;
}

SaveDeviceDataThread *DeviceList::saveDeviceDataThread() const
{
    return DeviceListPrivate::partOf(d->saver).isOpen() ? &d->saver : nullptr;
}

bool DeviceList::openDeviceStore(const s_DeviceStoreOptions &options, QString &error)
{
    s_DeviceStoreOptions chosen = options;
    if (chosen.fileName.isEmpty())
        chosen.fileName = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation)
            + QStringLiteral("/devices.sqlite");
    std::vector<DevicePtr> devices;
    if (!DeviceListPrivate::partOf(d->saver).open(chosen, devices, error))
        return false;
    // The connection to the file must be gone before the application is.
    qAddPostRoutine(closeStoreOfApplication);
    for (const DevicePtr &device : devices) {
        if (d->appendRestored(device))
            Q_EMIT signalDeviceAppended(device);
    }
    return true;
}

void DeviceList::closeDeviceStore()
{
    qRemovePostRoutine(closeStoreOfApplication);
    DeviceListPrivate::partOf(d->saver).close();
}

} // namespace Tavoro::BizModel
