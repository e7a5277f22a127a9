#include "allocated.h"

#include <atomic>
#include <cerrno>
#include <cstdlib>

#include <malloc.h>

namespace {

std::atomic<qint64> liveBlocks{0};
std::atomic<qint64> liveBytes{0};

} // namespace

Allocated Allocated::now()
{
    return {liveBlocks, liveBytes};
}

// The functions of the C library that the ones below replace, for all libraries of the
// process. Glibc exports them for this purpose.
extern "C" {
void *__libc_malloc(size_t size);
void *__libc_calloc(size_t count, size_t size);
void *__libc_realloc(void *block, size_t size);
void *__libc_memalign(size_t alignment, size_t size);
void __libc_free(void *block);
}

namespace {

void *counted(void *block)
{
    if (block) {
        liveBlocks.fetch_add(1, std::memory_order_relaxed);
        liveBytes.fetch_add(static_cast<qint64>(malloc_usable_size(block)),
                            std::memory_order_relaxed);
    }
    return block;
}

void uncounted(qint64 size)
{
    liveBlocks.fetch_sub(1, std::memory_order_relaxed);
    liveBytes.fetch_sub(size, std::memory_order_relaxed);
}

} // namespace

extern "C" { // exported, so that the libraries call these as well

Q_DECL_EXPORT void *malloc(size_t size) noexcept
{
    return counted(__libc_malloc(size));
}

Q_DECL_EXPORT void *calloc(size_t count, size_t size) noexcept
{
    return counted(__libc_calloc(count, size));
}

Q_DECL_EXPORT void *realloc(void *block, size_t size) noexcept
{
    const auto before = static_cast<qint64>(malloc_usable_size(block));
    void *const moved = __libc_realloc(block, size);
    const bool isGone = moved || size == 0; // a failed realloc() keeps the block
    if (block && isGone)
        uncounted(before);
    return counted(moved);
}

Q_DECL_EXPORT void *memalign(size_t alignment, size_t size) noexcept
{
    return counted(__libc_memalign(alignment, size));
}

Q_DECL_EXPORT void *aligned_alloc(size_t alignment, size_t size) noexcept
{
    return counted(__libc_memalign(alignment, size));
}

Q_DECL_EXPORT int posix_memalign(void **block, size_t alignment, size_t size) noexcept
{
    *block = counted(__libc_memalign(alignment, size));
    return *block ? 0 : ENOMEM;
}

Q_DECL_EXPORT void free(void *block) noexcept
{
    if (block)
        uncounted(static_cast<qint64>(malloc_usable_size(block)));
    __libc_free(block);
}
}
