#include "program.h"

#include "commandtable.h"
#include "recordcompletion.h"

#include <tavoroctl/arguments/fileplace.h>
#include <tavoroctl/arguments/texts.h>
#include <tavoroctl/output/exitstatus.h>
#include <tavorooperations/operation.h>

#include <optional>

namespace Tavoro::Ctl {

namespace {

QList<Help::Option> optionsOf(const OptionRange &rows)
{
    QList<Help::Option> options;
    for (const OptionRow &row : rows)
        options += {QLatin1String(row.name), QLatin1String(row.value), Texts::tr(row.effect)};
    return options;
}

QList<Help::Candidate> operations()
{
    QList<Help::Candidate> candidates;
    for (const Operations::Operation &operation : Operations::all())
        candidates += {operation.name(), operation.summary()};
    return candidates;
}

/// Words of a call: the host, the operation, and its arguments so far.
QList<Help::Candidate> argumentsOf(const QList<QString> &words, const QString &typed)
{
    constexpr int first = 2;
    const std::optional<Operations::Operation> operation = Operations::find(words.value(1));
    const auto index = static_cast<std::size_t>(words.size() - first);
    if (!operation || index >= operation->arguments().size())
        return {};
    return completeRecord(typed, operation->arguments().at(index).sample);
}

QList<Help::Candidate> commandNames()
{
    QList<Help::Candidate> candidates;
    for (const CommandRow &row : CommandRange())
        candidates += {QLatin1String(row.name), Texts::tr(row.effect)};
    return candidates;
}

QList<Help::Candidate> fileTypes()
{
    QList<Help::Candidate> candidates;
    for (const QString &name : fileTypeNames())
        candidates += {name, {}};
    return candidates;
}

} // namespace

Help::Program describeProgram()
{
    Help::Program program;
    program.name = QStringLiteral("tavoroctl");
    program.version = QStringLiteral(TAVORO_VERSION);
    program.summary = Texts::tr("shows and controls video processors from a terminal");
    program.options = optionsOf(commonOptions());
    for (const CommandRow &row : CommandRange())
        program.commands += {QLatin1String(row.name), QLatin1String(row.usage),
                             Texts::tr(row.effect), optionsOf(row.options)};
    for (const ExitStatusRow &row : ExitStatusRange())
        program.statuses += {row.status, Texts::tr(row.meaning)};
    program.seeAlso = {QStringLiteral("tavorosim")};
    return program;
}

QList<Help::Candidate> completeValue(const QString &placeholder, const QList<QString> &words,
                                     const QString &typed)
{
    if (placeholder == QLatin1String("OPERATION"))
        return operations();
    if (placeholder == QLatin1String("ARGUMENT"))
        return argumentsOf(words, typed);
    if (placeholder == QLatin1String("COMMAND"))
        return commandNames();
    if (placeholder == QLatin1String("TYPE"))
        return fileTypes();
    return {};
}

} // namespace Tavoro::Ctl
