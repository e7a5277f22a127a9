#pragma once

#include <QString>

namespace Tavoro::Ctl {

/// \a text with every control character (C0, DEL, C1) as an escape, such as \c \x1b or \c \n. Names
/// come from devices, and a terminal would take such characters for commands.
QString printable(const QString &text);

/// The same, but keeps line ends.
QString printableLines(const QString &text);

} // namespace Tavoro::Ctl
