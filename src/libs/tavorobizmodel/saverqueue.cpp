#include "saverqueue_p.h"

#include <algorithm>
#include <utility>

namespace Tavoro::BizModel {

namespace {

/// Whether \a job still has to forget the device if there is nothing to save.
bool forgets(const SaverJob &job)
{
    return job.kind == SaverJob::Kind::Forget || job.forgetsIfGone;
}

} // namespace

void SaverQueue::ask(SaverJob job)
{
    const auto place = find(job.identity);
    if (place == m_jobs.end()) {
        m_jobs.push_back(std::move(job));
        return;
    }
    job.forgetsIfGone = forgets(*place);
    *place = std::move(job);
}

SaverJob SaverQueue::take()
{
    SaverJob job = std::move(m_jobs.front());
    m_jobs.pop_front();
    return job;
}

void SaverQueue::putBack(SaverJob job)
{
    const auto place = find(job.identity);
    if (place == m_jobs.end())
        m_jobs.push_front(std::move(job));
    else
        place->forgetsIfGone = place->forgetsIfGone || forgets(job);
}

std::deque<SaverJob>::iterator SaverQueue::find(const DeviceIdentity &identity)
{
    return std::find_if(m_jobs.begin(), m_jobs.end(),
                        [&](const SaverJob &job) { return job.identity == identity; });
}

} // namespace Tavoro::BizModel
