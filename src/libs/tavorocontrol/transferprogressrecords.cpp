// The latest transfer figures of each device. A record stays once it is made, also when its device
// is gone.

#include "autoreportmanager_p.h"
#include "logging_p.h"

#include <tavorobizmodel/device.h>

#include <QMutexLocker>

#include <algorithm>
#include <chrono>

namespace Tavoro::Control::Internal {

namespace {

qint64 steadyMilliseconds()
{
    constexpr qint64 nanosecondsPerMillisecond = 1000000;
    return std::chrono::nanoseconds(std::chrono::steady_clock::now().time_since_epoch()).count()
        / nanosecondsPerMillisecond;
}

// Kept: all three operations word it so, whatever they were about to do.
std::shared_ptr<BizModel::Device> lockOrWarn(const std::weak_ptr<BizModel::Device> &weakDevice)
{
    auto device = weakDevice.lock();
    if (!device)
        qCWarning(controlLog) << "Update file transfer progress array failed. Device is nullptr. ";
    return device;
}

} // namespace

/// To be called with the mutex held.
s_DeviceFileTransferProgress *
AutoReportManagerPrivate::recordOf(const std::shared_ptr<BizModel::Device> &device)
{
    const auto record =
        std::find_if(transferProgressRecords.begin(), transferProgressRecords.end(),
                     [&](const auto &candidate) { return candidate.device.lock() == device; });
    return record == transferProgressRecords.end() ? nullptr : &*record;
}

bool AutoReportManagerPrivate::findRecord(const WeakDevice &weakDevice,
                                          s_DeviceFileTransferProgress &record)
{
    const auto device = lockOrWarn(weakDevice);
    if (!device)
        return false;
    const QMutexLocker lock(&transferProgressMutex);
    const auto *known = recordOf(device);
    if (!known)
        return false;
    record = *known;
    return true;
}

void AutoReportManagerPrivate::updateRecord(const WeakDevice &weakDevice, Percents percents)
{
    const auto device = lockOrWarn(weakDevice);
    if (!device)
        return;
    const QMutexLocker lock(&transferProgressMutex);
    auto *record = recordOf(device);
    if (!record)
        record = &transferProgressRecords.emplace_back();
    *record = {device, std::move(percents), steadyMilliseconds(), true};
}

void AutoReportManagerPrivate::resetRecord(const WeakDevice &weakDevice)
{
    const auto device = lockOrWarn(weakDevice);
    if (!device)
        return;
    const QMutexLocker lock(&transferProgressMutex);
    auto *record = recordOf(device);
    if (!record)
        return;
    record->percents.clear(); // keeps its storage for the next report
    record->isTransferring = false;
    record->lastTime = steadyMilliseconds();
}

} // namespace Tavoro::Control::Internal
