#pragma once

#include <QLoggingCategory>

namespace Tavoro::Control::Internal {

/// Category of all log lines of the library, "tavoro.control". QT_LOGGING_RULES can disable levels.
Q_DECLARE_LOGGING_CATEGORY(controlLog)

} // namespace Tavoro::Control::Internal
