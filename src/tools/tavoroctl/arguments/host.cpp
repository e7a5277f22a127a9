#include "host.h"

#include <QHostAddress>
#include <QRegularExpression>

namespace Tavoro::Ctl {

std::optional<Host> parseHost(const QString &text, quint16 usualPort)
{
    if (QHostAddress(text).protocol() == QAbstractSocket::IPv6Protocol)
        return Host{text, usualPort};
    static const QRegularExpression form(
        QStringLiteral("^(?:\\[([^\\]]+)\\]|([^:\\[\\]]+))(?::(\\d{1,5}))?$"));
    const QRegularExpressionMatch match = form.match(text);
    if (!match.hasMatch())
        return std::nullopt;
    const int port = match.captured(3).isEmpty() ? usualPort : match.captured(3).toInt();
    if (port < 1 || port > 65535)
        return std::nullopt;
    return Host{match.captured(1) + match.captured(2), static_cast<quint16>(port)};
}

} // namespace Tavoro::Ctl
