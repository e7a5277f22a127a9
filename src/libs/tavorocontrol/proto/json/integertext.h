#pragma once

// Puts integers as decimal text. Each function returns the place after its text, and may overwrite
// up to three bytes after it.
//
// Digits come from tables, three at a time. Which digits are the first ones is mostly computed
// without branches: bodies hold numbers of any size, and a branch that the processor predicts wrong
// costs more than all digits.

#include <QtGlobal>

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <type_traits>

namespace ajson {

/// Four bytes for each number below 1000.
using DigitTable = std::array<char, 4000>;

/// Three digits; the last byte is not used.
constexpr DigitTable makeDigitGroups()
{
    DigitTable table{};
    for (std::size_t i = 0; i < 1000; ++i) {
        table[4 * i] = static_cast<char>('0' + i / 100);
        table[4 * i + 1] = static_cast<char>('0' + i / 10 % 10);
        table[4 * i + 2] = static_cast<char>('0' + i % 10);
    }
    return table;
}

/// The digits without leading zeros; the last byte is their count.
constexpr DigitTable makeSmallNumbers()
{
    DigitTable table = makeDigitGroups();
    for (std::size_t i = 0; i < 1000; ++i) {
        const std::size_t zeros = i < 10 ? 2 : i < 100 ? 1 : 0;
        for (std::size_t digit = zeros; digit < 3; ++digit)
            table[4 * i + digit - zeros] = table[4 * i + digit];
        table[4 * i + 3] = static_cast<char>(3 - zeros);
    }
    return table;
}

inline constexpr DigitTable digitGroups = makeDigitGroups();
inline constexpr DigitTable smallNumbers = makeSmallNumbers();

/// Puts a number below 1000 with leading zeros.
inline char *putGroup(char *at, std::size_t number) noexcept
{
    std::memcpy(at, &digitGroups[4 * number], 4);
    return at + 3;
}

/// Puts a number below 1000.
inline char *putSmallNumber(char *at, std::size_t number) noexcept
{
    std::memcpy(at, &smallNumbers[4 * number], 4);
    return at + smallNumbers[4 * number + 3];
}

/// Puts a number from 10^8: nine or ten digits.
inline char *putLongNumber(char *at, std::uint32_t number) noexcept
{
    const std::uint32_t thousands = number / 1000;
    const std::uint32_t millions = thousands / 1000;
    const std::uint32_t first = millions / 1000;
    *at = static_cast<char>('0' + first);
    at = putGroup(at + (first != 0), millions - 1000 * first);
    at = putGroup(at, thousands - 1000 * millions);
    return putGroup(at, number - 1000 * thousands);
}

inline char *putDigits(char *at, std::uint32_t number) noexcept
{
    if (number < 1000)
        return putSmallNumber(at, number);
    const std::uint32_t thousands = number / 1000;
    if (number < 1000000)
        return putGroup(putSmallNumber(at, thousands), number % 1000);
    if (number >= 100000000)
        return putLongNumber(at, number);
    at = putGroup(putSmallNumber(at, thousands / 1000), thousands % 1000);
    return putGroup(at, number % 1000);
}

inline char *putDigits(char *at, std::uint64_t number) noexcept
{
    if (number <= 0xFFFFFFFF)
        return putDigits(at, static_cast<std::uint32_t>(number));
    at = putDigits(at, number / 1000000);
    at = putGroup(at, number / 1000 % 1000);
    return putGroup(at, number % 1000);
}

/// Not inlined, so that the code of a record stays small.
template <class Integer, class Bits>
Q_NEVER_INLINE char *putOtherInteger(char *at, Bits bits) noexcept
{
    if constexpr (std::is_signed_v<Integer>) {
        const bool negative = static_cast<Integer>(bits) < 0;
        *at = '-';
        at += negative;
        bits = negative ? 0 - bits : bits;
    }
    return putDigits(at, bits);
}

template <class Integer>
Q_ALWAYS_INLINE char *putInteger(char *at, Integer number) noexcept
{
    using Bits = std::conditional_t<sizeof(Integer) == 8, std::uint64_t, std::uint32_t>;
    const auto bits = static_cast<Bits>(number);
    return bits < 1000 ? putSmallNumber(at, bits) : putOtherInteger<Integer>(at, bits);
}

} // namespace ajson
