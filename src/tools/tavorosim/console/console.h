#pragma once

#include <tavorosim/commands/request.h>

#include <QString>

namespace Tavoro::Sim {

class FaultRules;

/// The result of a line of the console.
struct ConsoleAnswer {
    bool ok = true;
    QString text; ///< The requested value, or why the command was not carried out.

    /// The answer as one line: "ok", "ok TEXT" or "error TEXT".
    QString line() const;
};

/// Carries out what no command of the device does: cables, power supplies, signals. \a line is a
/// command of the console's table and its arguments, separated by spaces; an empty line does
/// nothing. Adds the device's reports to \a reports.
ConsoleAnswer executeConsole(SimState &state, FaultRules &faults, const QString &line,
                             Reports &reports);

/// A line of the console's help: the call of a command, and its effect.
QString consoleHelpLine(const QString &call, const char *effect);

/// The commands of the console as text, one per line.
QString consoleHelp();

} // namespace Tavoro::Sim
