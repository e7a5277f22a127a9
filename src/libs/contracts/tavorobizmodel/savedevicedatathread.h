#pragma once

#include <tavorobizmodel/export.h>

#include <QObject>

#include <memory>

namespace Tavoro::BizModel {

class Device;
class SaveDeviceDataThreadPrivate;

/// Saves devices of the model on a thread of its own, while a store of devices is open. Without an
/// open store nothing is saved. DeviceList reports how saves end.
///
/// All members may be called from any thread.
class TAVOROBIZMODEL_EXPORT SaveDeviceDataThread : public QObject {
    Q_OBJECT

public:
    ~SaveDeviceDataThread() override;

    /// With true, begins a pause: no new job is taken until every pause has ended. With false, ends
    /// one; without a pause that does nothing. Jobs asked for meanwhile are kept and done
    /// afterwards.
    void setTemporaryStop(bool stop);
    /// Blocks until a running save has ended; a large device takes some seconds on a slow disk.
    /// Does not wait for queued jobs. Returns at once when called from a slot of the saver's own
    /// signals.
    void waitForSavingDataFinished();
    /// Asks for a save of this device's data and returns at once. The last request for a device
    /// wins: it replaces an earlier one that has not begun, also one to forget the device. Does
    /// nothing for an empty pointer, and for a device that is gone by the time of its turn.
    void saveDevicesInfor(std::weak_ptr<Device> device);

private:
    friend class DeviceListPrivate;
    SaveDeviceDataThread();

    const std::unique_ptr<SaveDeviceDataThreadPrivate> d;
};

} // namespace Tavoro::BizModel
