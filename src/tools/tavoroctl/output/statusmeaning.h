#pragma once

#include <QString>

namespace Tavoro::Ctl {

/// What a status of a device (1 to 255) means, in a few words.
QString meaningOfStatus(int status);

/// \a text, with the meaning after each "hardware error:3".
QString withMeanings(const QString &text);

} // namespace Tavoro::Ctl
