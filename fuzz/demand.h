#pragma once

#include <cstdio>
#include <cstdlib>

/// Ends the run as a finding if \a holds is false.
inline void demand(bool holds, const char *sentence)
{
    if (holds)
        return;
    std::fprintf(stderr, "Broken: %s\n", sentence);
    std::abort();
}
