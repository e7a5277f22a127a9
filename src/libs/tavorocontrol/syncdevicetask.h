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
/// which owns one.
///
/// setDevice(), then setRunningStatus(true) and start(); after QThread::finished the results may be
/// read, then resetDevice() and setRunningStatus(false). All members belong to the owner's thread
/// and are not to be called while the task runs, except isRunningStatus(), which any thread may
/// call at any time.
class TAVOROCONTROL_EXPORT SyncDeviceTask : public QThread {
    Q_OBJECT

public:
    explicit SyncDeviceTask(QObject *parent);
    ~SyncDeviceTask() override;

    /// Prepares the reading of the device with this identity. False if it has no channel; its
    /// device in the model then counts as offline.
    bool setDevice(const QString &ip, const QString &mac, const QString &sn);
    /// Forgets the device and all that was read.
    void resetDevice();

    void setRunningStatus(bool running);
    bool isRunningStatus() const;
    /// Outcome of the last run. "Sucess": the interface spells it so.
    bool isSyncSucess() const;
    /// Text of the last failure of the last run.
    QString errorMsg() const;

    /// Identity of the device being read; empty without one.
    QString deviceIp() const;
    QString deviceMAC() const;
    QString deviceSN() const;

    /// What was read.
    const ProtoModel::Device::s_DeviceDetail &deviceDetail() const;
    const std::vector<ProtoModel::Interface::s_InterfaceDetail> &interfaceDetail() const;
    const std::vector<ProtoModel::Screen::s_ScreenFullDetail> &screenDetail() const;
    const std::vector<ProtoModel::Layer::s_LayerFullDetail> &layerDetail() const;
    const std::vector<ProtoModel::File::s_FileDetail> &fileDetail() const;

protected:
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
