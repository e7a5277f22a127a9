#include "tool.h"

namespace Tavoro::Ctl {

ExitStatus refuse(Tool &tool, const QString &fault)
{
    tool.console.error(QStringLiteral("tavoroctl: ") + fault);
    return UsageError;
}

ExitStatus fail(Tool &tool, const QString &error)
{
    tool.console.error(error);
    return Failed;
}

ExitStatus refuseHost(Tool &tool, const QString &text, const QString &place)
{
    return refuse(tool, place + QStringLiteral("\"%1\" is not HOST[:PORT]").arg(text));
}

ExitStatus refuseEmpty(Tool &tool, const QString &name)
{
    return refuse(tool, name + QStringLiteral(" is empty"));
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
        status = fail(tool, error);
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
    return operation(device, error) ? Done : fail(tool, error);
}

void show(Tool &tool, const std::string &json, const QString &table)
{
    if (tool.asJson)
        tool.console.answerJson(json);
    else
        tool.console.answer(table.trimmed());
}

} // namespace Tavoro::Ctl
