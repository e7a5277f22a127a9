#pragma once

#include <QLoggingCategory>

namespace Tavoro::Control::Internal {

/// Log lines of the library. All levels are on until QT_LOGGING_RULES says otherwise.
Q_DECLARE_LOGGING_CATEGORY(controlLog)

} // namespace Tavoro::Control::Internal
