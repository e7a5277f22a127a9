#pragma once

#include "replaceablestore_p.h"
#include "saverqueue_p.h"

#include <tavorobizmodel/savedevicedatathread.h>

#include <QString>

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

namespace Tavoro::BizModel {

struct s_DeviceStoreOptions;

/// The thread that saves devices, and its jobs.
///
/// | member                 | thread                  |
/// |------------------------|-------------------------|
/// | open, close            | the application's       |
/// | requests, setStop, wait | any                     |
/// | run and what it calls  | the saver's own         |
class SaveDeviceDataThreadPrivate {
public:
    ~SaveDeviceDataThreadPrivate() { close(); }

    /// Starts the thread, which opens the file and reads \a devices from it.
    bool open(const s_DeviceStoreOptions &options, std::vector<std::shared_ptr<Device>> &devices,
              QString &error);
    void close();
    bool isOpen() const;

    void requestSave(const std::weak_ptr<Device> &device);
    void requestRemoval(const Device &device);
    void setStop(bool stop);
    void waitForRunningJob();

private:
    using Clock = std::chrono::steady_clock;

    /// The result of opening the file, which the thread hands to open().
    struct Opened {
        bool done = false;
        DeviceStore::Loaded loaded;
        QString error;
    };

    void enqueue(SaverJob job);
    void run(const QString &fileName, std::chrono::milliseconds retryDelay);
    void processJobs(std::chrono::milliseconds retryDelay);
    bool isPaused() const { return m_pauses > 0; }
    bool mayTakeJob() const;
    bool execute(const SaverJob &job);
    void requestSavesOfOthers(const SaverJob &job);
    static StoreOutcome attempt(DeviceStore &store, const SaverJob &job, QString &error);

    mutable std::mutex m_mutex;
    std::condition_variable m_changed;
    SaverQueue m_jobs; // guarded by m_mutex, as all down to m_opened
    bool m_isOpen = false;
    int m_pauses = 0; ///< Number of calls of setStop(true) that were not ended by setStop(false).
    bool m_isWorking = false;
    bool m_isClosing = false;
    Clock::time_point m_notBefore; ///< After a failure: when the next job may be taken.
    std::unique_ptr<Opened> m_opened;

    std::atomic<std::thread::id> m_saver; ///< The saver's own thread.
    std::thread m_thread; // used by the application's thread
    ReplaceableStore m_store; // used by the saver's thread
};

} // namespace Tavoro::BizModel
