#pragma once

#include "exitstatus.h"

#include <QJsonObject>
#include <QString>

namespace Tavoro::Ctl {

/// Why a command, or one call of a batch, failed.
struct Failure {
    ExitStatus exit = Failed;
    QString text; ///< A sentence.
    int status = 0; ///< The status of the exchange with the device that failed; 0 if none did.
    QString operation; ///< The name of the operation in a call or a batch.
    int line = 0; ///< The line of the batch, from 1; 0 outside of a batch.

    /// What the status means; the meaning of the exit status if no exchange failed.
    QString meaning() const;
    /// The line for people: "line 2 of the batch: Set ... failed: hardware error:4 (...) ."
    QString sentence() const;
    /// The object for programs.
    QJsonObject toJson() const;
};

} // namespace Tavoro::Ctl
