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

// Writes up to the first character that needs an escape, at which from is then.
char *writePlain(JsonWriter &writer, char *at, const char *&from, const char *end)
{
    while (static_cast<std::size_t>(end - from) >= Block::size) {
        const Block block(from);
        if (block.notPlain())
            break;
        at = writer.reserve(at, Block::size);
        block.store(at);
        at += Block::size;
        from += Block::size;
    }
    at = writer.reserve(at, Block::size);
    while (from != end && isPlain(*from))
        *at++ = *from++;
    return at;
}

} // namespace

char *writeEscaped(JsonWriter &writer, char *at, const std::string &text, std::size_t rest)
{
    const char *from = text.data();
    const char *const end = from + text.size();
    for (;;) {
        at = writePlain(writer, at, from, end);
        if (from == end || *from == '\0')
            break;
        const Utf8CodePoint next = decodeUtf8(from, end);
        if (next.length == 0)
            break;
        from += next.length;
        at = putEscape(writer.reserve(at, maxEscapeSize), next.value);
    }
    return writer.reserve(at, rest);
}

} // namespace ajson
