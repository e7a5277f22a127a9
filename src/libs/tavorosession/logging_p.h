#pragma once

#include <QLoggingCategory>

namespace Tavoro::SessionInternal {

Q_DECLARE_LOGGING_CATEGORY(sessionLog) // "tavoro.session"

} // namespace Tavoro::SessionInternal
