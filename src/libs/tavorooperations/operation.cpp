#include <tavorooperations/operation.h>

#include "operation_p.h"
#include "texts_p.h"

#include <QLatin1Char>

#include <algorithm>
#include <cstddef>

namespace Tavoro::Operations {

using Internal::OperationRow;
using Internal::Texts;
using Internal::wordsOf;

QStringList Internal::wordsOf(const char *list)
{
    return QString::fromLatin1(list).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

QString Operation::name() const
{
    return QLatin1String(m_row->name);
}

QString Operation::summary() const
{
    return Texts::tr(Internal::summaryOf(m_row->name));
}

SSProxy::Command Operation::command() const
{
    return m_row->command;
}

Direction Operation::direction() const
{
    return m_row->code.direction;
}

std::vector<Argument> Operation::arguments() const
{
    std::vector<Argument> arguments = m_row->code.form().arguments;
    const QStringList names = wordsOf(m_row->arguments);
    for (std::size_t i = 0; i < arguments.size(); ++i)
        arguments[i].name = names.value(static_cast<int>(i));
    return arguments;
}

QString Operation::answer() const
{
    return m_row->code.form().answer;
}

std::vector<Change> Operation::changes() const
{
    return m_row->code.form().changes;
}

QString Operation::whyNothingChanges() const
{
    return QString::fromUtf8(m_row->code.whyNothingChanges);
}

PreparedCall Operation::prepare(const QStringList &arguments, MissingKeys missing) const
{
    PreparedCall call = m_row->code.prepare(arguments, missing);
    if (!call.fault.isEmpty()) {
        call.fault.prepend(name() + QStringLiteral(", "));
        return call;
    }
    const auto run = [inner = std::move(call.run), name = name()](const auto &device) {
        CallResult result = inner(device);
        if (!result.ok && result.error.isEmpty()) // Some operations fail without a text.
            result.error = Texts::tr("%1 failed.").arg(name);
        return result;
    };
    call.run = run;
    return call;
}

std::vector<Scope> Operation::changedBy(const void *arguments) const
{
    return m_row->code.changedBy(arguments);
}

CallResult call(const std::weak_ptr<BizModel::Device> &device, const QString &name,
                const QStringList &arguments, MissingKeys missing)
{
    const std::optional<Operation> operation = find(name);
    if (!operation)
        return {false, Texts::tr("unknown operation \"%1\"").arg(name), {}};
    const PreparedCall prepared = operation->prepare(arguments, missing);
    if (!prepared.fault.isEmpty())
        return {false, prepared.fault, {}};
    return prepared.run(device);
}

} // namespace Tavoro::Operations
