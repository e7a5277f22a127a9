#pragma once

#include <QString>

namespace Tavoro::Ctl {

/// Whether a device reported \a status, not the channel to it.
constexpr bool isDeviceStatus(int status)
{
    return status >= 1 && status <= 255;
}

/// What a status of a device (1 to 255) means, in a few words.
QString meaningOfStatus(int status);

/// \a text, with the meaning after each "hardware error:3".
QString withMeanings(const QString &text);

} // namespace Tavoro::Ctl
