// Calls operations of the library by their names: call, batch.

#include "commandlist.h"
#include "mergedrecord.h"
#include "requestoutput.h"
#include "unknownoperation.h"

#include <tavoroctl/arguments/batchline.h>
#include <tavoroctl/arguments/texts.h>
#include <tavoroctl/session/dryrun.h>
#include <tavoroctl/session/exchangestatus.h>
#include <tavorooperations/jsontext.h>
#include <tavorooperations/operation.h>

#include <algorithm>
#include <iostream>

namespace Tavoro::Ctl {

namespace {

/// How missing keys of a record are handled.
enum class Missing {
    Refused,
    SentAsDefaults,
    Merged
};

/// One call, and where it comes from: the command line, or a line of a batch.
struct Call {
    QString host;
    QStringList words; ///< The operation and its arguments.
    Missing missing = Missing::Refused;
    bool isDryRun = false;
    int line = 0; ///< Of the batch; 0 for the command call.
};

/// Reads the options of calls. False if they exclude each other.
bool readOptions(const Arguments &arguments, Call &call)
{
    const bool defaults = arguments.options.contains(QStringLiteral("defaults"));
    const bool merge = arguments.options.contains(QStringLiteral("merge"));
    call.isDryRun = arguments.options.contains(QStringLiteral("dry-run"));
    call.missing = defaults ? Missing::SentAsDefaults : merge ? Missing::Merged : Missing::Refused;
    return int(defaults) + int(merge) + int(call.isDryRun && merge) < 2;
}

QString exclusiveOptions()
{
    return Texts::tr("--merge goes neither with --defaults nor with --dry-run");
}

Operations::MissingKeys missingKeys(const Call &call)
{
    return call.missing == Missing::SentAsDefaults ? Operations::MissingKeys::SentAsDefaults
                                                   : Operations::MissingKeys::Refused;
}

QString adviceFor(const Operations::PreparedCall &call)
{
    return call.lacksKeys ? Texts::tr("; give them, or send their defaults with --defaults")
                          : QString();
}

ExitStatus report(Tool &tool, const Call &call, ExitStatus exit, const QString &text,
                  int status = 0)
{
    tool.console.error({exit, text, status, call.words.value(0), call.line});
    return exit;
}

/// A read fails, since the answer is empty: nothing of its result is shown.
ExitStatus showRequests(Tool &tool, const Call &call, const Operations::PreparedCall &prepared)
{
    tool.console.showStatusBar(StatusBar::Nothing);
    const DryRun dryRun([&](const SSProxy::DeviceRequestCommand &request) {
        showRequest(tool.console, {call.host, call.words.at(0), call.line}, request);
    });
    prepared.run(dryRun.device());
    return Done;
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

ExitStatus run(Tool &tool, const Call &call, const Operations::PreparedCall &prepared,
               const std::shared_ptr<BizModel::Device> &device)
{
    const SSProxy::ExchangeWatch watch;
    const Operations::CallResult result = prepared.run(device);
    return result.ok
        ? showResult(tool, call, result)
        : report(tool, call, exitStatusOf(watch.last()), result.error, statusOf(watch.last()));
}

std::shared_ptr<BizModel::Device> connect(Tool &tool, const Call &call)
{
    QString error;
    auto device = tool.session.device(*parseHost(call.host), error);
    if (!device)
        report(tool, call, Unreachable, error);
    return device;
}

/// Completes the record with the values of the device, and makes the call.
ExitStatus mergeAndRun(Tool &tool, const Call &call, const Operations::Operation &operation)
{
    const bool isWrite = operation.direction() == Operations::Direction::Write;
    if (!isWrite || call.words.size() != 2)
        return report(tool, call, UsageError, Texts::tr("--merge needs a write and its record"));
    const auto device = connect(tool, call);
    if (!device)
        return Unreachable;
    const SSProxy::ExchangeWatch watch;
    tool.console.showStatusBar(StatusBar::Nothing);
    const MergedRecord record = mergeRecord(device, operation, call.words.at(1));
    tool.console.showStatusBar(StatusBar::Successes);
    if (!record.fault.isEmpty())
        return report(tool, call, UsageError, record.fault);
    if (!record.error.isEmpty())
        return report(tool, call, exitStatusOf(watch.last()), record.error, statusOf(watch.last()));
    const Operations::PreparedCall prepared = operation.prepare({record.argument});
    return prepared.fault.isEmpty() ? run(tool, call, prepared, device)
                                    : report(tool, call, UsageError, prepared.fault);
}

ExitStatus makeCall(Tool &tool, const Call &call)
{
    if (!parseHost(call.host))
        return report(tool, call, UsageError, faultOfHost(call.host));
    if (call.words.isEmpty())
        return report(tool, call, UsageError, Texts::tr("expected an operation"));
    const auto operation = Operations::find(call.words.at(0));
    if (!operation)
        return report(tool, call, UsageError, faultOfOperation(call.words.at(0)));
    if (call.missing == Missing::Merged)
        return mergeAndRun(tool, call, *operation);
    const Operations::PreparedCall prepared =
        operation->prepare(call.words.mid(1), missingKeys(call));
    if (!prepared.fault.isEmpty())
        return report(tool, call, UsageError, prepared.fault + adviceFor(prepared));
    if (call.isDryRun)
        return showRequests(tool, call, prepared);
    const auto device = connect(tool, call);
    return device ? run(tool, call, prepared, device) : Unreachable;
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
    Call call{arguments.words.at(0), arguments.words.mid(1)};
    return readOptions(arguments, call) ? makeCall(tool, call) : refuse(tool, exclusiveOptions());
}

ExitStatus runBatch(Tool &tool, const Arguments &arguments)
{
    tool.console.showStatusBar(StatusBar::Successes);
    Call call{arguments.words.value(0), {}};
    if (!readOptions(arguments, call))
        return refuse(tool, exclusiveOptions());
    const bool stops = arguments.options.contains(QStringLiteral("stop-on-error"));
    if (!arguments.words.isEmpty() && !parseHost(call.host))
        return refuseHost(tool, call.host);
    ExitStatus worst = Done;
    std::string line;
    while (!tool.console.hasOutputFailed() && !(stops && worst != Done)
           && std::getline(std::cin, line)) {
        ++call.line;
        worst = std::max(worst, makeCallOfLine(tool, call, QString::fromStdString(line)));
    }
    return worst;
}

} // namespace Tavoro::Ctl
