#pragma once

namespace Tavoro::SSProxy::Internal {

/// Asks for devices now, those included whose channels were removed. Nothing happens while nobody
/// looks for devices. Any thread.
void refreshDiscovery();

} // namespace Tavoro::SSProxy::Internal
