#include "calljob_p.h"

#include <tavorocontrol/controlhelper.h>
#include <tavorossproxy/commandcodes.h>
#include <tavorossproxy/exchangewatch.h>

namespace Tavoro::SessionInternal {

bool CallTarget::isConnected() const
{
    return channel->isHardwareReadFinished() && channel->statistics().connections == connections;
}

void nameHolder(const CallTarget &target, CallResult &result)
{
    if (result.kind == Outcome::Refused && result.status == SSProxy::statusControlledByOthers)
        target.channel->readControlHolder(result.holder);
}

void CallJob::run()
{
    result = carryOut();
}

void CallJob::deliver()
{
    finished(shared_from_this());
}

/// The command that was sent, or that the operation would have sent.
QString CallJob::label() const
{
    const auto entry = operation->operation();
    const quint16 sent = hasRun ? result.code : quint16(0);
    const quint16 code = sent == 0 && entry ? static_cast<quint16>(entry->command()) : sent;
    if (code == 0)
        return {};
    return Control::ControlHelper::commandLabel(static_cast<quint8>(code >> 8),
                                                static_cast<quint8>(code & 0xFF));
}

/// A write takes control.
ControlUse CallJob::controlUse() const
{
    const auto entry = operation->operation();
    return entry && entry->direction() == Operations::Direction::Write ? ControlUse::Takes
                                                                       : ControlUse::None;
}

CallLane CallJob::lane() const
{
    return operation->isTransfer() ? CallLane::Transfers : CallLane::Commands;
}

CallResult CallJob::carryOut()
{
    if (gate)
        gate->arrive();
    if (operation->isCanceled())
        return notSent(NotSentReason::Canceled);
    if (!target->isConnected())
        return notSent(NotSentReason::ConnectionLost);
    CallResult attempted = attempt();
    nameHolder(*target, attempted);
    return attempted;
}

CallResult CallJob::attempt()
{
    const SSProxy::ExchangeWatch watch;
    QString error;
    const bool ok = operation->run(target->device, error);
    return resultOf(ok, error, watch);
}

} // namespace Tavoro::SessionInternal
