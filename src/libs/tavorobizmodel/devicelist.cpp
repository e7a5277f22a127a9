#include <tavorobizmodel/devicelist.h>

#include "deviceprivate_p.h"
#include "listeddevices_p.h"
#include "savedevicedatathread_p.h"

#include <tavorobizmodel/savedevicedatathread.h>

#include <QCoreApplication>
#include <QStandardPaths>

namespace Tavoro::BizModel {

namespace {

using DevicePtr = ListedDevices::DevicePtr;

void closeStoreOfApplication()
{
    DeviceList::instance()->closeDeviceStore();
}

} // namespace

class DeviceListPrivate {
public:
    /// A member, because only this class is a friend of the saver.
    SaveDeviceDataThreadPrivate &saverPrivate() { return *saver.d; }

    ListedDevices devices;
    SaveDeviceDataThread saver;
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
    return d->devices.find({ip, mac, sn});
}

std::weak_ptr<Device> DeviceList::append(std::shared_ptr<Device> device)
{
    if (!device)
        return {};
    const auto appended = d->devices.append(device);
    for (const DevicePtr &replaced : appended.replaced)
        Q_EMIT signalDeviceRemoved(replaced);
    if (appended.isNew)
        Q_EMIT signalDeviceAppended(device);
    return device;
}

QList<std::weak_ptr<Device>> DeviceList::devices() const
{
    return weakList(d->devices.all());
}

bool DeviceList::remove(const std::weak_ptr<Device> &device)
{
    const auto known = device.lock();
    if (!known || !d->devices.remove(known))
        return false;
    d->saverPrivate().requestRemoval(*known);
    Q_EMIT signalDeviceRemoved(device);
    return true;
}

SaveDeviceDataThread *DeviceList::saveDeviceDataThread() const
{
    return d->saverPrivate().isOpen() ? &d->saver : nullptr;
}

bool DeviceList::openDeviceStore(const s_DeviceStoreOptions &options, QString &error)
{
    s_DeviceStoreOptions chosen = options;
    if (chosen.fileName.isEmpty())
        chosen.fileName = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation)
            + QStringLiteral("/devices.sqlite");
    std::vector<DevicePtr> devices;
    if (!d->saverPrivate().open(chosen, devices, error))
        return false;
    // The connection to the file must be closed before the application object is destroyed.
    qAddPostRoutine(closeStoreOfApplication);
    for (const DevicePtr &device : devices) {
        if (d->devices.appendRestored(device))
            Q_EMIT signalDeviceAppended(device);
    }
    return true;
}

void DeviceList::closeDeviceStore()
{
    qRemovePostRoutine(closeStoreOfApplication);
    d->saverPrivate().close();
}

} // namespace Tavoro::BizModel
