#pragma once

#include <cstddef>

namespace Bench {

/// What this process has and has used. Linux only.
struct ProcessCost {
    double seconds = 0; ///< Processor time of all threads so far.
    int threads = 0;
    std::size_t heap = 0; ///< Bytes that are allocated.
    std::size_t resident = 0; ///< Bytes of memory that belong to the process.

    static ProcessCost now();
};

} // namespace Bench
