#pragma once

// The fast path: values and keys in the form in which devices and this library write them, without
// blanks, escapes, points or exponents. The tokeniser reads any other form.

#include <tavorocontrol/proto/json/recordfields.h>
#include <tavorocontrol/proto/json/textscan.h>

#include <QtGlobal>

#include <cstdint>
#include <cstring>

namespace ajson {

/// Compares \a text, which has at least the size of a word, word by word. The last word may overlap
/// the previous one.
template <class Word, std::size_t Size>
bool equalWords(const char *at, const std::array<char, Size> &text) noexcept
{
    constexpr std::size_t last = Size - sizeof(Word);
    using Bits = std::common_type_t<Word, unsigned>;
    const auto difference = [&](std::size_t i) {
        return static_cast<Bits>(loadWord<Word>(at + i) ^ loadWord<Word>(text.data() + i));
    };
    Bits differences = difference(last);
    for (std::size_t i = 0; i < last; i += sizeof(Word))
        differences |= difference(i);
    return differences == 0;
}

/// Returns true if the input at \a at begins with the text.
template <class Text>
bool startsWith(const char *at, const char *end) noexcept
{
    constexpr std::size_t size = Text::size;
    if (static_cast<std::size_t>(end - at) < size)
        return false;
    if constexpr (size >= sizeof(std::uint64_t))
        return equalWords<std::uint64_t>(at, Text::text);
    else if constexpr (size >= sizeof(std::uint32_t))
        return equalWords<std::uint32_t>(at, Text::text);
    else if constexpr (size >= sizeof(std::uint16_t))
        return equalWords<std::uint16_t>(at, Text::text);
    else
        return *at == Text::text[0];
}

/// Reads the digits at \a at, and a minus sign before them, and returns the place after them. A
/// point or an exponent may follow. Returns null, and leaves \a value unchanged, if no digit
/// follows.
template <class Integer>
Q_ALWAYS_INLINE const char *readDigits(const char *at, Integer &value) noexcept
{
    using Bits = std::conditional_t<std::is_same_v<Integer, bool> || sizeof(Integer) == 8,
                                    std::uint64_t, std::uint32_t>;
    const auto digitAt = [&at] {
        return static_cast<Bits>(static_cast<unsigned char>(*at)) - '0';
    };

    const bool negative = std::is_signed_v<Integer> && *at == '-';
    if (negative)
        ++at;
    Bits bits = digitAt();
    if (bits > 9)
        return nullptr;
    ++at;
    for (Bits digit = digitAt(); digit <= 9; digit = digitAt()) {
        bits = bits * 10 + digit; // low bits only, as with tokens
        ++at;
    }
    value = static_cast<Integer>(negative ? 0 - bits : bits);
    return at;
}

/// \name Plain values
/// Each function reads the value at \a at and returns the place after it, or returns null and
/// leaves \a value unchanged. The functions rely on the NUL that ends the input.
/// @{

template <class Integer>
Q_ALWAYS_INLINE const char *readPlain(const char *at, const char *, Integer &value) noexcept
{
    Integer integer{};
    at = readDigits(at, integer);
    if (!at || *at == '.' || *at == 'e' || *at == 'E')
        return nullptr;
    value = integer;
    return at;
}

inline const char *readPlain(const char *at, const char *end, std::string &value)
{
    if (*at != '"')
        return nullptr;
    const char *const begin = at + 1;
    const char *const quote = findSpecial(begin, end);
    if (quote == end || *quote != '"')
        return nullptr;
    value = std::string(begin, quote);
    return quote + 1;
}

/// @}

} // namespace ajson
