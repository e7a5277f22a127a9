#pragma once

#include <programhelp/program.h>

#include <QString>
#include <QStringList>

namespace Tavoro::Panel {

/// What the command line asks for.
struct Options {
    bool isDemo = false; ///< Starts a simulated device in this process.
    QString theme; ///< dark, light or system; empty for that of the last run.
    QString store; ///< File of the devices; empty for the default one.
    QStringList devices; ///< Addresses to open: HOST or HOST:PORT.
    QString text; ///< Help, version or an error to print; empty to run.
    int status = 0; ///< Exit status that goes with the text.
};

/// Reads the command line. The first argument is the program.
Options readOptions(const QStringList &arguments);

/// What the program takes, for its man page and the completion of shells.
Help::Program describeProgram();

} // namespace Tavoro::Panel
