// Calls operations of the library by their names: call, batch, list.

#include "commandlist.h"

#include <tavoroctl/arguments/batchline.h>
#include <tavorooperations/operation.h>

#include <algorithm>
#include <iostream>

namespace Tavoro::Ctl {

namespace {

/// The origin of calls: the command line, or a line of a batch.
struct CallSource {
    Operations::MissingKeys missing = Operations::MissingKeys::Refused;
    QString place; ///< Prefix of each message about a fault; empty for the command call.
};

CallSource sourceOf(const Arguments &arguments)
{
    CallSource source;
    if (arguments.options.contains(QStringLiteral("defaults")))
        source.missing = Operations::MissingKeys::SentAsDefaults;
    return source;
}

QString adviceFor(const Operations::PreparedCall &call)
{
    return call.lacksKeys ? QStringLiteral("; give them, or send their defaults with --defaults")
                          : QString();
}

ExitStatus makeCall(Tool &tool, const QString &hostText, const QStringList &call,
                    const CallSource &source)
{
    const std::optional<Host> host = parseHost(hostText);
    if (!host)
        return refuseHost(tool, hostText, source.place);
    if (call.isEmpty())
        return refuse(tool, source.place + QStringLiteral("expected an operation"));
    const auto operation = Operations::find(call.at(0));
    if (!operation)
        return refuse(tool,
                      source.place
                          + QStringLiteral("unknown operation \"%1\"; \"tavoroctl list\" lists "
                                           "all operations")
                                .arg(call.at(0)));
    const Operations::PreparedCall prepared = operation->prepare(call.mid(1), source.missing);
    if (!prepared.fault.isEmpty())
        return refuse(tool, source.place + prepared.fault + adviceFor(prepared));

    QString error;
    const auto device = tool.session.device(*host, error);
    if (!device)
        return fail(tool, error);
    const Operations::CallResult result = prepared.run(device);
    if (!result.ok)
        return fail(tool, result.error);
    if (!result.answer.empty())
        tool.console.answerJson(result.answer);
    return Done;
}

/// Makes the call of one line. The line begins with the host if \a batchHost is empty.
ExitStatus makeCallOfLine(Tool &tool, const QString &batchHost, const QString &line,
                          const CallSource &source)
{
    auto [call, fault] = splitBatchLine(line);
    if (!fault.isEmpty())
        return refuse(tool, source.place + fault);
    if (call.isEmpty())
        return Done;
    const QString host = batchHost.isEmpty() ? call.takeFirst() : batchHost;
    return makeCall(tool, host, call, source);
}

ExitStatus listOne(Tool &tool, const QString &name)
{
    const auto operation = Operations::find(name);
    if (!operation)
        return refuse(tool, QStringLiteral("unknown operation \"%1\"").arg(name));
    for (const Operations::Argument &argument : operation->arguments()) {
        if (!argument.sample.empty())
            tool.console.answerJson(argument.sample);
    }
    return Done;
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

} // namespace

ExitStatus runCall(Tool &tool, const Arguments &arguments)
{
    tool.console.showStatusBar(StatusBar::Everything);
    return makeCall(tool, arguments.words.at(0), arguments.words.mid(1), sourceOf(arguments));
}

ExitStatus runBatch(Tool &tool, const Arguments &arguments)
{
    tool.console.showStatusBar(StatusBar::Everything);
    const QString host = arguments.words.value(0);
    if (!arguments.words.isEmpty() && !parseHost(host))
        return refuseHost(tool, host);
    CallSource source = sourceOf(arguments);
    ExitStatus worst = Done;
    std::string line;
    for (int number = 1; !tool.console.hasOutputFailed() && std::getline(std::cin, line);
         ++number) {
        source.place = QStringLiteral("line %1 of the batch: ").arg(number);
        worst = std::max(worst, makeCallOfLine(tool, host, QString::fromStdString(line), source));
    }
    return worst;
}

ExitStatus runList(Tool &tool, const Arguments &arguments)
{
    if (!arguments.words.isEmpty())
        return listOne(tool, arguments.words.at(0));
    for (const Operations::Operation &operation : Operations::all()) {
        const auto code = static_cast<uint>(operation.command());
        tool.console.answer(QStringLiteral("%1 0x%2  %3")
                                .arg(operation.name(), -42)
                                .arg(code, 4, 16, QLatin1Char('0'))
                                .arg(usageOf(operation)));
    }
    return Done;
}

} // namespace Tavoro::Ctl
