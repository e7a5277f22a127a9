#pragma once

#include <tavorosim/server/simoptions.h>

#include <QString>
#include <QStringList>

namespace Tavoro::Sim {

/// What the program's arguments ask for.
struct CommandLine {
    SimOptions options;
    /// Not empty: what to print instead of serving, help or version, or what is wrong if not valid.
    QString text;
    bool isValid = true;
};

CommandLine parseCommandLine(const QStringList &arguments);

} // namespace Tavoro::Sim
