#include "allocations.h"

#include <QtGlobal>

#include <atomic>
#include <cstddef>

namespace {

std::atomic<long> calls{0};

} // namespace

long Allocations::count()
{
    return calls;
}

// The functions of the C library that the ones below replace, for all libraries of the process.
extern "C" {
void *__libc_malloc(size_t size);
void *__libc_calloc(size_t count, size_t size);
void *__libc_realloc(void *block, size_t size);

Q_DECL_EXPORT void *malloc(size_t size) noexcept
{
    ++calls;
    return __libc_malloc(size);
}

Q_DECL_EXPORT void *calloc(size_t count, size_t size) noexcept
{
    ++calls;
    return __libc_calloc(count, size);
}

Q_DECL_EXPORT void *realloc(void *block, size_t size) noexcept
{
    ++calls;
    return __libc_realloc(block, size);
}
}
