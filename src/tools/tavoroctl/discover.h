#pragma once

#include "commands.h"

namespace Tavoro::Ctl {

/// Lists the devices that are found: of the whole network, or at the given addresses.
ExitStatus runDiscover(Tool &tool, const QStringList &words);

} // namespace Tavoro::Ctl
