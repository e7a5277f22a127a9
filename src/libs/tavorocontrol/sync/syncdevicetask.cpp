#include <tavorocontrol/syncdevicetask.h>

#include "savepause_p.h"
#include "syncdevicetask_p.h"

#include <tavorobizmodel/device.h>
#include <tavorobizmodel/devicelist.h>
#include <tavorobizmodel/screen.h>
#include <tavorocontrol/auxiliary.h>
#include <tavorocontrol/device.h>
#include <tavorocontrol/file.h>
#include <tavorocontrol/interface.h>
#include <tavorocontrol/layer.h>
#include <tavorocontrol/logging_p.h>
#include <tavorocontrol/screen.h>
#include <tavorossproxy/devicechannel.h>
#include <tavorossproxy/devicemanager.h>

#include <QDate>
#include <QTime>

namespace Tavoro::Control {

using Internal::controlLog;

namespace {

constexpr qint32 readyStatus = 1; ///< Status of a device that may be read.
// With an explicit context: lupdate does not find the class if it reads only this library.
constexpr char deviceNotReady[] =
    QT_TRANSLATE_NOOP("Tavoro::Control::SyncDeviceTask", "Device not ready.");

constexpr int allScreenTypes = 30;
constexpr int programmeScene = 4;
constexpr int previewScene = 2;

/// Returns true for files whose content is read in a synchronisation. For other files only the
/// details are.
bool isContentFetched(qint32 fileType)
{
    return fileType == 12 || fileType <= 9 || fileType >= 16;
}

/// Empties \a records and frees their storage, which an assignment of {} would keep.
template <class Record>
void release(std::vector<Record> &records)
{
    std::vector<Record>().swap(records);
}

ProtoModel::Auxiliary::s_DeviceTime currentTime()
{
    const QDate date = QDate::currentDate();
    const QTime time = QTime::currentTime();
    ProtoModel::Auxiliary::s_DeviceTime now;
    now.year = date.year();
    now.month = date.month();
    now.day = date.day();
    now.hour = time.hour();
    now.minute = time.minute();
    now.second = time.second();
    now.millisecond = time.msec();
    return now;
}

} // namespace

SyncDeviceTask::SyncDeviceTask(QObject *parent)
    : QThread(parent), d(std::make_unique<Internal::SyncDeviceTaskPrivate>(this))
{
    setObjectName(QStringLiteral("SyncDeviceTask"));
}

SyncDeviceTask::~SyncDeviceTask() = default;

bool SyncDeviceTask::setDevice(const QString &ip, const QString &mac, const QString &sn)
{
    const auto channel = SSProxy::DeviceManager::instance()->findTavoroDeviceChannel(
        ip.toStdString(), mac.toStdString(), sn.toStdString());
    if (!channel) {
        qCWarning(controlLog) << "Sync device model failed, device channel is null";
        if (const auto known = BizModel::DeviceList::instance()->findDevice(ip, mac, sn).lock())
            known->setDeviceOnlineFlag(false);
        return false;
    }
    if (!d->device) {
        const ProtoModel::DeviceBaseInfo info = channel->deviceBaseInfo();
        constexpr unsigned short noNumberYet = 65535;
        d->device = std::make_shared<BizModel::Device>(noNumberYet, nullptr);
        d->device->setModelId(info.modelId);
        d->device->setIPAddress(ip);
        d->device->updateDeviceBaseInfo(info);
    }
    return true;
}

void SyncDeviceTask::resetDevice()
{
    d->device.reset();
    *d->deviceDetail = {};
    release(*d->interfaceDetail);
    release(*d->screenDetail);
    release(*d->layerDetail);
    release(*d->fileDetail);
}

// clang-format off
void    SyncDeviceTask::setRunningStatus(bool running) { d->runningStatus = running; }
bool    SyncDeviceTask::isRunningStatus() const        { return d->runningStatus; }
bool    SyncDeviceTask::isSyncSucess() const           { return d->syncSuccess; }
QString SyncDeviceTask::errorMsg() const               { return d->errorMsg; }
QString SyncDeviceTask::deviceIp() const               { return d->device ? d->device->IPAddress() : QString(); }
QString SyncDeviceTask::deviceMAC() const              { return d->device ? d->device->MAC() : QString(); }
QString SyncDeviceTask::deviceSN() const               { return d->device ? d->device->sn() : QString(); }

const ProtoModel::Device::s_DeviceDetail &SyncDeviceTask::deviceDetail() const                          { return *d->deviceDetail; }
const std::vector<ProtoModel::Interface::s_InterfaceDetail> &SyncDeviceTask::interfaceDetail() const    { return *d->interfaceDetail; }
const std::vector<ProtoModel::Screen::s_ScreenFullDetail> &SyncDeviceTask::screenDetail() const         { return *d->screenDetail; }
const std::vector<ProtoModel::Layer::s_LayerFullDetail> &SyncDeviceTask::layerDetail() const            { return *d->layerDetail; }
const std::vector<ProtoModel::File::s_FileDetail> &SyncDeviceTask::fileDetail() const                   { return *d->fileDetail; }
// clang-format on

void SyncDeviceTask::run()
{
    d->errorMsg = QStringLiteral("");
    if (!d->device)
        return;
    const Internal::SavePause pause(*d->device);
    d->clearKnownDevice();
    static_cast<void>(d->device->tcpProtocolVersion());
    d->syncSuccess = true;

    setDeviceClock(d->device);
    if (!readEssentials(d->device)) {
        d->initDeviceModelData();
        return;
    }
    readRest(d->device);
    // Kept: here the result of filling the model replaces that of the reads, which the model has
    // already got.
    d->syncSuccess = d->initDeviceModelData();
}

void SyncDeviceTask::setDeviceClock(WeakDevice device)
{
    QString error;
    if (Auxiliary(device, nullptr).setDeviceTime(currentTime(), error))
        return;
    qCWarning(controlLog) << "set device time failed." << error;
    d->syncSuccess = false;
}

/// Reads the details and the interfaces, which all other data needs. False ends the
/// synchronisation.
bool SyncDeviceTask::readEssentials(WeakDevice device)
{
    if (!readDeviceDetail(device)) {
        qCWarning(controlLog) << "Read device detail failed." << d->errorMsg;
        d->syncSuccess = false;
        return false;
    }
    const qint32 status = d->deviceDetail->general.status;
    if (status != readyStatus) {
        d->errorMsg = tr(deviceNotReady);
        qCWarning(controlLog) << d->errorMsg;
        d->syncSuccess = status != 0; // Kept: a busy device counts as read.
        return false;
    }
    if (!readInterfaceDetail(device)) {
        qCWarning(controlLog) << "Read interface details failed." << d->errorMsg;
        d->syncSuccess = false;
        return false;
    }
    return true;
}

/// Reads screens, layers and files. A failure does not stop the next step, except that layers are
/// not read without screens.
void SyncDeviceTask::readRest(WeakDevice device)
{
    const auto noteResult = [this](bool read, const char *words) {
        if (!read)
            qCWarning(controlLog) << words;
        d->syncSuccess = d->syncSuccess && read;
    };
    if (readScreenDetail(device)) {
        noteResult(readDeviceLayerDetail(device), "Read layer details failed.");
    } else {
        qCWarning(controlLog) << "Read screen details failed." << d->errorMsg;
        d->syncSuccess = false;
    }
    noteResult(readFileDetail(device), "Read file details failed.");
    d->dropRemovedFiles();
    noteResult(readFileBinary(device), "Read file binary failed.");
}

// clang-format off
bool SyncDeviceTask::readDeviceDetail(WeakDevice device)      { return Device(device, nullptr).readDetails(*d->deviceDetail, d->errorMsg); }
bool SyncDeviceTask::readInterfaceDetail(WeakDevice device)   { return Interface(device, nullptr).readDetails(0, -1, *d->interfaceDetail, d->errorMsg); }
bool SyncDeviceTask::readScreenDetail(WeakDevice device)      { return Screen(device, nullptr).readDetails(-1, 0, -1, *d->screenDetail, d->errorMsg); }
bool SyncDeviceTask::readDeviceLayerDetail(WeakDevice device) { return Layer(device, nullptr).readDetails(-1, -1, -1, -1, *d->layerDetail, d->errorMsg); }
bool SyncDeviceTask::readFileDetail(WeakDevice device)        { return File(device, nullptr).readDetails(-1, -1, *d->fileDetail, d->errorMsg); }
bool SyncDeviceTask::readBKGDetail(WeakDevice device)         { return File(device, nullptr).readDetails(0, -1, *d->fileDetail, d->errorMsg); }
bool SyncDeviceTask::readLogoDetail(WeakDevice device)        { return File(device, nullptr).readDetails(2, -1, *d->fileDetail, d->errorMsg); }
// clang-format on

bool SyncDeviceTask::readPresetDetail(WeakDevice device)
{
    File files(device, nullptr);
    return files.readDetails(6, -1, *d->fileDetail, d->errorMsg)
        && files.readDetails(8, -1, *d->fileDetail, d->errorMsg);
}

bool SyncDeviceTask::readFileBinary(WeakDevice weakDevice)
{
    const auto device = weakDevice.lock();
    if (!device)
        return false;
    bool allRead = true;
    for (ProtoModel::File::s_FileDetail &file : *d->fileDetail) {
        if (isContentFetched(file.fileType) && !File(device, nullptr).readBinary(file, d->errorMsg))
            allRead = false;
    }
    return allRead;
}

bool SyncDeviceTask::readLayerDetail(WeakDevice weakDevice)
{
    const auto device = weakDevice.lock();
    if (!device)
        return false;
    const auto screens = device->screens(allScreenTypes);
    for (const auto &screen : screens) {
        QString error;
        if (!readLayerDetail(device, screen, error)) {
            d->errorMsg += error;
            return false;
        }
    }
    return true;
}

bool SyncDeviceTask::readLayerDetail(WeakDevice device, std::weak_ptr<BizModel::Screen> weakScreen,
                                     QString &error)
{
    const auto screen = weakScreen.lock();
    if (!screen)
        return false;
    Layer layers(device, nullptr);
    const int id = screen->screenId();
    const int type = screen->screenType();
    return layers.readDetails(id, type, programmeScene, -1, *d->layerDetail, error)
        && layers.readDetails(id, type, previewScene, -1, *d->layerDetail, error);
}

} // namespace Tavoro::Control
