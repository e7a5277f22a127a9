#include "announcedjob_p.h"

#include <tavorossproxy/requestannouncement.h>

#include <utility>

namespace Tavoro::SessionInternal {

AnnouncedJob::AnnouncedJob(std::shared_ptr<PendingOperation> call, SendAnnouncement announce,
                           std::shared_ptr<Courier> courier)
    : CallJob(std::move(call)), m_announce(std::move(announce)), m_courier(std::move(courier))
{ }

CallResult AnnouncedJob::attempt()
{
    bool isRefused = false;
    const SSProxy::RequestAnnouncement announcement(
        [&](const SSProxy::RequestIdentity &id, std::chrono::milliseconds time) {
            isRefused = !askFor(id, time);
            return !isRefused;
        });
    const CallResult attempted = CallJob::attempt();
    return isRefused ? notSent(NotSentReason::Canceled) : attempted;
}

/// The permission travels to the session's thread, which may be gone already.
bool AnnouncedJob::askFor(const SSProxy::RequestIdentity &id, std::chrono::milliseconds time) const
{
    m_courier->post([announce = m_announce, permission = SendPermission(id, m_decision)] {
        announce(permission);
    });
    return m_decision->await(time);
}

} // namespace Tavoro::SessionInternal
