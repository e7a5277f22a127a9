#include "helpcommand.h"

#include "commandlist.h"
#include "program.h"

#include <programhelp/helptext.h>
#include <tavoroctl/arguments/texts.h>
#include <tavorooperations/nearest.h>

#include <QJsonArray>

namespace Tavoro::Ctl {

namespace {

QJsonArray jsonOf(const QList<Help::Option> &options)
{
    QJsonArray list;
    for (const Help::Option &option : options)
        list += QJsonObject{{QStringLiteral("name"), option.name},
                            {QStringLiteral("value"), option.value},
                            {QStringLiteral("effect"), option.effect}};
    return list;
}

QJsonObject jsonOf(const Help::Command &command)
{
    return {{QStringLiteral("name"), command.name},
            {QStringLiteral("usage"), command.usage},
            {QStringLiteral("effect"), command.effect},
            {QStringLiteral("options"), jsonOf(command.options)}};
}

QJsonObject jsonOf(const Help::Program &program)
{
    QJsonArray commands;
    for (const Help::Command &command : program.commands)
        commands += jsonOf(command);
    QJsonArray statuses;
    for (const Help::Status &status : program.statuses)
        statuses += QJsonObject{{QStringLiteral("exitStatus"), status.number},
                                {QStringLiteral("meaning"), status.meaning}};
    return {{QStringLiteral("program"), program.name},
            {QStringLiteral("version"), program.version},
            {QStringLiteral("options"), jsonOf(program.options)},
            {QStringLiteral("commands"), commands},
            {QStringLiteral("exitStatuses"), statuses}};
}

} // namespace

QString faultOfCommand(const QStringList &words)
{
    QStringList names;
    for (const Help::Command &command : describeProgram().commands)
        names += command.name;
    const QString two = words.mid(0, 2).join(QLatin1Char(' '));
    QString hint = Operations::suggestion(two, names);
    if (hint.isEmpty())
        hint = Operations::suggestion(words.at(0), names);
    return Texts::tr("unknown command \"%1\"%2; --help lists all commands").arg(words.at(0), hint);
}

ExitStatus showHelp(Tool &tool, const QStringList &words)
{
    const Help::Program program = describeProgram();
    const Help::Command *const command = Help::findCommand(program, words);
    if (!words.isEmpty() && !command)
        return refuse(tool, faultOfCommand(words));
    if (tool.console.isJson())
        tool.console.answerObject(command ? jsonOf(*command) : jsonOf(program));
    else
        tool.console.answer(command ? Help::helpText(program, *command) : Help::helpText(program));
    return Done;
}

ExitStatus runHelp(Tool &tool, const Arguments &arguments)
{
    return showHelp(tool, arguments.words);
}

} // namespace Tavoro::Ctl
