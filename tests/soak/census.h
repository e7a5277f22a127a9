#pragma once

#include <cstddef>

/// The resources that the process holds at one moment.
struct Census {
    static Census taken();
    /// Waits until at most this number of threads is left and the counts are stable, for three
    /// seconds at most.
    static Census takenAtRest(int threads);

    int threads;
    int files; ///< Open file descriptors.
    std::size_t heap; ///< Bytes in use; 0 with a sanitizer, which has an allocator of its own.
};
