#pragma once

#include <tavorocontrol/syncdevicetask.h>

#include <QMap>
#include <QSize>

#include <atomic>

namespace Tavoro::SSProxy {
class DeviceChannel;
}

namespace Tavoro::Control::Internal {

/// State of the task. Used by the task's thread during a run, and by the owner's thread at other
/// times; only \c runningStatus is used by both.
class SyncDeviceTaskPrivate {
public:
    using MultiviewerLayouts = QMap<int, QSize>; ///< The key is the ID of the screen.

    explicit SyncDeviceTaskPrivate(SyncDeviceTask *task);
    ~SyncDeviceTaskPrivate();

    /// Clears the listed device that has the same identity as the device to read, if there is one.
    void clearKnownDevice() const;
    void dropRemovedFiles();

    /// Fills the model with the records that were read. Returns whether the model accepted the
    /// layers.
    bool initDeviceModelData();

    std::shared_ptr<BizModel::Device> device; ///< Empty between runs.
    QString errorMsg = QStringLiteral("");
    std::unique_ptr<ProtoModel::Device::s_DeviceDetail> deviceDetail;
    std::unique_ptr<std::vector<ProtoModel::Interface::s_InterfaceDetail>> interfaceDetail;
    std::unique_ptr<std::vector<ProtoModel::Screen::s_ScreenFullDetail>> screenDetail;
    std::unique_ptr<std::vector<ProtoModel::Layer::s_LayerFullDetail>> layerDetail;
    std::unique_ptr<std::vector<ProtoModel::File::s_FileDetail>> fileDetail;
    bool syncSuccess = false;
    std::atomic<bool> runningStatus{false};

private:
    bool fillModel(BizModel::Device &modelDevice, const QString &ip,
                   const SSProxy::DeviceChannel *channel, const MultiviewerLayouts &layouts);
    void setIdentity(BizModel::Device &modelDevice, const SSProxy::DeviceChannel *channel);
    bool initFromRecords(BizModel::Device &modelDevice, const QString &ip);

    SyncDeviceTask *const q;
};

} // namespace Tavoro::Control::Internal
