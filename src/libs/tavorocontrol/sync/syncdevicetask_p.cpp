#include "syncdevicetask_p.h"

#include <tavorobizmodel/device.h>
#include <tavorobizmodel/devicelist.h>
#include <tavorobizmodel/mvrscreen.h>
#include <tavorobizmodel/screen.h>
#include <tavorocontrol/logging_p.h>
#include <tavorocontrol/statusbar_p.h>
#include <tavorossproxy/devicechannel.h>
#include <tavorossproxy/devicemanager.h>

#include <algorithm>

namespace Tavoro::Control::Internal {

namespace {

using BizModel::DeviceList;
using BizModel::MVRScreen;

// With an explicit context: lupdate does not find the class if it reads only this library.
constexpr char offlineText[] =
    QT_TRANSLATE_NOOP("Tavoro::Control::SyncDeviceTask", "Device offline");

constexpr int ordinaryScreens = 6;
constexpr int multiviewerScreens = 8;
constexpr qint32 removedFileType = 15; ///< The device lists such a file, but no longer has it.

using MultiviewerLayouts = SyncDeviceTaskPrivate::MultiviewerLayouts;

MultiviewerLayouts layoutsOf(const BizModel::Device &device)
{
    MultiviewerLayouts layouts;
    const auto screens = device.screens(multiviewerScreens);
    for (const auto &screen : screens) {
        if (const auto multiviewer = std::dynamic_pointer_cast<MVRScreen>(screen.lock()))
            layouts.insert(multiviewer->screenId(), multiviewer->rowColSpan());
    }
    return layouts;
}

void restoreLayouts(const QList<std::weak_ptr<BizModel::Screen>> &screens,
                    const MultiviewerLayouts &layouts)
{
    for (const auto &screen : screens) {
        const auto multiviewer = std::dynamic_pointer_cast<MVRScreen>(screen.lock());
        if (multiviewer && layouts.contains(multiviewer->screenId()))
            multiviewer->setRowColSpan(layouts.value(multiviewer->screenId()));
    }
}

void chooseActiveScreens(BizModel::Device &device, const MultiviewerLayouts &layouts)
{
    const auto ordinary = device.screens(ordinaryScreens);
    if (device.activedScreen().expired() && !ordinary.isEmpty())
        device.setActivedScreen(ordinary.first());
    const auto multiviewers = device.screens(multiviewerScreens);
    restoreLayouts(multiviewers, layouts);
    if (device.activedMVRScreen().expired() && !multiviewers.isEmpty())
        device.setActivedScreen(multiviewers.first());
}

/// Blocks the signals of a device while it is filled, so that no slot sees a half-filled device.
/// Always unblocks them, unlike QSignalBlocker: of two that overlap, the last one to end would
/// block them for ever.
class SignalBlock {
public:
    explicit SignalBlock(BizModel::Device &device) : m_device(device)
    {
        m_device.blockSignals(true);
    }
    ~SignalBlock() { m_device.blockSignals(false); }
    SignalBlock(const SignalBlock &) = delete;
    SignalBlock &operator=(const SignalBlock &) = delete;

private:
    BizModel::Device &m_device;
};

template <class Detail>
bool initOrWarn(BizModel::Device &device, const Detail &detail, QString &error, const char *failed)
{
    if (device.initModelData(detail, error))
        return true;
    qCWarning(controlLog) << failed << error;
    return false;
}

} // namespace

SyncDeviceTaskPrivate::SyncDeviceTaskPrivate(SyncDeviceTask *task)
    : deviceDetail(std::make_unique<ProtoModel::Device::s_DeviceDetail>()),
      interfaceDetail(std::make_unique<std::vector<ProtoModel::Interface::s_InterfaceDetail>>()),
      screenDetail(std::make_unique<std::vector<ProtoModel::Screen::s_ScreenFullDetail>>()),
      layerDetail(std::make_unique<std::vector<ProtoModel::Layer::s_LayerFullDetail>>()),
      fileDetail(std::make_unique<std::vector<ProtoModel::File::s_FileDetail>>()),
      q(task)
{ }

SyncDeviceTaskPrivate::~SyncDeviceTaskPrivate() = default;

void SyncDeviceTaskPrivate::clearKnownDevice() const
{
    const auto known =
        DeviceList::instance()->findDevice(device->IPAddress(), device->MAC(), device->sn()).lock();
    if (known)
        known->clearAll(true);
}

void SyncDeviceTaskPrivate::dropRemovedFiles()
{
    fileDetail->erase(
        std::remove_if(fileDetail->begin(), fileDetail->end(),
                       [](const auto &file) { return file.fileType == removedFileType; }),
        fileDetail->end());
}

bool SyncDeviceTaskPrivate::initDeviceModelData()
{
    qCInfo(controlLog) << "Sync device init model begin.";
    const QString ip = q->deviceIp();
    if (ip.isEmpty()) {
        qCWarning(controlLog) << "Sync device model failed,Device ip invalid.";
        return false;
    }
    const auto known = DeviceList::instance()->findDevice(ip, q->deviceMAC(), q->deviceSN()).lock();
    const auto modelDevice = known ? known : device;
    const MultiviewerLayouts layouts = known ? layoutsOf(*known) : MultiviewerLayouts();

    const auto channel = SSProxy::DeviceManager::instance()->findDeviceChannel(
        ip.toStdString(), q->deviceMAC().toStdString(), q->deviceSN().toStdString());
    const bool layersAccepted = fillModel(*modelDevice, ip, channel.get(), layouts);
    if (!known)
        DeviceList::instance()->append(modelDevice);
    qCInfo(controlLog) << "Sync device init model end.";
    return layersAccepted;
}

bool SyncDeviceTaskPrivate::fillModel(BizModel::Device &modelDevice, const QString &ip,
                                      const SSProxy::DeviceChannel *channel,
                                      const MultiviewerLayouts &layouts)
{
    const SignalBlock block(modelDevice);
    setIdentity(modelDevice, channel);
    modelDevice.setSyncDataSuccess(q->isSyncSucess());
    const bool layersAccepted = initFromRecords(modelDevice, ip);
    chooseActiveScreens(modelDevice, layouts);
    return layersAccepted;
}

void SyncDeviceTaskPrivate::setIdentity(BizModel::Device &modelDevice,
                                        const SSProxy::DeviceChannel *channel)
{
    if (!channel) {
        qCWarning(controlLog) << "Sync device model failed, device offline";
        modelDevice.setDeviceOnlineFlag(false);
        showOnStatusBar(BizModel::Enum::StatusBarFailure, SyncDeviceTask::tr(offlineText));
        return;
    }
    const ProtoModel::DeviceBaseInfo info = channel->deviceBaseInfo();
    modelDevice.setName(QString::fromStdString(info.name));
    modelDevice.setModelId(info.modelId);
    modelDevice.setDeviceOnlineFlag(true);
    modelDevice.updateDeviceBaseInfo(info);
    if (deviceDetail->general.name == "N/A" && !info.name.empty())
        deviceDetail->general.name = info.name;
}

/// Continues with the next step if one fails.
bool SyncDeviceTaskPrivate::initFromRecords(BizModel::Device &modelDevice, const QString &ip)
{
    initOrWarn(modelDevice, *deviceDetail, errorMsg, "Create device model failed,");
    if (modelDevice.IPAddress().isEmpty())
        modelDevice.setIPAddress(ip);
    initOrWarn(modelDevice, *interfaceDetail, errorMsg, "Create interface model failed,");
    initOrWarn(modelDevice, *fileDetail, errorMsg, "Create file model failed,");
    initOrWarn(modelDevice, *screenDetail, errorMsg, "Create screen model failed,");
    return initOrWarn(modelDevice, *layerDetail, errorMsg, "Create layer model failed,");
}

} // namespace Tavoro::Control::Internal
