#pragma once

#include "pending.h"

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace Tavoro::Python {

/// Searches for devices for this time, with requests to these addresses and ports, or to all
/// networks of this machine without any. The answer is a JSON list of the identities that devices
/// have sent.
std::shared_ptr<Pending>
discover(int milliseconds, const std::vector<std::pair<std::string, std::uint16_t>> &targets);

} // namespace Tavoro::Python
