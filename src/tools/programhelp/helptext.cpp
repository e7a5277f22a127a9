#include "helptext.h"

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
    QString line;
    for (const QString &word : text.split(QLatin1Char(' '))) {
        if (!line.isEmpty() && indent + line.size() + 1 + word.size() > widest) {
            lines += margin + line + QLatin1Char('\n');
            line.clear();
        }
        line += line.isEmpty() ? word : QLatin1Char(' ') + word;
    }
    return lines + margin + line + QLatin1Char('\n');
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
    return list.isEmpty() ? list : QLatin1Char('\n') + heading + QStringLiteral(":\n") + list;
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
    QString text = QStringLiteral("Usage: %1 [OPTION ...] %2\n%3.\n")
                       .arg(program.name, words, program.summary);
    QString commands;
    for (const Command &command : program.commands) {
        commands += QStringLiteral("  %1 %2")
                        .arg(command.name, command.usage)
                        .trimmed()
                        .prepend(QStringLiteral("  "))
            + QLatin1Char('\n') + wrapped(command.effect, 6);
    }
    text += section(QStringLiteral("Commands"), commands);
    text += section(QStringLiteral("Options"), optionList(program.options));
    text += section(QStringLiteral("Exit status"), statusList(program));
    if (!program.details.isEmpty())
        text += QLatin1Char('\n') + program.details + QLatin1Char('\n');
    return text.trimmed();
}

QString helpText(const Program &program, const Command &command)
{
    QString text =
        QStringLiteral("Usage: %1 %2 %3\n").arg(program.name, command.name, command.usage)
        + wrapped(command.effect, 0);
    text += section(QStringLiteral("Options of the command"), optionList(command.options));
    text += section(QStringLiteral("Options of all commands"), optionList(program.options));
    text += section(QStringLiteral("Exit status"), statusList(program));
    return text.trimmed();
}

} // namespace Tavoro::Help
