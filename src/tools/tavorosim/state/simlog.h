#pragma once

#include <QLoggingCategory>

namespace Tavoro::Sim {

/// What the simulated device does: connections and exchanges at info level, bodies at debug level.
/// Off until it is asked for, except for warnings.
Q_DECLARE_LOGGING_CATEGORY(simLog)

} // namespace Tavoro::Sim
