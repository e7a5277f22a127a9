// Calls operations of the library by their names: call, batch.

#include "commandlist.h"
#include "unknownoperation.h"

#include <tavoroctl/arguments/batchline.h>
#include <tavoroctl/session/exchangestatus.h>
#include <tavorooperations/jsontext.h>
#include <tavorooperations/operation.h>

#include <algorithm>
#include <iostream>

namespace Tavoro::Ctl {

namespace {

/// One call, and where it comes from: the command line, or a line of a batch.
struct Call {
    QString host;
    QStringList words; ///< The operation and its arguments.
    Operations::MissingKeys missing = Operations::MissingKeys::Refused;
    int line = 0; ///< Of the batch; 0 for the command call.
};

Operations::MissingKeys missingKeys(const Arguments &arguments)
{
    return arguments.options.contains(QStringLiteral("defaults"))
        ? Operations::MissingKeys::SentAsDefaults
        : Operations::MissingKeys::Refused;
}

QString adviceFor(const Operations::PreparedCall &call)
{
    return call.lacksKeys ? QStringLiteral("; give them, or send their defaults with --defaults")
                          : QString();
}

ExitStatus report(Tool &tool, const Call &call, ExitStatus exit, const QString &text,
                  int status = 0)
{
    tool.console.error({exit, text, status, call.words.value(0), call.line});
    return exit;
}

/// Prints what a call returned. The answer of the command call is the whole output: a record.
ExitStatus showResult(Tool &tool, const Call &call, const Operations::CallResult &result)
{
    const bool hasAnswer = !result.answer.empty();
    if (!tool.console.isJson() || (call.line == 0 && hasAnswer)) {
        if (hasAnswer)
            tool.console.answerJson(result.answer);
        return Done;
    }
    QJsonObject object{{QStringLiteral("host"), call.host},
                       {QStringLiteral("operation"), call.words.at(0)},
                       {QStringLiteral("line"), call.line}};
    if (hasAnswer)
        object.insert(QStringLiteral("answer"), Operations::jsonValue(result.answer));
    return finish(tool, object);
}

ExitStatus run(Tool &tool, const Call &call, const Operations::PreparedCall &prepared)
{
    QString error;
    const auto device = tool.session.device(*parseHost(call.host), error);
    if (!device)
        return report(tool, call, Unreachable, error);
    const SSProxy::ExchangeWatch watch;
    const Operations::CallResult result = prepared.run(device);
    return result.ok
        ? showResult(tool, call, result)
        : report(tool, call, exitStatusOf(watch.last()), result.error, statusOf(watch.last()));
}

ExitStatus makeCall(Tool &tool, const Call &call)
{
    if (!parseHost(call.host))
        return report(tool, call, UsageError, faultOfHost(call.host));
    if (call.words.isEmpty())
        return report(tool, call, UsageError, QStringLiteral("expected an operation"));
    const auto operation = Operations::find(call.words.at(0));
    if (!operation)
        return report(tool, call, UsageError, faultOfOperation(call.words.at(0)));
    const Operations::PreparedCall prepared = operation->prepare(call.words.mid(1), call.missing);
    if (!prepared.fault.isEmpty())
        return report(tool, call, UsageError, prepared.fault + adviceFor(prepared));
    return run(tool, call, prepared);
}

/// Makes the call of one line. The line begins with the host if that of \a call is empty.
ExitStatus makeCallOfLine(Tool &tool, Call call, const QString &line)
{
    const BatchLine split = splitBatchLine(line);
    call.words = split.words;
    if (!split.fault.isEmpty())
        return report(tool, call, UsageError, split.fault);
    if (call.words.isEmpty())
        return Done;
    if (call.host.isEmpty())
        call.host = call.words.takeFirst();
    return makeCall(tool, call);
}

} // namespace

ExitStatus runCall(Tool &tool, const Arguments &arguments)
{
    tool.console.showStatusBar(StatusBar::Successes);
    return makeCall(tool,
                    {arguments.words.at(0), arguments.words.mid(1), missingKeys(arguments), 0});
}

ExitStatus runBatch(Tool &tool, const Arguments &arguments)
{
    tool.console.showStatusBar(StatusBar::Successes);
    Call call{arguments.words.value(0), {}, missingKeys(arguments), 0};
    if (!arguments.words.isEmpty() && !parseHost(call.host))
        return refuseHost(tool, call.host);
    ExitStatus worst = Done;
    std::string line;
    while (!tool.console.hasOutputFailed() && std::getline(std::cin, line)) {
        ++call.line;
        worst = std::max(worst, makeCallOfLine(tool, call, QString::fromStdString(line)));
    }
    return worst;
}

} // namespace Tavoro::Ctl
