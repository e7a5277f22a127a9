#include "tool.h"

#include <tavoroctl/arguments/texts.h>
#include <tavoroctl/session/exchangestatus.h>

namespace Tavoro::Ctl {

ExitStatus refuse(Tool &tool, const QString &fault)
{
    return fail(tool, fault, UsageError);
}

ExitStatus fail(Tool &tool, const QString &error)
{
    return fail(tool, error, tool.watch.last());
}

ExitStatus fail(Tool &tool, const QString &error, const std::optional<SSProxy::Exchange> &last)
{
    const Failure failure{exitStatusOf(last), error, statusOf(last), {}, 0};
    tool.console.error(failure);
    return failure.exit;
}

ExitStatus fail(Tool &tool, const QString &error, ExitStatus status)
{
    tool.console.error({status, error, 0, {}, 0});
    return status;
}

QString faultOfHost(const QString &text)
{
    return Texts::tr("\"%1\" is not HOST[:PORT]").arg(text);
}

ExitStatus refuseHost(Tool &tool, const QString &text)
{
    return refuse(tool, faultOfHost(text));
}

ExitStatus refuseEmpty(Tool &tool, const QString &name)
{
    return refuse(tool, Texts::tr("%1 is empty").arg(name));
}

std::shared_ptr<BizModel::Device> openDevice(Tool &tool, const QString &hostText,
                                             ExitStatus &status)
{
    const std::optional<Host> host = parseHost(hostText);
    if (!host) {
        status = refuseHost(tool, hostText);
        return nullptr;
    }
    QString error;
    auto device = tool.session.device(*host, error);
    if (!device)
        status = fail(tool, error, Unreachable);
    return device;
}

ExitStatus
carryOut(Tool &tool, const QString &hostText,
         const std::function<bool(const std::shared_ptr<BizModel::Device> &, QString &)> &operation)
{
    ExitStatus status = Done;
    const auto device = openDevice(tool, hostText, status);
    if (!device)
        return status;
    QString error;
    return operation(device, error) ? finish(tool) : fail(tool, error);
}

ExitStatus finish(Tool &tool, QJsonObject result)
{
    if (!tool.console.isJson())
        return Done;
    result.insert(QStringLiteral("event"), QStringLiteral("done"));
    result.insert(QStringLiteral("command"), tool.command);
    tool.console.answerObject(result);
    return Done;
}

void show(Tool &tool, const std::string &json, const QString &table)
{
    if (tool.console.isJson())
        tool.console.answerJson(json);
    else
        tool.console.answer(table.trimmed());
}

} // namespace Tavoro::Ctl
