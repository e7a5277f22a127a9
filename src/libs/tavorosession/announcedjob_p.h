#pragma once

#include "calljob_p.h"
#include "courier_p.h"
#include "senddecision_p.h"

#include <tavorosession/sendpermission.h>

#include <memory>

namespace Tavoro::SessionInternal {

/// A call that is announced before it is sent, and waits for the decision of the application.
class AnnouncedJob final : public CallJob {
public:
    AnnouncedJob(std::shared_ptr<PendingOperation> call, SendAnnouncement announce,
                 std::shared_ptr<Courier> courier);

    void abandon() override { m_decision->decide(false); }

protected:
    CallResult attempt() override;

private:
    bool askFor(const SSProxy::RequestIdentity &id, std::chrono::milliseconds time) const;

    const SendAnnouncement m_announce;
    const std::shared_ptr<Courier> m_courier;
    const std::shared_ptr<SendDecision> m_decision = std::make_shared<SendDecision>();
};

} // namespace Tavoro::SessionInternal
