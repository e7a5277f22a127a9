#pragma once

#include <QString>

namespace Tavoro::Ctl {

/// Reads a number from 0 to \a most. False if \a text is not one.
bool readNumber(const QString &text, int most, int &number);

} // namespace Tavoro::Ctl
