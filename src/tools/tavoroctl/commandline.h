#pragma once

#include <tavoroctl/commands/commandtable.h>

#include <QString>
#include <QStringList>

namespace Tavoro::Ctl {

/// The parsed command line.
struct CommandLine {
    const CommandRow *command = nullptr; ///< May be null if help or version is to be shown.
    Arguments arguments;
    bool isVerbose = false;
    bool isQuiet = false;
    bool asJson = false;
    bool showsHelp = false;
    bool showsVersion = false;
    Session::Limits limits;
    QString fault; ///< What is wrong; empty if the command line is valid.
};

CommandLine parseCommandLine(const QStringList &arguments);

} // namespace Tavoro::Ctl
