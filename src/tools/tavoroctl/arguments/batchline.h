#pragma once

#include <QString>
#include <QStringList>

namespace Tavoro::Ctl {

/// A line of a batch.
struct BatchLine {
    QStringList words;
    QString fault; ///< Why it cannot be cut into words; empty if it can.
};

/// Cuts a line of a batch into its words.
///
/// Words are separated by blanks. A word in single quotes goes to the closing quote, and a blank
/// follows. A word that begins with { or [ is a record and goes to the end of the line, so that
/// records need no quotes. Of a line whose first character that is not a blank is #, nothing is
/// left.
BatchLine splitBatchLine(const QString &line);

} // namespace Tavoro::Ctl
