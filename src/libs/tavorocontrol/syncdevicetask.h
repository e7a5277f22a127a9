#pragma once

#include <tavorocontrol/export.h>
#include <tavorocontrol/proto/device.h>
#include <tavorocontrol/proto/file.h>
#include <tavorocontrol/proto/interface.h>
#include <tavorocontrol/proto/layer.h>
#include <tavorocontrol/proto/screen.h>

#include <QString>
#include <QThread>

#include <memory>
#include <vector>

namespace Tavoro::BizModel {
class Device;
class Screen;
} // namespace Tavoro::BizModel

namespace Tavoro::Control {

namespace Internal {
class SyncDeviceTaskPrivate;
}

/// Reads one whole device into the model, on its own thread. Applications use DeviceList, which
/// owns a task.
///
/// Call setDevice(), setRunningStatus(true) and start(). After QThread::finished read the results,
/// then call resetDevice() and setRunningStatus(false). All members belong to the owner's thread;
/// do not call them while the task runs, except isRunningStatus(), which any thread may call at any
/// time. None of them blocks.
class TAVOROCONTROL_EXPORT SyncDeviceTask : public QThread {
    Q_OBJECT

public:
    /// Creates an idle task.
    explicit SyncDeviceTask(QObject *parent);
    /// The task must not run any more.
    ~SyncDeviceTask() override;

    /// Prepares the task to read the device with this identity. False if the device has no channel;
    /// the model then shows it offline.
    bool setDevice(const QString &ip, const QString &mac, const QString &sn);
    /// Releases the device and all records that were read.
    void resetDevice();

    /// Marks the task as busy or idle. The owner sets it before start() and after it has handled
    /// QThread::finished.
    void setRunningStatus(bool running);
    /// What setRunningStatus() set last. Any thread.
    bool isRunningStatus() const;
    /// Result of the last run; false before the first. The interface spells it "Sucess".
    ///
    /// It says whether the layers could be added to the model or, if the details, the status or the
    /// interfaces of the device ended the run, whether the reads succeeded. A device with a status
    /// other than 0 (down) and 1 (ready) counts as read.
    bool isSyncSucess() const;
    /// Text of the last failure of the last run, translated; empty if there was none.
    QString errorMsg() const;

    /// Address of the device to read; empty without a device.
    QString deviceIp() const;
    /// MAC of the device to read, as upper-case hexadecimal digits; empty without a device.
    QString deviceMAC() const;
    /// Serial number of the device to read, as upper-case hexadecimal digits; empty without a
    /// device.
    QString deviceSN() const;

    /// The device as read by the last run, until resetDevice().
    const ProtoModel::Device::s_DeviceDetail &deviceDetail() const;
    /// The interfaces read by the last run, until resetDevice().
    const std::vector<ProtoModel::Interface::s_InterfaceDetail> &interfaceDetail() const;
    /// The screens read by the last run, until resetDevice().
    const std::vector<ProtoModel::Screen::s_ScreenFullDetail> &screenDetail() const;
    /// The layers read by the last run, until resetDevice().
    const std::vector<ProtoModel::Layer::s_LayerFullDetail> &layerDetail() const;
    /// The files read by the last run, with the contents that were fetched, until resetDevice().
    const std::vector<ProtoModel::File::s_FileDetail> &fileDetail() const;

protected:
    /// Reads the device and fills the model. Blocks in each read; runs on the task's own thread.
    void run() override;

private:
    using WeakDevice = std::weak_ptr<BizModel::Device>;

    void setDeviceClock(WeakDevice device);
    bool readEssentials(WeakDevice device);
    void readRest(WeakDevice device);

    bool readDeviceDetail(WeakDevice device);
    bool readInterfaceDetail(WeakDevice device);
    bool readScreenDetail(WeakDevice device);
    bool readDeviceLayerDetail(WeakDevice device);
    bool readFileDetail(WeakDevice device);
    bool readFileBinary(WeakDevice device);
    bool readBKGDetail(WeakDevice device);
    bool readLogoDetail(WeakDevice device);
    bool readPresetDetail(WeakDevice device);
    bool readLayerDetail(WeakDevice device);
    bool readLayerDetail(WeakDevice device, std::weak_ptr<BizModel::Screen> screen, QString &error);

    const std::unique_ptr<Internal::SyncDeviceTaskPrivate> d;
};

} // namespace Tavoro::Control
