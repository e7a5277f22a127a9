#include "simlog.h"

namespace Tavoro::Sim {

Q_LOGGING_CATEGORY(simLog, "tavoro.sim", QtWarningMsg)

} // namespace Tavoro::Sim
