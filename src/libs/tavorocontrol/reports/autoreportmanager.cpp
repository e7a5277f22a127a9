#include <tavorocontrol/autoreportmanager.h>

#include "autoreportmanager_p.h"

#include <mutex>
#include <new>

namespace Tavoro::Control {

namespace {

AutoReportManager *manager = nullptr;
std::once_flag managerCreated;

} // namespace

// Kept: the flag is never reset, so there is no second manager.
AutoReportManager *AutoReportManager::instance()
{
    std::call_once(managerCreated, [] { manager = new (std::nothrow) AutoReportManager(nullptr); });
    return manager;
}

void AutoReportManager::deleteInstance()
{
    delete manager;
    manager = nullptr;
}

AutoReportManager::AutoReportManager(QObject *parent)
    : QObject(parent), d(std::make_unique<Internal::AutoReportManagerPrivate>(this))
{ }

AutoReportManager::~AutoReportManager() = default;

void AutoReportManager::setIsStopAutoReport(bool stop)
{
    d->setStopped(stop);
}

bool AutoReportManager::findDeviceFileTransferProgressRecord(std::weak_ptr<BizModel::Device> device,
                                                             s_DeviceFileTransferProgress &record)
{
    return d->transferProgressRecords.find(device, record);
}

void AutoReportManager::updateDeviceFileTransferProgressRecord(
    std::weak_ptr<BizModel::Device> device,
    std::vector<ProtoModel::File::s_FileTransPercent> percents)
{
    d->transferProgressRecords.update(device, std::move(percents));
}

void AutoReportManager::resetDeviceFileTransferProgressRecord(
    std::weak_ptr<BizModel::Device> device)
{
    d->transferProgressRecords.reset(device);
}

} // namespace Tavoro::Control
