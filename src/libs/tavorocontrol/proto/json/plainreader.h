#pragma once

// The fast path: values and keys in the form in which devices and this library write them, without
// blanks, escapes, points or exponents. The tokeniser reads any other form.

#include <tavorocontrol/proto/json/recordfields.h>
#include <tavorocontrol/proto/json/textscan.h>

#include <QtEndian>
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

/// The value of the digit \a c, or more than 9.
template <class Bits>
Bits digitValue(char c) noexcept
{
    return static_cast<Bits>(static_cast<unsigned char>(c)) - '0';
}

/// The number that eight digits make. \a digits are their values, the first in the lowest byte.
constexpr std::uint64_t eightDigitNumber(std::uint64_t digits) noexcept
{
    constexpr std::uint64_t firstOfFour = 0x000000FF000000FF;
    digits = digits * 10 + (digits >> 8); // pairs, in every other byte
    return ((digits & firstOfFour) * (100 + (1000000ULL << 32))
            + ((digits >> 16) & firstOfFour) * (1 + (10000ULL << 32)))
        >> 32;
}

/// Appends up to seven digits at \a at to \a bits. Returns the place after them, or \a at if there
/// are more or the input ends too early to see.
///
/// The place depends on the bytes and not on the prediction of a branch. This is faster for long
/// numbers, whose length is hard to predict, and slower for short ones.
template <class Bits>
Q_ALWAYS_INLINE const char *appendSevenDigits(const char *at, const char *end, Bits &bits) noexcept
{
    constexpr Bits scales[] = {1, 10, 100, 1000, 10000, 100000, 1000000, 10000000};
    if (static_cast<std::size_t>(end - at) < sizeof(std::uint64_t))
        return at;
    const std::uint64_t digits = qFromLittleEndian<quint64>(at) ^ eachByte('0');
    const std::uint64_t others = ((digits + eachByte(128 - 10)) | digits) & eachByte(128);
    if (others == 0)
        return at;
    const unsigned count = qCountTrailingZeroBits(quint64(others)) / 8;
    const std::uint64_t aligned = digits << 8 << (56 - count * 8); // zeros before the digits
    bits = bits * scales[count] + static_cast<Bits>(eightDigitNumber(aligned));
    return at + count;
}

/// Appends the digits at \a at to \a bits, of which only the low bits are kept, as with tokens.
/// Returns the place after them.
template <class Bits>
Q_ALWAYS_INLINE const char *appendDigits(const char *at, const char *end, Bits &bits) noexcept
{
    constexpr int predictedDigits = 2;
    for (int i = 0; i < predictedDigits; ++i) {
        const Bits digit = digitValue<Bits>(*at);
        if (digit > 9)
            return at;
        bits = bits * 10 + digit;
        ++at;
    }
    at = appendSevenDigits(at, end, bits);
    for (Bits digit = digitValue<Bits>(*at); digit <= 9; digit = digitValue<Bits>(*at)) {
        bits = bits * 10 + digit;
        ++at;
    }
    return at;
}

/// Reads the digits at \a at, and a minus sign before them, and returns the place after them. A
/// point or an exponent may follow. Returns null if there is no digit; \a value is then unchanged.
template <class Integer>
Q_ALWAYS_INLINE const char *readDigits(const char *at, const char *end, Integer &value) noexcept
{
    using Bits = std::conditional_t<std::is_same_v<Integer, bool> || sizeof(Integer) == 8,
                                    std::uint64_t, std::uint32_t>;
    const bool negative = std::is_signed_v<Integer> && *at == '-';
    if (negative)
        ++at;
    Bits bits = digitValue<Bits>(*at);
    if (bits > 9)
        return nullptr;
    at = appendDigits(at + 1, end, bits);
    value = static_cast<Integer>(negative ? 0 - bits : bits);
    return at;
}

/// \name Plain values
/// Each function reads the value at \a at and returns the place after it, or returns null and
/// leaves \a value unchanged. The functions rely on the NUL that ends the input.
/// @{

template <class Integer>
Q_ALWAYS_INLINE const char *readPlain(const char *at, const char *end, Integer &value) noexcept
{
    Integer integer{};
    at = readDigits(at, end, integer);
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
    value.assign(begin, static_cast<std::size_t>(quote - begin));
    return quote + 1;
}

/// @}

} // namespace ajson
