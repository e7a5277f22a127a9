#pragma once

#include <QLoggingCategory>

namespace Tavoro::Control::Internal {

/// Category of all log lines of the library. QT_LOGGING_RULES can switch levels off.
Q_DECLARE_LOGGING_CATEGORY(controlLog)

} // namespace Tavoro::Control::Internal
