#pragma once

#include <QString>
#include <QStringList>

/// Texts in the columns of a terminal, where Chinese characters take two.
namespace Tavoro::Help {

/// How many columns \a text takes.
int columnsOf(const QString &text);

/// \a text with blanks up to \a columns.
QString padded(const QString &text, int columns);

/// \a text in lines of at most \a columns, broken at blanks and between wide characters. A longer
/// word has a line of its own.
QStringList linesOf(const QString &text, int columns);

} // namespace Tavoro::Help
