#pragma once

#include <QLoggingCategory>

namespace Tavoro::SSProxy::Internal {

Q_DECLARE_LOGGING_CATEGORY(channelLog) // "tavoro.channel"

} // namespace Tavoro::SSProxy::Internal
