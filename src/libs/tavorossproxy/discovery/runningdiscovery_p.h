#pragma once

#include "discoveryservice_p.h"

#include <memory>

namespace Tavoro::SSProxy::Internal {

/// Returns the discovery service of the process; null before ensureDiscovery(). Any thread.
std::shared_ptr<DiscoveryService> runningDiscovery();

/// Returns the discovery service on the current thread of the channels, and creates it if there is
/// none. Any thread.
std::shared_ptr<DiscoveryService> ensureDiscovery();

/// Readmits devices whose channels were removed, and sends discovery requests now. Does nothing
/// before discovery was started. Any thread.
void refreshDiscovery();

} // namespace Tavoro::SSProxy::Internal
