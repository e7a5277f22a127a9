#include "logging_p.h"

namespace Tavoro::SessionInternal {

Q_LOGGING_CATEGORY(sessionLog, "tavoro.session")

} // namespace Tavoro::SessionInternal
