#pragma once

#include <QHostAddress>
#include <QString>

namespace Tavoro::SSProxy::Internal {

/// An address as text, in the form of IPv4 where it is one.
inline QString addressText(const QHostAddress &address)
{
    bool isIpv4 = false;
    const quint32 ipv4 = address.toIPv4Address(&isIpv4);
    return (isIpv4 ? QHostAddress(ipv4) : address).toString();
}

} // namespace Tavoro::SSProxy::Internal
