#pragma once

#include <functional>

namespace Tavoro::Ctl {

/// Runs \a work, which may block, on a thread of its own, and returns when it has ended. The
/// caller's event loop turns meanwhile.
void runInBackground(std::function<void()> work);

} // namespace Tavoro::Ctl
