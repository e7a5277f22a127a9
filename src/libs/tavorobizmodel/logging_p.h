#pragma once

#include <QLoggingCategory>

namespace Tavoro::BizModel {

/// Log lines of the library. All levels are on until QT_LOGGING_RULES says otherwise.
Q_DECLARE_LOGGING_CATEGORY(modelLog)

} // namespace Tavoro::BizModel
