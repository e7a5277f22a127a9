#include "leasejob_p.h"
#include "texts_p.h"

#include <tavorossproxy/channelstatus.h>
#include <tavorossproxy/exchangewatch.h>

#include <utility>

namespace Tavoro::SessionInternal {

using SSProxy::DeviceLease;

namespace {

constexpr quint16 unknownCommand = 1;

/// Another client holds the lease.
CallResult refusedInFavourOf(const QString &holder)
{
    CallResult result = refused(0);
    result.reason = OutcomeTexts::tr("%1 holds the lease").arg(holder);
    return result;
}

CallResult notSupported()
{
    CallResult result = refused(unknownCommand);
    result.reason = OutcomeTexts::tr("the device does not support leases");
    return result;
}

} // namespace

LeaseJob::LeaseJob(const QString &holder, std::chrono::seconds time)
    : LeaseJob(holder.isNull() ? QStringLiteral("") : holder, time, std::make_shared<Request>())
{ }

LeaseJob::LeaseJob() : LeaseJob(QString(), {}, std::make_shared<Request>()) { }

LeaseJob::LeaseJob(const QString &holder, std::chrono::seconds time,
                   std::shared_ptr<Request> request)
    : CallJob(request), m_holder(holder), m_time(time), m_request(std::move(request))
{ }

QString LeaseJob::label() const
{
    return isRelease() ? OutcomeTexts::tr("the release of the lease")
                       : OutcomeTexts::tr("the request for the lease");
}

CallResult LeaseJob::attempt()
{
    const SSProxy::ExchangeWatch watch;
    DeviceLease &lease = m_request->record;
    lease = isRelease() ? target->channel->releaseLease()
                        : target->channel->takeLease(m_holder, m_time);
    if (lease.status == unknownCommand)
        return notSupported();
    if (lease.status == 0 && !isRelease() && lease.state == DeviceLease::Others)
        return refusedInFavourOf(lease.holder);
    CallResult attempted = resultOf(lease.status == 0, QString(), watch);
    if (lease.status != 0 && attempted.kind == Outcome::Done)
        attempted = unknownAfter(lease.status); // an answer that is not valid
    attempted.unresolved.reset(); // the next request settles it
    attempted.code = 0; // not a command of the device
    return attempted;
}

} // namespace Tavoro::SessionInternal
