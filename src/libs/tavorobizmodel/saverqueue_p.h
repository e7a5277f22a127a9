#pragma once

#include "deviceidentity_p.h"

#include <deque>
#include <memory>

namespace Tavoro::BizModel {

class Device;

/// What the saver has to do with one device.
struct SaverJob {
    enum class Kind {
        Save,
        Forget,
    };

    DeviceIdentity identity;
    Kind kind = Kind::Save;
    std::weak_ptr<Device> device; ///< To save.
    /// A request to forget the device stood here before. It holds if the device to save is gone by
    /// the time of its turn.
    bool forgetsIfGone = false;
};

/// The requests to the saver, one per device: the last one wins. Not thread-safe.
class SaverQueue {
public:
    bool isEmpty() const { return m_jobs.empty(); }
    /// A request for a device that has one replaces it, in its place.
    void ask(SaverJob job);
    /// The job whose turn it is. The queue must not be empty.
    SaverJob take();
    /// Puts a job that failed back to the front, unless its device has a newer request.
    void putBack(SaverJob job);
    void clear() { m_jobs.clear(); }

private:
    std::deque<SaverJob>::iterator find(const DeviceIdentity &identity);

    std::deque<SaverJob> m_jobs;
};

} // namespace Tavoro::BizModel
