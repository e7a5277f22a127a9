#pragma once

#include <programhelp/program.h>

#include <QString>
#include <QStringList>

namespace Tavoro::Gate {

/// The arguments of the program.
struct CommandLine {
    QString configFile;
    bool onlyChecks = false; ///< Only checks the configuration file.
    /// If not empty, printed instead of serving: help, version, or why the arguments are not valid.
    QString text;
    bool isValid = true;
};

CommandLine parseCommandLine(const QStringList &arguments);

/// What the program takes, for its man page and its completion.
Help::Program describeProgram();

} // namespace Tavoro::Gate
