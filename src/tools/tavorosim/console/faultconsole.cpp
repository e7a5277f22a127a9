#include "faultconsole.h"

#include <tavorosim/faults/faultrules.h>
#include <tavorosim/state/texts.h>

#include <algorithm>
#include <iterator>

namespace Tavoro::Sim {

namespace {

#define TEXT(text) QT_TRANSLATE_NOOP("Sim", text)

struct FaultCommand {
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

/// Leaves the rules as they are: the device itself ends what they have begun.
ConsoleAnswer keepRules(FaultRules & /*rules*/, const QString & /*argument*/)
{
    return {};
}

// clang-format off
constexpr FaultCommand faultCommands[] = {
    {"add",     "RULE", TEXT("injects a fault from now on"),                   addRule},
    {"clear",   "",     TEXT("removes all rules and does what release does"),  clearRules},
    {"list",    "",     TEXT("lists the rules with their remaining counts"),   listRules},
    {"release", "",     TEXT("sends held answers and resumes reading"),        keepRules},
};
// clang-format on

} // namespace

ConsoleAnswer executeFault(FaultRules &rules, const QStringList &arguments)
{
    const auto command = std::find_if(std::begin(faultCommands), std::end(faultCommands),
                                      [&](const FaultCommand &row) {
                                          const bool takesArgument = row.argument[0] != '\0';
                                          return arguments.size() == (takesArgument ? 2 : 1)
                                              && arguments.at(0) == QLatin1String(row.name);
                                      });
    if (command == std::end(faultCommands))
        return {false, Texts::tr("usage: fault add RULE, fault clear, fault list, fault release")};
    return command->execute(rules, arguments.value(1));
}

QString faultConsoleHelp()
{
    QString help;
    for (const FaultCommand &command : faultCommands) {
        const QString call = QStringLiteral("fault %1 %2")
                                 .arg(QLatin1String(command.name), QLatin1String(command.argument));
        help += consoleHelpLine(call, command.effect);
    }
    return help;
}

} // namespace Tavoro::Sim
