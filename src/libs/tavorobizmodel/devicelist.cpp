#include "device_p.h"
#include "savedevicedatathread_p.h"

#include <tavorobizmodel/devicelist.h>
#include <tavorobizmodel/savedevicedatathread.h>

#include <QCoreApplication>
#include <QStandardPaths>

#include <algorithm>
#include <functional>
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

    /// False when it is in the list already.
    bool append(const DevicePtr &device)
    {
        const std::lock_guard lock(m_mutex);
        if (std::find(m_devices.begin(), m_devices.end(), device) != m_devices.end())
            return false;
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
        m_index.clear();
        m_indexed = outOfDate;
        return true;
    }

    std::vector<DevicePtr> devices() const
    {
        const std::lock_guard lock(m_mutex);
        return m_devices;
    }

    /// Takes the offline devices of the last run out of which \a device is one, come back at
    /// another address.
    std::vector<DevicePtr> removeFormer(const Device &device)
    {
        const auto isFormer = [&](const DevicePtr &other) {
            return DevicePrivate::of(*other).isRestored && !other->isOnline()
                && other.get() != &device && other->sn() == device.sn()
                && other->MAC() == device.MAC();
        };
        const std::lock_guard lock(m_mutex);
        const auto end =
            std::stable_partition(m_devices.begin(), m_devices.end(), std::not_fn(isFormer));
        std::vector<DevicePtr> former(end, m_devices.end());
        m_devices.erase(end, m_devices.end());
        m_index.clear();
        m_indexed = outOfDate;
        return former;
    }

    /// A function of this class, since it is the saver's friend.
    static SaveDeviceDataThreadPrivate &partOf(SaveDeviceDataThread &saver) { return *saver.d; }

    SaveDeviceDataThread saver;

private:
    static constexpr quint64 outOfDate = ~quint64(0);

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
    for (const auto &former : d->removeFormer(*device))
        Q_EMIT signalDeviceRemoved(former);
    if (d->append(device))
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
    for (const DevicePtr &device : devices)
        append(device);
    return true;
}

void DeviceList::closeDeviceStore()
{
    qRemovePostRoutine(closeStoreOfApplication);
    DeviceListPrivate::partOf(d->saver).close();
}

} // namespace Tavoro::BizModel
