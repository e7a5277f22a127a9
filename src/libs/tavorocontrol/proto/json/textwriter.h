#pragma once

// Puts strings into a buffer of JSON text. Each function returns the place after its text.

#include <tavorocontrol/proto/export.h>
#include <tavorocontrol/proto/json/jsonwriter.h>
#include <tavorocontrol/proto/json/textscan.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>

namespace ajson {

/// Whether a string can hold the character as it is written.
constexpr bool isPlain(char c) noexcept
{
    return c >= ' ' && c <= '~' && c != '"' && c != '\\';
}

/// \name Copies of texts
/// Each function copies the text. It returns 0 if all characters are plain.
/// @{

inline std::uint64_t copyBytes(char *at, const char *from, std::size_t size) noexcept
{
    std::uint64_t notPlain = 0;
    for (std::size_t i = 0; i < size; ++i) {
        at[i] = from[i];
        notPlain |= !isPlain(from[i]);
    }
    return notPlain;
}

/// For texts that have at least the size of a word and at most that of two: two words, which may
/// overlap.
template <class Word>
std::uint64_t copyWords(char *at, const char *from, std::size_t size) noexcept
{
    const std::size_t last = size - sizeof(Word);
    const Word words[] = {loadWord<Word>(from), loadWord<Word>(from + last)};
    std::memcpy(at, &words[0], sizeof(Word));
    std::memcpy(at + last, &words[1], sizeof(Word));
    if constexpr (sizeof words == sizeof(std::uint64_t))
        return bytesNotPlain(words[0] | std::uint64_t{words[1]} << 32);
    else
        return bytesNotPlain(words[0]) | bytesNotPlain(words[1]);
}

inline std::uint64_t copyBlock(char *at, const char *from, std::size_t offset) noexcept
{
    const Block block(from + offset);
    block.store(at + offset);
    return block.notPlain();
}

/// For texts that have at least the size of a block. Blocks may overlap. Texts of up to three
/// blocks take no branches that depend on their length.
inline std::uint64_t copyBlocks(char *at, const char *from, std::size_t size) noexcept
{
    const std::size_t last = size - Block::size;
    std::uint64_t notPlain = copyBlock(at, from, 0)
        | copyBlock(at, from, std::min(Block::size, last)) | copyBlock(at, from, last);
    for (std::size_t i = 2 * Block::size; i < last; i += Block::size)
        notPlain |= copyBlock(at, from, i);
    return notPlain;
}

/// For texts that are shorter than a block. Not inlined, so that the copy of longer texts stays
/// small.
inline Q_NEVER_INLINE std::uint64_t copyShort(char *at, const char *from, std::size_t size) noexcept
{
    if (size >= sizeof(std::uint64_t))
        return copyWords<std::uint64_t>(at, from, size);
    if (size >= sizeof(std::uint32_t))
        return copyWords<std::uint32_t>(at, from, size);
    return copyBytes(at, from, size);
}

inline std::uint64_t copyText(char *at, const char *from, std::size_t size) noexcept
{
    return size >= Block::size ? copyBlocks(at, from, size) : copyShort(at, from, size);
}

/// @}

/// Writes the content of a string of any length, with escapes. Reserves \a rest bytes after it.
TAVOROPROTO_EXPORT char *writeEscaped(JsonWriter &writer, char *at, const std::string &text,
                                      std::size_t rest);

/// Writes the content of a string. Reserves \a rest bytes after it.
inline char *writeContent(JsonWriter &writer, char *at, const std::string &text, std::size_t rest)
{
    const std::size_t size = text.size();
    if (size + rest <= writer.space(at) && copyText(at, text.data(), size) == 0)
        return at + size;
    return writeEscaped(writer, at, text, rest);
}

} // namespace ajson
