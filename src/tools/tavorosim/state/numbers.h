#pragma once

#include <QString>

#include <optional>

namespace Tavoro::Sim {

/// The number that people mean by \a text: hexadecimal behind 0x, else decimal, also with zeros in
/// front. Nothing when it is none.
inline std::optional<qint64> toNumber(const QString &text)
{
    bool ok = false;
    const bool isHexadecimal = text.startsWith(QLatin1String("0x"), Qt::CaseInsensitive);
    const qint64 number = text.toLongLong(&ok, isHexadecimal ? 16 : 10);
    return ok ? std::make_optional(number) : std::nullopt;
}

} // namespace Tavoro::Sim
