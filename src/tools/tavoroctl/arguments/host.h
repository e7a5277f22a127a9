#pragma once

#include <tavorossproxy/channeloptions.h>

#include <QString>

#include <optional>

namespace Tavoro::Ctl {

/// The address of a device.
struct Host {
    QString name;
    quint16 port = 0;
};

/// Parses "HOST", "HOST:PORT", "[IPV6]:PORT" or an IPv6 address without brackets, such as "::1".
/// Nothing if \a text is not valid. \a usualPort is used if \a text names no port.
std::optional<Host> parseHost(const QString &text, quint16 usualPort = SSProxy::defaultTcpPort);

} // namespace Tavoro::Ctl
