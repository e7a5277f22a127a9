#pragma once

#include "deviceownership.h"

namespace Tavoro::Gate {

/// The ownership of a gateway that shares its devices with no other one.
class AlwaysActive : public DeviceOwnership {
    Q_OBJECT

public:
    bool isActive() const override { return true; }
    void claim(const CallRequest &call, const SSProxy::RequestIdentity &request,
               std::function<void(Claim)> decided) override;
    void release(const CallRequest &call, const CallAnswer &answer) override;
    void abandon(const CallRequest &call) override;
    void ask(const CallRequest & /*call*/, bool /*isDoubtful*/) override { }
    void replyWaiting(const CallRequest & /*call*/) override { }
    void replyAnswered(const CallRequest & /*call*/, const CallAnswer & /*answer*/) override { }
    void leave() override { }
    bool isLeaving() const override { return false; }
};

} // namespace Tavoro::Gate
