#pragma once

#include "consoleanswer.h"

#include <tavorosim/commands/request.h>

#include <QString>

namespace Tavoro::Sim {

class FaultRules;

/// Carries out what no command of the device does: cables, power supplies, signals. \a line is a
/// command of the console's table and its arguments, separated by spaces; an empty line does
/// nothing. Adds the device's reports to \a reports.
ConsoleAnswer executeConsole(SimState &state, FaultRules &faults, const QString &line,
                             Reports &reports);

/// Why \a line is not a valid line of the console, whatever the state of the device; empty if it is
/// valid.
QString consoleFault(const QString &line);

/// The commands of the console as text, one per line.
QString consoleHelp();

} // namespace Tavoro::Sim
