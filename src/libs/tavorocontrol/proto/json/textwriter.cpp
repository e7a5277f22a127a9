// Writes the content of a string:
//
//   plain character   32 to 126 but for quote and backslash   as it is
//   short escape      \b \t \n \f \r \" \\                    for 8, 9, 10, 12, 13, 34, 92
//   long escape       \u and four upper-case digits           for every other
//
// Kept: a code point above U+FFFF becomes two long escapes, of its bits 31 to 16 and 15 to 0, not
// a surrogate pair. The content ends at a NUL and at malformed UTF-8, without an error.

#include "textwriter.h"

#include "utf8_p.h"

namespace ajson {

namespace {

constexpr std::size_t maxEscapeSize = 12;

// NUL if there is no short escape.
constexpr char shortEscape(std::uint32_t codePoint)
{
    switch (codePoint) {
    case '\b':
        return 'b';
    case '\t':
        return 't';
    case '\n':
        return 'n';
    case '\f':
        return 'f';
    case '\r':
        return 'r';
    case '"':
    case '\\':
        return static_cast<char>(codePoint);
    default:
        return '\0';
    }
}

char *putLongEscape(char *at, std::uint32_t unit)
{
    constexpr char digits[] = "0123456789ABCDEF";
    *at++ = '\\';
    *at++ = 'u';
    for (int shift = 12; shift >= 0; shift -= 4)
        *at++ = digits[unit >> shift & 0xF];
    return at;
}

char *putEscape(char *at, std::uint32_t codePoint)
{
    if (const char letter = shortEscape(codePoint)) {
        *at++ = '\\';
        *at++ = letter;
        return at;
    }
    if (codePoint > 0xFFFF)
        at = putLongEscape(at, codePoint >> 16);
    return putLongEscape(at, codePoint & 0xFFFF);
}

} // namespace

char *writeEscaped(JsonWriter &writer, char *at, const char *from, const char *end)
{
    while (from != end && *from != '\0') {
        const Utf8CodePoint next = decodeUtf8(from, end);
        if (next.length == 0)
            break;
        from += next.length;
        at = writer.begin(at, maxEscapeSize + static_cast<std::size_t>(end - from) + 1);
        at = putEscape(at, next.value);
        at = putPlain(at, from, end);
    }
    return at;
}

} // namespace ajson
