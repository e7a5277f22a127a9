#pragma once

#include <tavoroctl/commands/commandtable.h>

#include <QString>
#include <QStringList>

namespace Tavoro::Ctl {

/// What the command line asks for.
struct CommandLine {
    const CommandRow *command = nullptr; ///< Null when \c text is to be printed instead.
    Arguments arguments;
    bool isVerbose = false;
    bool asJson = false;
    int timeout = 5000; ///< Milliseconds.
    QString text; ///< Help, the version, or what is wrong.
    bool isValid = true; ///< False when \c text tells what is wrong.
};

CommandLine parseCommandLine(const QStringList &arguments);

} // namespace Tavoro::Ctl
