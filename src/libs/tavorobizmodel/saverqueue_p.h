#pragma once

#include "deviceidentity_p.h"

#include <deque>
#include <memory>

namespace Tavoro::BizModel {

class Device;

/// A job of the saver, for one device.
struct SaverJob {
    enum class Kind {
        Save,
        Remove,
    };

    DeviceIdentity identity;
    Kind kind = Kind::Save;
    std::weak_ptr<Device> device; ///< The device to save.
    /// This job replaced one that removes the device. If the device has expired when the save would
    /// begin, it is removed.
    bool removesIfExpired = false;
};

/// The jobs of the saver, one per device: the last request replaces earlier ones. Not thread-safe.
class SaverQueue {
public:
    bool isEmpty() const { return m_jobs.empty(); }
    /// Adds a job. If there is a job for the same device, replaces it and keeps its position.
    void enqueue(SaverJob job);
    /// Removes and returns the first job. The queue must not be empty.
    SaverJob take();
    /// Puts a failed job back to the front, unless there is a newer one for its device.
    void requeue(SaverJob job);
    void clear() { m_jobs.clear(); }

private:
    std::deque<SaverJob>::iterator find(const DeviceIdentity &identity);

    std::deque<SaverJob> m_jobs;
};

} // namespace Tavoro::BizModel
