#include "lane_p.h"

#include "courier_p.h"

#include <QRunnable>
#include <QThreadPool>

#include <algorithm>
#include <functional>
#include <utility>

namespace Tavoro::SessionInternal {

namespace {

/// QRunnable::create() of Qt 5 takes no function that can only be moved.
class Work : public QRunnable {
public:
    explicit Work(std::function<void()> function) : m_function(std::move(function)) { }
    void run() override { m_function(); }

private:
    const std::function<void()> m_function;
};

} // namespace

void Lane::append(JobPtr job)
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_waiting.push_back(std::move(job));
        if (std::exchange(m_isRunning, true))
            return;
    }
    m_pool.start(new Work([self = shared_from_this()] { self->work(); }));
}

bool Lane::remove(const JobPtr &job)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    const auto found = std::find(m_waiting.begin(), m_waiting.end(), job);
    if (found == m_waiting.end())
        return false;
    m_waiting.erase(found);
    return true;
}

std::deque<Lane::JobPtr> Lane::removeAll()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return std::exchange(m_waiting, {});
}

std::size_t Lane::waiting() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_waiting.size();
}

void Lane::work()
{
    while (JobPtr job = takeNext()) {
        job->run();
        m_courier->post([ended = std::move(job)] { ended->deliver(); }); // the only reference
    }
}

Lane::JobPtr Lane::takeNext()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (m_waiting.empty()) {
        m_isRunning = false;
        return nullptr;
    }
    JobPtr job = std::move(m_waiting.front());
    m_waiting.pop_front();
    return job;
}

} // namespace Tavoro::SessionInternal
