#include "controljob_p.h"
#include "texts_p.h"

#include <tavorossproxy/commandcodes.h>
#include <tavorossproxy/exchangewatch.h>

#include <utility>

namespace Tavoro::SessionInternal {

ControlJob::ControlJob(SSProxy::ControlAction action)
    : ControlJob(action, std::make_shared<LinkRequest<>>())
{ }

ControlJob::ControlJob(SSProxy::ControlAction action, std::shared_ptr<LinkRequest<>> request)
    : CallJob(request), m_action(action), m_request(std::move(request))
{ }

QFuture<Outcome> ControlJob::future() const
{
    return m_request->future();
}

QString ControlJob::label() const
{
    return OutcomeTexts::tr("the request for control");
}

ControlUse ControlJob::controlUse() const
{
    return m_action == SSProxy::ControlAction::GiveUp ? ControlUse::GivesUp : ControlUse::Takes;
}

CallResult ControlJob::attempt()
{
    const SSProxy::ExchangeWatch watch;
    QString error;
    if (target->channel->requestControl(m_action, error)) {
        CallResult done;
        done.kind = Outcome::Done;
        done.firstSent = watch.firstSent();
        return done;
    }
    // If another client holds control, the channel asks for its name afterwards.
    if (watch.last() && watch.last()->type == SSProxy::CommandType::Read)
        return refused(SSProxy::statusControlledByOthers);
    CallResult failed = resultOf(false, error, watch);
    failed.unresolved.reset(); // the next request settles it
    failed.code = 0; // not a command of the device
    return failed;
}

} // namespace Tavoro::SessionInternal
