#pragma once

#include <programhelp/program.h>
#include <tavorosim/server/simoptions.h>

#include <QString>
#include <QStringList>

namespace Tavoro::Sim {

/// The arguments of the program.
struct CommandLine {
    SimOptions options;
    /// If not empty, printed instead of serving: help, version, or why the arguments are not valid.
    QString text;
    bool isValid = true;
};

CommandLine parseCommandLine(const QStringList &arguments);

/// What the program takes, for its man page and its completion.
Help::Program describeProgram();

} // namespace Tavoro::Sim
