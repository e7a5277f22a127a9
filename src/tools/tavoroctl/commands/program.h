#pragma once

#include <programhelp/completion.h>

namespace Tavoro::Ctl {

/// What the tool takes, made from the tables of commands, options and exit statuses.
Help::Program describeProgram();

/// Completes operations, records and types of files, see Help::ValueCompleter.
QList<Help::Candidate> completeValue(const QString &placeholder, const QList<QString> &words,
                                     const QString &typed);

} // namespace Tavoro::Ctl
