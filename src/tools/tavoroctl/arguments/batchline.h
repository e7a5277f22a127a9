#pragma once

#include <QString>
#include <QStringList>

namespace Tavoro::Ctl {

/// The words of one line of a batch.
struct BatchLine {
    QStringList words;
    QString fault; ///< Why the line is not valid; empty if it is.
};

/// Splits a line of a batch into words, which spaces separate.
///
/// A word in single quotes ends at the closing quote; a space or the end of the line follows. A
/// word that begins with { or [ is a record and extends to the end of the line, so records need no
/// quotes. A line that begins with # is a comment and has no words.
BatchLine splitBatchLine(const QString &line);

} // namespace Tavoro::Ctl
