#include "savedevicedatathread_p.h"

#include "logging_p.h"

#include <tavorobizmodel/device.h>
#include <tavorobizmodel/devicelist.h>

#include <algorithm>
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
    devices = std::move(opened->devices);
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

void SaveDeviceDataThreadPrivate::askToSave(const std::weak_ptr<Device> &device)
{
    if (!device.expired())
        ask({device, {}});
}

void SaveDeviceDataThreadPrivate::askToForget(const Device &device)
{
    ask({{}, DeviceIdentity::of(device)});
}

void SaveDeviceDataThreadPrivate::ask(Job job)
{
    const std::lock_guard lock(m_mutex);
    if (!m_isOpen || m_isClosing)
        return;
    const auto isSame = [&](const Job &other) {
        return !other.device.owner_before(job.device) && !job.device.owner_before(other.device)
            && other.identity == job.identity;
    };
    if (std::any_of(m_jobs.begin(), m_jobs.end(), isSame))
        return;
    m_jobs.push_back(std::move(job));
    m_changed.notify_all();
}

void SaveDeviceDataThreadPrivate::setStop(bool stop)
{
    const std::lock_guard lock(m_mutex);
    m_isStopped = stop;
    m_changed.notify_all();
}

void SaveDeviceDataThreadPrivate::waitForRunningJob()
{
    if (std::this_thread::get_id() == m_saver.load())
        return; // asked from a slot of the saver's own signals
    std::unique_lock lock(m_mutex);
    m_changed.wait(lock, [this] { return !m_isWorking; });
}

void SaveDeviceDataThreadPrivate::run(const QString &fileName, std::chrono::milliseconds retryDelay)
{
    m_saver = std::this_thread::get_id();
    auto opened = std::make_unique<Opened>(openFile(fileName));
    const bool done = opened->done;
    {
        const std::lock_guard lock(m_mutex);
        m_opened = std::move(opened);
        m_isOpen = done;
        m_isClosing = false;
        m_notBefore = {}; // a failure of the store that was open before delays nothing here
        m_changed.notify_all();
    }
    if (done)
        workOff(retryDelay);
    m_store.close();
}

SaveDeviceDataThreadPrivate::Opened SaveDeviceDataThreadPrivate::openFile(const QString &fileName)
{
    m_fileName = fileName;
    Opened opened;
    StoreOutcome outcome = m_store.open(fileName, opened.error);
    if (outcome == StoreOutcome::Done)
        outcome = m_store.load(opened.devices, opened.error);
    if (outcome != StoreOutcome::Done)
        opened.devices.clear();
    opened.done = outcome == StoreOutcome::Done
        || (outcome == StoreOutcome::Damaged && openAnew(opened.error));
    return opened;
}

/// Sets the damaged file aside, with the reason in \a error, and begins a new one. The store is
/// closed when that fails; the next job tries again.
bool SaveDeviceDataThreadPrivate::openAnew(QString &error)
{
    m_store.close();
    const QString kept = StoreDatabase::setAside(m_fileName);
    if (kept.isEmpty())
        return false;
    qCWarning(modelLog) << "The store of devices is damaged:" << error << "Kept as" << kept;
    Q_EMIT DeviceList::instance()->signalDeviceStoreSetAside(m_fileName, kept);
    return m_store.open(m_fileName, error) == StoreOutcome::Done;
}

/// Whether it is time for the next job. While the saver closes a failed job is not waited for.
bool SaveDeviceDataThreadPrivate::mayTakeJob() const
{
    return !m_isStopped && !m_jobs.empty() && (m_isClosing || Clock::now() >= m_notBefore);
}

void SaveDeviceDataThreadPrivate::workOff(std::chrono::milliseconds retryDelay)
{
    std::unique_lock lock(m_mutex);
    while (true) {
        const auto mayGoOn = [this] {
            return m_isClosing || mayTakeJob();
        };
        if (m_jobs.empty() || m_isStopped)
            m_changed.wait(lock, mayGoOn);
        else
            m_changed.wait_until(lock, m_notBefore, mayGoOn);
        if (m_isClosing && (m_isStopped || m_jobs.empty()))
            break;
        if (!mayTakeJob())
            continue;
        const Job job = std::move(m_jobs.front());
        m_jobs.pop_front();
        m_isWorking = true;
        lock.unlock();
        const bool done = work(job);
        lock.lock();
        m_isWorking = false;
        if (!done && !m_isClosing) {
            m_jobs.push_front(job);
            m_notBefore = Clock::now() + retryDelay;
        }
        m_changed.notify_all();
    }
    m_jobs.clear();
    m_isOpen = false;
}

bool SaveDeviceDataThreadPrivate::work(const Job &job)
{
    QString error;
    auto outcome = StoreOutcome::Done;
    bool isAnew = !m_store.isOpen(); // a damaged file could not be replaced by an earlier job
    if (isAnew)
        outcome = m_store.open(m_fileName, error);
    if (outcome == StoreOutcome::Done)
        outcome = attempt(job, error);
    if (outcome == StoreOutcome::Damaged && openAnew(error)) {
        isAnew = true;
        outcome = attempt(job, error);
    }
    if (isAnew && m_store.isOpen())
        askToSaveOthers(job);
    if (outcome != StoreOutcome::Done) {
        qCWarning(modelLog) << "Saving device data failed:" << error;
        Q_EMIT DeviceList::instance()->signalSaveDeviceDataFailed(error);
        return false;
    }
    if (!job.device.expired())
        Q_EMIT DeviceList::instance()->signalDeviceDataSaved(job.device);
    return true;
}

/// The new file has nothing of what the damaged one held.
void SaveDeviceDataThreadPrivate::askToSaveOthers(const Job &job)
{
    const auto saved = job.device.lock();
    const auto devices = DeviceList::instance()->devices();
    for (const auto &device : devices) {
        if (device.lock() != saved)
            askToSave(device);
    }
}

StoreOutcome SaveDeviceDataThreadPrivate::attempt(const Job &job, QString &error)
{
    if (!job.identity.sn.isEmpty())
        return m_store.remove(job.identity, error);
    const auto device = job.device.lock();
    return device ? m_store.save(*device, error) : StoreOutcome::Done;
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
    d->askToSave(device);
}

} // namespace Tavoro::BizModel
