#pragma once

#include "console.h"
#include "session.h"

#include <QString>
#include <QStringList>

namespace Tavoro::Ctl {

/// What the commands of the tool work with.
struct Tool {
    Console console;
    Session session;
    bool asJson = false; ///< "show" prints JSON in place of tables.
};

/// One command of the tool.
struct CommandRow {
    const char *name;
    const char *usage; ///< The words behind the name.
    const char *effect;
    ExitStatus (*run)(Tool &tool, const QStringList &words);
};

/// The row of this name, null when there is none.
const CommandRow *findCommand(const QString &name);

/// All commands with their usage, for people.
QString commandHelp();

} // namespace Tavoro::Ctl
