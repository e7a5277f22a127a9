#include "holderjob_p.h"

#include <tavorossproxy/exchangewatch.h>

#include <QCoreApplication>
#include <QFutureInterface>

#include <utility>

namespace Tavoro::SessionInternal {

/// Delivers the holder. It is not an operation of a control class.
class HolderJob::Request : public PendingOperation {
public:
    Request() { m_promise.reportStarted(); }

    QFuture<Answer<QString>> future() { return m_promise.future(); }

    bool run(const std::weak_ptr<BizModel::Device> &, QString &) override { return false; }
    void finish(const Outcome &outcome, bool mayRun) override
    {
        m_promise.reportResult(Answer<QString>(outcome, mayRun ? QString() : holder));
        m_promise.reportFinished();
    }
    bool isCanceled() const override { return m_promise.isCanceled(); }
    bool isTransfer() const override { return false; }
    std::optional<Operations::Operation> operation() const override { return std::nullopt; }
    std::vector<Operations::Scope> changes() const override { return {}; }

    QString holder; ///< Belongs to the lane's thread until the job has ended.

private:
    mutable QFutureInterface<Answer<QString>> m_promise;
};

HolderJob::HolderJob() : HolderJob(std::make_shared<Request>()) { }

HolderJob::HolderJob(std::shared_ptr<Request> request)
    : CallJob(request), m_request(std::move(request))
{ }

QFuture<Answer<QString>> HolderJob::future() const
{
    return m_request->future();
}

QString HolderJob::label() const
{
    return QCoreApplication::translate("Tavoro::Outcome", "the question who holds control");
}

CallResult HolderJob::attempt()
{
    const SSProxy::ExchangeWatch watch;
    const bool ok = target->channel->readControlHolder(m_request->holder);
    if (!ok)
        return resultOf(false, QString(), watch);
    CallResult done;
    done.kind = Outcome::Done;
    return done;
}

} // namespace Tavoro::SessionInternal
