#include "savedevicedatathread_p.h"

#include "logging_p.h"

#include <tavorobizmodel/device.h>
#include <tavorobizmodel/devicelist.h>

#include <utility>

namespace Tavoro::BizModel {

bool SaveDeviceDataThreadPrivate::open(const s_DeviceStoreOptions &options,
                                       std::vector<std::shared_ptr<Device>> &devices,
                                       QString &error)
{
    if (m_thread.joinable()) {
        error = DeviceList::tr("A store of devices is open already.");
        return false;
    }
    m_thread = std::thread(&SaveDeviceDataThreadPrivate::run, this, options.fileName,
                           std::chrono::milliseconds(options.retryDelay));
    std::unique_ptr<Opened> opened;
    {
        std::unique_lock lock(m_mutex);
        m_changed.wait(lock, [this] { return m_opened != nullptr; });
        opened = std::move(m_opened);
    }
    devices = std::move(opened->loaded.devices);
    if (opened->done)
        return true;
    error = opened->error;
    m_thread.join();
    return false;
}

void SaveDeviceDataThreadPrivate::close()
{
    if (!m_thread.joinable())
        return;
    {
        const std::lock_guard lock(m_mutex);
        m_isClosing = true;
        m_changed.notify_all();
    }
    m_thread.join();
}

bool SaveDeviceDataThreadPrivate::isOpen() const
{
    const std::lock_guard lock(m_mutex);
    return m_isOpen;
}

void SaveDeviceDataThreadPrivate::requestSave(const std::weak_ptr<Device> &weakDevice)
{
    if (const auto device = weakDevice.lock())
        enqueue({DeviceIdentity::of(*device), SaverJob::Kind::Save, device, false});
}

void SaveDeviceDataThreadPrivate::requestRemoval(const Device &device)
{
    enqueue({DeviceIdentity::of(device), SaverJob::Kind::Remove, {}, false});
}

void SaveDeviceDataThreadPrivate::enqueue(SaverJob job)
{
    const std::lock_guard lock(m_mutex);
    if (!m_isOpen || m_isClosing)
        return;
    m_jobs.enqueue(std::move(job));
    m_changed.notify_all();
}

void SaveDeviceDataThreadPrivate::setStop(bool stop)
{
    const std::lock_guard lock(m_mutex);
    if (stop)
        ++m_pauses;
    else if (m_pauses > 0)
        --m_pauses;
    m_changed.notify_all();
}

void SaveDeviceDataThreadPrivate::waitForRunningJob()
{
    if (std::this_thread::get_id() == m_saver.load())
        return; // called from a slot of the saver's own signals
    std::unique_lock lock(m_mutex);
    m_changed.wait(lock, [this] { return !m_isWorking; });
}

void SaveDeviceDataThreadPrivate::run(const QString &fileName, std::chrono::milliseconds retryDelay)
{
    m_saver = std::this_thread::get_id();
    auto opened = std::make_unique<Opened>();
    opened->done = m_store.open(fileName, opened->loaded, opened->error);
    const bool done = opened->done;
    {
        const std::lock_guard lock(m_mutex);
        m_opened = std::move(opened);
        m_isOpen = done;
        m_isClosing = false;
        m_notBefore = {}; // a failure in an earlier store must not delay saves here
        m_changed.notify_all();
    }
    if (done)
        processJobs(retryDelay);
    m_store.close();
}

/// Returns true if the next job may be taken. While the saver closes, it does not wait before it
/// retries a failed job.
bool SaveDeviceDataThreadPrivate::mayTakeJob() const
{
    return !isPaused() && !m_jobs.isEmpty() && (m_isClosing || Clock::now() >= m_notBefore);
}

void SaveDeviceDataThreadPrivate::processJobs(std::chrono::milliseconds retryDelay)
{
    std::unique_lock lock(m_mutex);
    while (true) {
        const auto canContinue = [this] {
            return m_isClosing || mayTakeJob();
        };
        if (m_jobs.isEmpty() || isPaused())
            m_changed.wait(lock, canContinue);
        else
            m_changed.wait_until(lock, m_notBefore, canContinue);
        if (m_isClosing && (isPaused() || m_jobs.isEmpty()))
            break;
        if (!mayTakeJob())
            continue;
        const SaverJob job = m_jobs.take();
        m_isWorking = true;
        lock.unlock();
        const bool done = execute(job);
        lock.lock();
        m_isWorking = false;
        if (!done && !m_isClosing) {
            m_jobs.requeue(job);
            m_notBefore = Clock::now() + retryDelay;
        }
        m_changed.notify_all();
    }
    m_jobs.clear();
    m_isOpen = false;
}

bool SaveDeviceDataThreadPrivate::execute(const SaverJob &job)
{
    QString error;
    bool isNewFile = false;
    const auto step = [&job](DeviceStore &store, QString &reason) {
        return attempt(store, job, reason);
    };
    const bool done = m_store.run(step, error, isNewFile);
    if (isNewFile)
        requestSavesOfOthers(job);
    if (!done) {
        qCWarning(modelLog) << "Saving device data failed:" << error;
        Q_EMIT DeviceList::instance()->signalSaveDeviceDataFailed(error);
        return false;
    }
    if (!job.device.expired())
        Q_EMIT DeviceList::instance()->signalDeviceDataSaved(job.device);
    return true;
}

/// A new file does not hold the other devices yet.
void SaveDeviceDataThreadPrivate::requestSavesOfOthers(const SaverJob &job)
{
    const auto saved = job.device.lock();
    const auto devices = DeviceList::instance()->devices();
    for (const auto &device : devices) {
        if (device.lock() != saved)
            requestSave(device);
    }
}

StoreOutcome SaveDeviceDataThreadPrivate::attempt(DeviceStore &store, const SaverJob &job,
                                                  QString &error)
{
    const auto device = job.device.lock();
    if (device)
        return store.save(*device, error);
    if (job.kind == SaverJob::Kind::Remove || job.removesIfExpired)
        return store.remove(job.identity, error);
    return StoreOutcome::Done;
}

SaveDeviceDataThread::SaveDeviceDataThread()
    : d(std::make_unique<SaveDeviceDataThreadPrivate>()) { }

SaveDeviceDataThread::~SaveDeviceDataThread() = default;

void SaveDeviceDataThread::setTemporaryStop(bool stop)
{
    d->setStop(stop);
}

void SaveDeviceDataThread::waitForSavingDataFinished()
{
    d->waitForRunningJob();
}

void SaveDeviceDataThread::saveDevicesInfor(std::weak_ptr<Device> device)
{
    d->requestSave(device);
}

} // namespace Tavoro::BizModel
