#pragma once

#include "calljob_p.h"
#include "calltracker_p.h"
#include "contentstream_p.h"

#include <tavorocontrol/proto/file.h>
#include <tavorossproxy/commandcodes.h>
#include <tavorossproxy/packethead.h>

#include <QFuture>
#include <QFutureInterface>

#include <memory>
#include <optional>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace Tavoro::SessionInternal {

/// Delivers the result of a TrackedCall.
template <class Result>
class TransferOperation final : public PendingOperation {
public:
    TransferOperation(std::optional<Operations::Operation> operation,
                      std::vector<Operations::Scope> changes)
        : m_operation(operation), m_changes(std::move(changes))
    {
        m_promise.reportStarted();
    }

    TrackedCall<Result> pending() { return {m_promise.future(), tracker}; }

    bool run(const std::weak_ptr<BizModel::Device> &, QString &) override { return false; }
    void finish(const Outcome &outcome, bool mayRun) override
    {
        tracker->finish();
        if constexpr (std::is_same_v<Result, Outcome>)
            m_promise.reportResult(outcome);
        else
            m_promise.reportResult(Result(outcome, mayRun ? std::string() : std::move(content)));
        m_promise.reportFinished();
    }
    bool isCanceled() const override { return tracker->isCanceled() || m_promise.isCanceled(); }
    bool isTransfer() const override { return true; }
    std::optional<Operations::Operation> operation() const override { return m_operation; }
    std::vector<Operations::Scope> changes() const override { return m_changes; }

    const std::shared_ptr<CallTracker> tracker = std::make_shared<CallTracker>();
    std::string content; ///< Belongs to the lane's thread until the job has run.

private:
    const std::optional<Operations::Operation> m_operation;
    const std::vector<Operations::Scope> m_changes;
    mutable QFutureInterface<Result> m_promise;
};

/// A transfer of the content of a file, on its way through the transfer lane. Ends before the next
/// packet when the call was cancelled.
class TransferJob : public CallJob {
public:
    TransferJob(std::shared_ptr<PendingOperation> call, std::shared_ptr<CallTracker> callTracker,
                SSProxy::Command command)
        : CallJob(std::move(call)), tracker(std::move(callTracker)), m_command(command)
    { }

    QString label() const override;

    const std::shared_ptr<CallTracker> tracker;

private:
    const SSProxy::Command m_command;
};

/// Sends a content: its announcement, then its packets.
class SendJob final : public TransferJob {
public:
    SendJob(std::shared_ptr<PendingOperation> call, std::shared_ptr<CallTracker> tracker,
            ProtoModel::File::s_FileInfo file, std::unique_ptr<ContentSource> content);

protected:
    CallResult attempt() override;

private:
    bool prepare(QString &error);
    CallResult announce() const;
    CallResult sendPackets();
    CallResult sendPacket(const std::string &body, quint32 count, quint32 index) const;

    ProtoModel::File::s_FileInfo m_file;
    const std::unique_ptr<ContentSource> m_content;
};

/// Fetches a content packet by packet. Unlike the streamed read of Control::File it does not need
/// control of the device, and holds for all clients that only watch.
class FetchJob final : public TransferJob {
public:
    /// \a expectedSize is 0 if it is not known.
    FetchJob(std::shared_ptr<PendingOperation> call, std::shared_ptr<CallTracker> tracker,
             const ProtoModel::s_FileIdentity &file, qint64 expectedSize,
             std::unique_ptr<ContentTarget> content);

protected:
    CallResult attempt() override;

private:
    CallResult fetchPackets();
    CallResult fetchPacket(quint32 count, quint32 index, std::string &body,
                           quint32 &packetsOfAnswer);

    const ProtoModel::s_FileIdentity m_file;
    const qint64 m_expectedSize;
    SSProxy::PacketHead m_first{}; ///< Of the first request, as the channel sent it.
    const std::unique_ptr<ContentTarget> m_content;
};

} // namespace Tavoro::SessionInternal
