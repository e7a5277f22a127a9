#pragma once

#include <tavorosession/operationcall.h>

#include <QFuture>
#include <QFutureInterface>
#include <QString>
#include <QStringList>

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace Tavoro::SessionInternal {

/// A call of an operation by its name in the table. A call with faulty arguments sends nothing; the
/// fault is its error text.
class NamedCall final : public PendingOperation {
public:
    using Result = Answer<std::string>;

    NamedCall(const QString &name, const QStringList &arguments, Operations::MissingKeys missing);

    QFuture<Result> future() { return m_promise.future(); }

    bool run(const std::weak_ptr<BizModel::Device> &device, QString &error) override;
    void finish(const Outcome &outcome, bool mayRun) override;
    bool isCanceled() const override { return m_promise.isCanceled(); }
    bool isTransfer() const override { return false; }
    std::optional<Operations::Operation> operation() const override { return m_operation; }
    std::vector<Operations::Scope> changes() const override { return m_call.changes; }

private:
    const std::optional<Operations::Operation> m_operation;
    Operations::PreparedCall m_call;
    std::string m_answer; ///< Belongs to the lane's thread until run() has ended.
    mutable QFutureInterface<Result> m_promise;
};

} // namespace Tavoro::SessionInternal
