#include "helptext.h"

#include "columns.h"
#include "texts.h"

#include <QStringList>

#include <algorithm>

namespace Tavoro::Help {

namespace {

constexpr int widest = 80;

/// \a text in lines that are not longer than the help is wide, each after \a indent blanks.
QString wrapped(const QString &text, int indent)
{
    const QString margin(indent, QLatin1Char(' '));
    QString lines;
    for (const QString &line : linesOf(text, widest - indent))
        lines += margin + line + QLatin1Char('\n');
    return lines;
}

/// \a name and \a effect side by side.
QString entry(const QString &name, const QString &effect, int column)
{
    const QString text = wrapped(effect, column + 2);
    return QStringLiteral("  ") + name.leftJustified(column) + text.mid(column + 2);
}

QString optionList(const QList<Option> &options)
{
    int column = 0;
    for (const Option &option : options)
        column = std::max(column, static_cast<int>(optionWords(option).size()) + 2);
    QString list;
    for (const Option &option : options)
        list += entry(optionWords(option), option.effect, column);
    return list;
}

QString statusList(const Program &program)
{
    constexpr int column = 5;
    QString list;
    for (const Status &status : program.statuses)
        list += entry(QString::number(status.number), status.meaning, column);
    return list;
}

QString section(const QString &heading, const QString &list)
{
    return list.isEmpty() ? list : QLatin1Char('\n') + heading + QLatin1Char('\n') + list;
}

} // namespace

QString optionWords(const Option &option)
{
    const QString value = option.value.isEmpty() ? QString() : QLatin1Char(' ') + option.value;
    return QStringLiteral("--") + option.name + value;
}

QString helpText(const Program &program)
{
    const QString words =
        program.commands.isEmpty() ? program.usage : QStringLiteral("COMMAND [WORD ...]");
    QString text =
        Texts::tr("Usage: %1").arg(program.name + QStringLiteral(" [OPTION ...] ") + words)
        + QLatin1Char('\n') + Texts::tr("%1.", "summary").arg(program.summary) + QLatin1Char('\n');
    QString commands;
    for (const Command &command : program.commands) {
        commands += QStringLiteral("  %1 %2")
                        .arg(command.name, command.usage)
                        .trimmed()
                        .prepend(QStringLiteral("  "))
            + QLatin1Char('\n') + wrapped(command.effect, 6);
    }
    text += section(Texts::tr("Commands:"), commands);
    text += section(Texts::tr("Options:"), optionList(program.options));
    text += section(Texts::tr("Exit status:"), statusList(program));
    if (!program.details.isEmpty())
        text += QLatin1Char('\n') + program.details + QLatin1Char('\n');
    return text.trimmed();
}

QString helpText(const Program &program, const Command &command)
{
    QString text =
        Texts::tr("Usage: %1")
            .arg(QStringLiteral("%1 %2 %3").arg(program.name, command.name, command.usage))
        + QLatin1Char('\n') + wrapped(command.effect, 0);
    text += section(Texts::tr("Options of the command:"), optionList(command.options));
    text += section(Texts::tr("Options of all commands:"), optionList(program.options));
    text += section(Texts::tr("Exit status:"), statusList(program));
    return text.trimmed();
}

} // namespace Tavoro::Help
