#include "modelstate.h"

#include "modeljson.h"
#include "runtime.h"

#include <tavorobizmodel/device.h>

#include <utility>
#include <vector>

namespace Tavoro::Python {

void ModelState::set(std::shared_ptr<BizModel::Device> device, std::string session)
{
    {
        const std::lock_guard lock(m_mutex);
        m_device = std::move(device);
        m_session = std::move(session);
    }
    noteChange();
}

void ModelState::noteChange()
{
    std::vector<EventKey> keys;
    {
        const std::lock_guard lock(m_mutex);
        ++m_version;
        for (auto &[key, isNotified] : m_isNotified) {
            if (!std::exchange(isNotified, true))
                keys.push_back(key);
        }
    }
    for (const EventKey key : keys)
        Runtime::instance().events().push(key);
}

std::uint64_t ModelState::version() const
{
    const std::lock_guard lock(m_mutex);
    return m_version;
}

std::string ModelState::json() const
{
    std::unique_lock lock(m_mutex);
    const std::shared_ptr<BizModel::Device> device = m_device;
    std::string text = R"({"session":)" + m_session;
    lock.unlock();
    if (device)
        text += ',' + modelMembers(*device);
    return text + '}';
}

void ModelState::subscribe(EventKey key)
{
    {
        const std::lock_guard lock(m_mutex);
        m_isNotified[key] = true;
    }
    Runtime::instance().events().push(key);
}

void ModelState::acknowledge(EventKey key)
{
    const std::lock_guard lock(m_mutex);
    const auto found = m_isNotified.find(key);
    if (found != m_isNotified.end())
        found->second = false;
}

void ModelState::unsubscribe(EventKey key)
{
    const std::lock_guard lock(m_mutex);
    m_isNotified.erase(key);
}

} // namespace Tavoro::Python
