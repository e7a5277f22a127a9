#pragma once

#include <QString>

namespace Tavoro::Ctl {

/// Takes a number from 0 to \a most out of \a text. False when it is none.
bool readNumber(const QString &text, int most, int &number);

} // namespace Tavoro::Ctl
