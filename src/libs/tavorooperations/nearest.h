#pragma once

#include <tavorooperations/export.h>

#include <QString>
#include <QStringList>

namespace Tavoro::Operations {

/// The one of \a names that \a word is probably a misspelling of: up to a third of its letters
/// differ, in any case, or it is the end of the name, as in "Device.swap" for "Device.writeSwap".
/// Empty if there is none. Any thread; does not block.
TAVOROOPERATIONS_EXPORT QString nearest(const QString &word, const QStringList &names);

/// "; did you mean "NAME"" with the nearest of \a names, for an error text; empty if there is
/// none. Any thread; does not block.
TAVOROOPERATIONS_EXPORT QString suggestion(const QString &word, const QStringList &names);

} // namespace Tavoro::Operations
