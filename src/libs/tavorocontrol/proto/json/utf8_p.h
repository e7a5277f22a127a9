#pragma once

#include <cstddef>
#include <cstdint>

namespace ajson {

struct Utf8CodePoint {
    std::uint32_t value;
    std::size_t length; ///< In bytes; 0 if the sequence is malformed.
};

/// What the first byte of a sequence determines: the length, and the bounds of the second byte. The
/// bounds exclude overlong forms, surrogates and code points above U+10FFFF.
struct Utf8Lead {
    std::size_t length;
    unsigned char secondMin;
    unsigned char secondMax;
};

constexpr Utf8Lead utf8Lead(unsigned char lead)
{
    if (lead < 0x80)
        return {1, 0, 0};
    if (lead >= 0xC2 && lead <= 0xDF)
        return {2, 0x80, 0xBF};
    if (lead >= 0xE0 && lead <= 0xEF)
        return {3, static_cast<unsigned char>(lead == 0xE0 ? 0xA0 : 0x80),
                static_cast<unsigned char>(lead == 0xED ? 0x9F : 0xBF)};
    if (lead >= 0xF0 && lead <= 0xF4)
        return {4, static_cast<unsigned char>(lead == 0xF0 ? 0x90 : 0x80),
                static_cast<unsigned char>(lead == 0xF4 ? 0x8F : 0xBF)};
    return {0, 0, 0};
}

/// Decodes the sequence at \a at, which is not \a end.
inline Utf8CodePoint decodeUtf8(const char *at, const char *end)
{
    const auto byte = [at](std::size_t i) {
        return static_cast<unsigned char>(at[i]);
    };
    const Utf8Lead lead = utf8Lead(byte(0));
    if (lead.length > static_cast<std::size_t>(end - at))
        return {0, 0};
    if (lead.length > 1 && (byte(1) < lead.secondMin || byte(1) > lead.secondMax))
        return {0, 0};
    std::uint32_t value = lead.length == 1 ? byte(0) : byte(0) & (0xFFU >> (lead.length + 1));
    for (std::size_t i = 1; i < lead.length; ++i) {
        if ((byte(i) & 0xC0) != 0x80)
            return {0, 0};
        value = value << 6 | (byte(i) & 0x3FU);
    }
    return {value, lead.length};
}

} // namespace ajson
