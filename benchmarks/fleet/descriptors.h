#pragma once

#include <sys/resource.h>

namespace Bench {

/// Raises the limit of open descriptors to the one that the system allows.
inline void allowAllDescriptors()
{
    rlimit limit{};
    getrlimit(RLIMIT_NOFILE, &limit);
    limit.rlim_cur = limit.rlim_max;
    setrlimit(RLIMIT_NOFILE, &limit);
}

} // namespace Bench
