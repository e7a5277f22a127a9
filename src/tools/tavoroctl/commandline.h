#pragma once

#include <tavoroctl/commands/commandtable.h>

#include <QString>
#include <QStringList>

namespace Tavoro::Ctl {

/// The parsed command line.
struct CommandLine {
    const CommandRow *command = nullptr; ///< Null when \c text is to be printed instead.
    Arguments arguments;
    bool isVerbose = false;
    bool asJson = false;
    Session::Limits limits;
    QString text; ///< Help, the version, or the fault of the command line.
    bool isValid = true; ///< False when \c text is a fault.
};

CommandLine parseCommandLine(const QStringList &arguments);

} // namespace Tavoro::Ctl
