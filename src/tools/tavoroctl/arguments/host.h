#pragma once

#include <tavorossproxy/channeloptions.h>

#include <QString>

#include <optional>

namespace Tavoro::Ctl {

/// Where a device listens.
struct Host {
    QString name;
    quint16 port = 0;
};

/// "HOST", "HOST:PORT" or "[IPV6]:PORT"; nothing if \a text is none of them. \a usualPort is that
/// of a text without one.
std::optional<Host> parseHost(const QString &text, quint16 usualPort = SSProxy::defaultTcpPort);

} // namespace Tavoro::Ctl
