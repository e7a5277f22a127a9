// Compares a device with a document that sync wrote, and applies the document to the device.

#include "commandlist.h"

#include <tavoroctl/arguments/texts.h>
#include <tavoroctl/model/setup.h>
#include <tavoroctl/model/setupwrites.h>
#include <tavoroctl/session/exchangestatus.h>

#include <QFile>

#include <optional>

namespace Tavoro::Ctl {

namespace {

/// A device and the document for it.
struct Target {
    std::shared_ptr<BizModel::Device> device;
    QJsonObject wanted;
};

/// Reads the document and connects. Reports what fails.
std::optional<Target> open(Tool &tool, const Arguments &arguments, ExitStatus &status)
{
    const QString path = arguments.words.at(1);
    QFile file(path);
    const bool isOpen = path == QLatin1String("-") ? file.open(stdin, QIODevice::ReadOnly)
                                                   : file.open(QIODevice::ReadOnly);
    if (!isOpen) {
        status = fail(tool, Texts::tr("Cannot read %1: %2.").arg(path, file.errorString()), Failed);
        return std::nullopt;
    }
    Target target;
    QString fault;
    if (!parseSetup(file.readAll(), target.wanted, fault)) {
        status = refuse(tool, QStringLiteral("%1: %2").arg(path, fault));
        return std::nullopt;
    }
    target.device = openDevice(tool, arguments.words.at(0), status);
    if (!target.device)
        return std::nullopt;
    tool.console.showStatusBar(StatusBar::Nothing);
    return target;
}

/// What the device has to change; nothing if it could not be read, or if the document does not fit
/// it. Reports that.
std::optional<std::vector<SetupChange>> compare(Tool &tool, const Target &target,
                                                ExitStatus &status)
{
    QJsonObject present;
    QString error;
    if (!readSetup(target.device, present, error)) {
        status = fail(tool, error);
        return std::nullopt;
    }
    QString fault;
    std::vector<SetupChange> changes = compareSetups(present, target.wanted, fault);
    if (fault.isEmpty())
        return changes;
    status = refuse(tool, fault);
    return std::nullopt;
}

void showWrite(Tool &tool, const SetupWrite &write)
{
    if (tool.console.isJson())
        tool.console.answerObject({{QStringLiteral("event"), QStringLiteral("write")},
                                   {QStringLiteral("operation"), write.operation},
                                   {QStringLiteral("argument"), write.argument}});
    else
        tool.console.answer(write.line());
}

/// Makes the writes. Returns how many succeeded; \a failure gets the first one that failed.
int makeWrites(Tool &tool, const Target &target, const std::vector<SetupWrite> &writes,
               Failure &failure)
{
    int done = 0;
    for (const SetupWrite &write : writes) {
        const SSProxy::ExchangeWatch watch;
        const Operations::CallResult result = write.call.run(target.device);
        if (result.ok) {
            showWrite(tool, write);
            ++done;
        } else if (failure.text.isEmpty()) {
            failure = {exitStatusOf(watch.last()), result.error, statusOf(watch.last()),
                       write.operation, 0};
        }
    }
    return done;
}

/// Writes until the device is as the document says, or until nothing succeeds any more: a write may
/// be possible only after another one, and a device may change more than what was written.
ExitStatus writeAll(Tool &tool, const Target &target, std::vector<SetupChange> changes)
{
    constexpr int mostRounds = 10;
    Failure failure;
    for (int round = 0; round < mostRounds && !changes.empty(); ++round) {
        QString fault;
        const std::vector<SetupWrite> writes = writesFor(changes, fault);
        if (!fault.isEmpty())
            return refuse(tool, fault);
        failure = {};
        const int done = makeWrites(tool, target, writes, failure);
        ExitStatus status = Done;
        const auto rest = compare(tool, target, status);
        if (!rest)
            return status;
        changes = *rest;
        if (done == 0)
            break;
    }
    if (changes.empty())
        return finish(tool);
    if (failure.text.isEmpty())
        failure = {Failed,
                   Texts::tr("The device differs from the document: ") + changes.front().text(),
                   0,
                   {},
                   0};
    tool.console.error(failure);
    return failure.exit;
}

} // namespace

ExitStatus runDiff(Tool &tool, const Arguments &arguments)
{
    ExitStatus status = Done;
    const auto target = open(tool, arguments, status);
    const auto changes = target ? compare(tool, *target, status) : std::nullopt;
    if (!changes)
        return status;
    for (const SetupChange &change : *changes) {
        if (!tool.console.isJson()) {
            tool.console.answer(change.text());
            continue;
        }
        QJsonObject object = change.toJson();
        object.insert(QStringLiteral("host"), arguments.words.at(0));
        tool.console.answerObject(object);
    }
    return changes->empty() ? Done : Failed;
}

ExitStatus runApply(Tool &tool, const Arguments &arguments)
{
    ExitStatus status = Done;
    const auto target = open(tool, arguments, status);
    const auto changes = target ? compare(tool, *target, status) : std::nullopt;
    if (!changes)
        return status;
    if (!arguments.options.contains(QStringLiteral("dry-run")))
        return writeAll(tool, *target, *changes);
    QString fault;
    const std::vector<SetupWrite> writes = writesFor(*changes, fault);
    if (!fault.isEmpty())
        return refuse(tool, fault);
    for (const SetupWrite &write : writes)
        showWrite(tool, write);
    return Done;
}

} // namespace Tavoro::Ctl
