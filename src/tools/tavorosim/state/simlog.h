#pragma once

#include <QLoggingCategory>

namespace Tavoro::Sim {

/// Log of the simulated device: connections and exchanges at info level, bodies at debug level.
/// Only warnings are enabled by default.
Q_DECLARE_LOGGING_CATEGORY(simLog)

} // namespace Tavoro::Sim
