#include "logging_p.h"

namespace Tavoro::Control::Internal {

Q_LOGGING_CATEGORY(controlLog, "tavoro.control")

} // namespace Tavoro::Control::Internal
