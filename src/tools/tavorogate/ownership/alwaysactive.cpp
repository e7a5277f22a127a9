#include "alwaysactive.h"

namespace Tavoro::Gate {

void AlwaysActive::claim(const CallRequest & /*call*/, std::function<void(Claim)> decided)
{
    decided(Claim::Granted);
}

void AlwaysActive::release(const CallRequest & /*call*/, const CallAnswer & /*answer*/) { }

} // namespace Tavoro::Gate
