#pragma once

#include "console.h"

#include <QString>
#include <QStringList>

namespace Tavoro::Sim {

class FaultRules;

/// Carries out a line of the console that begins with "fault"; \a arguments is what follows.
ConsoleAnswer executeFault(FaultRules &rules, const QStringList &arguments);

/// The words that may follow "fault", one to a line, for people.
QString faultConsoleHelp();

} // namespace Tavoro::Sim
