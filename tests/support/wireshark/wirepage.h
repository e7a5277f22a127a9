#pragma once

#include <support/wireshark/handmadecapture.h>

#include <QByteArray>
#include <QFile>
#include <QRegularExpression>
#include <QString>

#include <string>

// The frames of docs/wire.md in captures.

inline QString wirePage()
{
    QFile page(QStringLiteral(WIRE_PAGE));
    return page.open(QIODevice::ReadOnly) ? QString::fromUtf8(page.readAll()) : QString();
}

/// The bytes of the block that begins with "```hex NAME" in the page.
inline std::string dump(const char *name)
{
    const QRegularExpression block(QStringLiteral("```hex %1\n(.*?)```").arg(QLatin1String(name)),
                                   QRegularExpression::DotMatchesEverythingOption);
    return QByteArray::fromHex(block.match(wirePage()).captured(1).toLatin1()).toStdString();
}

/// Adds the frame with a name, in the direction in which it travels in the page.
inline HandMadeCapture &operator<<(HandMadeCapture &capture, const char *name)
{
    const bool isRequest = QByteArray(name).contains("request") || QByteArray(name) == "ping";
    return isRequest ? capture.sent(dump(name)) : capture.received(dump(name));
}
