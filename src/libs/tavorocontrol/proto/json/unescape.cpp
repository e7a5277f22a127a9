// Reads the content of a string:
//
//   content = { any but "\" | "\" escape }
//   escape  = '"' | "/" | "\" | "b" | "f" | "n" | "r" | "t" | "u" hex hex hex hex
//
// Kept: the halves of a surrogate pair are not combined; each becomes a three-byte sequence. \u0000
// is an error.

#include "valuereader.h"

#include <tavorocontrol/proto/hexdigits.h>

#include <algorithm>

namespace ajson {

namespace {

// 0, which is not a legal escape, if there are fewer than four digits.
unsigned hexQuad(const char *at, const char *end)
{
    if (end - at < 4)
        return 0;
    unsigned unit = 0;
    for (int i = 0; i < 4; ++i) {
        const int digit = Tavoro::ProtoModel::hexValue(at[i]);
        if (digit < 0)
            return 0;
        unit = unit * 16 + static_cast<unsigned>(digit);
    }
    return unit;
}

void appendUtf8(std::string &text, unsigned unit)
{
    if (unit < 0x80) {
        text += static_cast<char>(unit);
    } else if (unit < 0x800) {
        text += static_cast<char>(0xC0 | unit >> 6);
        text += static_cast<char>(0x80 | (unit & 0x3F));
    } else {
        text += static_cast<char>(0xE0 | unit >> 12);
        text += static_cast<char>(0x80 | (unit >> 6 & 0x3F));
        text += static_cast<char>(0x80 | (unit & 0x3F));
    }
}

// NUL if there is no such escape.
constexpr char unescaped(char letter)
{
    switch (letter) {
    case '"':
    case '/':
    case '\\':
        return letter;
    case 'b':
        return '\b';
    case 'f':
        return '\f';
    case 'n':
        return '\n';
    case 'r':
        return '\r';
    case 't':
        return '\t';
    default:
        return '\0';
    }
}

// Reads the escape whose backslash precedes at. Null if it is not an escape.
const char *appendEscape(const char *at, const char *end, std::string &text)
{
    if (at == end)
        return nullptr;
    if (*at == 'u') {
        const unsigned unit = hexQuad(at + 1, end);
        if (unit == 0)
            return nullptr;
        appendUtf8(text, unit);
        return at + 5;
    }
    const char c = unescaped(*at);
    if (c == '\0')
        return nullptr;
    text += c;
    return at + 1;
}

} // namespace

void stringValue(const JsonReader &reader, std::string &value)
{
    constexpr char words[] = "not a valid string.";
    const JsonToken &token = reader.token;
    if (token.kind != JsonTokenKind::word)
        reader.fail(words);
    value.clear();
    const char *at = token.text;
    const char *const end = at + token.length;
    for (;;) {
        const char *const escape = std::find(at, end, '\\');
        value.append(at, escape);
        if (escape == end)
            return;
        at = appendEscape(escape + 1, end, value);
        if (!at)
            reader.fail(words);
    }
}

} // namespace ajson
