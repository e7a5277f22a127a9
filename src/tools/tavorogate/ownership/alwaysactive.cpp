#include "alwaysactive.h"

namespace Tavoro::Gate {

void AlwaysActive::claim(const CallRequest & /*call*/, const SSProxy::RequestIdentity & /*request*/,
                         std::function<void(Claim)> decided)
{
    decided(Claim::Granted);
}

void AlwaysActive::release(const CallRequest & /*call*/, const CallAnswer & /*answer*/) { }

void AlwaysActive::abandon(const CallRequest & /*call*/) { }

} // namespace Tavoro::Gate
