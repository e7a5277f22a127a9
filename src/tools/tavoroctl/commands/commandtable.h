#pragma once

#include "tool.h"

#include <QString>
#include <QStringList>

#include <cstddef>

namespace Tavoro::Ctl {

/// An option of one command. It takes a value unless \c value is empty.
struct OptionRow {
    const char *name;
    const char *value; ///< The placeholder for its value in the help.
    const char *effect;
};

/// The options of one command; empty by default.
struct OptionRange {
    constexpr OptionRange() = default;
    template <std::size_t count>
    constexpr OptionRange(const OptionRow (&rows)[count]) : first(rows), last(rows + count)
    { }
    const OptionRow *begin() const { return first; }
    const OptionRow *end() const { return last; }

    const OptionRow *first = nullptr;
    const OptionRow *last = nullptr;
};

/// One command of the tool.
struct CommandRow {
    const char *name; ///< One word or two.
    const char *usage; ///< The words after the name; optional ones in brackets.
    const char *effect;
    ExitStatus (*run)(Tool &tool, const Arguments &arguments);
    OptionRange options = {};
};

/// The command that \a words begin with; null if there is none.
const CommandRow *findCommand(const QStringList &words);

/// Whether the command takes \a count words.
bool takesWords(const CommandRow &command, int count);

/// The options of all commands.
OptionRange commonOptions();

/// All commands in alphabetical order, for range loops.
struct CommandRange {
    const CommandRow *begin() const;
    const CommandRow *end() const;
};

} // namespace Tavoro::Ctl
