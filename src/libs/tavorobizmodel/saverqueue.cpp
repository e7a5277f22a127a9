#include "saverqueue_p.h"

#include <algorithm>
#include <utility>

namespace Tavoro::BizModel {

namespace {

/// Whether \a job still has to remove the device if there is nothing to save.
bool isRemoval(const SaverJob &job)
{
    return job.kind == SaverJob::Kind::Remove || job.removesIfExpired;
}

} // namespace

void SaverQueue::enqueue(SaverJob job)
{
    const auto place = find(job.identity);
    if (place == m_jobs.end()) {
        m_jobs.push_back(std::move(job));
        return;
    }
    job.removesIfExpired = isRemoval(*place);
    *place = std::move(job);
}

SaverJob SaverQueue::take()
{
    SaverJob job = std::move(m_jobs.front());
    m_jobs.pop_front();
    return job;
}

void SaverQueue::requeue(SaverJob job)
{
    const auto place = find(job.identity);
    if (place == m_jobs.end())
        m_jobs.push_front(std::move(job));
    else
        place->removesIfExpired = place->removesIfExpired || isRemoval(job);
}

std::deque<SaverJob>::iterator SaverQueue::find(const DeviceIdentity &identity)
{
    return std::find_if(m_jobs.begin(), m_jobs.end(),
                        [&](const SaverJob &job) { return job.identity == identity; });
}

} // namespace Tavoro::BizModel
