#include <tavorosession/sendpermission.h>

#include "senddecision_p.h"

#include <utility>

namespace Tavoro {

using SessionInternal::SendDecision;

namespace {

/// Shares the decision with the thread that waits for it, and refuses when the last permission is
/// gone.
std::shared_ptr<SendDecision> refusingWhenDropped(std::shared_ptr<SendDecision> decision)
{
    SendDecision *const address = decision.get();
    return {address, [kept = std::move(decision)](SendDecision *) {
                kept->decide(false);
            }};
}

} // namespace

SendPermission::SendPermission(SSProxy::RequestIdentity request,
                               const std::shared_ptr<SendDecision> &decision)
    : m_request(std::move(request)), m_decision(refusingWhenDropped(decision))
{ }

void SendPermission::send() const
{
    m_decision->decide(true);
}

void SendPermission::refuse() const
{
    m_decision->decide(false);
}

} // namespace Tavoro
