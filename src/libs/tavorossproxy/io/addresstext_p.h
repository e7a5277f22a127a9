#pragma once

#include <QHostAddress>
#include <QString>

namespace Tavoro::SSProxy::Internal {

/// Returns an address as text; an IPv4 address that is mapped to IPv6 in its IPv4 form.
inline QString addressText(const QHostAddress &address)
{
    bool isIpv4 = false;
    const quint32 ipv4 = address.toIPv4Address(&isIpv4);
    return (isIpv4 ? QHostAddress(ipv4) : address).toString();
}

} // namespace Tavoro::SSProxy::Internal
