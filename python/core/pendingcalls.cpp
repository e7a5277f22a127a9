#include "pendingcalls.h"

#include "runtime.h"

#include <tavorocontrol/proto/codec.h>

#include <utility>

namespace Tavoro::Python {

namespace {

Result resultFrom(const Outcome &outcome)
{
    return resultOf(outcome);
}

Result resultFrom(const Answer<std::string> &answer)
{
    return resultOf(answer, answer ? answer.record() : std::string());
}

Result resultFrom(const Answer<QString> &answer)
{
    return resultOf(answer, answer.record().toStdString());
}

Result resultFrom(const Answer<ProtoModel::Auxiliary::s_UpgradePercent> &answer)
{
    std::string text;
    ajson::encodeRecord(answer.record(), text);
    return resultOf(answer, std::move(text));
}

Result resultFrom(bool isComplete)
{
    return isComplete ? success()
                      : notSent("the device could not be read completely",
                                "The device could not be read completely.");
}

/// Delivers the result. The call belongs to the session, which is why the context is not the
/// device: the outcome of a call whose device was closed arrives as well.
template <class Value>
void deliver(const PendingCall<Value> &call, const std::shared_ptr<Pending> &pending)
{
    call.then(Runtime::instance().context(), [pending](const Value &value) {
        pending->dropCanceler();
        pending->finish(resultFrom(value));
    });
}

/// Cancelling drops a call that waits. One under way continues, and nobody waits for its result.
template <class Value>
void followCall(const PendingCall<Value> &call, const std::shared_ptr<Pending> &pending)
{
    deliver(call, pending);
    pending->setCanceler(
        [future = call.future(), weak = std::weak_ptr<Pending>(pending)]() mutable {
            future.cancel();
            const auto held = weak.lock();
            if (!held)
                return;
            Result result = notSent("the call was cancelled", "The call was cancelled.");
            result.isCanceled = true;
            held->finish(std::move(result));
        });
}

template <class Value>
void followTransfer(const TrackedCall<Value> &call, const std::shared_ptr<Pending> &pending)
{
    call.onProgress(Runtime::instance().context(),
                    [pending](const TransferProgress &now) { pending->setProgress(now); });
    deliver(call, pending);
    pending->setCanceler([call] { call.cancel(); });
}

} // namespace

void follow(const PendingCall<Outcome> &call, const std::shared_ptr<Pending> &pending)
{
    followCall(call, pending);
}

void follow(const PendingCall<Answer<std::string>> &call, const std::shared_ptr<Pending> &pending)
{
    followCall(call, pending);
}

void follow(const PendingCall<Answer<QString>> &call, const std::shared_ptr<Pending> &pending)
{
    followCall(call, pending);
}

void follow(const PendingCall<bool> &call, const std::shared_ptr<Pending> &pending)
{
    followCall(call, pending);
}

void followProgress(const PendingTransfer &call, const std::shared_ptr<Pending> &pending)
{
    followTransfer(call, pending);
}

void followProgress(const PendingContent &call, const std::shared_ptr<Pending> &pending)
{
    followTransfer(call, pending);
}

void followProgress(const TrackedCall<Answer<ProtoModel::Auxiliary::s_UpgradePercent>> &call,
                    const std::shared_ptr<Pending> &pending)
{
    followTransfer(call, pending);
}

} // namespace Tavoro::Python
