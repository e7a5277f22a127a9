// Lists the operations of the library.

#include "commandlist.h"
#include "unknownoperation.h"

#include <tavorooperations/jsontext.h>
#include <tavorooperations/operation.h>
#include <tavorooperations/schema.h>

#include <QJsonArray>

namespace Tavoro::Ctl {

namespace {

ExitStatus showOne(Tool &tool, const Operations::Operation &operation)
{
    if (tool.console.isJson()) {
        tool.console.answerObject(Operations::describe(operation));
        return Done;
    }
    for (const Operations::Argument &argument : operation.arguments()) {
        if (!argument.sample.empty())
            tool.console.answerJson(argument.sample);
    }
    return Done;
}

/// The operations whose name begins with \a filter, such as a class.
std::vector<Operations::Operation> operationsOf(const QString &filter)
{
    std::vector<Operations::Operation> found;
    for (const Operations::Operation &operation : Operations::all()) {
        if (operation.name().startsWith(filter, Qt::CaseInsensitive))
            found.push_back(operation);
    }
    return found;
}

/// What a call takes and prints: "FILTER FILTER -> [File::s_FileDetail]".
QString usageOf(const Operations::Operation &operation)
{
    QStringList words;
    for (const Operations::Argument &argument : operation.arguments())
        words += argument.type;
    if (!operation.answer().isEmpty())
        words += QStringLiteral("-> ") + operation.answer();
    return words.join(QLatin1Char(' '));
}

QString lineOf(const Operations::Operation &operation)
{
    return QStringLiteral("%1 0x%2  %3")
        .arg(operation.name(), -42)
        .arg(static_cast<uint>(operation.command()), 4, 16, QLatin1Char('0'))
        .arg(usageOf(operation));
}

/// The description without the definitions, which are the same for all operations.
QJsonObject objectOf(const Operations::Operation &operation)
{
    QJsonObject object = Operations::describe(operation);
    object.remove(QStringLiteral("$defs"));
    return object;
}

void showAll(Tool &tool, const std::vector<Operations::Operation> &operations)
{
    QJsonArray list;
    for (const Operations::Operation &operation : operations) {
        if (tool.console.isJson())
            list += objectOf(operation);
        else
            tool.console.answer(lineOf(operation));
    }
    if (tool.console.isJson())
        tool.console.answerJson(Operations::jsonText(list).toStdString());
}

} // namespace

ExitStatus runList(Tool &tool, const Arguments &arguments)
{
    const QString name = arguments.words.value(0);
    if (const auto operation = Operations::find(name))
        return showOne(tool, *operation);
    const std::vector<Operations::Operation> found = operationsOf(name);
    if (found.empty())
        return refuse(tool, faultOfOperation(name));
    showAll(tool, found);
    return Done;
}

} // namespace Tavoro::Ctl
