#include "program.h"

#include <QStringList>

#include <algorithm>

namespace Tavoro::Help {

const Command *findCommand(const Program &program, const QList<QString> &words)
{
    const auto found =
        std::find_if(program.commands.begin(), program.commands.end(), [&](const Command &command) {
            return QStringList(words.mid(0, wordCount(command))).join(QLatin1Char(' '))
                == command.name;
        });
    return found == program.commands.end() ? nullptr : &*found;
}

int wordCount(const Command &command)
{
    return static_cast<int>(command.name.count(QLatin1Char(' '))) + 1;
}

} // namespace Tavoro::Help
