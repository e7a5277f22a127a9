#pragma once

#include <tavorocontrol/devicelist.h>
#include <tavorocontrol/syncdevicetask.h>

#include <QObject>

#include <memory>

namespace Tavoro::Control::Internal {

class DeviceListPrivate : public QObject {
    Q_OBJECT

public:
    explicit DeviceListPrivate(DeviceList *list);
    ~DeviceListPrivate() override;

    bool readDeviceDetail(const QString &ip, const QString &mac, const QString &sn);

private Q_SLOTS:
    void slotSyncDeviceTaskStarted();
    void slotSyncDeviceTaskFinished();

private:
    DeviceList *const q;
    const std::unique_ptr<SyncDeviceTask> syncDeviceTask;
};

} // namespace Tavoro::Control::Internal
