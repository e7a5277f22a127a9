#include "failure.h"

#include "statusmeaning.h"

#include <tavorocontrol/controlhelper.h>
#include <tavoroctl/arguments/texts.h>

namespace Tavoro::Ctl {

QString Failure::meaning() const
{
    if (status == 0)
        return Texts::tr(rowOf(exit).meaning);
    return isDeviceStatus(status) ? meaningOfStatus(status)
                                  : Control::ControlHelper::errorText(static_cast<quint16>(status));
}

QString Failure::sentence() const
{
    const QString program = exit == UsageError ? QStringLiteral("tavoroctl: ") : QString();
    const QString place = line == 0 ? QString() : Texts::tr("line %1 of the batch: ").arg(line);
    return program + place + withMeanings(text);
}

QJsonObject Failure::toJson() const
{
    return {
        {QStringLiteral("event"), QStringLiteral("error")},
        {QStringLiteral("result"), QLatin1String(rowOf(exit).name)},
        {QStringLiteral("exitStatus"), exit},
        {QStringLiteral("status"), status},
        {QStringLiteral("meaning"), meaning()},
        {QStringLiteral("text"), text},
        {QStringLiteral("operation"), operation},
        {QStringLiteral("line"), line},
    };
}

} // namespace Tavoro::Ctl
