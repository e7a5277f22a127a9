#pragma once

#include <QLoggingCategory>

#include <chrono>

namespace Tavoro::SSProxy::Internal {

Q_DECLARE_LOGGING_CATEGORY(channelLog) // "tavoro.channel"

/// Shortest interval between two log lines about events that a peer can trigger at will.
constexpr std::chrono::seconds logInterval(1);

} // namespace Tavoro::SSProxy::Internal
