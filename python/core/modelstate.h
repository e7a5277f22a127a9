#pragma once

#include "eventqueue.h"

#include <cstdint>
#include <map>
#include <memory>
#include <mutex>
#include <string>

namespace Tavoro::BizModel {
class Device;
}

namespace Tavoro::Python {

/// What is known about a device, for threads of Python: the model's records and the state of the
/// session. All members: any thread; none blocks.
class ModelState {
public:
    /// Replaces the device of the model and the state of the session, which is a JSON object.
    void set(std::shared_ptr<BizModel::Device> device, std::string session);
    /// Counts a change, and reports it to the subscriptions.
    void noteChange();

    /// The number of changes so far.
    std::uint64_t version() const;
    /// One JSON object with the keys session, device, interfaces, screens, layers and files.
    /// Without a device in the model only the first one.
    std::string json() const;

    /// Adds an event to the runtime's queue now, and when something has changed. After an event,
    /// waits for acknowledge() before the next one, so that a slow subscriber gets fewer and larger
    /// changes.
    void subscribe(EventKey key);
    /// To be called before json(), so that no later change is missed.
    void acknowledge(EventKey key);
    /// Adds no further events.
    void unsubscribe(EventKey key);

private:
    mutable std::mutex m_mutex;
    std::shared_ptr<BizModel::Device> m_device; ///< Guarded by m_mutex.
    std::string m_session = "{}"; ///< Guarded by m_mutex.
    std::uint64_t m_version = 0; ///< Guarded by m_mutex.
    std::map<EventKey, bool> m_isNotified; ///< Guarded by m_mutex.
};

} // namespace Tavoro::Python
