#pragma once

// Puts numbers and strings into a buffer of JSON text. Each function returns the place after its
// text.

#include <tavorocontrol/proto/json/textscan.h>

#include <tavorocontrol/proto/export.h>
#include <tavorocontrol/proto/json/jsonwriter.h>

#include <array>
#include <cstdint>
#include <cstring>
#include <string>

namespace ajson {

constexpr std::array<char, 200> makeDigitPairs()
{
    std::array<char, 200> pairs{};
    for (std::size_t i = 0; i < 100; ++i) {
        pairs[2 * i] = static_cast<char>('0' + i / 10);
        pairs[2 * i + 1] = static_cast<char>('0' + i % 10);
    }
    return pairs;
}

inline constexpr std::array<char, 200> digitPairs = makeDigitPairs();

/// Puts a number below 100 with both its digits.
inline char *putPair(char *at, std::size_t number) noexcept
{
    std::memcpy(at, &digitPairs[2 * number], 2);
    return at + 2;
}

/// Puts a number below 100 without a leading zero.
inline char *putSmall(char *at, std::size_t number) noexcept
{
    if (number >= 10)
        return putPair(at, number);
    *at = static_cast<char>('0' + number);
    return at + 1;
}

template <class Unsigned>
char *putDigits(char *at, Unsigned number) noexcept
{
    if (number < 100)
        return putSmall(at, number);
    if (number < 10000)
        return putPair(putSmall(at, number / 100), number % 100);
    at = putDigits(at, number / 10000);
    return putPair(putPair(at, number % 10000 / 100), number % 100);
}

template <class Integer>
char *putInteger(char *at, Integer number) noexcept
{
    using Bits = std::conditional_t<sizeof(Integer) == 8, std::uint64_t, std::uint32_t>;
    const auto bits = static_cast<Bits>(number);
    if constexpr (std::is_signed_v<Integer>) {
        if (number < 0) {
            *at = '-';
            return putDigits(at + 1, 0 - bits);
        }
    }
    return putDigits(at, bits);
}

/// Puts the content of a string up to its end, or up to the first character that needs an escape.
/// \a from is then at that character.
inline char *putPlain(char *at, const char *&from, const char *end) noexcept
{
    for (; end - from >= 8; at += 8, from += 8) {
        std::uint64_t word;
        std::memcpy(&word, from, 8);
        if (bytesNotPlain(word))
            break;
        std::memcpy(at, &word, 8);
    }
    while (from != end && isPlain(*from))
        *at++ = *from++;
    return at;
}

/// Puts the rest of a string, which begins with a character that needs an escape. Reserves space
/// for the closing quote.
TAVOROPROTO_EXPORT char *writeEscaped(JsonWriter &writer, char *at, const char *from,
                                      const char *end);

inline char *writeString(JsonWriter &writer, char *at, const std::string &text)
{
    const char *from = text.data();
    const char *const end = from + text.size();
    at = writer.begin(at, text.size() + 2);
    *at++ = '"';
    at = putPlain(at, from, end);
    if (from != end)
        at = writeEscaped(writer, at, from, end);
    *at++ = '"';
    return at;
}

} // namespace ajson
