#include "requestoutput.h"

#include <tavoroctl/arguments/texts.h>

#include <QJsonArray>
#include <QStringList>

namespace Tavoro::Ctl {

namespace {

QString codeOf(const SSProxy::PacketHead &head)
{
    const int code = head.BC << 8 | head.FC;
    return QStringLiteral("0x") + QStringLiteral("%1").arg(code, 4, 16, QLatin1Char('0')).toUpper();
}

QStringList filtersOf(const SSProxy::PacketHead &head)
{
    QStringList filters;
    for (const quint8 filter : head.arg2)
        filters += QString::number(filter);
    return filters;
}

QJsonObject objectOf(const RequestOrigin &origin, const SSProxy::DeviceRequestCommand &request)
{
    const SSProxy::PacketHead &head = request.head();
    return {{QStringLiteral("event"), QStringLiteral("request")},
            {QStringLiteral("host"), origin.host},
            {QStringLiteral("operation"), origin.operation},
            {QStringLiteral("line"), origin.line},
            {QStringLiteral("code"), codeOf(head)},
            {QStringLiteral("type"), head.type},
            {QStringLiteral("filters"),
             QJsonArray{head.arg2[0], head.arg2[1], head.arg2[2], head.arg2[3]}},
            {QStringLiteral("body"), QString::fromStdString(request.body())}};
}

} // namespace

void showRequest(Console &console, const RequestOrigin &origin,
                 const SSProxy::DeviceRequestCommand &request)
{
    if (console.isJson())
        return console.answerObject(objectOf(origin, request));
    const SSProxy::PacketHead &head = request.head();
    console.answer(Texts::tr("%1: code %2, type %3, filters %4, %5 bytes")
                       .arg(origin.operation, codeOf(head), QString::number(head.type),
                            filtersOf(head).join(QLatin1Char(' ')),
                            QString::number(request.body().size())));
    if (!request.body().empty())
        console.answerJson(request.body());
}

} // namespace Tavoro::Ctl
