#pragma once

#include <QString>

namespace Tavoro::Sim {

/// The result of a line of the console.
struct ConsoleAnswer {
    bool ok = true;
    QString text; ///< The requested value, or why the command was not carried out.

    /// The answer as one line: "ok", "ok TEXT" or "error TEXT".
    QString line() const;
};

/// A line of the console's help: the call of a command, and its effect.
QString consoleHelpLine(const QString &call, const char *effect);

} // namespace Tavoro::Sim
