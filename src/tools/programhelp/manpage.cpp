// A man page in the macros of man(7).

#include "manpage.h"

#include <QStringList>

namespace Tavoro::Help {

namespace {

/// Text of a page: a backslash, a leading dot or quote and a dash mean something to troff.
QString escaped(QString text)
{
    text.replace(QLatin1Char('\\'), QStringLiteral("\\e"));
    text.replace(QLatin1Char('-'), QStringLiteral("\\-"));
    if (text.startsWith(QLatin1Char('.')) || text.startsWith(QLatin1Char('\'')))
        text.prepend(QStringLiteral("\\&"));
    return text;
}

QString bold(const QString &text)
{
    return QStringLiteral("\\fB") + escaped(text) + QStringLiteral("\\fR");
}

QString italic(const QString &text)
{
    return QStringLiteral("\\fI") + escaped(text) + QStringLiteral("\\fR");
}

QString line(const QString &text)
{
    return text + QLatin1Char('\n');
}

QString heading(const QString &name)
{
    return line(QStringLiteral(".SH ") + name);
}

/// A paragraph with a tag.
QString tagged(const QString &tag, const QString &text)
{
    return line(QStringLiteral(".TP")) + line(tag) + line(escaped(text));
}

QString optionTag(const Option &option)
{
    const QString name = bold(QStringLiteral("--") + option.name);
    return option.value.isEmpty() ? name : name + QLatin1Char(' ') + italic(option.value);
}

QString taggedOptions(const QList<Option> &options)
{
    QString list;
    for (const Option &option : options)
        list += tagged(optionTag(option), option.effect);
    return list;
}

QString commandList(const Program &program)
{
    QString list;
    for (const Command &command : program.commands) {
        list += line(QStringLiteral(".SS ") + bold(command.name) + QLatin1Char(' ')
                     + italic(command.usage));
        list += line(escaped(command.effect)) + taggedOptions(command.options);
    }
    return list;
}

QString taggedStatuses(const Program &program)
{
    QString list;
    for (const Status &status : program.statuses)
        list += tagged(bold(QString::number(status.number)), status.meaning);
    return list;
}

QString paragraphs(const QString &text)
{
    QString page;
    for (const QString &paragraph : text.split(QStringLiteral("\n\n"), Qt::SkipEmptyParts)) {
        page += (page.isEmpty() ? page : line(QStringLiteral(".PP"))) + line(QStringLiteral(".nf"));
        for (const QString &each : paragraph.split(QLatin1Char('\n')))
            page += line(escaped(each));
        page += line(QStringLiteral(".fi"));
    }
    return page;
}

} // namespace

QString manPage(const Program &program)
{
    const QString words =
        program.commands.isEmpty() ? program.usage : QStringLiteral("COMMAND [WORD ...]");
    QString page = line(QStringLiteral(".TH %1 1 \"\" \"%2 %3\"")
                            .arg(program.name.toUpper(), program.name, program.version));
    page += heading(QStringLiteral("NAME"))
        + line(program.name + QStringLiteral(" \\- ") + escaped(program.summary));
    page += heading(QStringLiteral("SYNOPSIS"))
        + line(bold(program.name) + QStringLiteral(" [") + italic(QStringLiteral("OPTION ..."))
               + QStringLiteral("] ") + italic(words));
    if (!program.commands.isEmpty())
        page += heading(QStringLiteral("COMMANDS")) + commandList(program);
    page += heading(QStringLiteral("OPTIONS")) + taggedOptions(program.options);
    if (!program.details.isEmpty())
        page += heading(QStringLiteral("DETAILS")) + paragraphs(program.details);
    if (!program.statuses.isEmpty())
        page += heading(QStringLiteral("EXIT STATUS")) + taggedStatuses(program);
    QStringList others;
    for (const QString &name : program.seeAlso)
        others += bold(name) + QStringLiteral("(1)");
    if (!others.isEmpty())
        page += heading(QStringLiteral("SEE ALSO")) + line(others.join(QStringLiteral(", ")));
    return page;
}

} // namespace Tavoro::Help
