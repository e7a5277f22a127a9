#pragma once

#include <QString>

namespace Tavoro::SSProxy::Wire {

/// Returns "HOST:PORT". An IPv6 address is written in brackets: "[::1]:6630".
inline QString hostAndPort(const QString &host, quint16 port)
{
    const bool hasColons = host.contains(QLatin1Char(':'));
    return (hasColons ? QStringLiteral("[%1]:%2") : QStringLiteral("%1:%2")).arg(host).arg(port);
}

} // namespace Tavoro::SSProxy::Wire
