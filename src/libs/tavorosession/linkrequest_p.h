#pragma once

#include <tavorosession/operationcall.h>
#include <tavorosession/outcome.h>

#include <QFuture>
#include <QFutureInterface>

#include <memory>
#include <optional>
#include <type_traits>
#include <variant>
#include <vector>

namespace Tavoro::SessionInternal {

/// Delivers the result of a request that concerns the link to the device. It is not an operation of
/// a control class. With a \a Record the result is an Answer, otherwise an Outcome.
template <class Record = void>
class LinkRequest final : public PendingOperation {
    static constexpr bool hasRecord = !std::is_void_v<Record>;

public:
    using Result = std::conditional_t<hasRecord, Answer<Record>, Outcome>;

    LinkRequest() { m_promise.reportStarted(); }

    QFuture<Result> future() { return m_promise.future(); }

    bool run(const std::weak_ptr<BizModel::Device> & /*device*/, QString & /*error*/) override
    {
        return false;
    }
    void finish(const Outcome &outcome, bool mayRun) override
    {
        if constexpr (hasRecord)
            m_promise.reportResult(Result(outcome, mayRun ? Record() : record));
        else
            m_promise.reportResult(outcome);
        m_promise.reportFinished();
    }
    bool isCanceled() const override { return m_promise.isCanceled(); }
    bool isTransfer() const override { return false; }
    std::optional<Operations::Operation> operation() const override { return std::nullopt; }
    std::vector<Operations::Scope> changes() const override { return {}; }

    /// Belongs to the lane's thread until the job has ended.
    std::conditional_t<hasRecord, Record, std::monostate> record{};

private:
    mutable QFutureInterface<Result> m_promise;
};

} // namespace Tavoro::SessionInternal
