#include <tavorocontrol/devicelist.h>

#include "devicelist_p.h"
#include "logging_p.h"

#include <tavorobizmodel/device.h>

#include <QDeadlineTimer>

namespace Tavoro::Control {

namespace {

// With an explicit context: lupdate does not find the class if it reads only this library.
constexpr char missingModel[] =
    QT_TRANSLATE_NOOP("Tavoro::Control::DeviceList", "Device model is nullptr");

} // namespace

DeviceList::DeviceList(QObject *parent)
    : QObject(parent), d(std::make_unique<Internal::DeviceListPrivate>(this))
{ }

DeviceList::~DeviceList() = default;

bool DeviceList::readDeviceDetail(const QString &ip, const QString &mac, const QString &sn,
                                  QString &)
{
    return d->readDeviceDetail(ip, mac, sn);
}

bool DeviceList::readDeviceDetail(std::weak_ptr<BizModel::Device> weakDevice, QString &error)
{
    const auto device = weakDevice.lock();
    if (!device) {
        error = tr(missingModel);
        return false;
    }
    const QString sn = device->sn();
    const QString mac = device->MAC();
    return readDeviceDetail(device->IPAddress(), mac, sn, error);
}

namespace Internal {

DeviceListPrivate::DeviceListPrivate(DeviceList *list)
    : q(list), syncDeviceTask(std::make_unique<SyncDeviceTask>(nullptr))
{
    connect(syncDeviceTask.get(), &QThread::started, this,
            &DeviceListPrivate::slotSyncDeviceTaskStarted);
    connect(syncDeviceTask.get(), &QThread::finished, this,
            &DeviceListPrivate::slotSyncDeviceTaskFinished);
}

DeviceListPrivate::~DeviceListPrivate()
{
    if (syncDeviceTask->isRunning())
        syncDeviceTask->wait(QDeadlineTimer(QDeadlineTimer::Forever));
}

// Kept: returns true also while another synchronisation runs.
bool DeviceListPrivate::readDeviceDetail(const QString &ip, const QString &mac, const QString &sn)
{
    if (syncDeviceTask->isRunningStatus() || syncDeviceTask->isRunning()) {
        qCWarning(controlLog) << "Sync device model failed, last sync device is still running.";
        return true;
    }
    if (!syncDeviceTask->setDevice(ip, mac, sn)) {
        qCWarning(controlLog) << "Sync device model failed, device para error";
        return false;
    }
    syncDeviceTask->setRunningStatus(true);
    syncDeviceTask->start(QThread::InheritPriority);
    return true;
}

void DeviceListPrivate::slotSyncDeviceTaskStarted()
{
    Q_EMIT q->signalReadDeviceDetailStarted(syncDeviceTask->deviceIp());
}

void DeviceListPrivate::slotSyncDeviceTaskFinished()
{
    qCInfo(controlLog) << "Sync device task finished.";
    const QString ip = syncDeviceTask->deviceIp();
    const QString mac = syncDeviceTask->deviceMAC();
    const QString sn = syncDeviceTask->deviceSN();
    const bool success = syncDeviceTask->isSyncSucess();
    syncDeviceTask->resetDevice();
    // From here on the next synchronisation may start, also in a slot of the signal below.
    syncDeviceTask->setRunningStatus(false);

    if (ip.isEmpty()) {
        qCWarning(controlLog) << "Sync device model failed,Device ip invalid.";
        Q_EMIT q->signalReadDeviceDetailFinished(false, QString(), QString(), QString());
        return;
    }
    qCDebug(controlLog) << QStringLiteral("Sync device model result is %1, device ip is%2.")
                               .arg(int(success))
                               .arg(ip);
    Q_EMIT q->signalReadDeviceDetailFinished(success, ip, mac, sn);
}

} // namespace Internal

} // namespace Tavoro::Control
