#pragma once

#include <QString>

namespace Tavoro::SSProxy::Wire {

/// "HOST:PORT"; a host with colons of its own, an address of IPv6, stands in brackets:
/// "[::1]:6630".
inline QString hostAndPort(const QString &host, quint16 port)
{
    const bool hasColons = host.contains(QLatin1Char(':'));
    return (hasColons ? QStringLiteral("[%1]:%2") : QStringLiteral("%1:%2")).arg(host).arg(port);
}

} // namespace Tavoro::SSProxy::Wire
