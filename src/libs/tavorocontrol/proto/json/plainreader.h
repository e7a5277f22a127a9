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
    Word difference = loadWord<Word>(at + last) ^ loadWord<Word>(text.data() + last);
    for (std::size_t i = 0; i < last; i += sizeof(Word))
        difference |= loadWord<Word>(at + i) ^ loadWord<Word>(text.data() + i);
    return difference == 0;
}

/// Returns true if the input at \a at begins with the text.
template <class Text>
bool startsWith(const char *at, const char *end) noexcept
{
    using Word =
        std::conditional_t<(Text::size < sizeof(std::uint64_t)), std::uint32_t, std::uint64_t>;
    return static_cast<std::size_t>(end - at) >= Text::size && equalWords<Word>(at, Text::text);
}

/// \name Plain values
/// Each function reads the value at \a at and returns the place after it, or returns null and
/// leaves \a value unchanged. The functions rely on the NUL that ends the input.
/// @{

template <class Integer>
Q_ALWAYS_INLINE const char *readPlain(const char *at, const char *, Integer &value) noexcept
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
    if (*at != ',' && (*at == '.' || *at == 'e' || *at == 'E'))
        return nullptr;
    value = static_cast<Integer>(negative ? 0 - bits : bits);
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
