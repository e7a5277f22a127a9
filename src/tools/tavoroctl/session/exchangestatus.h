#pragma once

#include <tavoroctl/output/exitstatus.h>

#include <tavorossproxy/exchangewatch.h>

#include <optional>

namespace Tavoro::Ctl {

/// The exit status of a command whose last exchange with the device was \a exchange. Failed if the
/// exchange succeeded, or if there was none: then something else failed.
ExitStatus exitStatusOf(const std::optional<SSProxy::Exchange> &exchange);

/// The status of a last exchange that failed; 0 if it succeeded or if there was none.
int statusOf(const std::optional<SSProxy::Exchange> &exchange);

} // namespace Tavoro::Ctl
