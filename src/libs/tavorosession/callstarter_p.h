#pragma once

#include "calljob_p.h"
#include "calltracker_p.h"

#include <memory>

namespace Tavoro::SessionInternal {

/// Starts the calls of one device. On the session's thread.
class CallStarter {
public:
    virtual void start(const std::shared_ptr<CallJob> &job) = 0;
    /// Starts a call that \a tracker can cancel while it waits.
    virtual void startTracked(const std::shared_ptr<CallJob> &job, CallTracker &tracker) = 0;
    /// The device in the model; null if it is not known.
    virtual std::shared_ptr<BizModel::Device> modelDevice() const = 0;

protected:
    ~CallStarter() = default;
};

} // namespace Tavoro::SessionInternal
