#include "commands.h"

#include "batchline.h"
#include "discover.h"
#include "operation.h"
#include "snapshot.h"

#include <algorithm>
#include <iostream>
#include <iterator>

namespace Tavoro::Ctl {

namespace {

ExitStatus refuse(Tool &tool, const QString &fault)
{
    tool.console.error(QStringLiteral("tavoroctl: ") + fault);
    return UsageError;
}

/// Makes one call; \a place stands in front of what is said about a fault.
ExitStatus makeCall(Tool &tool, const QString &hostText, const QStringList &call,
                    const QString &place)
{
    const std::optional<Host> host = parseHost(hostText);
    if (!host)
        return refuse(tool, place + QStringLiteral("\"%1\" is not HOST[:PORT]").arg(hostText));
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
    if (!device) {
        tool.console.error(error);
        return Failed;
    }
    const CallResult result = prepared.run(device);
    if (!result.ok) {
        tool.console.error(result.error.isEmpty() ? QStringLiteral("%1 failed.").arg(call.at(0))
                                                  : result.error);
        return Failed;
    }
    if (!result.answer.empty())
        tool.console.answer(result.answer);
    return Done;
}

ExitStatus runCall(Tool &tool, const QStringList &words)
{
    if (words.isEmpty())
        return refuse(tool, QStringLiteral("HOST[:PORT] is missing"));
    return makeCall(tool, words.at(0), words.mid(1), {});
}

ExitStatus runBatch(Tool &tool, const QStringList &words)
{
    ExitStatus worst = Done;
    std::string line;
    for (int number = 1; std::getline(std::cin, line); ++number) {
        QStringList call = splitBatchLine(QString::fromStdString(line));
        if (call.isEmpty())
            continue;
        const QString host = words.isEmpty() ? call.takeFirst() : words.at(0);
        const QString place = QStringLiteral("line %1 of the batch: ").arg(number);
        worst = std::max(worst, makeCall(tool, host, call, place));
    }
    return worst;
}

ExitStatus runShow(Tool &tool, const QStringList &words)
{
    if (words.size() != 1)
        return refuse(tool, QStringLiteral("show takes one HOST[:PORT]"));
    const std::optional<Host> host = parseHost(words.at(0));
    if (!host)
        return refuse(tool, QStringLiteral("\"%1\" is not HOST[:PORT]").arg(words.at(0)));
    QString error;
    Snapshot snapshot;
    const auto device = tool.session.device(*host, error);
    if (!device || !snapshot.read(device, error)) {
        tool.console.error(error);
        return Failed;
    }
    tool.console.answer(tool.asJson ? snapshot.json() : snapshot.tables().trimmed().toStdString());
    return Done;
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

ExitStatus runList(Tool &tool, const QStringList &words)
{
    if (!words.isEmpty())
        return listOne(tool, words.at(0));
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

// clang-format off
constexpr CommandRow commandRows[] = {
//   name     words behind it                          effect                                                                             function
    {"call",  "HOST[:PORT] OPERATION [ARGUMENT ...]",  "Makes one call: the record of a write as JSON, the filters of a read as numbers.", runCall},
    {"batch", "[HOST[:PORT]]",                         "Makes one call per line of standard input; lines name the host unless batch does.", runBatch},
    {"list",  "[OPERATION]",                           "Lists all operations, or shows the record that one takes.",                        runList},
    {"discover", "[ADDRESS[:PORT] ...]",               "Lists the devices of the local network, or those that answer at ADDRESS.",          runDiscover},
    {"show",  "HOST[:PORT]",                           "Shows the device, its interfaces, screens and layers; as JSON with --json.",        runShow},
};
// clang-format on

} // namespace

const CommandRow *findCommand(const QString &name)
{
    const auto found =
        std::find_if(std::begin(commandRows), std::end(commandRows),
                     [&](const CommandRow &row) { return name == QLatin1String(row.name); });
    return found == std::end(commandRows) ? nullptr : found;
}

QString commandHelp()
{
    QString help;
    for (const CommandRow &row : commandRows)
        help +=
            QStringLiteral("  %1 %2\n      %3\n")
                .arg(QLatin1String(row.name), QLatin1String(row.usage), QLatin1String(row.effect));
    return help;
}

} // namespace Tavoro::Ctl
