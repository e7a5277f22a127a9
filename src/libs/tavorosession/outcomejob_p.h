#pragma once

#include "calljob_p.h"
#include "linkrequest_p.h"

#include <tavorossproxy/exchangewatch.h>

#include <QFuture>
#include <QString>

#include <memory>

namespace Tavoro::SessionInternal {

/// The question what became of a request, perhaps of another client. It begins as a call whose
/// outcome is not known, and no lane has it.
class OutcomeJob final : public CallJob {
public:
    /// \a operation is the name of the operation for the outcome; it may be empty.
    OutcomeJob(const SSProxy::RequestIdentity &request, const QString &operation);

    QFuture<Outcome> future() const;
    QString label() const override;
    ControlUse controlUse() const override { return ControlUse::None; }

private:
    OutcomeJob(const SSProxy::RequestIdentity &request, const QString &operation,
               std::shared_ptr<LinkRequest<>> question);

    const QString m_operation;
    const std::shared_ptr<LinkRequest<>> m_question;
};

} // namespace Tavoro::SessionInternal
