#pragma once

#include <tavorobizmodel/export.h>

#include <QObject>

#include <memory>

namespace Tavoro::BizModel {

class Device;
class SaveDeviceDataThreadPrivate;

/// Saves devices of the model on a thread of its own, while a store of devices is open. Without an
/// open store nothing is saved. Signals of DeviceList report whether a save succeeded.
///
/// All members may be called from any thread.
class TAVOROBIZMODEL_EXPORT SaveDeviceDataThread : public QObject {
    Q_OBJECT

public:
    ~SaveDeviceDataThread() override;

    /// Begins a pause if \a stop is true, and ends one if it is false. Pauses are counted: no new
    /// save starts until each has ended. Saves that are requested meanwhile are done afterwards.
    /// Ending a pause does nothing if there is none.
    void setTemporaryStop(bool stop);
    /// Blocks until a running save has ended; a large device takes some seconds on a slow disk.
    /// Does not wait for queued saves. Returns at once if called on the thread that saves, as by a
    /// slot of its signals.
    void waitForSavingDataFinished();
    /// Requests that the data of \a device is saved, and returns at once. Replaces an earlier
    /// request for the same device that has not begun, also one to remove it from the store. Does
    /// nothing for an empty pointer, or if the device is gone when the save would begin.
    void saveDevicesInfor(std::weak_ptr<Device> device);

private:
    friend class DeviceListPrivate;
    SaveDeviceDataThread();

    const std::unique_ptr<SaveDeviceDataThreadPrivate> d;
};

} // namespace Tavoro::BizModel
