#pragma once

#include "callresult_p.h"
#include "groupgate_p.h"
#include "lane_p.h"
#include "reportcounts_p.h"

#include <tavorosession/operationcall.h>
#include <tavorossproxy/networkchannel.h>

#include <functional>
#include <memory>
#include <utility>

namespace Tavoro::SessionInternal {

/// The connection on which calls are sent. Never changes: a new connection has a new target.
struct CallTarget {
    std::shared_ptr<BizModel::Device> device;
    std::shared_ptr<SSProxy::NetworkChannel> channel;
    quint64 connections = 0; ///< ChannelStatistics::connections of this connection.
    std::shared_ptr<const ReportCounts> reports; ///< Those that arrive over the channel.

    /// Returns true while the channel has this connection. Any thread.
    bool isConnected() const;
};

/// Asks the device for the name of the client that controls it, if \a result is a refusal for that
/// reason. Blocks.
void nameHolder(const CallTarget &target, CallResult &result);

/// What a call does with the control of the device when the device carries it out.
enum class ControlUse {
    None,
    Takes,
    GivesUp
};

/// The lane of a call.
enum class CallLane {
    Commands,
    Transfers,
    Lease, ///< Its calls do not wait for others, since a lease ends in time.
};

/// A call of the application, on its way through a lane.
///
/// | member                               | thread                                        |
/// |--------------------------------------|-----------------------------------------------|
/// | run                                  | that of the lane                              |
/// | result                               | that of the lane until run() has ended        |
/// | hasRun, hasEnded, the handlers       | that of the courier                           |
/// | the others                           | any; they do not change while a lane has it   |
class CallJob : public LaneJob, public std::enable_shared_from_this<CallJob> {
public:
    explicit CallJob(std::shared_ptr<PendingOperation> call) : operation(std::move(call)) { }

    void run() override;
    void deliver() override;
    /// Name of the call for its outcome, translated. On the courier's thread.
    virtual QString label() const;
    virtual ControlUse controlUse() const;
    virtual CallLane lane() const;
    /// The session does not wait for the call any more: run() must end soon. Any thread.
    virtual void abandon() { }

    const std::shared_ptr<PendingOperation> operation;
    bool isQuiet = false; ///< The application learns nothing of this call.
    std::shared_ptr<GroupGate> gate; ///< Null unless the call belongs to a group.
    /// Gets the result of a call that belongs to a group.
    std::function<void(const Outcome &outcome, const CallResult &result)> observer;

    // Set by CallQueue before a lane has the job.
    QString key; ///< Of a call that replaces a waiting one; otherwise empty.
    std::shared_ptr<const CallTarget> target;
    std::function<void(const std::shared_ptr<CallJob> &)> finished; ///< run() has ended.

    CallResult result;
    bool hasRun = false; ///< run() has ended, or will not be called.
    bool hasEnded = false; ///< The outcome was delivered.

protected:
    /// Makes the call and blocks until it has ended.
    virtual CallResult attempt();

private:
    CallResult carryOut();
};

} // namespace Tavoro::SessionInternal
