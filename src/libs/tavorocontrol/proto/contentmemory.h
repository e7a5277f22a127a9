#pragma once

#include <algorithm>
#include <cstddef>

namespace Tavoro::ProtoModel {

/// Reserves memory in \a content, a string or byte array, before \a more bytes are appended to it.
/// \a announced is the length of the whole content according to the peer; 0 if it is unknown.
///
/// The announced length is trusted up to the length of the longest packet, and beyond that up to 16
/// times the received bytes. If it is correct, at most a sixteenth of the content is copied twice.
/// If it is too large, it costs address space, but no memory.
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
}

} // namespace Tavoro::ProtoModel
