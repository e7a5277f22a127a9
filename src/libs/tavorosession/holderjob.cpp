#include "holderjob_p.h"
#include "texts_p.h"

#include <tavorossproxy/exchangewatch.h>

#include <utility>

namespace Tavoro::SessionInternal {

HolderJob::HolderJob() : HolderJob(std::make_shared<LinkRequest<QString>>()) { }

HolderJob::HolderJob(std::shared_ptr<LinkRequest<QString>> request)
    : CallJob(request), m_request(std::move(request))
{ }

QFuture<Answer<QString>> HolderJob::future() const
{
    return m_request->future();
}

QString HolderJob::label() const
{
    return OutcomeTexts::tr("the question who holds control");
}

CallResult HolderJob::attempt()
{
    const SSProxy::ExchangeWatch watch;
    const bool ok = target->channel->readControlHolder(m_request->record);
    if (!ok)
        return resultOf(false, QString(), watch);
    CallResult done;
    done.kind = Outcome::Done;
    return done;
}

} // namespace Tavoro::SessionInternal
