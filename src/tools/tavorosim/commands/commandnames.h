#pragma once

#include <QString>
#include <QtGlobal>

#include <optional>

namespace Tavoro::Sim {

/// The code of the identity answer, which is none of the commands.
constexpr quint16 identityCode = 0;

/// The code that \a text means: a number from 0x1 to 0xFFFF, the name of a command as in
/// commandcodes.h, or "identity". Nothing when it means none.
std::optional<quint16> findCode(const QString &text);

/// The name of a code; a code without one as a number.
QString nameOfCode(quint16 code);

} // namespace Tavoro::Sim
