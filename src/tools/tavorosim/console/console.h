#pragma once

#include <tavorosim/commands/request.h>

#include <QString>

namespace Tavoro::Sim {

class FaultRules;

/// What a line of the console led to.
struct ConsoleAnswer {
    bool ok = true;
    QString text; ///< What was asked for, or why it was not done.

    /// The answer as one line: "ok", "ok TEXT" or "error TEXT".
    QString line() const;
};

/// Makes happen what the device does not do by command: cables, power supplies, signals. \a line is
/// a word of the console's table and its arguments, blank-separated; an empty line does nothing.
/// Adds to \a reports what the device has to tell everyone.
ConsoleAnswer executeConsole(SimState &state, FaultRules &faults, const QString &line,
                             Reports &reports);

/// A line of the console's help: how a word is called, and what it does.
QString consoleHelpLine(const QString &call, const char *effect);

/// The console's words, one to a line, for people.
QString consoleHelp();

} // namespace Tavoro::Sim
