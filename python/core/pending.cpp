#include "pending.h"

#include "runtime.h"

#include <utility>

namespace Tavoro::Python {

bool Pending::wait(std::chrono::milliseconds time) const
{
    std::unique_lock lock(m_mutex);
    return m_ended.wait_for(lock, time, [this] { return m_result.has_value(); });
}

const Result &Pending::result() const
{
    const std::lock_guard lock(m_mutex);
    return *m_result;
}

TransferProgress Pending::progress() const
{
    const std::lock_guard lock(m_mutex);
    return m_progress;
}

void Pending::notify(EventKey key)
{
    {
        const std::lock_guard lock(m_mutex);
        if (!m_result) {
            m_key = key;
            return;
        }
    }
    Runtime::instance().events().push(key);
}

void Pending::cancel()
{
    Runtime::instance().post([self = shared_from_this()] {
        self->m_isCanceled = true;
        if (self->m_cancel)
            std::exchange(self->m_cancel, nullptr)();
    });
}

void Pending::finish(Result result)
{
    std::optional<EventKey> key;
    {
        const std::lock_guard lock(m_mutex);
        if (m_result)
            return;
        m_result = std::move(result);
        key = m_key;
    }
    m_ended.notify_all();
    if (key)
        Runtime::instance().events().push(*key);
}

void Pending::setProgress(const TransferProgress &progress)
{
    const std::lock_guard lock(m_mutex);
    m_progress = progress;
}

void Pending::setCanceler(std::function<void()> cancel)
{
    if (m_isCanceled)
        cancel();
    else
        m_cancel = std::move(cancel);
}

void Pending::dropCanceler()
{
    m_cancel = nullptr;
}

} // namespace Tavoro::Python
