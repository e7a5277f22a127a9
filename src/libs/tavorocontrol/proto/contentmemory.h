#pragma once

#include <QtGlobal>

#include <algorithm>
#include <cstddef>
#include <cstdint>

#ifdef Q_OS_LINUX
#include <sys/mman.h>
#endif

namespace Tavoro::ProtoModel {

/// Asks the system to provide \a memory in large pages, before it is first written. A content of
/// 100 MiB then causes 50 page faults and not 25,600, which take as long as receiving it.
inline void preferLargePages([[maybe_unused]] void *memory, [[maybe_unused]] std::size_t size)
{
#ifdef Q_OS_LINUX
    constexpr std::uintptr_t largePage = 2u << 20; // a multiple of the size of any small page
    const auto begin =
        (reinterpret_cast<std::uintptr_t>(memory) + largePage - 1) & ~(largePage - 1);
    const auto end = (reinterpret_cast<std::uintptr_t>(memory) + size) & ~(largePage - 1);
    if (begin < end)
        ::madvise(reinterpret_cast<void *>(begin), end - begin, MADV_HUGEPAGE); // only a wish
#endif
}

/// Reserves memory in \a content, a string or byte array, before \a more bytes are appended to it.
/// \a announced is the length of the whole content according to the peer; 0 if it is unknown.
///
/// The announced length is trusted up to the length of the longest packet, and beyond that up to 16
/// times the received bytes. If it is correct, at most a sixteenth of the content is copied twice.
/// If it is too large, it costs address space, but hardly any memory.
template <class Bytes>
void reserveForContent(Bytes &content, std::size_t more, std::size_t announced)
{
    constexpr std::size_t alwaysTrusted = 64u << 20;
    const auto received = static_cast<std::size_t>(content.size());
    const auto capacity = static_cast<std::size_t>(content.capacity());
    const std::size_t trusted = std::min(announced, std::max(alwaysTrusted, 16 * received));
    const std::size_t needed = received + more;
    const bool isForAll = trusted == announced; // the sooner, the less is copied
    if (trusted <= capacity || needed > trusted || (needed <= capacity && !isForAll))
        return;
    content.reserve(static_cast<decltype(content.size())>(trusted));
    preferLargePages(content.data(), trusted);
}

} // namespace Tavoro::ProtoModel
