#pragma once

// Functions that search a text, eight bytes at a time.

#include <cstdint>
#include <cstring>

namespace ajson {

constexpr std::uint64_t eachByte(std::uint64_t byte) noexcept
{
    return byte * 0x0101010101010101U;
}

/// Not 0 if a byte of \a word is less than \a bound, which is at most 128.
constexpr std::uint64_t bytesBelow(std::uint64_t word, std::uint64_t bound) noexcept
{
    return (word - eachByte(bound)) & ~word & eachByte(0x80);
}

constexpr std::uint64_t bytesEqual(std::uint64_t word, char c) noexcept
{
    return bytesBelow(word ^ eachByte(static_cast<unsigned char>(c)), 1);
}

constexpr bool isSpecial(char c) noexcept
{
    return c == '"' || c == '\\' || static_cast<unsigned char>(c) < ' ';
}

/// Whether a string can hold the character as it is written.
constexpr bool isPlain(char c) noexcept
{
    return !isSpecial(c) && static_cast<unsigned char>(c) <= '~';
}

/// Not 0 if a byte of \a word is not plain.
constexpr std::uint64_t bytesNotPlain(std::uint64_t word) noexcept
{
    return bytesBelow(word, ' ') | bytesEqual(word, '"') | bytesEqual(word, '\\')
        | bytesEqual(word, 127) | (word & eachByte(0x80));
}

/// The first quote, backslash or control character, or \a end.
inline const char *findSpecial(const char *at, const char *end) noexcept
{
    for (; end - at >= 8; at += 8) {
        std::uint64_t word;
        std::memcpy(&word, at, 8);
        if (bytesBelow(word, ' ') | bytesEqual(word, '"') | bytesEqual(word, '\\'))
            break;
    }
    while (at != end && !isSpecial(*at))
        ++at;
    return at;
}

} // namespace ajson
