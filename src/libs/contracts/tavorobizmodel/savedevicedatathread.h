#pragma once

#include <tavorobizmodel/export.h>

#include <QObject>

#include <memory>

namespace Tavoro::BizModel {

class Device;
class SaveDeviceDataThreadPrivate;

/// Saves devices of the model on a thread of its own, while a store of devices is open. Outside
/// that time its members do nothing. DeviceList tells how saves end.
///
/// All members may be called from any thread.
class TAVOROBIZMODEL_EXPORT SaveDeviceDataThread : public QObject {
    Q_OBJECT

public:
    ~SaveDeviceDataThread() override;

    /// With true no new job is taken until a call with false. Jobs asked for meanwhile are kept and
    /// done afterwards.
    void setTemporaryStop(bool stop);
    /// Blocks until a save that runs now has ended. Jobs that wait are not waited for.
    void waitForSavingDataFinished();
    /// Asks for a save of this device's data. A device that is asked for again before its save
    /// began is saved once. An empty pointer, and a device that is gone when its turn comes, is
    /// nothing to save.
    void saveDevicesInfor(std::weak_ptr<Device> device);

private:
    friend class DeviceListPrivate;
    SaveDeviceDataThread();

    const std::unique_ptr<SaveDeviceDataThreadPrivate> d;
};

} // namespace Tavoro::BizModel
