#pragma once

#include "tool.h"

#include <QStringList>

namespace Tavoro::Ctl {

/// Prints the help of the command that \a words name; that of the program without words. With JSON
/// prints the description of the program or the command.
ExitStatus showHelp(Tool &tool, const QStringList &words);

/// "unknown command ..." with a suggestion.
QString faultOfCommand(const QStringList &words);

} // namespace Tavoro::Ctl
