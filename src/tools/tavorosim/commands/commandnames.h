#pragma once

#include <QString>
#include <QtGlobal>

#include <optional>

namespace Tavoro::Sim {

/// The code of the identity answer. No command has it.
constexpr quint16 identityCode = 0;

/// The code of \a text: a number from 0x1 to 0xFFFF, the name of a command as in commandcodes.h, or
/// "identity". Nothing for any other text.
std::optional<quint16> findCode(const QString &text);

/// The name of a code; the number of a code without a name.
QString nameOfCode(quint16 code);

} // namespace Tavoro::Sim
