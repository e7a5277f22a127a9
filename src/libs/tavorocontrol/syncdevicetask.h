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

/// Reads one whole device into the model, on a thread of its own. Applications use DeviceList,
/// which owns a task.
///
/// The owner calls setDevice(), setRunningStatus(true) and start(). After QThread::finished it
/// reads the results, then calls resetDevice() and setRunningStatus(false). It does so on one
/// thread, and not while the task runs. Only isRunningStatus() may be called at any time, on any
/// thread. No member blocks the caller.
class TAVOROCONTROL_EXPORT SyncDeviceTask : public QThread {
    Q_OBJECT

public:
    /// Creates an idle task.
    explicit SyncDeviceTask(QObject *parent);
    /// The task must have ended.
    ~SyncDeviceTask() override;

    /// Prepares the task to read the device with this identity. Returns false if the device has no
    /// channel; the model then shows it offline.
    bool setDevice(const QString &ip, const QString &mac, const QString &sn);
    /// Releases the device and all records that were read.
    void resetDevice();

    /// Marks the task as busy or idle. The owner sets it before start() and after it has handled
    /// QThread::finished.
    void setRunningStatus(bool running);
    /// Whether the owner has marked the task as busy, see setRunningStatus(). Any thread.
    bool isRunningStatus() const;
    /// Whether the last run succeeded; false before the first. The interface spells it "Sucess".
    ///
    /// If the device's details and interfaces were read and the device was ready, the result says
    /// whether the model accepted the layers. Otherwise the run ended early, and the result is
    /// false unless the device reported a status other than 0 (down) and 1 (ready).
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

    /// The details of the device that the last run has read, until resetDevice().
    const ProtoModel::Device::s_DeviceDetail &deviceDetail() const;
    /// The interfaces that the last run has read, until resetDevice().
    const std::vector<ProtoModel::Interface::s_InterfaceDetail> &interfaceDetail() const;
    /// The screens that the last run has read, until resetDevice().
    const std::vector<ProtoModel::Screen::s_ScreenFullDetail> &screenDetail() const;
    /// The layers that the last run has read, until resetDevice().
    const std::vector<ProtoModel::Layer::s_LayerFullDetail> &layerDetail() const;
    /// The files that the last run has read, some with their contents, until resetDevice().
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
