#pragma once

#include <QString>

// Why a streamed read fails, as it is reported.

/// What a failure reports before it calls the callback.
enum Reporting {
    SentenceWithStatusBar,
    BareWarning,
    WarningWithDevice,
};

struct Reason {
    const char *words;
    Reporting reporting = SentenceWithStatusBar;
};

inline constexpr Reason cancelled{"Operation has been cancelled.", WarningWithDevice};
inline constexpr Reason controlled{"The device is controlled by others.", BareWarning};
inline constexpr Reason offline{"The device is offline"};

inline QString sentence(const char *reason)
{
    return QStringLiteral("Get file export information failed: %1 .")
        .arg(QString::fromLatin1(reason));
}
