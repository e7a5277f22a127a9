#include "calljob_p.h"

#include <tavorossproxy/exchangewatch.h>

namespace Tavoro::SessionInternal {

bool CallTarget::isConnected() const
{
    return channel->isHardwareReadFinished() && channel->statistics().connections == connections;
}

void CallJob::run()
{
    result = carryOut();
    courier->post([self = shared_from_this()] { self->finished(self); });
}

CallResult CallJob::carryOut()
{
    if (gate)
        gate->arrive();
    if (operation->isCanceled())
        return notSent(NotSentReason::Canceled);
    if (!target->isConnected())
        return notSent(NotSentReason::ConnectionLost);
    const SSProxy::ExchangeWatch watch;
    QString error;
    const bool ok = operation->run(target->device, error);
    return resultOf(ok, error, watch);
}

} // namespace Tavoro::SessionInternal
