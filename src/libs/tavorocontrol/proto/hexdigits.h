#pragma once

#include <QtGlobal>

#include <array>
#include <string>

namespace Tavoro::ProtoModel {

/// The upper-case hexadecimal digit of \a value, which is 0 to 15.
constexpr char hexDigit(int value)
{
    return "0123456789ABCDEF"[value];
}

/// Returns \a bytes as upper-case hexadecimal digits, two per byte, first byte first. Devices are
/// looked up by serial number and MAC address in this form.
template <std::size_t size>
std::string hexDigits(const std::array<quint8, size> &bytes)
{
    std::string text;
    text.reserve(2 * size);
    for (const quint8 byte : bytes) {
        text += hexDigit(byte >> 4);
        text += hexDigit(byte & 0xF);
    }
    return text;
}

/// Returns true if \a text equals hexDigits() of \a bytes, without allocating memory.
template <std::size_t size>
bool isHexDigits(const std::string &text, const std::array<quint8, size> &bytes)
{
    if (text.size() != 2 * size)
        return false;
    for (std::size_t i = 0; i < size; ++i) {
        if (text[2 * i] != hexDigit(bytes[i] >> 4) || text[2 * i + 1] != hexDigit(bytes[i] & 0xF))
            return false;
    }
    return true;
}

/// The value of a hexadecimal digit of either case, -1 for anything else.
constexpr int hexValue(char digit)
{
    if (digit >= '0' && digit <= '9')
        return digit - '0';
    if (digit >= 'A' && digit <= 'F')
        return digit - 'A' + 10;
    return digit >= 'a' && digit <= 'f' ? digit - 'a' + 10 : -1;
}

/// The inverse of hexDigits(). Accepts digits of either case. Returns false if \a text does not
/// consist of two digits for each byte.
template <std::size_t size>
bool parseHexDigits(const std::string &text, std::array<quint8, size> &bytes)
{
    if (text.size() != 2 * size)
        return false;
    for (std::size_t i = 0; i < size; ++i) {
        const int high = hexValue(text[2 * i]);
        const int low = hexValue(text[2 * i + 1]);
        if (high < 0 || low < 0)
            return false;
        bytes[i] = static_cast<quint8>(high << 4 | low);
    }
    return true;
}

} // namespace Tavoro::ProtoModel
