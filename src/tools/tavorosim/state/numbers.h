#pragma once

#include <QString>

#include <optional>

namespace Tavoro::Sim {

/// The number in \a text: hexadecimal with the prefix 0x, else decimal, leading zeros included.
/// Nothing if \a text is not a number.
inline std::optional<qint64> toNumber(const QString &text)
{
    bool ok = false;
    const bool isHexadecimal = text.startsWith(QLatin1String("0x"), Qt::CaseInsensitive);
    const qint64 number = text.toLongLong(&ok, isHexadecimal ? 16 : 10);
    return ok ? std::make_optional(number) : std::nullopt;
}

} // namespace Tavoro::Sim
