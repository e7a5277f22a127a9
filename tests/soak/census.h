#pragma once

#include <cstddef>

/// What a process holds at one moment.
struct Census {
    static Census taken();
    /// When no more than so many threads are left and nothing is being closed any more, at the
    /// latest after three seconds.
    static Census takenAtRest(int threads);

    int threads;
    int files; ///< Open file descriptors.
    std::size_t heap; ///< Bytes in use; 0 where a sanitizer has its own allocator.
};
