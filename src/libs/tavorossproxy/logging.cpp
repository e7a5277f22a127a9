#include "logging_p.h"

namespace Tavoro::SSProxy::Internal {

Q_LOGGING_CATEGORY(channelLog, "tavoro.channel")

} // namespace Tavoro::SSProxy::Internal
