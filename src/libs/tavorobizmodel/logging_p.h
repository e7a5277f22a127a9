#pragma once

#include <QLoggingCategory>

namespace Tavoro::BizModel {

/// Category of all log lines of the library. QT_LOGGING_RULES can disable levels.
Q_DECLARE_LOGGING_CATEGORY(modelLog)

} // namespace Tavoro::BizModel
