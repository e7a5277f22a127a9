#pragma once

#include "consoleanswer.h"

#include <QString>
#include <QStringList>

namespace Tavoro::Sim {

class FaultRules;

/// Carries out a line of the console that begins with "fault"; \a arguments are the words after it.
ConsoleAnswer executeFault(FaultRules &rules, const QStringList &arguments);

/// The commands that begin with "fault" as text, one per line.
QString faultConsoleHelp();

} // namespace Tavoro::Sim
