#include "transferprogressrecords_p.h"

#include <tavorobizmodel/device.h>
#include <tavorocontrol/logging_p.h>

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

// Kept: all three operations log this text, although two of them update nothing.
std::shared_ptr<BizModel::Device> lockOrWarn(const std::weak_ptr<BizModel::Device> &weakDevice)
{
    auto device = weakDevice.lock();
    if (!device)
        qCWarning(controlLog) << "Update file transfer progress array failed. Device is nullptr. ";
    return device;
}

} // namespace

/// Call it with the mutex held.
s_DeviceFileTransferProgress *
TransferProgressRecords::recordOf(const std::shared_ptr<BizModel::Device> &device)
{
    const auto record =
        std::find_if(m_records.begin(), m_records.end(),
                     [&](const auto &candidate) { return candidate.device.lock() == device; });
    return record == m_records.end() ? nullptr : &*record;
}

bool TransferProgressRecords::find(const WeakDevice &weakDevice,
                                   s_DeviceFileTransferProgress &record)
{
    const auto device = lockOrWarn(weakDevice);
    if (!device)
        return false;
    const QMutexLocker lock(&m_mutex);
    const auto *known = recordOf(device);
    if (!known)
        return false;
    record = *known;
    return true;
}

void TransferProgressRecords::update(const WeakDevice &weakDevice, Percents percents)
{
    const auto device = lockOrWarn(weakDevice);
    if (!device)
        return;
    const QMutexLocker lock(&m_mutex);
    auto *record = recordOf(device);
    if (!record)
        record = &m_records.emplace_back();
    *record = {device, std::move(percents), steadyMilliseconds(), true};
}

void TransferProgressRecords::reset(const WeakDevice &weakDevice)
{
    const auto device = lockOrWarn(weakDevice);
    if (!device)
        return;
    const QMutexLocker lock(&m_mutex);
    auto *record = recordOf(device);
    if (!record)
        return;
    record->percents.clear(); // its storage is reused by the next report
    record->isTransferring = false;
    record->lastTime = steadyMilliseconds();
}

} // namespace Tavoro::Control::Internal
