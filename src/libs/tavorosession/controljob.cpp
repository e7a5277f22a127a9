#include "controljob_p.h"

#include <tavorossproxy/commandcodes.h>
#include <tavorossproxy/exchangewatch.h>

#include <QCoreApplication>
#include <QFutureInterface>

#include <utility>

namespace Tavoro::SessionInternal {

/// Delivers the outcome of a request for control. It is not an operation of a control class.
class ControlJob::Request : public PendingOperation {
public:
    Request() { m_promise.reportStarted(); }

    QFuture<Outcome> future() { return m_promise.future(); }

    bool run(const std::weak_ptr<BizModel::Device> &, QString &) override { return false; }
    void finish(const Outcome &outcome, bool) override
    {
        m_promise.reportResult(outcome);
        m_promise.reportFinished();
    }
    bool isCanceled() const override { return m_promise.isCanceled(); }
    bool isTransfer() const override { return false; }
    std::optional<Operations::Operation> operation() const override { return std::nullopt; }
    std::vector<Operations::Scope> changes() const override { return {}; }

private:
    mutable QFutureInterface<Outcome> m_promise;
};

ControlJob::ControlJob(SSProxy::ControlAction action)
    : ControlJob(action, std::make_shared<Request>())
{ }

ControlJob::ControlJob(SSProxy::ControlAction action, std::shared_ptr<Request> request)
    : CallJob(request), m_action(action), m_request(std::move(request))
{ }

QFuture<Outcome> ControlJob::future() const
{
    return m_request->future();
}

QString ControlJob::label() const
{
    return QCoreApplication::translate("Tavoro::Outcome", "the request for control");
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
