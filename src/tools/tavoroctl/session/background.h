#pragma once

#include <functional>

namespace Tavoro::Ctl {

/// Runs \a work, which may block, on a separate thread and returns when it has ended. The caller's
/// event loop runs meanwhile.
void runInBackground(std::function<void()> work);

} // namespace Tavoro::Ctl
