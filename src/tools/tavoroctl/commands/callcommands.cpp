// The operations of the library by their names: call, batch, list.

#include "commandlist.h"

#include <tavoroctl/arguments/batchline.h>
#include <tavoroctl/operations/operation.h>

#include <algorithm>
#include <iostream>

namespace Tavoro::Ctl {

namespace {

/// Makes one call; \a place stands in front of what is said about a fault.
ExitStatus makeCall(Tool &tool, const QString &hostText, const QStringList &call,
                    const QString &place)
{
    const std::optional<Host> host = parseHost(hostText);
    if (!host)
        return refuseHost(tool, hostText, place);
    if (call.isEmpty())
        return refuse(tool, place + QStringLiteral("an operation is missing"));
    const Operation *const operation = findOperation(call.at(0));
    if (!operation)
        return refuse(tool,
                      place
                          + QStringLiteral("there is no operation \"%1\"; \"tavoroctl list\" "
                                           "tells what there is")
                                .arg(call.at(0)));
    const PreparedCall prepared = operation->calls.prepare(call.mid(1));
    if (!prepared.fault.isEmpty())
        return refuse(tool, place + call.at(0) + QStringLiteral(", ") + prepared.fault);

    QString error;
    const auto device = tool.session.device(*host, error);
    if (!device)
        return fail(tool, error);
    const CallResult result = prepared.run(device);
    if (!result.ok)
        return fail(tool,
                    result.error.isEmpty() ? QStringLiteral("%1 failed.").arg(call.at(0))
                                           : result.error);
    if (!result.answer.empty())
        tool.console.answer(result.answer);
    return Done;
}

/// Makes the call of one line; at \a batchHost unless that is empty.
ExitStatus makeCallOfLine(Tool &tool, const QString &batchHost, const QString &line, int number)
{
    const QString place = QStringLiteral("line %1 of the batch: ").arg(number);
    auto [call, fault] = splitBatchLine(line);
    if (!fault.isEmpty())
        return refuse(tool, place + fault);
    if (call.isEmpty())
        return Done;
    const QString host = batchHost.isEmpty() ? call.takeFirst() : batchHost;
    return makeCall(tool, host, call, place);
}

ExitStatus listOne(Tool &tool, const QString &name)
{
    const Operation *const operation = findOperation(name);
    if (!operation)
        return refuse(tool, QStringLiteral("there is no operation \"%1\"").arg(name));
    const OperationForm form = operation->calls.form();
    if (!form.sample.empty())
        tool.console.answer(form.sample);
    return Done;
}

} // namespace

ExitStatus runCall(Tool &tool, const Arguments &arguments)
{
    tool.console.showStatusBar(StatusBar::Everything);
    return makeCall(tool, arguments.words.at(0), arguments.words.mid(1), {});
}

ExitStatus runBatch(Tool &tool, const Arguments &arguments)
{
    tool.console.showStatusBar(StatusBar::Everything);
    const QString host = arguments.words.value(0);
    if (!arguments.words.isEmpty() && !parseHost(host))
        return refuseHost(tool, host);
    ExitStatus worst = Done;
    std::string line;
    for (int number = 1; std::getline(std::cin, line); ++number)
        worst = std::max(worst, makeCallOfLine(tool, host, QString::fromStdString(line), number));
    return worst;
}

ExitStatus runList(Tool &tool, const Arguments &arguments)
{
    if (!arguments.words.isEmpty())
        return listOne(tool, arguments.words.at(0));
    for (const Operation &operation : allOperations()) {
        const OperationForm form = operation.calls.form();
        QString usage = form.arguments.join(QLatin1Char(' '));
        if (!form.answer.isEmpty())
            usage += QStringLiteral(" -> ") + form.answer;
        tool.console.answer(QStringLiteral("%1 0x%2  %3")
                                .arg(QLatin1String(operation.name), -42)
                                .arg(static_cast<uint>(operation.command), 4, 16, QLatin1Char('0'))
                                .arg(usage.trimmed())
                                .toStdString());
    }
    return Done;
}

} // namespace Tavoro::Ctl
