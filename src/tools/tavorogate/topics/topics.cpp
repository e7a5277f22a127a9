#include "topics.h"

namespace Tavoro::Gate {

namespace {

QString ofDevice(const QString &serial, const char *rest)
{
    return QStringLiteral("tavoro/%1/%2").arg(serial, QLatin1String(rest));
}

QString ofGateway(const QString &gateway, const char *rest)
{
    return QStringLiteral("tavoro/gateway/%1/%2").arg(gateway, QLatin1String(rest));
}

} // namespace

// clang-format off
QString Topics::gatewayOnline(const QString &gateway)                 { return ofGateway(gateway, "online"); }
QString Topics::mark(const QString &gateway, const QString &serial)   { return ofGateway(gateway, "mark/") + serial; }
QString Topics::deviceOnline(const QString &serial)                   { return ofDevice(serial, "online"); }
QString Topics::state(const QString &serial)                          { return ofDevice(serial, "state/"); }
QString Topics::call(const QString &serial)                           { return ofDevice(serial, "call/"); }
QString Topics::audit(const QString &serial)                          { return ofDevice(serial, "audit"); }
QString Topics::answers()                                             { return QStringLiteral("tavoro/answer/"); }
QString Topics::answersTo(const QString &user)                        { return answers() + user + QLatin1Char('/'); }
QString Topics::filterOf(const QString &beginning)                    { return beginning + QLatin1Char('#'); }
// clang-format on

} // namespace Tavoro::Gate
