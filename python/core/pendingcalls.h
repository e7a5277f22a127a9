#pragma once

#include "pending.h"

#include <tavorosession/outcome.h>
#include <tavorosession/pendingcall.h>
#include <tavorosession/trackedcall.h>

#include <tavorocontrol/proto/auxiliary.h>

#include <QString>

#include <memory>
#include <string>

namespace Tavoro::Python {

// Each of these ends the Pending with the result of a call of a session; cancelling the Pending
// cancels the call. To be called on the runtime's thread.

/// A call without an answer.
void follow(const PendingCall<Outcome> &call, const std::shared_ptr<Pending> &pending);
/// A call by name, whose answer is JSON.
void follow(const PendingCall<Answer<std::string>> &call, const std::shared_ptr<Pending> &pending);
/// The question who holds control.
void follow(const PendingCall<Answer<QString>> &call, const std::shared_ptr<Pending> &pending);
/// The wait for the model.
void follow(const PendingCall<bool> &call, const std::shared_ptr<Pending> &pending);

/// A transfer from or to a file.
void followProgress(const PendingTransfer &call, const std::shared_ptr<Pending> &pending);
/// A transfer into memory.
void followProgress(const PendingContent &call, const std::shared_ptr<Pending> &pending);
/// An upgrade, whose answer is the record of its progress.
void followProgress(const TrackedCall<Answer<ProtoModel::Auxiliary::s_UpgradePercent>> &call,
                    const std::shared_ptr<Pending> &pending);

} // namespace Tavoro::Python
