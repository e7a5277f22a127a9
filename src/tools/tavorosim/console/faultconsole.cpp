#include "faultconsole.h"

#include <tavorosim/faults/faultrules.h>

#include <algorithm>
#include <iterator>

namespace Tavoro::Sim {

namespace {

struct FaultWord {
    const char *name;
    const char *argument; ///< Empty when there is none.
    const char *effect;
    ConsoleAnswer (*execute)(FaultRules &rules, const QString &argument);
};

ConsoleAnswer addRule(FaultRules &rules, const QString &text)
{
    QString error;
    const auto rule = parseFaultRule(text, error);
    if (!rule)
        return {false, error};
    rules.add(*rule);
    return {};
}

ConsoleAnswer listRules(FaultRules &rules, const QString & /*argument*/)
{
    QStringList texts;
    for (const FaultRule &rule : rules.rules())
        texts.append(toText(rule));
    return {true, texts.join(QLatin1Char(' '))};
}

ConsoleAnswer clearRules(FaultRules &rules, const QString & /*argument*/)
{
    rules.clear();
    return {};
}

// clang-format off
constexpr FaultWord words[] = {
    {"add",   "RULE", "from now on exchanges go wrong by this rule", addRule},
    {"clear", "",     "takes all rules back and reads on",           clearRules},
    {"list",  "",     "tells the rules with what is left of them",   listRules},
};
// clang-format on

} // namespace

ConsoleAnswer executeFault(FaultRules &rules, const QStringList &arguments)
{
    const auto word = std::find_if(std::begin(words), std::end(words), [&](const FaultWord &row) {
        const bool takesArgument = row.argument[0] != '\0';
        return arguments.size() == (takesArgument ? 2 : 1)
            && arguments.at(0) == QLatin1String(row.name);
    });
    if (word == std::end(words))
        return {false, QStringLiteral("usage: fault add RULE, fault clear, fault list")};
    return word->execute(rules, arguments.value(1));
}

QString faultConsoleHelp()
{
    QString help;
    for (const FaultWord &word : words) {
        const QString call = QStringLiteral("fault %1 %2")
                                 .arg(QLatin1String(word.name), QLatin1String(word.argument));
        help += consoleHelpLine(call, word.effect);
    }
    return help;
}

} // namespace Tavoro::Sim
